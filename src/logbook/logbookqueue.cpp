#include "logbook/logbookqueue.h"

#include <algorithm>

namespace {

void forget(const QString &file, QVector<LogbookEntry> *entries)
{
    const auto isOfFile = [&file](const LogbookEntry &entry) { return entry.recording.file == file; };
    entries->erase(std::remove_if(entries->begin(), entries->end(), isOfFile), entries->end());
}

void rename(const QPair<QString, QString> &names, QVector<LogbookEntry> *entries)
{
    for (LogbookEntry &entry : *entries) {
        if (entry.recording.file == names.first)
            entry.recording.file = names.second;
    }
}

} // namespace

void LogbookQueue::add(const LogbookBatch &batch)
{
    const bool movesRows = !batch.renamed.isEmpty() || !batch.droppedFiles.isEmpty();
    if (movesRows)
        follow(batch);
    (movesRows || batch.isUsers ? m_first : m_readings).append(batch);
}

// What waits knows rows by their files, and is overtaken.
void LogbookQueue::follow(const LogbookBatch &batch)
{
    for (LogbookBatch &waiting : m_readings) {
        for (QVector<LogbookEntry> *entries : {&waiting.assigned, &waiting.read}) {
            for (const auto &names : batch.renamed) {
                forget(names.second, entries);
                rename(names, entries);
            }
            for (const QString &file : batch.droppedFiles)
                forget(file, entries);
        }
    }
}

LogbookQueue::Lot LogbookQueue::next() const
{
    if (!m_first.isEmpty())
        return {m_first, true};
    return {m_readings.mid(0, mostReadings), false};
}

void LogbookQueue::drop(const Lot &lot, int count)
{
    (lot.isFirst ? m_first : m_readings).remove(0, count);
}
