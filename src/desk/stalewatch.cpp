#include "desk/stalewatch.h"

#include "desk/shownrecord.h"
#include "desk/graphwindows.h"
#include "desk/statusfacts.h"
#include "graph/mdigraphchild.h"

#include <QDeadlineTimer>
#include <QLocale>
#include <QTimer>

namespace {

constexpr int interval = 1000; // ms, of looking
constexpr qint64 second = 1000; // ms

} // namespace

StaleWatch::StaleWatch(GraphWindows *graphs, ShownRecord *shownRecord, StatusFacts *facts, QObject *parent)
    : QObject(parent)
    , m_graphs(graphs)
    , m_shownRecord(shownRecord)
    , m_facts(facts)
{
    auto *timer = new QTimer(this);
    connect(timer, SIGNAL(timeout()), this, SLOT(look()));
    timer->start(interval);
}

QDateTime StaleWatch::staleSince(const MdiGraphChild *child) const
{
    if (!child || !child->isLive())
        return QDateTime();
    const Seen last = m_seen.value(child);
    if (!last.at.isValid()
        || last.revision != child->store().revision()) // a line has come since the last look
        return QDateTime();
    return m_lastSteady - last.steady >= patience * second ? last.at : QDateTime();
}

void StaleWatch::lookWhileStale()
{
    if (m_shown.isValid())
        look();
}

void StaleWatch::look()
{
    lookAt(QDateTime::currentDateTime(), QDeadlineTimer::current().deadline());
}

void StaleWatch::lookAt(const QDateTime &now, qint64 steady)
{
    m_lastLook = now;
    m_lastSteady = steady;
    noteArrivals();
    QMap<QString, QString> silent;
    const auto children = m_graphs->all();
    for (MdiGraphChild *child : children) {
        const QDateTime since = staleSince(child);
        child->setSilentSince(since);
        if (since.isValid())
            silent.insert(child->portName(),
                tr("%1: no line since %2").arg(child->portName(), QLocale().toString(since.time())));
    }
    m_facts->replace(StatusFacts::Silent, silent);
    if (silent != m_told)
        m_shownRecord->silenceChanged();
    m_told = silent;
    const QDateTime current = staleSince(m_graphs->current());
    if (current == m_shown)
        return;
    m_shown = current;
    m_shownRecord->setStaleSince(current);
}

void StaleWatch::noteArrivals()
{
    QHash<const MdiGraphChild *, Seen> noted;
    const auto children = m_graphs->all();
    for (const MdiGraphChild *child : children) {
        const Seen before = m_seen.value(child);
        const quint64 revision = child->store().revision();
        const bool fresh = !before.at.isValid() || before.revision != revision;
        noted.insert(child, fresh ? Seen{revision, m_lastLook, m_lastSteady} : before);
    }
    m_seen = noted;
}
