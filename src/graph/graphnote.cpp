#include "graph/graphnote.h"

#include "series/seriesstore.h"

#include <QCoreApplication>

namespace {

// Not every device says that its process has ended: then no current flows, or an end was marked.
bool mayHaveEnded(const SeriesStore &store)
{
    if (store.isEmpty())
        return false;
    const Varnel3Data newest = store.record(store.size() - 1);
    return newest.current == 0 || newest.flag4 == 'E';
}

QString withTime(const char *text, const QDateTime &time)
{
    return QCoreApplication::translate("MdiGraphChild", text).arg(time.toString(QStringLiteral("HH:mm:ss")));
}

} // namespace

QString GraphNote::text(const SeriesStore &store) const
{
    if (isFull())
        return withTime(
            QT_TRANSLATE_NOOP("MdiGraphChild", "Out of memory since %1: lines go on in the journal only"),
            m_fullSince);
    if (!m_silentSince.isValid())
        return {};
    return withTime(mayHaveEnded(store) ? QT_TRANSLATE_NOOP("MdiGraphChild", "Ended or silent since %1")
                                        : QT_TRANSLATE_NOOP("MdiGraphChild", "No line since %1"),
        m_silentSince);
}

bool GraphNote::setSilentSince(const QDateTime &since)
{
    if (since == m_silentSince)
        return false;
    m_silentSince = since;
    return true;
}
