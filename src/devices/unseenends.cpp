#include "devices/unseenends.h"

#include "devices/deskreaderhost.h"
#include "devices/endnotice.h"
#include "desk/livewindows.h"
#include "desk/statusfacts.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr StatusFacts::Kind kinds[] = {StatusFacts::Failed, StatusFacts::Aborted, StatusFacts::Completed};

template <typename Condition>
bool removeFrom(QVector<EndedProcess> *ends, Condition condition)
{
    const auto from = std::remove_if(ends->begin(), ends->end(), condition);
    const bool found = from != ends->end();
    ends->erase(from, ends->end());
    return found;
}

} // namespace

UnseenEnds::UnseenEnds(
    DeskReaderHost *host, EndNotice *notice, const LiveWindows *windows, StatusFacts *facts, QObject *parent)
    : QObject(parent)
    , m_windows(windows)
    , m_facts(facts)
{
    connect(host, SIGNAL(recordingBegins(QString)), this, SLOT(onRecordingBegins(QString)));
    connect(notice, SIGNAL(untold(EndedProcess)), this, SLOT(add(EndedProcess)));
    connect(notice, SIGNAL(closed()), this, SLOT(look()));
}

// Its window may be current now, yet nobody has looked at it under a box. A device says several times that
// its process has ended.
void UnseenEnds::add(const EndedProcess &process)
{
    if (process.portName.isEmpty() || process.end < 0 || process.end >= int(std::size(kinds)))
        return;
    removeFrom(&m_ends, [&process](const EndedProcess &one) {
        return one.portName == process.portName && one.window == process.window;
    });
    m_ends.append(process);
    if (process.window) // queued: a widget says so while pointers to it still hold
        connect(process.window, SIGNAL(destroyed()), this, SLOT(look()), Qt::QueuedConnection);
    tell();
}

void UnseenEnds::onRecordingBegins(const QString &portName)
{
    if (removeFrom(&m_ends,
            [&portName](const EndedProcess &one) { return one.portName == portName && !one.hadWindow; }))
        tell();
}

void UnseenEnds::look()
{
    removeFrom(&m_ends, [this](const EndedProcess &one) {
        return one.hadWindow && (!one.window || m_windows->isCurrent(one.window));
    });
    tell();
}

void UnseenEnds::tell() const
{
    QMap<QString, QString> named[std::size(kinds)];
    for (const EndedProcess &one : m_ends)
        named[one.end].insert(
            one.portName + QLatin1Char(' ') + one.at.toString(QStringLiteral("HH:mm")), one.facts());
    for (size_t end = 0; end < std::size(kinds); ++end)
        m_facts->replace(kinds[end], named[end]);
}
