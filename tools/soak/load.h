#pragma once

#include <QMap>
#include <QString>

namespace soak {

/// Lines by port.
using LineCounts = QMap<QString, qint64>;

/// What a process of simulated devices sends, and what it knows about it.
class Load {
public:
    virtual ~Load() = default;

    /// Brings the ports up; sending begins when the program opens them. False with the reason in `error`.
    virtual bool begin(QString *error) = 0;
    /// Sends nothing more of its own accord; what is queued still goes out.
    virtual void quieten() = 0;
    /// Measurement lines, complete in the system's hands.
    virtual LineCounts handedOver() const = 0;
    /// Lines that nobody took.
    virtual qint64 lost() const = 0;
};

} // namespace soak
