#include "graph/graphtitle.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

QString noFileName()
{
    return QCoreApplication::translate("MdiGraphChild", "No file name");
}

} // namespace

GraphTitle::GraphTitle()
    : m_text(noFileName())
{
}

QString GraphTitle::nameOf(const QString &file) const
{
    return file + QLatin1Char(' ') + m_portName;
}

QString GraphTitle::source() const
{
    return nameOf(QFileInfo(m_dataFile).fileName()).trimmed();
}

void GraphTitle::setPortName(const QString &port)
{
    m_portName = port;
    if (m_isNeverSaved)
        m_text = nameOf(noFileName()) + QLatin1Char('*');
}

void GraphTitle::recordCame(bool first)
{
    m_isNeverSaved = m_isNeverSaved || first;
    m_isUnsaved = true;
    if (!m_isNeverSaved)
        m_text = nameOf(m_dataFile) + QLatin1Char('*');
}

void GraphTitle::loaded(const QString &path)
{
    m_isNeverSaved = false;
    m_isUnsaved = false;
    m_dataFile = path;
    m_text = path;
}

void GraphTitle::saved(const QString &path, bool more)
{
    if (m_dataFile.isEmpty())
        m_text = m_dataFile = path;
    if (m_isUnsaved)
        m_text = nameOf(m_dataFile) + (more ? QStringLiteral("*") : QString());
    m_isUnsaved = more;
    m_isNeverSaved = false;
}
