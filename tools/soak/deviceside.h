#pragma once

#include "soak/load.h"

#include <QByteArray>
#include <QObject>

namespace soak {

/// The process of the devices: plays a load, and answers on its standard output what is asked on its standard
/// input. "count" is answered by a line "PORT LINES" for each port, "lost LINES" and "done", once all that
/// was queued has gone out; nothing is sent afterwards. The end of the input ends the process.
class DeviceSide : public QObject {
    Q_OBJECT

public:
    /// `load` is not owned and outlives this.
    explicit DeviceSide(Load *load);

    /// Says "ready" once the ports are there; false when they can't be had,
    /// the reason said on standard error.
    bool begin();

private slots:
    void onReadable();
    void answerWhenSettled();

private:
    Load *m_load; // not owned
    QByteArray m_input;
    LineCounts m_counted;
};

} // namespace soak
