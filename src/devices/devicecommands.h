#pragma once

#include <QObject>
#include <QPointer>
#include <QQueue>

class DeviceTargets;
class QMessageBox;
class QTimer;
class QWidget;
class SerialReader;

/// The commands that the user sends from the main window: "Stop process" and "Set time".
class DeviceCommands : public QObject {
    Q_OBJECT

public:
    /// `targets` is not owned and outlives this; `window` is the parent of the question.
    explicit DeviceCommands(DeviceTargets *targets, QWidget *window = nullptr);
    ~DeviceCommands() override;

    /// Stops the process of the active window's device; where none is fed, that of the only listened port.
    /// Was the active window fed by another port, the user is asked first, and nothing waits for the answer.
    /// With several ports and no live active window nothing is sent, it would be a guess. Which port was
    /// reached, or why none, is told.
    void stopProcess();
    /// Sets the clock of the active window's device, or of every listened port, one after the other with
    /// 500 ms between the two commands of each. Returns after the first command; the cursor shows until when
    /// the rest takes. A call meanwhile is ignored; that there is no port is told.
    void setTime();

signals:
    /// For the status bar; the time in ms.
    void message(const QString &text, int time);

private slots:
    void onPauseOver();
    void onAnswered(int answer);

private:
    /// False where there is no port to send to, which is told.
    bool hasPort();
    void stop(SerialReader *reader);
    void tellStopped(const QString &portName);
    void ask(const QString &portName, const QString &silentPort);
    /// Sets the clock of the first that is still listened on.
    void setNextClock();

    DeviceTargets *m_targets;
    QWidget *m_window;
    QQueue<QPointer<SerialReader>> m_clocks; // to be set; the first has been sent the time
    QTimer *m_pause; // child
    QPointer<QMessageBox> m_question;
    QString m_questionPort; // that the answer is about
};
