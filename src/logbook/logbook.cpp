#include "logbook/logbook.h"

#include "logbook/logbookdifference.h"
#include "logbook/logbookkeeper.h"

#include <QCollator>
#include <QLocale>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr qint64 noStart = std::numeric_limits<qint64>::min(); // sorts last
constexpr int nowhere = -1; // of a row

qint64 startOf(const QDate &day)
{
    return day.startOfDay().toMSecsSinceEpoch();
}

bool contains(const QString &words, const QStringList &wanted)
{
    return std::all_of(
        wanted.begin(), wanted.end(), [&](const QString &word) { return words.contains(word); });
}

} // namespace

Logbook::Logbook(QObject *parent)
    : QObject(parent)
{
}

Logbook::~Logbook() = default;

void Logbook::open(const QString &folder)
{
    m_isReadOnly = true; // until it is known what there is to change
    m_keeper = std::make_unique<LogbookKeeper>(folder,
        LogbookKeeper::Listener{[this](const LogbookContent &content) { takeContent(content); },
            [this](const QString &reason) {
                setTrouble(m_isReadOnly,
                    reason.isEmpty() ? QString()
                                     : tr("The logbook can't be written for now: %1").arg(reason));
            },
            [this](
                const QString &reason) { setTrouble(true, tr("The logbook can't be kept: %1").arg(reason)); },
            [this](const LogbookContent &content) { takeChanged(content); }});
}

QString Logbook::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}

bool Logbook::isWritten() const
{
    return !m_keeper || m_keeper->isIdle();
}

bool Logbook::isUsersWritten() const
{
    return !m_keeper || !m_keeper->holdsUsers();
}

const LogbookRecording *Logbook::recording(qint64 id) const
{
    const int index = m_byId.value(id, nowhere);
    return index < 0 ? nullptr : &entryAt(index).recording;
}

const LogbookRecording *Logbook::recordingOf(const QString &file) const
{
    const LogbookEntry *entry = entryOf(file);
    return entry ? &entry->recording : nullptr;
}

const LogbookEntry *Logbook::entryOf(const QString &file) const
{
    const int index = m_byFile.value(file, nowhere);
    return index < 0 ? nullptr : &entryAt(index);
}

QVector<qint64> Logbook::recordings(const LogbookFilter &filter) const
{
    const QStringList words
        = filter.text.toCaseFolded().simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const qint64 from = filter.from.isValid() ? startOf(filter.from) : noStart;
    const qint64 end
        = filter.to.isValid() ? startOf(filter.to.addDays(1)) : std::numeric_limits<qint64>::max();
    std::vector<const Row *> found;
    for (const Row &row : m_rows) {
        const LogbookRecording &recording = row.entry.recording;
        const bool fits = (filter.pack == LogbookFilter::everyPack || filter.pack == recording.pack)
            && (filter.cellType == LogbookFilter::any || filter.cellType == recording.figures.cellType)
            && (filter.mode == LogbookFilter::any || filter.mode == recording.figures.mode)
            && row.start >= from && row.start < end && (row.start != noStart || !filter.to.isValid())
            && contains(row.words, words);
        if (fits)
            found.push_back(&row);
    }
    std::sort(found.begin(), found.end(), [](const Row *a, const Row *b) {
        return a->start != b->start ? a->start > b->start : a->entry.recording.file < b->entry.recording.file;
    });
    QVector<qint64> ids;
    ids.reserve(int(found.size()));
    for (const Row *row : found)
        ids += row->entry.recording.id;
    return ids;
}

const LogbookPack *Logbook::pack(qint64 id) const
{
    const auto found = std::find_if(
        m_packs.begin(), m_packs.end(), [id](const LogbookPack &pack) { return pack.id == id; });
    return found == m_packs.end() ? nullptr : found;
}

QString Logbook::packName(qint64 id) const
{
    const LogbookPack *found = pack(id);
    return found ? found->name : QString();
}

