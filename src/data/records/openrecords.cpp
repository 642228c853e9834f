#include "data/records/openrecords.h"

#include "data/records/packedcolumn.h"

#include <algorithm>
#include <type_traits>

namespace {

constexpr int fewRecords = 8; // many windows hold no more
constexpr int gap = 16; // figures between the columns of a whole block, or all would share a few cache sets

bool isBlank(const CellData &cell)
{
    return (cell.voltage | cell.balance | cell.balanceCharge) == 0;
}

int cellsTold(const Varnel3Data &record)
{
    int cells = Varnel3Data::maxCells;
    while (cells > 0 && isBlank(record.cells[cells - 1]))
        --cells;
    return cells;
}

// By its bits: -0.0 is one.
bool hasAnyFraction(const Varnel3Data &record)
{
    const auto bitsOf = [](const double &fraction) {
        quint64 bits;
        std::memcpy(&bits, &fraction, sizeof bits);
        return bits;
    };
    quint64 any = bitsOf(record.resistanceSum);
    for (int i = 0; i < Varnel3Data::maxCells; i += 2) // two a step, which takes half the time
        any |= bitsOf(record.cells[i].resistance) | bitsOf(record.cells[i + 1].resistance);
    return any != 0;
}

struct Clock {
    int hour;
    int minute;
    int second;
};

// What the clock of `record` is beyond that of its time: nothing, unless somebody has set it otherwise.
Clock beyondTime(const Varnel3Data &record)
{
    const auto beyond = [](int told, int own) { return int(quint32(told) - quint32(own)); };
    return {beyond(record.hour, record.time / 3600), beyond(record.minute, record.time % 3600 / 60),
        beyond(record.second, record.time % 60)};
}

constexpr int strideFor(int capacity)
{
    return capacity < PackedColumn::length ? capacity : capacity + gap;
}

} // namespace

bool OpenRecords::isFull() const
{
    return m_count == PackedColumn::length;
}

int OpenRecords::stride() const
{
    return strideFor(m_capacity);
}

void OpenRecords::makeRoom()
{
    if (m_count < m_capacity)
        return;
    const int capacity = m_capacity == 0 ? fewRecords : int(PackedColumn::length);
    const int figures = RecordColumns::columns * strideFor(capacity);
    static_assert(RecordColumns::columns * fewRecords % 2 == 0 && gap % 2 == 0, "fractions are aligned");
    constexpr int figuresOfFraction = sizeof(double) / sizeof(int);
    std::unique_ptr<int[]> larger(
        new int[size_t(figures + RecordColumns::fractions * capacity * figuresOfFraction)]);
    auto *const fractions = reinterpret_cast<double *>(larger.get() + figures);
    const int used = RecordColumns::ofCell(m_cells, RecordColumns::CellVoltage);
    for (int column = 0; column < used; ++column)
        std::copy_n(this->figures(column), m_count, larger.get() + column * strideFor(capacity));
    for (int i = 0; i < RecordColumns::fractions && m_hasFractions; ++i)
        std::copy_n(this->fractions(i), m_count, fractions + i * capacity);
    m_figures = std::move(larger);
    m_fractions = fractions;
    m_capacity = capacity;
}

// The records so far knew nothing of these.
void OpenRecords::makeCells(int cells)
{
    for (int column = RecordColumns::ofCell(m_cells, RecordColumns::CellVoltage);
         column < RecordColumns::ofCell(cells, RecordColumns::CellVoltage); ++column)
        std::fill_n(place(column), m_count, 0);
    m_cells = cells;
}

void OpenRecords::makeFractions()
{
    m_hasFractions = true;
    for (int i = 0; i < RecordColumns::fractions; ++i)
        std::fill_n(m_fractions + i * m_capacity, m_count, 0.0);
}

void OpenRecords::add(const Varnel3Data &record)
{
    const int cells = cellsTold(record);
    if (cells > m_cells)
        makeCells(cells);
    if (m_capacity == fewRecords)
        store<strideFor(fewRecords)>(record);
    else
        store<strideFor(PackedColumn::length)>(record);
    if (!m_hasFractions && hasAnyFraction(record))
        makeFractions();
    for (int i = 0; i < RecordColumns::fractions && m_hasFractions; ++i)
        m_fractions[i * m_capacity + m_count] = RecordColumns::fraction(record, i);
    ++m_count;
}

// The distance of its columns is known when it is compiled, which halves the time.
template <int step>
void OpenRecords::store(const Varnel3Data &record)
{
    int *const own = m_figures.get() + m_count;
    // a letter as it is, signed: so it comes back
    RecordColumns::eachOwn([&](auto field) {
        own[field.column * step] = int(record.*field.member); // NOLINT(bugprone-signed-char-misuse)
    });
    const Clock beyond = beyondTime(record);
    own[RecordColumns::Hour * step] = beyond.hour;
    own[RecordColumns::Minute * step] = beyond.minute;
    own[RecordColumns::Second * step] = beyond.second;
    int *figure = own + RecordColumns::ownColumns * step;
    const CellData *const end = record.cells + m_cells;
    for (const CellData *cell = record.cells; cell != end; ++cell) {
        RecordColumns::eachOfCell([&](auto field) { figure[field.column * step] = cell->*field.member; });
        figure += RecordColumns::columnsOfCell * step;
    }
}

void OpenRecords::replaceLast(const Varnel3Data &record)
{
    --m_count;
    add(record);
}

void OpenRecords::restart()
{
    m_count = 0;
    m_cells = 0;
    m_hasFractions = false;
}

NarrowNumbers OpenRecords::numbers(int column) const
{
    if (column >= RecordColumns::ofCell(m_cells, RecordColumns::CellVoltage))
        return {};
    return {reinterpret_cast<const char *>(figures(column)), 0, int(sizeof(int))};
}
