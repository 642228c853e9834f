#include "soak/soakrun.h"

#include "soak/processusage.h"

#include <QEventLoop>

#include <cstdarg>
#include <cstdio>

namespace soak {

namespace {

constexpr double megabyte = 1e6;
constexpr double lookPeriod = 0.02; // s
constexpr double openTime = 60; // s, most that opening may take
constexpr double warmUp = 5; // s until everything has been drawn once
constexpr double burstPause = 3; // s without a record that end a burst
constexpr double drainTime = 10; // s for what is still on its way

__attribute__((format(printf, 1, 2))) void say(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
    std::fflush(stdout);
}

} // namespace

SoakRun::SoakRun(const SoakPlan &plan)
    : m_plan(plan)
{
    if (m_plan.burst > 0)
        m_plan.ports = 1;
    connect(&m_rowTimer, SIGNAL(timeout()), this, SLOT(printRow()));
}

SoakRun::~SoakRun() = default;

template <typename Done>
bool SoakRun::waitFor(Done done, double seconds)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && double(clock.elapsed()) < seconds * 1000)
        pass(lookPeriod);
    return done();
}

void SoakRun::pass(double seconds)
{
    QEventLoop loop;
    QTimer::singleShot(int(seconds * 1000), Qt::PreciseTimer, &loop, SLOT(quit()));
    loop.exec();
}

bool SoakRun::run()
{
    if (!open())
        return false;
    if (m_plan.restSpeed > 0) {
        const bool rested = rest();
        return countBothSides() && rested;
    }
    m_plan.burst > 0 ? burst() : soak();
    bool held = countBothSides();
    if (m_plan.burst > 0)
        return verdict("rate",
                   QStringLiteral("%1 lines a second, wanted %2")
                       .arg(m_burstRate, 0, 'f', 0)
                       .arg(m_plan.rateLimit, 0, 'f', 0),
                   m_burstRate >= m_plan.rateLimit)
            && held;
    const ResponseProbe::Answers answers = m_probe->all();
    held &= verdict("memory",
        QStringLiteral("at most %1 MB beyond records and series, limit %2")
            .arg(m_worstMemory, 0, 'f', 1)
            .arg(m_plan.memoryLimit),
        m_worstMemory <= m_plan.memoryLimit);
    held &= verdict("answers",
        QStringLiteral("99 of 100 within %1 ms, limit %2; longest %3 ms")
            .arg(answers.percentile99, 0, 'f', 1)
            .arg(m_plan.answerLimit)
            .arg(answers.longest, 0, 'f', 0),
        answers.percentile99 <= m_plan.answerLimit);
    return held;
}

bool SoakRun::open()
{
    QStringList arguments{QStringLiteral("--devices"), m_program.portFolder(), QStringLiteral("--ports"),
        QString::number(m_plan.ports)};
    if (m_plan.burst > 0)
        arguments += {QStringLiteral("--burst"), QString::number(m_plan.burst)};
    if (m_plan.restSpeed > 0)
        arguments += {QStringLiteral("--rest"), QString::number(m_plan.restSpeed)};
    if (!m_devices.start(arguments)) {
        say("the devices did not start\n");
        return false;
    }
    m_clock.start();
    m_program.open(m_plan.ports);
    if (!waitFor([this] { return m_program.recordings() == m_plan.ports; }, openTime)) {
        say("%d ports listened on, %d recordings, wanted %d\n", m_program.listened(), m_program.recordings(),
            m_plan.ports);
        return false;
    }
    m_program.tile();
    if (m_plan.restSpeed <= 0)
        m_program.openDisplays();
    return true;
}

void SoakRun::soak()
{
    say("%d ports at the rate of 19200 baud for %g minutes\n\n", m_plan.ports, m_plan.minutes);
    if (!m_plan.onlyCount)
        pass(warmUp);
    m_probe = std::make_unique<ResponseProbe>();
    m_base = m_last = read();
    say("%8s %10s %8s %8s %10s %10s %10s %10s %10s\n", "minute", "records", "a sec", "cpu %", "memory MB",
        "data MB", "beyond MB", "99% in ms", "longest");
    const double seconds = m_plan.minutes * 60;
    m_rowTimer.start(int(qMin(60.0, seconds / 4) * 1000));
    pass(seconds + 0.5);
    m_rowTimer.stop();
    say("\n");
}

void SoakRun::burst()
{
    say("%lld lines over one port, as fast as they are taken\n\n", static_cast<long long>(m_plan.burst));
    const Reading begin = read();
    Reading newest = begin;
    const auto paused = [this, &newest] {
        const Reading now = read();
        if (now.records > newest.records)
            newest = now;
        return now.records >= m_plan.burst || now.time - newest.time > burstPause;
    };
    while (!waitFor(paused, 1)) { }
    m_burstRate = double(newest.records - begin.records) / (newest.time - begin.time);
}