qint64 Logbook::packToOffer(qint64 id) const
{
    const LogbookRecording *asked = recording(id);
    if (!asked || asked->pack != LogbookPack::none || asked->port.isEmpty())
        return LogbookPack::none;
    const Row *newest = nullptr;
    for (const Row &row : m_rows) {
        const LogbookRecording &other = row.entry.recording;
        if (other.pack != LogbookPack::none && other.port == asked->port
            && other.figures.cellType == asked->figures.cellType
            && other.figures.cells == asked->figures.cells && (!newest || row.start > newest->start))
            newest = &row;
    }
    return newest ? newest->entry.recording.pack : LogbookPack::none;
}

QHash<qint64, qint64> Logbook::packsToOffer(const QVector<qint64> &ids) const
{
    using Place = QPair<QString, QPair<int, int>>; // port, chemistry, cells
    const auto placeOf = [](const LogbookRecording &recording) {
        return Place(recording.port, {recording.figures.cellType, recording.figures.cells});
    };
    QHash<Place, const Row *> newest;
    for (const Row &row : m_rows) {
        if (row.entry.recording.pack == LogbookPack::none || row.entry.recording.port.isEmpty())
            continue;
        const Row *&known = newest[placeOf(row.entry.recording)];
        if (!known || row.start > known->start)
            known = &row;
    }
    QHash<qint64, qint64> packs;
    for (const qint64 id : ids) {
        const LogbookRecording *asked = recording(id);
        const Row *row = asked && asked->pack == LogbookPack::none ? newest.value(placeOf(*asked)) : nullptr;
        if (row)
            packs.insert(id, row->entry.recording.pack);
    }
    return packs;
}

QString Logbook::endText(const LogbookRecording &recording)
{
    switch (recording.figures.end) {
    case Varnel3Data::Completed:
        return tr("Completed");
    case Varnel3Data::Aborted:
        return tr("Aborted");
    case Varnel3Data::Failed:
        return tr("Error");
    default:
        return recording.isLive ? tr("Recording") : tr("No end");
    }
}

void Logbook::setFolders(const QStringList &folders)
{
    LogbookBatch batch;
    batch.folders = folders;
    batch.isUsers = true;
    apply(batch);
}

void Logbook::take(const LogbookEntry &found)
{
    LogbookBatch batch;
    if (!entryOf(found.recording.file))
        batch.assigned.append(found);
    batch.read.append(found);
    apply(batch);
}

void Logbook::takeOther(const LogbookEntry &found)
{
    LogbookBatch batch;
    if (const LogbookRecording *before = recordingOf(found.recording.file))
        m_overtaken.insert(before->id);
    batch.droppedFiles.append(found.recording.file);
    batch.assigned.append(found);
    batch.read.append(found);
    apply(batch);
}

// The file would lose the row at the new name even where there is none to be renamed.
void Logbook::rename(const QString &file, const QString &newFile)
{
    if (file == newFile || !m_byFile.contains(file))
        return;
    LogbookBatch batch;
    batch.renamed.append({file, newFile});
    apply(batch);
}

void Logbook::setGone(const QString &file, bool gone)
{
    const int index = m_byFile.value(file, nowhere);
    if (index < 0 || entryAt(index).recording.isGone == gone)
        return;
    m_rows[size_t(index)].entry.recording.isGone = gone;
    emit recordingsChanged({entryAt(index).recording.id});
}

void Logbook::drop(const QString &file)
{
    LogbookBatch batch;
    batch.droppedFiles.append(file);
    apply(batch);
}

void Logbook::addRefused(const QVector<qint64> &keys)
{
    LogbookBatch batch;
    for (const qint64 key : keys) {
        if (!m_refused.contains(key))
            batch.refused.append(key);
    }
    if (!batch.refused.isEmpty())
        apply(batch);
}

qint64 Logbook::freshId()
{
    return qint64(QRandomGenerator::system()->generate64() >> 2U) | 1;
}

void Logbook::apply(LogbookBatch batch)
{
    const auto isOther
        = [this](const LogbookEntry &entry) { return m_overtaken.contains(entry.recording.id); };
    for (QVector<LogbookEntry> *entries : {&batch.assigned, &batch.read})
        entries->erase(std::remove_if(entries->begin(), entries->end(), isOther), entries->end());
    const Changes changes = change(&batch);
    if (m_keeper && !m_isReadOnly)
        m_keeper->write(batch);
    tell(batch, changes);
}

