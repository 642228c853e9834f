#include "logbook/logbooktables.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace {

constexpr int mostCode = 1000; // of a mode or chemistry; those that there are, are asked for by name

/// The columns of a query, one after the other.
class Columns {
public:
    explicit Columns(const QSqlQuery &query)
        : m_query(query)
    {
    }
    QVariant next() { return m_query.value(m_column++); }
    qint64 number() { return next().toLongLong(); }
    /// `otherwise` for what does not lie between the two.
    int number(int least, int most, int otherwise)
    {
        bool good = false;
        const qint64 value = next().toLongLong(&good);
        return good && value >= least && value <= most ? int(value) : otherwise;
    }
    /// 0 for what is no number of things.
    int count(int most = std::numeric_limits<int>::max()) { return number(0, most, 0); }
    int anyNumber() { return number(std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0); }
    QString text() { return next().toString(); }
    QByteArray bytes() { return next().toByteArray(); }

private:
    const QSqlQuery &m_query;
    int m_column = 0;
};

/// One statement for many rows. What went wrong first stays, and nothing is done from then on.
class Statement {
public:
    Statement(const QSqlDatabase &database, const char *text, QSqlError *error)
        : m_query(database)
        , m_text(QString::fromLatin1(text))
        , m_error(error)
    {
    }
    void run(std::initializer_list<QVariant> values)
    {
        if (m_error->isValid())
            return;
        if (!m_prepared && !m_query.prepare(m_text)) {
            *m_error = m_query.lastError();
            return;
        }
        m_prepared = true;
        for (const QVariant &value : values) // a text that is null would be none to the file
            m_query.addBindValue(
                value.type() == QVariant::String ? value.toString() + QLatin1String("") : value);
        if (!m_query.exec())
            *m_error = m_query.lastError();
    }

private:
    QSqlQuery m_query;
    QString m_text;
    QSqlError *m_error;
    bool m_prepared = false;
};

template <typename Take>
bool readRows(const QSqlDatabase &database, const char *statement, QSqlError *error, const Take &take)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (query.exec(QString::fromLatin1(statement))) {
        while (query.next())
            take(Columns(query));
    }
    *error = query.lastError();
    return !error->isValid();
}

LogbookPack packFrom(Columns columns)
{
    LogbookPack pack;
    pack.id = columns.number();
    pack.name = columns.text();
    pack.cellType = columns.number(0, mostCode, Varnel3Data::noCellType);
    pack.cells = columns.count(Varnel3Data::maxCells);
    pack.capacity = columns.count();
    pack.note = columns.text();
    return pack;
}

QString textOf(const std::array<float, Varnel3Data::maxCells> &resistances)
{
    QStringList numbers;
    for (const float resistance : resistances)
        numbers += QString::number(double(resistance), 'g', std::numeric_limits<float>::max_digits10);
    return numbers.join(QLatin1Char(' '));
}

void readResistances(const QString &text, std::array<float, Varnel3Data::maxCells> *resistances)
{
    const QVector<QStringRef> numbers = text.splitRef(QLatin1Char(' ')).mid(0, Varnel3Data::maxCells);
    std::transform(numbers.begin(), numbers.end(), resistances->begin(), [](const QStringRef &number) {
        const float value = number.toFloat();
        return std::isfinite(value) ? value : 0.0F;
    });
}

LogbookFigures figuresFrom(Columns *columns)
{
    LogbookFigures figures;
    figures.records = columns->count();
    figures.device = columns->number(0, Varnel3Data::NoDevice, Varnel3Data::NoDevice);
    figures.mode = columns->number(0, Varnel3Data::NoMode, Varnel3Data::NoMode);
    figures.cellType = columns->number(0, mostCode, Varnel3Data::noCellType);
    figures.cells = columns->count(Varnel3Data::maxCells);
    figures.duration = columns->count();
    figures.charge = columns->anyNumber();
    figures.energy = columns->next().toDouble();
    if (!std::isfinite(figures.energy))
        figures.energy = 0.0;
    figures.startVoltage = columns->anyNumber();
    figures.endVoltage = columns->anyNumber();
    figures.highestTemperature = columns->anyNumber();
    figures.resistance = columns->anyNumber();
    readResistances(columns->text(), &figures.cellResistances);
    figures.spread = columns->number(0, std::numeric_limits<int>::max(), -1);
    figures.lowestCell = columns->number(0, Varnel3Data::maxCells - 1, -1);
    figures.end = columns->number(Varnel3Data::Failed, Varnel3Data::Completed, Varnel3Data::NoEnd);
    figures.curve = columns->bytes();
    if (figures.curve.size() != LogbookFigures::curvePoints)
        figures.curve.clear();
    return figures;
}

LogbookEntry entryFrom(Columns columns)
{
    LogbookEntry entry;
    LogbookRecording &recording = entry.recording;
    recording.id = columns.number();
    recording.file = columns.text();
    recording.pack = columns.number();
    recording.note = columns.text();
    const QVariant size = columns.next();
    entry.stamp = {size.isNull() ? -1 : size.toLongLong(), columns.number()};
    entry.beginning = columns.bytes();
    const QVariant start = columns.next();
    if (!start.isNull())
        recording.start = QDateTime::fromMSecsSinceEpoch(start.toLongLong());
    recording.isStartApproximate = columns.number() != 0;
    recording.port = columns.text();
    recording.figures = figuresFrom(&columns);
    return entry;
}

