#include "logbook/logbookdifference.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <tuple>

namespace {

bool isSame(const LogbookPack &a, const LogbookPack &b)
{
    const auto all = [](const LogbookPack &pack) {
        return std::tie(pack.id, pack.name, pack.cellType, pack.cells, pack.capacity, pack.note);
    };
    return all(a) == all(b);
}

bool isReadAlike(const LogbookEntry &a, const LogbookEntry &b)
{
    const auto all = [](const LogbookEntry &entry) {
        const LogbookRecording &recording = entry.recording;
        return std::tie(entry.stamp, entry.beginning, recording.start, recording.isStartApproximate,
            recording.port, recording.figures);
    };
    return all(a) == all(b);
}

/// Finds out what has become of each row.
class Rows {
public:
    Rows(const LogbookContent &held, const LogbookContent &content, LogbookBatch *batch)
        : m_held(held.entries)
        , m_batch(batch)
    {
        for (const LogbookEntry &row : m_held) {
            m_byId.insert(row.recording.id, &row);
            m_byFile.insert(row.recording.file, &row);
        }
        for (const LogbookEntry &entry : content.entries)
            m_ids.insert(entry.recording.id);
    }

    void take(LogbookEntry entry)
    {
        const LogbookEntry *before = formerOf(entry);
        const bool isMoved = before && before->recording.file != entry.recording.file;
        if (before)
            keep(before->recording, &entry);
        if (isMoved)
            m_batch->droppedFiles.append(before->recording.file); // and comes again, with its id
        if (!before || isMoved || before->recording.pack != entry.recording.pack
            || before->recording.note != entry.recording.note)
            m_batch->assigned.append(entry);
        if (!before || isMoved || !isReadAlike(*before, entry))
            m_batch->read.append(entry);
    }
    void dropOthers()
    {
        for (const LogbookEntry &row : m_held) {
            if (!m_kept.contains(row.recording.id))
                m_batch->droppedFiles.append(row.recording.file);
        }
    }

private:
    void keep(const LogbookRecording &known, LogbookEntry *entry)
    {
        m_kept.insert(known.id);
        entry->recording.id = known.id;
        entry->recording.isLive = known.isLive;
        entry->recording.isGone = known.isGone && known.file == entry->recording.file;
    }
    /// The row of the same recording; null without one.
    const LogbookEntry *formerOf(const LogbookEntry &entry) const
    {
        if (const LogbookEntry *same = m_byId.value(entry.recording.id))
            return same;
        const LogbookEntry *named = m_byFile.value(entry.recording.file);
        return named && !m_ids.contains(named->recording.id) && !named->holdsOtherThan(entry) ? named
                                                                                              : nullptr;
    }

    const QVector<LogbookEntry> &m_held;
    LogbookBatch *m_batch;
    QHash<qint64, const LogbookEntry *> m_byId; // of m_held
    QHash<QString, const LogbookEntry *> m_byFile;
    QSet<qint64> m_ids; // of the content
    QSet<qint64> m_kept; // of the rows that stay
};

void comparePacks(const QVector<LogbookPack> &held, const QVector<LogbookPack> &packs, LogbookBatch *batch)
{
    QSet<qint64> there;
    for (const LogbookPack &pack : packs) {
        there.insert(pack.id);
        const bool isHeld = std::any_of(
            held.begin(), held.end(), [&pack](const LogbookPack &other) { return isSame(other, pack); });
        if (!isHeld)
            batch->packs.append(pack);
    }
    for (const LogbookPack &pack : held) {
        if (!there.contains(pack.id))
            batch->droppedPacks.append(pack.id);
    }
}

} // namespace

LogbookBatch logbookDifference(const LogbookContent &held, const LogbookContent &content)
{
    LogbookBatch batch;
    comparePacks(held.packs, content.packs, &batch);
    Rows rows(held, content, &batch);
    for (const LogbookEntry &entry : content.entries) {
        if (!entry.recording.file.isEmpty())
            rows.take(entry);
    }
    rows.dropOthers();
    return batch;
}