// As a user leaves it for a day: the graphs in sight, every display besides, and all of them minimised.
bool SoakRun::rest()
{
    say("%d ports, %g of their seconds in one, for %g minutes\n\n", m_plan.ports, m_plan.restSpeed,
        m_plan.minutes);
    if (!m_plan.onlyCount)
        pass(warmUp);
    say("%10s %10s %10s %8s %10s %10s\n", "windows", "seconds", "records", "cpu %", "memory MB", "repaints");
    const double seconds = m_plan.minutes * 60 / 3;
    const Reading seen = restFor("graphs", seconds);
    m_program.openDisplays();
    restFor("all", seconds);
    m_program.minimise();
    const bool minimised = waitFor([this] { return m_program.isMinimised(); }, drainTime);
    const Reading unseen = restFor("minimised", seconds);
    say("\n");
    const double share = seen.processor / seen.time * 100;
    bool held = verdict("share",
        QStringLiteral("%1 % of a core with the graphs in sight, limit %2")
            .arg(share, 0, 'f', 2)
            .arg(m_plan.restShareLimit),
        share <= m_plan.restShareLimit);
    const double memory = double(seen.memory) / megabyte;
    held &= verdict("memory",
        QStringLiteral("%1 MB of its own, limit %2").arg(memory, 0, 'f', 1).arg(m_plan.restMemoryLimit),
        memory <= m_plan.restMemoryLimit);
    const QString text = minimised ? QStringLiteral("%1 while minimised, wanted none").arg(unseen.repaints)
                                   : QStringLiteral("the windows were not minimised");
    return verdict("repaints", text, minimised && unseen.records > 0 && unseen.repaints == 0, false) & held;
}

// What a span of this many seconds has cost, and the memory at its end. Some records come meanwhile.
SoakRun::Reading SoakRun::restFor(const char *what, double seconds)
{
    constexpr int someRecords = 10;
    const Reading begin = read();
    pass(seconds);
    waitFor([this, &begin] { return m_program.recordCount() >= begin.records + someRecords; }, openTime);
    Reading end = read();
    end.time -= begin.time;
    end.processor -= begin.processor;
    end.records -= begin.records;
    end.repaints -= begin.repaints;
    say("%10s %10.0f %10lld %8.2f %10.1f %10lld\n", what, end.time, static_cast<long long>(end.records),
        end.processor / end.time * 100, double(end.memory) / megabyte, static_cast<long long>(end.repaints));
    return end;
}

SoakRun::Reading SoakRun::read() const
{
    return {double(m_clock.nsecsElapsed()) * 1e-9, processorSeconds(), m_program.recordCount(), ownMemory(),
        m_program.dataSize(), m_repaints.count()};
}

// What is beyond the data when the devices have just begun is the program itself.
double SoakRun::beyondData(const Reading &reading) const
{
    return double((reading.memory - m_base.memory) - (reading.data - m_base.data)) / megabyte;
}

void SoakRun::printRow()
{
    const Reading now = read();
    const ResponseProbe::Answers answers = m_probe->newest();
    const double passed = now.time - m_last.time;
    m_worstMemory = qMax(m_worstMemory, beyondData(now));
    say("%8.1f %10lld %8.0f %8.1f %10.1f %10.1f %10.1f %10.1f %10.1f\n", (now.time - m_base.time) / 60,
        static_cast<long long>(now.records), double(now.records - m_last.records) / passed,
        (now.processor - m_last.processor) / passed * 100, double(now.memory) / megabyte,
        double(now.data) / megabyte, beyondData(now), answers.percentile99, answers.longest);
    m_last = now;
}

bool SoakRun::countBothSides()
{
    m_devices.askForCounts();
    waitFor([this] { return m_devices.hasAnswered() || m_devices.hasDied(); }, openTime);
    const LineCounts sent = m_devices.counts();
    waitFor([this, &sent] { return m_program.records() == sent; }, drainTime);
    const LineCounts kept = m_program.records();
    qint64 lines = 0;
    for (auto port = sent.cbegin(); port != sent.cend(); ++port) {
        lines += port.value();
        if (kept.value(port.key()) != port.value())
            say("%s: %lld lines sent, %lld records\n", qPrintable(port.key()),
                static_cast<long long>(port.value()), static_cast<long long>(kept.value(port.key())));
    }
    const bool held = m_devices.hasAnswered() && m_devices.lost() == 0 && kept == sent && lines > 0;
    return verdict("records",
        QStringLiteral("%1 of %2 lines sent over %3 ports, %4 not taken")
            .arg(m_program.recordCount())
            .arg(lines)
            .arg(sent.size())
            .arg(m_devices.lost()),
        held, false);
}

bool SoakRun::verdict(const char *what, const QString &text, bool held, bool isLimit) const
{
    const bool counts = !isLimit || !m_plan.onlyCount;
    say("%-8s %-72s %s\n", what, qPrintable(text),
        held         ? "held"
            : counts ? "NOT HELD"
                     : "not held, not asked for");
    return held || !counts;
}

} // namespace soak
