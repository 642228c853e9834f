#pragma once

#include <QElapsedTimer>
#include <QMap>
#include <QObject>

class QTimer;

/// Ports that are wanted and can't be opened: asks for one attempt after the other until the port is no
/// longer waited for. One that has just arrived often can't be opened yet, so that nothing is said of it at
/// first.
class PortRetries : public QObject {
    Q_OBJECT

public:
    /// In ms.
    struct Pace {
        int interval = 250; ///< between two attempts
        int patience = 3000; ///< until a failure is to be told
        int slowInterval = 2000; ///< between two attempts once it has been told
    };

    explicit PortRetries(QObject *parent);
    /// Holds from the next port on that is waited for.
    void setPace(const Pace &pace) { m_pace = pace; }

    /// `portName` has just arrived: the first attempt is made at once.
    void start(const QString &portName);
    /// `portName` could not be opened, which was told.
    void wait(const QString &portName);
    void stop(const QString &portName);
    QStringList ports() const { return m_waiting.keys(); }

signals:
    /// Try to open `portName`; with `tell` set the user is to hear that it fails, once a port.
    void attempt(const QString &portName, bool tell);

private slots:
    void onTimer();

private:
    void schedule();

    QTimer *m_timer; // child
    Pace m_pace;
    QMap<QString, QElapsedTimer> m_waiting; // time since the arrival; invalid once the failure was told
};
