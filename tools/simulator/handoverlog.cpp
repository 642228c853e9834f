#include "simulator/handoverlog.h"

namespace sim {

namespace {

/// On one line, bytes that can't be printed as \xNN.
QByteArray printable(const QByteArray &bytes)
{
    const QByteArray line = bytes.trimmed();
    QByteArray text;
    for (const char byte : line) {
        if (byte >= ' ' && byte < 127 && byte != '\\')
            text += byte;
        else
            text += "\\x" + QByteArray(1, byte).toHex();
    }
    return text;
}

} // namespace

const char *lineKindName(LineKind kind)
{
    static const char *const names[lineKinds] = {"line", "end", "resistance", "reply", "spoiled", "raw"};
    return names[int(kind)];
}

bool HandOverLog::open(const QString &fileName, QString *error)
{
    m_file.setFileName(fileName);
    m_clock.start();
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return true;
    *error = QStringLiteral("%1: %2").arg(fileName, m_file.errorString());
    return false;
}

void HandOverLog::write(const QString &port, LineKind kind, bool lost, const QByteArray &bytes)
{
    if (!m_file.isOpen())
        return;
    m_file.write(QByteArray::number(m_clock.elapsed()) + '\t' + port.toUtf8() + '\t' + (lost ? "lost-" : "")
        + lineKindName(kind) + '\t' + printable(bytes) + '\n');
}

} // namespace sim
