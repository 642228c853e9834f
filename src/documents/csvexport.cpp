#include "documents/csvexport.h"

#include "files/csvrow.h"
#include "series/seriesstore.h"

#include "data/saturated.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace {

using Row = CsvRow;

constexpr int pieceSize = 1 << 17; // bytes

/// Texts by their codes, each made once.
template <int codes>
class CodeTexts {
public:
    template <typename Make>
    explicit CodeTexts(const Make &make)
    {
        for (int code = 0; code < codes; ++code)
            m_texts[code] = CsvRow::quoted(make(code));
    }
    /// A code that there is none of has the text of the last.
    const QByteArray &operator[](int code) const
    {
        return m_texts[code >= 0 && code < codes ? code : codes - 1];
    }

private:
    QByteArray m_texts[codes];
};

const QByteArray &deviceText(int device)
{
    static const CodeTexts<Varnel3Data::NoDevice + 1> texts(
        [](int code) { return QByteArray(Varnel3Data::deviceInFiles(code)); });
    return texts[device];
}

const QByteArray &modeText(int mode)
{
    static const CodeTexts<Varnel3Data::NoMode + 2> texts(
        [](int code) { return QByteArray(Varnel3Data::modeInFiles(code)); });
    return texts[mode];
}

const QByteArray &chemistryText(int cellType)
{
    static const CodeTexts<Varnel3Data::noCellType + 1> texts(
        [](int code) { return Varnel3Data::cellTypeName(code).toUtf8(); });
    return texts[cellType];
}

struct Column {
    const char *title;
    void (*write)(Row &row, const Varnel3Data &record);
};

const Column recordColumns[] = {
    {"device", [](Row &row, const Varnel3Data &r) { row.addQuoted(deviceText(r.device)); }},
    {"time [s]", [](Row &row, const Varnel3Data &r) { row.add(r.time); }},
    {"mode", [](Row &row, const Varnel3Data &r) { row.addQuoted(modeText(r.mode)); }},
    {"chemistry", [](Row &row, const Varnel3Data &r) { row.addQuoted(chemistryText(r.cellType)); }},
    {"cells", [](Row &row, const Varnel3Data &r) { row.add(r.cellCount); }},
    {"voltage [mV]", [](Row &row, const Varnel3Data &r) { row.add(r.voltage); }},
    {"current [mA]", [](Row &row, const Varnel3Data &r) { row.add(r.current); }},
    {"temperature [0.1 C]", [](Row &row, const Varnel3Data &r) { row.add(r.temperature); }},
    {"capacity [mAh]", [](Row &row, const Varnel3Data &r) { row.add(r.energy); }},
    {"internal resistance [mOhm]", [](Row &row, const Varnel3Data &r) { row.add(r.internalResistance); }},
    {"balancing current [mA]", [](Row &row, const Varnel3Data &r) { row.add(r.ballansingCurrent); }},
    {"flag 1", [](Row &row, const Varnel3Data &r) { row.addFlag(r.flag1); }},
    {"flag 2", [](Row &row, const Varnel3Data &r) { row.addFlag(r.flag2); }},
    {"flag 3", [](Row &row, const Varnel3Data &r) { row.addFlag(r.flag3); }},
    {"flag 4", [](Row &row, const Varnel3Data &r) { row.addFlag(r.flag4); }},
    {"flag 5", [](Row &row, const Varnel3Data &r) { row.addFlag(r.flag5); }},
};

/// Of a record with balancing data; empty in the others.
const Column cellStatisticColumns[] = {
    {"cell maximum [mV]", [](Row &row, const Varnel3Data &r) { row.add(r.cellMax); }},
    {"cell minimum [mV]", [](Row &row, const Varnel3Data &r) { row.add(r.cellMin); }},
    {"cell average [mV]", [](Row &row, const Varnel3Data &r) { row.add(r.cellAverage); }},
    {"cell spread [mV]",
        [](Row &row, const Varnel3Data &r) { row.add(saturated(qint64(r.cellMax) - r.cellMin)); }},
    {"balance maximum [%]", [](Row &row, const Varnel3Data &r) { row.add(r.balanceMax); }},
    {"balanced charge maximum [mAh]", [](Row &row, const Varnel3Data &r) { row.add(r.balancedMah); }},
};

struct SeriesColumn {
    const char *title;
    SeriesStore::Kind kind;
    bool fromFirstResistance; ///< the points before it are only copies of its first
};

