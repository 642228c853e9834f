#pragma once

#include "data/varnel3data.h"

#include <QByteArray>

#include <array>

class SeriesStore;

/// What a recording comes to. All of it counts to the end of the process: to the first record with an end
/// mark, as in the comparison of capacities, or an end letter, to the newest one without either.
struct LogbookFigures {
    static constexpr int curvePoints = 64; ///< of the small picture

    int records = 0; ///< 0: nothing but the file is known
    int device = Varnel3Data::NoDevice; ///< of the first record, as the next three
    int mode = Varnel3Data::NoMode;
    int cellType = Varnel3Data::noCellType;
    int cells = 0; ///< 0..16
    int duration = 0; ///< s, by the device's clock; a balancer's by its number of records
    int charge = 0; ///< mAh, as the comparison of capacities has it at the end mark
    double energy = 0.0; ///< Wh: voltage times current over time, by trapezia; 0 where no time passes
    int startVoltage = 0; ///< mV
    int endVoltage = 0; ///< mV
    int highestTemperature = 0; ///< tenths of a degree Celsius; 0 without a sensor
    int resistance = 0; ///< mOhm, of the pack: the smoothed one where it was measured last; 0: never
    std::array<float, Varnel3Data::maxCells> cellResistances = {}; ///< mOhm, measured last; 0: never
    int spread = -1; ///< mV, highest cell less lowest; -1 without cells
    int lowestCell = -1; ///< of those at the end, from 0 on; -1 without cells
    int end = Varnel3Data::NoEnd; ///< Varnel3Data::End, of the first record that tells one
    /// Heights 0..255 of the pack voltage at curvePoints times as far from each other, between the lowest
    /// and the highest of them; empty for fewer than two records.
    QByteArray curve;

    bool hasCellResistances() const;
    bool operator==(const LogbookFigures &other) const;
    bool operator!=(const LogbookFigures &other) const { return !(*this == other); }

    /// All at once.
    static LogbookFigures of(const SeriesStore &store);
    /// What the first record tells of a recording that is under way.
    static LogbookFigures ofFirst(const Varnel3Data &record);
};

/// The same for a long recording, some records at a time.
class LogbookReckoning {
public:
    /// `store` outlives this and does not change meanwhile.
    explicit LogbookReckoning(const SeriesStore &store);

    /// Looks at up to `most` records more. True while there are more.
    bool goOn(int most);
    /// Once there are no more.
    const LogbookFigures &figures() const { return m_figures; }

private:
    void addRecord(int index);
    void finish();
    void takeCells(const Varnel3Data &last);

    const SeriesStore &m_store;
    LogbookFigures m_figures;
    int m_next = 0;
    int m_last = -1; // the record that ends the process, once known
    int m_measured = -1; // the newest record up to it with a resistance
};
