#pragma once

#include "simulator/devicesettings.h"
#include "simulator/pack.h"

#include <QRandomGenerator>

namespace sim {

/// One process of a device on its pack, second by second of the device's own time.
class Process {
public:
    /// The same `settings` and `seed` give the same process.
    Process(const DeviceSettings &settings, quint32 seed);

    /// Goes on to the next line and says what it tells. The first call of a process
    /// that begins with 0 s only measures.
    const Reading &next();
    /// The newest reading again, with `letter` in the place of the end letter.
    Reading ending(char letter) const;
    /// What an older charger sends after its end: once no current, then a trickle of it.
    Reading trickle(int line);

    bool finished() const { return m_finished; }
    char endLetter() const { return m_failed ? 'S' : 'E'; }
    const Pack &pack() const { return m_pack; }
    const Reading &reading() const { return m_reading; }

private:
    enum class Step { Charge, Discharge, Balance, Rest };

    void second();
    double wantedCurrent() const;
    double chargeCurrent() const;
    void setLevels();
    bool stepDone();
    bool chargeDone();
    bool balanced() const;
    void nextStep();
    void measure();
    void measureCells();
    int steadyResistance();
    int measured(double value, double noise);

    DeviceSettings m_settings;
    QRandomGenerator m_random;
    QRandomGenerator m_noise;
    Pack m_pack;
    QVector<Step> m_plan;
    int m_step = 0;
    int m_seconds = 0;
    int m_stepSeconds = 0;
    int m_lines = 0;
    int m_resistance = 0; // mOhm, as last measured
    double m_current = 0; // mA, positive: charging
    double m_energy = 0; // mAh of this step
    double m_peak = 0; // mV, highest pack voltage of this step
    bool m_done = false; // the last step is, though an endless process goes on
    bool m_finished = false;
    bool m_failed = false;
    Reading m_reading;
};

} // namespace sim
