#pragma once

#include "link/devicelink.h"
#include "link/lineframer.h"
#include "link/linedispatcher.h"
#include "ports/portinfo.h"

#include <QSerialPort>
#include <QTimer>

/// Listens on one port: bytes to lines, lines to recordings or command replies; sends commands to the device.
/// Created stopped. Whoever deletes it from one of its own signals or from a
/// call of its host uses deleteLater().
class SerialReader : public QObject, public DeviceLink {
    Q_OBJECT

public:
    /// `host` is not owned and outlives every call but the destructor.
    SerialReader(QObject *parent, const QString &portName, ReaderHost *host);
    ~SerialReader() override;

    /// Names of the ports of the host now that begin with "COM", in plain string order. Takes milliseconds.
    static QStringList availablePorts();

    /// Opens the port as start() does, but tells nobody when that fails; then errorText() says why.
    bool tryStart();
    /// Why the port could not be opened, in the user's language, with advice where there is any.
    QString errorText() const;
    bool isOpen() const { return m_port.isOpen(); }
    /// Handles what waits in the system. Blocks for some milliseconds, at most 200 where a device sends on
    /// and on.
    void readRest();

    /// Blocks at most 500 ms, and only while the system does not take the bytes. Lines that arrive
    /// meanwhile are handled after those that came before them, never from inside this call.
    /// Nothing is written to a closed port.
    void sendCommand(const QString &text) override;
    QString portName() const override { return m_portName; }
    bool isNewProcess() const override { return m_dispatcher.isNewProcess(); }
    /// A process is being recorded and the device was heard within the last 20 s.
    bool isRecording() const { return m_dispatcher.isRecording(); }
    /// Forgets the window of the recording, whatever is passed.
    void detachGraphChild(RecordingWindow *child) override;

signals:
    /// A line shorter than 10 characters: the reply to a command.
    void control_data(QString data);

public slots:
    /// Finishes the recording and closes the port. Harmless when it is closed. An end of process that waits
    /// for its shot is announced at once.
    void stop();
    /// Opens the port and throws away what waited in the system; a failure goes to the status bar and to
    /// ReaderHost::portFailed().
    bool start();
    void onReadyRead();
    void endProcesTimer();
    void timerTickEvent();

private slots:
    void onErrorOccurred(QSerialPort::SerialPortError error);
    void closeLostPort();

private:
    QString failureText() const;
    void configurePort();
    void discardInput();
    void closePort();
    void connectPort();
    bool readMore();
    void handleLine(const QByteArray &line);
    void armEndShot();
    bool dropEndShots();

    QString m_portName;
    PortInfo m_info; // as found by the last start
    QString m_refusal; // why the last start did not try, with advice; empty where it did
    QSerialPort m_port;
    ReaderHost *m_host; // not owned, outlives this
    LineDispatcher m_dispatcher;
    LineFramer m_framer;
    QByteArray m_line; // the one in hand; goes back and forth with the framer, so that both keep their memory
    QTimer *m_tick; // child
    QObject *m_endShots; // child, parent of the shots that end letters have armed
    bool m_handling
        = false; // lines are being handled: what arrives meanwhile is taken by the loop that does it
    bool m_writing = false; // sendCommand() waits
    int m_failures = 0; // of reading and writing since the last byte came
    bool m_lost = false; // the device has gone, the port is about to be closed
};
