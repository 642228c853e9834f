#pragma once

#include "soak/load.h"

#include <QProcess>

namespace soak {

/// The program's end of the process that plays the devices, so that their
/// work is not counted as the program's.
class DeviceProcess : public QObject {
    Q_OBJECT

public:
    ~DeviceProcess() override;

    /// Starts this program again with `arguments` and waits until its ports are there.
    bool start(const QStringList &arguments);
    /// Has the devices fall silent and tell what they sent; comes back while the event loop runs.
    void askForCounts();

    bool hasAnswered() const { return m_answered; }
    bool hasDied() const { return m_process.state() == QProcess::NotRunning; }
    const LineCounts &counts() const { return m_counts; }
    qint64 lost() const { return m_lost; }

private slots:
    void onReadable();

private:
    QProcess m_process;
    LineCounts m_counts;
    qint64 m_lost = 0;
    bool m_ready = false;
    bool m_answered = false;
};

} // namespace soak
