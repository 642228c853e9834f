#pragma once

#include "simulator/frontpanel.h"
#include "simulator/handoverlog.h"
#include "simulator/linereplay.h"
#include "simulator/process.h"
#include "simulator/ptyendpoint.h"

#include <QTimer>

namespace sim {

/// What all devices of a run have in common.
struct RunSettings {
    QString folder; ///< where the ports' links stand
    double speed = 1; ///< device seconds in a second
    bool lineRate = false; ///< lines follow each other as fast as 19200 baud carry them, whatever the speed
    quint32 seed = 1; ///< everything random follows from it and the port's name
};

/// One device at the far end of a serial line, in the event loop of its thread.
class SimDevice : public QObject {
    Q_OBJECT

public:
    /// `log` may be null; else it outlives this.
    SimDevice(
        const DeviceSettings &settings, const RunSettings &run, HandOverLog *log, QObject *parent = nullptr);

    /// Brings the port up and, unless the settings say to wait, begins the first process.
    bool begin(QString *error);

    QString port() const { return m_settings.port; }
    const FrontPanel &panel() const { return m_panel; }
    const Process *process() const { return m_process.get(); } ///< null before the first one
    bool isPlugged() const { return m_endpoint.isPlugged(); }
    bool isListened() { return m_endpoint.isListened(); }
    /// No process runs and none will without being asked for.
    bool isIdle() const { return m_stage == Stage::Idle; }
    qint64 handedOver(LineKind kind) const { return m_handedOver[size_t(kind)]; } ///< lines, complete
    qint64 lost() const { return m_lost; } ///< lines that nobody took
    QString status();

    bool plug(QString *error); ///< again; the process has gone on meanwhile
    void unplug(); ///< between two lines
    void hangUp(int seconds); ///< in the middle of a line, back after `seconds` (0: not of itself)
    void startProcess(); ///< as the key at the device does, unless one runs
    void endProcess(char letter); ///< 'E', 'M' or 'S'
    /// The device goes on but sends nothing; above 20 s they are real seconds, below they follow the speed.
    void silence(int seconds);
    void connectPack();
    void disconnectPack(); ///< ends a process with an error
    void setSpeed(double speed);
    void sendRaw(const QByteArray &bytes); ///< as it stands
    FaultInjector &faults() { return m_faults; }

signals:
    void happened(const QString &text); ///< for people
    void processStarted();
    void processEnded(char letter); ///< its last line has been sent

private slots:
    void tick();
    void onReceived(const QByteArray &bytes);
    void onHandedOver(const QByteArray &bytes, int kind);
    void onLost(const QByteArray &bytes, int kind);
    void onListenedChanged(bool listened);
    void findPack();
    void comeBack();
    void goAway();

private:
    enum class Stage { Idle, Measuring, Ending, Pausing };

    double now() const; // ms
    double pauseLength(int seconds) const; // ms
    double interval(int bytes) const; // ms
    void arm(double due);
    void measure();
    void sendMeasurement();
    void sendReplayed();
    void sendEnd();
    void sendLine(const QByteArray &line, LineKind kind);
    void resistanceDue();
    void finish();
    void handleCommand(const QByteArray &text);
    void tell(const QString &text);

    DeviceSettings m_settings;
    RunSettings m_run;
    HandOverLog *m_log; // not owned, may be null
    PtyEndpoint m_endpoint;
    FrontPanel m_panel;
    FaultInjector m_faults;
    LineReplay m_replay;
    std::unique_ptr<Process> m_process;
    QElapsedTimer m_clock;
    QTimer m_timer;
    QTimer m_detectTimer;
    QTimer m_leaveTimer;
    QTimer m_returnTimer;
    QByteArray m_command;
    Stage m_stage = Stage::Idle;
    char m_endLetter = 'E';
    int m_endLine = 0;
    int m_processNumber = 0;
    int m_away = 0; // s, 0: for good
    int m_nextResistance = 0; // device seconds
    double m_due = 0; // ms, of what comes next
    double m_quietUntil = 0; // ms, after an end
    double m_silentUntil = 0; // ms, by a fault
    bool m_openedOnce = false;
    std::array<qint64, lineKinds> m_handedOver = {};
    qint64 m_lost = 0;
};

} // namespace sim
