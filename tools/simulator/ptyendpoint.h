#pragma once

#include <QByteArray>
#include <QObject>
#include <QQueue>

#include <memory>

class QSocketNotifier;

namespace sim {

class OpenWatch;

/// The device's end of a serial line: a pseudo-terminal whose other end is linked under a port's name in a
/// folder. Like on a wire, what is sent while nobody has the port open is gone.
class PtyEndpoint : public QObject {
    Q_OBJECT

public:
    PtyEndpoint(const QString &folder, const QString &port, QObject *parent = nullptr);
    ~PtyEndpoint() override; ///< unplugs

    /// Makes the line and its link; false with the reason in `error`.
    bool plug(QString *error);
    /// Takes link and line away; whoever has the port open sees a hang-up.
    void unplug();

    bool isPlugged() const { return m_master >= 0; }
    /// Somebody has the port open. Where the system can't tell: always, while plugged.
    bool isListened();
    QString link() const { return m_link; }

    /// Sends `bytes` as a whole, never waiting; handedOver() or lost() tells `tag` what became of them.
    void send(const QByteArray &bytes, int tag);

signals:
    void handedOver(const QByteArray &bytes, int tag); ///< the last byte is in the system's hands
    void lost(const QByteArray &bytes, int tag); ///< nobody listens, nobody takes them, or the line went away
    void received(const QByteArray &bytes);
    void listenedChanged(bool listened);

private slots:
    void onReadable();
    void onWritable();
    void onOpened(int id, int openings);

private:
    struct Parcel {
        QByteArray bytes;
        int tag;
    };
    bool openPair(QString *error);
    bool makeLink(const QByteArray &target, QString *error) const;
    void dropQueue();

    QString m_link;
    std::shared_ptr<OpenWatch> m_watch;
    QSocketNotifier *m_readNotifier = nullptr;
    QSocketNotifier *m_writeNotifier = nullptr;
    QQueue<Parcel> m_queue;
    QByteArray m_slaveName;
    int m_sent = 0; // bytes of the queue's head
    int m_queued = 0; // bytes
    int m_master = -1;
    int m_slave = -1; // kept open so that the line's settings outlive the listener's opening and closing
    int m_watchId = -1;
    int m_listeners = 0;
};

} // namespace sim
