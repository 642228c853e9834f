#include "protocol/fixedlayout.h"

#include "protocol/lineconversions.h"
#include "data/varnel3data.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

constexpr int timeStart = 13;
constexpr int mostFurtherDigits = 4; // of a time from the second day on; never more than 32 bits hold
constexpr int restStart = 14; // the last four digits of a time of five, and what lies behind it
constexpr int cellsStart = 46; // the comma before the first cell
constexpr int cellLength = 7; // ",dddd,b"
constexpr int lineLength = cellsStart + Varnel3Data::maxCells * cellLength;

// What the characters of a line lie between, each between those of two lines. A balance goes up to ':', which
// stands for ten; a flag may be anything here.
constexpr char leastHead[] = "#00\0"
                             "00\0\0\0\0\0"
                             "0,000";
constexpr char mostHead[] = "#99\xff"
                            "99\xff\xff\xff\xff\xff"
                            "9,999";
constexpr char leastRest[] = "0000,00000,00000,000,00000,00000"
                             ",0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0"
                             ",0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0";
constexpr char mostRest[] = "9999,99999,99999,999,99999,99999"
                            ",9999,:,9999,:,9999,:,9999,:,9999,:,9999,:,9999,:,9999,:"
                            ",9999,:,9999,:,9999,:,9999,:,9999,:,9999,:,9999,:,9999,:";
static_assert(restStart + int(sizeof leastRest) - 1 == lineLength, "the pattern is of the whole line");

// Without a branch and in whole registers: the compiler compares sixteen at once.
template <int size>
bool isBetween(const uchar *at, const char (&least)[size], const char (&most)[size])
{
    static_assert((size - 1) % 16 == 0, "whole registers");
    uchar outside = 0;
    for (int i = 0; i < size - 1; ++i)
        outside |= uchar(std::min(std::max(at[i], uchar(least[i])), uchar(most[i])) ^ at[i]);
    return outside == 0;
}

// Of a long time some lie between head and rest; those of a short one overlap, so that `end` may lie before.
bool areDigits(const uchar *begin, const uchar *end)
{
    return std::all_of(begin, std::max(begin, end), [](uchar c) { return c >= '0' && c <= '9'; });
}

// Numbers of so many digits, which were looked at before.
int twoDigits(const uchar *at)
{
    return at[0] * 10 + at[1] - '0' * 11;
}

int threeDigits(const uchar *at)
{
    return twoDigits(at) * 10 + at[2] - '0';
}

int fourDigits(const uchar *at)
{
    const quint32 digits = qFromLittleEndian<quint32>(at) & 0x0f0f0f0f;
    const quint32 pairs = digits * (10 << 8 | 1) >> 8 & 0x00ff00ff; // the first is the lowest byte
    return int(pairs * (100 << 16 | 1) >> 16);
}

int fiveDigits(const uchar *at)
{
    return (at[0] - '0') * 10000 + fourDigits(at + 1);
}

int timeOf(const uchar *at, int furtherDigits)
{
    int sum = 0;
    for (; furtherDigits > 0; --furtherDigits)
        sum = sum * 10 + *at++ - '0';
    return sum * 100000 + fiveDigits(at);
}

// The one behind the last as well: the line always has it.
void readCells(Varnel3Data &record, const uchar *at)
{
    const int cells = std::min(record.cellCount + 1, int(Varnel3Data::maxCells));
    for (CellData *cell = record.cells; cell != record.cells + cells; ++cell, at += cellLength) {
        cell->voltage = fourDigits(at + 1);
        cell->balance = (at[6] - '0') * balanceStep;
    }
}

} // namespace

bool parseFixedLayout(Varnel3Data &record, const FieldText &line)
{
    static const char modes[] = "CDBFT";
    const int furtherDigits = line.size - lineLength;
    if (furtherDigits < 0 || furtherDigits > mostFurtherDigits)
        return false;
    const uchar *const head = line.data;
    const uchar *const at = head + furtherDigits; // of what lies behind the time
    if (!isBetween(head, leastHead, mostHead) || !isBetween(at + restStart, leastRest, mostRest)
        || !areDigits(head + sizeof leastHead - 1, at + restStart))
        return false;
    const void *const mode = std::memchr(modes, head[3], sizeof modes - 1);
    const int cellType = twoDigits(head + 4);
    if (!mode || cellType >= Varnel3Data::noCellType || std::find(head + 6, head + 11, ',') != head + 11)
        return false;
    record.device = Varnel3Data::Varnel3;
    record.cellCount = twoDigits(head + 1);
    record.mode = int(static_cast<const char *>(mode) - modes);
    record.cellType = cellType;
    record.flag1 = char(head[6]);
    record.flag2 = char(head[7]);
    record.flag3 = char(head[8]);
    record.flag4 = char(head[9]);
    record.flag5 = char(head[10]);
    record.ballansingCurrent = (head[11] - '0') * balancingCurrentStep;
    record.setTime(timeOf(head + timeStart, furtherDigits));
    record.voltage = fiveDigits(at + 19);
    record.current = fiveDigits(at + 25);
    record.temperature = threeDigits(at + 31);
    record.energy = fiveDigits(at + 35) * (record.flag2 == '1' ? 10 : 1);
    record.internalResistance = fiveDigits(at + 41);
    readCells(record, at + cellsStart);
    updateCellStatistics(record);
    return true;
}
