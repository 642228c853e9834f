#include "logbook/logbookeditor.h"

#include "logbook/logbook.h"

#include <utility>

namespace {

constexpr int mostSteps = 100;

} // namespace

LogbookEditor::LogbookEditor(Logbook *logbook, QObject *parent)
    : QObject(parent)
    , m_logbook(logbook)
{
}

qint64 LogbookEditor::addPack(const LogbookPack &pack)
{
    if (m_logbook->isReadOnly())
        return LogbookPack::none;
    LogbookBatch batch;
    batch.packs.append(pack);
    batch.packs.last().id = Logbook::freshId();
    const qint64 id = batch.packs.last().id;
    apply(tr("New pack"), batch);
    return id;
}

void LogbookEditor::changePack(const LogbookPack &pack)
{
    const LogbookPack *before = m_logbook->pack(pack.id);
    if (!before)
        return;
    LogbookBatch batch;
    batch.packs.append(pack);
    apply(before->name == pack.name ? tr("Change pack") : tr("Rename pack"), batch);
}

void LogbookEditor::removePack(qint64 id)
{
    LogbookBatch batch;
    dropPack(id, LogbookPack::none, &batch);
    apply(tr("Remove pack"), batch);
}

void LogbookEditor::assign(const QVector<qint64> &ids, qint64 pack)
{
    LogbookBatch batch;
    put(ids, pack, &batch);
    apply(tr("Assign to pack"), batch);
}

void LogbookEditor::assignEach(const QHash<qint64, qint64> &packs)
{
    LogbookBatch batch;
    for (auto pack = packs.begin(); pack != packs.end(); ++pack)
        put({pack.key()}, pack.value(), &batch);
    apply(tr("Assign to pack"), batch);
}

void LogbookEditor::mergePacks(const QVector<qint64> &others, qint64 into)
{
    if (!m_logbook->pack(into))
        return;
    LogbookBatch batch;
    for (const qint64 id : others) {
        if (id != into)
            dropPack(id, into, &batch);
    }
    apply(tr("Merge packs"), batch);
}

qint64 LogbookEditor::takeApart(const QVector<qint64> &ids, const QString &name)
{
    if (m_logbook->isReadOnly())
        return LogbookPack::none;
    LogbookPack pack;
    for (const qint64 id : ids) {
        const LogbookRecording *recording = m_logbook->recording(id);
        if (const LogbookPack *like = recording ? m_logbook->pack(recording->pack) : nullptr) {
            pack = *like;
            break;
        }
    }
    pack.id = Logbook::freshId();
    pack.name = name;
    LogbookBatch batch;
    batch.packs.append(pack);
    put(ids, pack.id, &batch);
    apply(tr("Take apart"), batch);
    return pack.id;
}

void LogbookEditor::setNote(qint64 id, const QString &note)
{
    const LogbookRecording *recording = m_logbook->recording(id);
    if (!recording || recording->note == note)
        return;
    LogbookBatch batch;
    batch.assigned.append(*m_logbook->entryOf(recording->file));
    batch.assigned.last().recording.note = note;
    apply(tr("Change note"), batch);
}

void LogbookEditor::removeRecordings(const QVector<qint64> &ids)
{
    LogbookBatch batch;
    for (const qint64 id : ids) {
        if (const LogbookRecording *recording = m_logbook->recording(id))
            batch.droppedFiles.append(recording->file);
    }
    apply(tr("Remove from logbook"), batch);
}

QString LogbookEditor::undoText() const
{
    return canUndo() ? m_steps[m_done - 1].text : QString();
}

QString LogbookEditor::redoText() const
{
    return canRedo() ? m_steps[m_done].text : QString();
}

void LogbookEditor::undo()
{
    if (!canUndo() || m_logbook->isReadOnly())
        return;
    m_logbook->apply(m_steps[--m_done].backward);
    emit changed();
}

void LogbookEditor::redo()
{
    if (!canRedo() || m_logbook->isReadOnly())
        return;
    m_logbook->apply(m_steps[m_done++].forward);
    emit changed();
}

void LogbookEditor::apply(const QString &text, LogbookBatch batch)
{
    const bool empty = batch.packs.isEmpty() && batch.droppedPacks.isEmpty() && batch.assigned.isEmpty()
        && batch.droppedFiles.isEmpty();
    if (empty || m_logbook->isReadOnly())
        return;
    batch.isUsers = true;
    m_steps.resize(m_done);
    m_steps.append({text, batch, reverseOf(batch)});
    if (m_steps.size() > mostSteps)
        m_steps.removeFirst();
    m_done = m_steps.size();
    m_logbook->apply(batch);
    emit changed();
}

/// What brings back all that `batch` will change.
LogbookBatch LogbookEditor::reverseOf(const LogbookBatch &batch) const
{
    LogbookBatch reverse;
    reverse.isUsers = true;
    for (const LogbookPack &pack : batch.packs) {
        if (const LogbookPack *before = m_logbook->pack(pack.id))
            reverse.packs.append(*before);
        else
            reverse.droppedPacks.append(pack.id);
    }
    for (const qint64 id : batch.droppedPacks) {
        if (const LogbookPack *before = m_logbook->pack(id))
            reverse.packs.append(*before);
    }
    for (const LogbookEntry &entry : batch.assigned)
        reverse.assigned.append(*m_logbook->entryOf(entry.recording.file));
    for (const QString &file : batch.droppedFiles) {
        reverse.assigned.append(*m_logbook->entryOf(file));
        reverse.read.append(*m_logbook->entryOf(file));
    }
    return reverse;
}

void LogbookEditor::put(const QVector<qint64> &ids, qint64 pack, LogbookBatch *batch) const
{
    for (const qint64 id : ids) {
        const LogbookRecording *recording = m_logbook->recording(id);
        if (!recording || recording->pack == pack)
            continue;
        batch->assigned.append(*m_logbook->entryOf(recording->file));
        batch->assigned.last().recording.pack = pack;
    }
}

/// Its recordings go to `heir`.
void LogbookEditor::dropPack(qint64 id, qint64 heir, LogbookBatch *batch) const
{
    if (!m_logbook->pack(id))
        return;
    LogbookFilter ofPack;
    ofPack.pack = id;
    put(m_logbook->recordings(ofPack), heir, batch);
    batch->droppedPacks.append(id);
}
