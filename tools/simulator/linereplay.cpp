#include "simulator/linereplay.h"

#include <QFile>

namespace sim {

bool LineReplay::load(const QString &fileName, QString *error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: %2").arg(fileName, file.errorString());
        return false;
    }
    m_next = 0;
    m_lines.clear();
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (!line.isEmpty())
            m_lines.append(line);
    }
    if (m_lines.isEmpty())
        *error = QStringLiteral("%1 holds no line").arg(fileName);
    return !m_lines.isEmpty();
}

QByteArray LineReplay::next()
{
    const QByteArray line = m_lines.at(m_next++) + "\r\n";
    if (m_loop && atEnd())
        rewind();
    return line;
}

} // namespace sim