const SeriesColumn seriesColumns[] = {
    {"smoothed temperature [C]", SeriesStore::Temperature, false},
    {"smoothed internal resistance [mOhm]", SeriesStore::Resistance, true},
    {"smoothed voltage slope [mV/min]", SeriesStore::Dv, true},
};

constexpr int recordsLookedAt = 1 << 14; // for their cells, in a piece

/// Cells of which a device tells something.
int cellsTold(int device, int cellCount)
{
    const bool tells = device == Varnel3Data::Varnel3 || device == Varnel3Data::Tandor;
    return tells ? qBound(0, cellCount, Varnel3Data::maxCells) : 0;
}

void writeHeader(Row &row, int cells)
{
    row.add(QByteArrayLiteral("record"));
    for (const Column &column : recordColumns)
        row.add(QByteArray(column.title));
    for (const Column &column : cellStatisticColumns)
        row.add(QByteArray(column.title));
    for (int cell = 1; cell <= cells; ++cell)
        for (const char *quantity :
            {" voltage [mV]", " balance [%]", " balanced charge [mAh]", " resistance [mOhm]"})
            row.add("cell " + QByteArray::number(cell) + quantity);
    for (const SeriesColumn &column : seriesColumns)
        row.add(QByteArray(column.title));
    row.end();
}

void writeCell(Row &row, const Varnel3Data &record, int cell)
{
    const CellData &data = record.cells[cell];
    const bool balancing = record.hasBalancingData();
    row.add(data.voltage);
    balancing ? row.add(data.balance) : row.addEmpty();
    balancing ? row.add(data.balanceCharge / double(Varnel3Data::chargePerMah)) : row.addEmpty();
    record.resistanceValid ? row.add(data.resistance) : row.addEmpty();
}

void writeRecord(Row &row, int number, const Varnel3Data &record, int cells)
{
    row.add(number);
    for (const Column &column : recordColumns)
        column.write(row, record);
    for (const Column &column : cellStatisticColumns)
        record.hasBalancingData() ? column.write(row, record) : row.addEmpty();
    const int told = cellsTold(record.device, record.cellCount);
    for (int cell = 0; cell < cells; ++cell) {
        if (cell < told)
            writeCell(row, record, cell);
        else
            for (int empty = 0; empty < 4; ++empty)
                row.addEmpty();
    }
}

/// Views on the series of seriesColumns, made once for many rows.
struct DerivedColumns {
    explicit DerivedColumns(const SeriesStore &store)
        : hasResistance(store.size() > SeriesStore::firstResistance())
    {
        for (const SeriesColumn &column : seriesColumns)
            series.push_back(store.series(column.kind));
    }
    void write(Row &row, int index) const
    {
        for (std::size_t i = 0; i < series.size(); ++i) {
            const bool isMeant
                = index < series[i].size() && (!seriesColumns[i].fromFirstResistance || hasResistance);
            isMeant ? row.add(series[i][index]) : row.addEmpty();
        }
    }

    std::vector<PlotSeries> series;
    bool hasResistance;
};

} // namespace

CsvRows::CsvRows(const SeriesStore &store)
    : m_store(store)
    , m_records(store.records())
    , m_count(store.size())
    , m_markedFrom(store.markedFrom())
{
}

bool CsvRows::writeNext(QIODevice &device)
{
    if (m_looked == m_count)
        return writeRows(device);
    lookForCells();
    return true;
}

double CsvRows::progress() const
{
    return double(m_rows) / (m_count + 1);
}

void CsvRows::lookForCells()
{
    const int end = std::min(m_count, m_looked + recordsLookedAt);
    const RecordList &records = m_store.records();
    for (; m_looked < end; ++m_looked)
        m_cells = std::max(m_cells,
            cellsTold(records.figure(RecordColumns::Device, m_looked),
                records.figure(RecordColumns::CellCount, m_looked)));
}

bool CsvRows::writeRows(QIODevice &device)
{
    Row row;
    if (m_rows == 0) {
        writeHeader(row, m_cells);
        ++m_rows;
    }
    const DerivedColumns derived(m_store);
    for (; !atEnd() && row.size() < pieceSize; ++m_rows) {
        const int index = m_rows - 1;
        if (index >= m_markedFrom) {
            Varnel3Data record = m_records.at(index);
            record.flag4 = EndMark::letter;
            writeRecord(row, m_rows, record, m_cells);
        } else {
            writeRecord(row, m_rows, m_records.at(index), m_cells);
        }
        derived.write(row, index);
        row.end();
    }
    return writeAllBytes(device, row.data(), row.size());
}
