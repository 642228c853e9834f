#pragma once

#include <QByteArray>
#include <QStringList>

/// Framing as one would write it first: byte by byte, appending to a QByteArray.
class NaiveFramer {
public:
    /// The lines that `bytes` complete.
    QStringList feed(const QByteArray &bytes);

private:
    QByteArray m_line;
    int m_sinceHash = 0;
};
