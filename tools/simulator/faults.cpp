#include "simulator/faults.h"

#include <utility>

namespace sim {

namespace {

constexpr std::array<const char *, faultKinds> names
    = {"noise", "cut", "join", "fields", "silence", "hangup"};

} // namespace

QString faultName(Fault fault)
{
    return fault == Fault::None ? QStringLiteral("none") : QLatin1String(names[size_t(fault)]);
}

Fault findFault(const QString &name)
{
    for (int i = 0; i < faultKinds; ++i)
        if (name == QLatin1String(names[size_t(i)]))
            return Fault(i);
    return Fault::None;
}

FaultInjector::FaultInjector(const FaultRates &rates, quint32 seed)
    : m_rates(rates)
    , m_random(seed)
{
}

FaultInjector::Outcome FaultInjector::pass(const QByteArray &line)
{
    using Spoil = QByteArray (FaultInjector::*)(const QByteArray &);
    static constexpr std::array<Spoil, faultKinds + 1> spoils = {&FaultInjector::noisy, &FaultInjector::cut,
        &FaultInjector::joined, &FaultInjector::wrongFields, nullptr, nullptr, nullptr};

    Outcome outcome;
    const bool afterJoined = m_lineEndMissing;
    m_lineEndMissing = false;
    outcome.fault = draw();
    const Spoil spoil = spoils[size_t(outcome.fault)];
    outcome.bytes = spoil ? (this->*spoil)(line) : line;
    outcome.spoiled = spoil || afterJoined;
    return outcome;
}

/// Draws for every kind, hit or not, so that a changed rate of one leaves the course of the others as it was.
Fault FaultInjector::draw()
{
    Fault drawn = Fault::None;
    for (int i = faultKinds - 1; i >= 0; --i)
        if (m_random.generateDouble() < m_rates[size_t(i)])
            drawn = Fault(i);
    if (m_forced != Fault::None)
        drawn = std::exchange(m_forced, Fault::None);
    return drawn;
}

/// One to four bytes of any value in the place of others or between them.
QByteArray FaultInjector::noisy(const QByteArray &line)
{
    QByteArray noisy = line;
    const int hits = 1 + m_random.bounded(4);
    for (int i = 0; i < hits; ++i) {
        const int at = m_random.bounded(noisy.size());
        const char byte = char(m_random.bounded(256));
        if (m_random.bounded(2) == 0)
            noisy[at] = byte;
        else
            noisy.insert(at, byte);
    }
    return noisy;
}

/// The tail is lost, the line end is not.
QByteArray FaultInjector::cut(const QByteArray &line)
{
    return line.left(1 + m_random.bounded(qMax(1, line.size() - 3))) + "\r\n";
}

/// The line end is lost: the next line follows at once.
QByteArray FaultInjector::joined(const QByteArray &line)
{
    m_lineEndMissing = true;
    return line.trimmed();
}

/// One field too many or too few.
QByteArray FaultInjector::wrongFields(const QByteArray &line)
{
    const int comma = line.lastIndexOf(',');
    if (m_random.bounded(2) == 0 || comma < 0)
        return line.trimmed() + ",0\r\n";
    return line.left(comma) + "\r\n";
}

} // namespace sim
