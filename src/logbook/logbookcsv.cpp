#include "logbook/logbookcsv.h"

#include "files/csvrow.h"
#include "logbook/logbook.h"

#include <cmath>

namespace {

constexpr int rowsAtOnce = 500;

/// What is not known counts as 0 in the figures.
void addKnown(CsvRow &row, int value)
{
    value != 0 ? row.add(value) : row.addEmpty();
}

struct Column {
    const char *title;
    void (*write)(CsvRow &row, const LogbookRecording &recording);
};

/// Behind those of the pack's name and in front of those of the cells.
const Column columns[] = {
    {"start",
        [](CsvRow &row, const LogbookRecording &r) {
            row.add(r.start.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8());
        }},
    {"start is approximate",
        [](CsvRow &row, const LogbookRecording &r) { row.add(int(r.isStartApproximate)); }},
    {"device",
        [](CsvRow &row, const LogbookRecording &r) {
            row.add(Varnel3Data::deviceInFiles(r.figures.device));
        }},
    {"port", [](CsvRow &row, const LogbookRecording &r) { row.add(r.port.toUtf8()); }},
    {"mode",
        [](CsvRow &row, const LogbookRecording &r) { row.add(Varnel3Data::modeInFiles(r.figures.mode)); }},
    {"chemistry",
        [](CsvRow &row, const LogbookRecording &r) {
            row.add(Varnel3Data::cellTypeName(r.figures.cellType).toUtf8());
        }},
    {"cells", [](CsvRow &row, const LogbookRecording &r) { addKnown(row, r.figures.cells); }},
};

/// Of a recording that has been read.
const Column figureColumns[] = {
    {"records", [](CsvRow &row, const LogbookRecording &r) { row.add(r.figures.records); }},
    {"duration [s]", [](CsvRow &row, const LogbookRecording &r) { row.add(r.figures.duration); }},
    {"charge [mAh]", [](CsvRow &row, const LogbookRecording &r) { row.add(r.figures.charge); }},
    {"energy [Wh]",
        [](CsvRow &row, const LogbookRecording &r) { row.add(std::round(r.figures.energy * 1e4) / 1e4); }},
    {"voltage at the start [mV]",
        [](CsvRow &row, const LogbookRecording &r) { row.add(r.figures.startVoltage); }},
    {"voltage at the end [mV]",
        [](CsvRow &row, const LogbookRecording &r) { row.add(r.figures.endVoltage); }},
    {"highest temperature [0.1 C]",
        [](CsvRow &row, const LogbookRecording &r) { addKnown(row, r.figures.highestTemperature); }},
    {"internal resistance [mOhm]",
        [](CsvRow &row, const LogbookRecording &r) { addKnown(row, r.figures.resistance); }},
    {"cell spread at the end [mV]",
        [](CsvRow &row, const LogbookRecording &r) {
            r.figures.spread >= 0 ? row.add(r.figures.spread) : row.addEmpty();
        }},
    {"lowest cell at the end",
        [](CsvRow &row, const LogbookRecording &r) { addKnown(row, r.figures.lowestCell + 1); }},
    {"end",
        [](CsvRow &row, const LogbookRecording &r) {
            constexpr const char *ends[] = {"failed", "aborted", "completed"}; // by Varnel3Data::End
            r.figures.end >= 0 ? row.add(QByteArray(ends[r.figures.end])) : row.addEmpty();
        }},
};

void writeHeader(CsvRow &row)
{
    row.add(QByteArrayLiteral("pack"));
    for (const Column &column : columns)
        row.add(QByteArray(column.title));
    for (const Column &column : figureColumns)
        row.add(QByteArray(column.title));
    for (int cell = 1; cell <= Varnel3Data::maxCells; ++cell)
        row.add("cell " + QByteArray::number(cell) + " resistance [mOhm]");
    row.add(QByteArrayLiteral("note"));
    row.add(QByteArrayLiteral("file"));
    row.end();
}

// Of one that runs, nothing but the beginning is known.
void writeRow(CsvRow &row, const LogbookRecording &recording, const QString &pack, bool isRead)
{
    row.add(pack.toUtf8());
    for (const Column &column : columns)
        column.write(row, recording);
    for (const Column &column : figureColumns)
        isRead ? column.write(row, recording) : row.addEmpty();
    for (const float resistance : recording.figures.cellResistances)
        resistance > 0.0F ? row.add(std::round(double(resistance) * 1000) / 1000) : row.addEmpty();
    row.add(recording.note.toUtf8());
    row.add(recording.file.toUtf8());
    row.end();
}

} // namespace

LogbookCsv::LogbookCsv(const Logbook &logbook, const QVector<qint64> &ids)
{
    for (const qint64 id : ids) {
        if (const LogbookRecording *recording = logbook.recording(id))
            m_rows.append({*recording, logbook.packName(recording->pack),
                logbook.entryOf(recording->file)->stamp.isKnown()});
    }
}

bool LogbookCsv::writeNext(QIODevice &device)
{
    CsvRow row;
    if (m_next == notBegun) {
        writeHeader(row);
        m_next = 0;
    }
    for (int i = 0; i < rowsAtOnce && m_next < m_rows.size(); ++i, ++m_next)
        writeRow(row, m_rows[m_next].recording, m_rows[m_next].pack, m_rows[m_next].isRead);
    return writeAllBytes(device, row.data(), row.size());
}

double LogbookCsv::progress() const
{
    return m_rows.isEmpty() ? 1.0 : double(qMax(0, m_next)) / m_rows.size();
}