Logbook::Changes Logbook::change(LogbookBatch *batch)
{
    Changes changes;
    renameRows(*batch, &changes);
    for (const QString &file : qAsConst(batch->droppedFiles)) {
        const int index = m_byFile.value(file, nowhere);
        if (index >= 0)
            remove(index, &changes);
    }
    changePacks(*batch, &changes);
    assignRows(batch, &changes);
    readRows(batch, &changes);
    if (batch->folders)
        m_folders = *batch->folders;
    for (const qint64 key : qAsConst(batch->refused))
        m_refused.insert(key);
    return changes;
}

// What was found before is brought in once more: some of it may be in the file already.
void Logbook::takeContent(const LogbookContent &content)
{
    m_isReadOnly = content.isReadOnly;
    m_isOpen = true;
    m_packs = content.packs;
    m_folders = content.folders;
    for (const qint64 key : content.refused)
        m_refused.insert(key);
    sortPacks();
    const std::vector<Row> before = std::exchange(m_rows, {});
    m_byId.clear();
    m_byFile.clear();
    m_rows.reserve(size_t(content.entries.size()));
    for (const LogbookEntry &entry : content.entries) {
        if (!entry.recording.file.isEmpty() && !m_byFile.contains(entry.recording.file))
            add(entry);
    }
    for (const Row &row : before)
        take(row.entry);
    emit opened();
    setTrouble(content.isReadOnly, content.trouble);
    if (!content.told.isEmpty())
        emit told(content.told);
}

// As if it had been changed here, but for the file.
void Logbook::takeChanged(const LogbookContent &content)
{
    LogbookContent held;
    held.packs = m_packs;
    held.entries.reserve(size());
    for (const Row &row : m_rows)
        held.entries += row.entry;
    LogbookBatch batch = logbookDifference(held, content);
    if (content.folders != m_folders)
        batch.folders = content.folders;
    batch.refused = content.refused;
    const Changes changes = change(&batch);
    tell(batch, changes);
}

void Logbook::setTrouble(bool isReadOnly, const QString &trouble)
{
    m_isReadOnly = isReadOnly;
    if (std::exchange(m_trouble, trouble) != trouble)
        emit troubleChanged();
}

void Logbook::renameRows(const LogbookBatch &batch, Changes *changes)
{
    for (const auto &names : batch.renamed) {
        const int replaced = m_byFile.value(names.second, nowhere);
        if (replaced >= 0)
            remove(replaced, changes);
        const int index = m_byFile.take(names.first);
        m_byFile.insert(names.second, index);
        Row &row = m_rows[size_t(index)];
        row.entry.recording.file = names.second;
        row.entry.recording.isGone = false;
        describe(&row);
        changes->changed += row.entry.recording.id;
    }
}

void Logbook::changePacks(const LogbookBatch &batch, Changes *changes)
{
    if (batch.packs.isEmpty() && batch.droppedPacks.isEmpty())
        return;
    QSet<qint64> touched;
    for (const LogbookPack &pack : batch.packs) {
        touched.insert(pack.id);
        const auto known = std::find_if(
            m_packs.begin(), m_packs.end(), [&](const LogbookPack &other) { return other.id == pack.id; });
        if (known == m_packs.end())
            m_packs.append(pack);
        else
            *known = pack;
    }
    for (const qint64 id : batch.droppedPacks) {
        touched.insert(id);
        m_packs.erase(std::remove_if(m_packs.begin(), m_packs.end(),
                          [id](const LogbookPack &pack) { return pack.id == id; }),
            m_packs.end());
    }
    sortPacks();
    for (Row &row : m_rows) {
        LogbookRecording &recording = row.entry.recording;
        if (!touched.contains(recording.pack))
            continue;
        if (!pack(recording.pack))
            recording.pack = LogbookPack::none;
        describe(&row);
        changes->changed += recording.id;
    }
}

