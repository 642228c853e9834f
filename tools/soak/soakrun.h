#pragma once

#include "soak/deviceprocess.h"
#include "soak/program.h"
#include "soak/repaints.h"
#include "soak/responseprobe.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

namespace soak {

/// What is asked of the program.
struct SoakPlan {
    double minutes = 10;
    int ports = 32;
    double restSpeed = 0; ///< instead, few devices, this many of their seconds in one; then all minimised
    qint64 burst = 0; ///< lines sent over one port as fast as they are taken, instead of the minutes
    bool onlyCount = false; ///< nothing but a lost line is a failure
    double answerLimit = 50; ///< ms, 99th percentile
    double memoryLimit = 5; ///< MB beyond the data
    double rateLimit = 20000; ///< lines a second of a burst
    double restShareLimit = 0.5; ///< per cent of a core, at rest
    double restMemoryLimit = 40; ///< MB of its own, at rest
};

/// One run: opens everything, lets time pass, prints a table of what it cost and what held.
class SoakRun : public QObject {
    Q_OBJECT

public:
    explicit SoakRun(const SoakPlan &plan);
    ~SoakRun() override;

    /// Whether all held. Runs the event loop.
    bool run();

private slots:
    void printRow();

private:
    struct Reading {
        double time = 0; // s
        double processor = 0; // s
        qint64 records = 0;
        qint64 memory = 0;
        qint64 data = 0;
        qint64 repaints = 0;
    };

    /// Runs the event loop until `done()` or for `seconds`; what done() says then.
    template <typename Done>
    bool waitFor(Done done, double seconds);
    static void pass(double seconds); // running the event loop
    bool open();
    void soak();
    void burst();
    bool rest();
    Reading restFor(const char *what, double seconds);
    bool countBothSides();
    Reading read() const;
    double beyondData(const Reading &reading) const; // MB
    bool verdict(const char *what, const QString &text, bool held, bool isLimit = true) const;

    SoakPlan m_plan;
    Program m_program;
    DeviceProcess m_devices;
    std::unique_ptr<ResponseProbe> m_probe;
    Repaints m_repaints;
    QElapsedTimer m_clock;
    QTimer m_rowTimer;
    Reading m_base; // everything is open, the devices are sending
    Reading m_last;
    double m_worstMemory = 0; // MB beyond the data
    double m_burstRate = 0; // lines a second
};

} // namespace soak
