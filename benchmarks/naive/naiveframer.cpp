#include "naive/naiveframer.h"

#include <QString>

QStringList NaiveFramer::feed(const QByteArray &bytes)
{
    QStringList lines;
    for (const char byte : bytes) {
        if (byte == '#') {
            m_sinceHash = 0;
            m_line.append(byte);
            continue;
        }
        ++m_sinceHash;
        if (m_sinceHash <= 3 && static_cast<signed char>(byte) < 32) {
            m_line.append(QString::asprintf("%02d", byte).toLatin1());
        } else if (byte == '\n') {
            lines.append(QString::fromLatin1(m_line));
            m_line.clear();
        } else if (QChar::fromLatin1(byte).isPrint()) {
            m_line.append(byte);
        }
    }
    return lines;
}
