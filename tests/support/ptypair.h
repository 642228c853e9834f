#pragma once

#include <QByteArray>
#include <QString>

#include <termios.h>

/// A serial line: a pseudo-terminal whose device end is linked under a port name ("COM7") in a folder, so
/// that the program lists and opens it as a port. The object is the far end, where the device sits.
class PtyPair {
public:
    /// Links the device end as `folder`/`portName`.
    PtyPair(const QString &folder, const QString &portName);
    ~PtyPair();
    Q_DISABLE_COPY(PtyPair)

    QString portName() const { return m_portName; }
    /// Sends `bytes` to the program; waits while the line is full.
    void send(const QByteArray &bytes);
    /// What the program has sent since the last call; never waits.
    QByteArray received();
    /// Speed and the like as the program has set them.
    termios settings() const;
    /// Bytes that were sent and wait to be read.
    int waiting() const;
    /// Takes away all that was sent and is not read; for use once the program has gone.
    QByteArray takeUnread();
    /// Unplugs: the far end goes away and the link with it. Not to be used afterwards but for destruction.
    void hangUp();

private:
    QString m_portName;
    QString m_link;
    int m_master = -1;
    int m_slave = -1; // kept open so that the line outlives the program's opening and closing
};