/// Texts of any length would take any memory.
constexpr char entriesText[]
    = "SELECT recording.id, substr(file, 1, 32768), pack, substr(note, 1, 65536), size, modified,"
      " substr(beginning, 1, 64), start, approximate, substr(port, 1, 256), records, device, mode, chemistry,"
      " cells, duration, charge, energy, start_voltage, end_voltage, temperature, resistance,"
      " substr(cell_resistances, 1, 1024), spread, lowest_cell, ending, substr(curve, 1, 256)"
      " FROM recording LEFT JOIN reading ON reading.recording = recording.id";

void writeReadings(const QSqlDatabase &database, const QVector<LogbookEntry> &entries, QSqlError *error)
{
    Statement put(database,
        "INSERT OR REPLACE INTO reading"
        " SELECT id, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?,"
        " ?, ?, ? FROM recording WHERE file = ?",
        error);
    for (const LogbookEntry &entry : entries) {
        const LogbookRecording &recording = entry.recording;
        const LogbookFigures &f = recording.figures;
        put.run({entry.stamp.isKnown() ? QVariant(entry.stamp.size) : QVariant(QVariant::LongLong),
            entry.stamp.modified, entry.beginning,
            recording.start.isValid() ? QVariant(recording.start.toMSecsSinceEpoch())
                                      : QVariant(QVariant::LongLong),
            recording.isStartApproximate, recording.port, f.records, f.device, f.mode, f.cellType, f.cells,
            f.duration, f.charge, f.energy, f.startVoltage, f.endVoltage, f.highestTemperature, f.resistance,
            textOf(f.cellResistances), f.spread, f.lowestCell, f.end, f.curve, recording.file});
    }
}

// Another program may have given a row of the same file another id, or removed a pack: the file's name
// decides, and a pack that is not there is none. What was only found takes nothing from a row of which the
// user has said something meanwhile, here or there.
void writeUsers(const QSqlDatabase &database, const LogbookBatch &batch, QSqlError *error)
{
    Statement pack(database,
        "INSERT INTO pack(id, name, chemistry, cells, capacity, note) VALUES(?, ?, ?, ?, ?, ?)"
        " ON CONFLICT(id) DO UPDATE SET name = excluded.name, chemistry = excluded.chemistry,"
        " cells = excluded.cells, capacity = excluded.capacity, note = excluded.note",
        error);
    Statement dropPack(database, "DELETE FROM pack WHERE id = ?", error);
    Statement add(database, "INSERT OR IGNORE INTO recording(id, file, note) VALUES(?, ?, '')", error);
    Statement assign(database,
        "UPDATE recording SET pack = (SELECT id FROM pack WHERE id = ?), note = ? WHERE file = ?", error);
    for (const LogbookPack &p : batch.packs)
        pack.run({p.id, p.name, p.cellType, p.cells, p.capacity, p.note});
    for (const LogbookEntry &entry : batch.assigned) {
        const LogbookRecording &r = entry.recording;
        add.run({r.id, r.file});
        if (batch.isUsers)
            assign.run({r.pack, r.note, r.file});
    }
    for (const qint64 id : batch.droppedPacks)
        dropPack.run({id});
}

void writeFolders(const QSqlDatabase &database, const QStringList &folders, QSqlError *error)
{
    Statement(database, "DELETE FROM folder", error).run({});
    Statement add(database, "INSERT OR IGNORE INTO folder(path) VALUES(?)", error);
    for (const QString &folder : folders)
        add.run({folder});
}

void writeAll(const QSqlDatabase &database, const LogbookBatch &batch, QSqlError *error)
{
    Statement drop(database, "DELETE FROM recording WHERE file = ?", error);
    Statement rename(database, "UPDATE recording SET file = ? WHERE file = ?", error);
    Statement refuse(database, "INSERT OR IGNORE INTO refused(file) VALUES(?)", error);
    for (const auto &names : batch.renamed) {
        drop.run({names.second});
        rename.run({names.second, names.first});
    }
    for (const QString &file : batch.droppedFiles)
        drop.run({file});
    writeUsers(database, batch, error);
    writeReadings(database, batch.read, error);
    if (batch.folders)
        writeFolders(database, *batch.folders, error);
    for (const qint64 key : batch.refused)
        refuse.run({key});
}

} // namespace

bool LogbookTables::read(const QSqlDatabase &database, LogbookContent *content, QSqlError *error)
{
    return readRows(database,
               "SELECT id, substr(name, 1, 1024), chemistry, cells, capacity, substr(note, 1, 65536)"
               " FROM pack",
               error, [content](const Columns &columns) { content->packs += packFrom(columns); })
        && readRows(database, entriesText, error,
            [content](const Columns &columns) { content->entries += entryFrom(columns); })
        && readRows(database, "SELECT substr(path, 1, 32768) FROM folder ORDER BY rowid", error,
            [content](Columns columns) { content->folders += columns.text(); })
        && readRows(database, "SELECT file FROM refused", error,
            [content](Columns columns) { content->refused += columns.number(); });
}

bool LogbookTables::write(
    const QSqlDatabase &database, const QVector<LogbookBatch> &batches, QSqlError *error)
{
    *error = QSqlError();
    Statement(database, "BEGIN IMMEDIATE", error).run({});
    for (const LogbookBatch &batch : batches)
        writeAll(database, batch, error);
    Statement(database, "COMMIT", error).run({});
    if (error->isValid())
        QSqlQuery(database).exec(QStringLiteral("ROLLBACK"));
    return !error->isValid();
}
