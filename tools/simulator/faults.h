#pragma once

#include <QByteArray>
#include <QRandomGenerator>
#include <QString>

#include <array>

namespace sim {

/// What can go wrong with a line on its way. The order is that of the names and rates.
enum class Fault { Noise, Cut, Join, Fields, Silence, HangUp, None };
constexpr int faultKinds = int(Fault::None);

/// Probability of each fault for each line.
using FaultRates = std::array<double, faultKinds>;

QString faultName(Fault fault); ///< "noise", "cut" ...
Fault findFault(const QString &name); ///< Fault::None when there is none of that name

/// Spoils lines at given rates, in the same way for the same seed.
class FaultInjector {
public:
    FaultInjector(const FaultRates &rates, quint32 seed);

    struct Outcome {
        QByteArray bytes; ///< what goes on the wire
        Fault fault = Fault::None;
        bool spoiled
            = false; ///< the line can't arrive as it was meant, because of its own or the last line's fault
    };
    /// `line` includes its line end. Silence and HangUp leave it whole: whoever sends has to act on them.
    Outcome pass(const QByteArray &line);
    /// The next line gets `fault` whatever the rates say.
    void force(Fault fault) { m_forced = fault; }
    void setRate(Fault fault, double rate) { m_rates[size_t(fault)] = rate; }

private:
    Fault draw();
    QByteArray noisy(const QByteArray &line);
    QByteArray cut(const QByteArray &line);
    QByteArray joined(const QByteArray &line);
    QByteArray wrongFields(const QByteArray &line);

    FaultRates m_rates;
    QRandomGenerator m_random;
    Fault m_forced = Fault::None;
    bool m_lineEndMissing = false;
};

} // namespace sim