// Rows that are there keep all but what the user changes; the file knows them by the name they have now.
void Logbook::assignRows(LogbookBatch *batch, Changes *changes)
{
    for (LogbookEntry &entry : batch->assigned) {
        LogbookRecording &wanted = entry.recording;
        if (!pack(wanted.pack))
            wanted.pack = LogbookPack::none;
        const int index = find(wanted);
        if (index < 0) {
            if (wanted.id == 0)
                wanted.id = freshId();
            add(entry);
        } else {
            Row &row = m_rows[size_t(index)];
            row.entry.recording.pack = wanted.pack;
            row.entry.recording.note = wanted.note;
            describe(&row);
            entry = row.entry;
        }
        changes->changed += wanted.id;
    }
}

void Logbook::readRows(LogbookBatch *batch, Changes *changes)
{
    QSet<qint64> told(changes->changed.begin(), changes->changed.end());
    for (LogbookEntry &entry : batch->read) {
        const int index = find(entry.recording);
        if (index < 0)
            continue;
        Row &row = m_rows[size_t(index)];
        const LogbookRecording before = row.entry.recording;
        row.entry = entry;
        row.entry.recording.id = before.id;
        row.entry.recording.file = before.file;
        row.entry.recording.pack = before.pack;
        row.entry.recording.note = before.note;
        describe(&row);
        entry = row.entry;
        if (!told.contains(before.id))
            changes->changed += before.id;
        told.insert(before.id);
    }
}

int Logbook::find(const LogbookRecording &recording) const
{
    const int index = m_byId.value(recording.id, nowhere);
    return index >= 0 ? index : m_byFile.value(recording.file, nowhere);
}

void Logbook::add(const LogbookEntry &entry)
{
    m_rows.push_back({entry, noStart, QString()});
    m_byId.insert(entry.recording.id, int(m_rows.size()) - 1);
    m_byFile.insert(entry.recording.file, int(m_rows.size()) - 1);
    describe(&m_rows.back());
}

// The last one takes its place.
void Logbook::remove(int index, Changes *changes)
{
    const LogbookRecording &gone = entryAt(index).recording;
    changes->removed += gone.id;
    m_byId.remove(gone.id);
    m_byFile.remove(gone.file);
    if (index != size() - 1) {
        m_rows[size_t(index)] = std::move(m_rows.back());
        m_byId.insert(entryAt(index).recording.id, index);
        m_byFile.insert(entryAt(index).recording.file, index);
    }
    m_rows.pop_back();
}

void Logbook::describe(Row *row) const
{
    const LogbookRecording &recording = row->entry.recording;
    const LogbookFigures &figures = recording.figures;
    row->start = recording.start.isValid() ? recording.start.toMSecsSinceEpoch() : noStart;
    const QStringList words = {packName(recording.pack), recording.port, recording.note, recording.file,
        recording.start.date().toString(Qt::ISODate),
        QLocale().toString(recording.start.date(), QLocale::ShortFormat), // as the table has it
        Varnel3Data::deviceName(figures.device), Varnel3Data::modeName(figures.mode), endText(recording),
        QStringLiteral("%1x%2").arg(
            QString::number(figures.cells), Varnel3Data::cellTypeName(figures.cellType))};
    row->words = words.join(QLatin1Char('\n')).toCaseFolded();
}

void Logbook::sortPacks()
{
    QCollator order;
    order.setNumericMode(true);
    std::sort(m_packs.begin(), m_packs.end(), [&order](const LogbookPack &a, const LogbookPack &b) {
        const int difference = order.compare(a.name, b.name);
        return difference < 0 || (difference == 0 && a.id < b.id);
    });
}

void Logbook::tell(const LogbookBatch &batch, const Changes &changes)
{
    if (!changes.removed.isEmpty())
        emit recordingsRemoved(changes.removed);
    if (!changes.changed.isEmpty())
        emit recordingsChanged(changes.changed);
    if (!batch.packs.isEmpty() || !batch.droppedPacks.isEmpty())
        emit packsChanged();
    if (batch.folders)
        emit foldersChanged();
}
