#include "protocol/fixedlayout.h"

#include "protocol/lineconversions.h"
#include "data/varnel3data.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

constexpr int timeStart = 13;
constexpr int cellsStart = 46; // the comma before the first cell
constexpr int cellLength = 7; // ",dddd,b"
constexpr int lineLength = cellsStart + Varnel3Data::maxCells * cellLength;
constexpr int timeLength = 5; // more from the second day on
constexpr int mostTimeDigits = 9; // never more than 32 bits hold

/// What eight characters look like, as a number whose lowest byte is the first.
struct Shape {
    quint64 pattern; // the characters; '0' for any digit
    quint64 exact; // bytes that must be just that
    quint64 slack; // 15 less the largest digit, in the bytes that are digits
    quint64 high; // the high halves of those
};

/// A figure of five digits with the commas around it, from two characters before it on.
constexpr Shape figureShape = {Q_UINT64_C(0x2c30303030302c00), Q_UINT64_C(0xff0000000000ff00),
    Q_UINT64_C(0x0006060606060000), Q_UINT64_C(0x00f0f0f0f0f00000)};
/// A cell from the character before its comma on; its balance goes up to ':', which stands for ten.
constexpr Shape cellShape = {Q_UINT64_C(0x302c303030302c00), Q_UINT64_C(0x00ff00000000ff00),
    Q_UINT64_C(0x0500060606060000), Q_UINT64_C(0xf000f0f0f0f00000)};

// Gathers whether anything was not as expected, so that the common case runs without a branch.
struct Check {
    quint64 failed = 0;

    void expect(const uchar *at, char c) { failed |= unsigned(*at != uchar(c)); }
    void expectNot(const uchar *at, char c) { failed |= unsigned(*at == uchar(c)); }
    int number(const uchar *at, int width)
    {
        unsigned sum = 0;
        for (int i = 0; i < width; ++i) {
            const unsigned digit = unsigned(at[i]) - '0';
            failed |= unsigned(digit > 9);
            sum = sum * 10 + digit;
        }
        return int(sum);
    }
    /// Eight characters at once; gives the digits' values.
    quint64 characters(const uchar *at, const Shape &shape)
    {
        const quint64 value = qFromLittleEndian<quint64>(at) ^ shape.pattern;
        const quint64 tooLarge = (value + shape.slack) | value; // the high half of a byte shows it
        failed |= (value & shape.exact) | (tooLarge & shape.high);
        return value;
    }
};

/// Four digits, the first in the lowest byte.
int fourDigits(quint64 digits)
{
    const quint64 pairs = digits * 10 + (digits >> 8); // in bytes 0 and 2
    return int((pairs & 0xff) * 100 + (pairs >> 16 & 0xff));
}

/// The five digits of a figure at `at`, which has a comma on either side.
int figure(const uchar *at, Check &check)
{
    const quint64 value = check.characters(at - 2, figureShape);
    return int(value >> 16 & 0xff) * 10000 + fourDigits(value >> 24 & 0xffffffff);
}

/// The time at its place in `line`, `digits` long; the comma behind it is left to the next figure.
int readTime(const uchar *line, int digits, Check &check)
{
    if (digits == timeLength)
        return figure(line + timeStart, check);
    check.expect(line + timeStart - 1, ',');
    return check.number(line + timeStart, digits);
}

struct Cells {
    int count = 0;
    int voltage[Varnel3Data::maxCells];
    int balance[Varnel3Data::maxCells]; // tenths
};

/// `line` is where the line would begin if the time had its five digits.
void readCells(Cells &cells, const uchar *line, int cellCount, Check &check)
{
    static const char absent[] = ",0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0"
                                 ",0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0";
    cells.count = std::min(cellCount + 1, int(Varnel3Data::maxCells));
    const uchar *at = line + cellsStart;
    for (int i = 0; i < cells.count; ++i, at += cellLength) {
        const quint64 value = check.characters(at - 1, cellShape);
        cells.voltage[i] = fourDigits(value >> 16 & 0xffffffff);
        cells.balance[i] = int(value >> 56);
    }
    check.failed |= unsigned(std::memcmp(at, absent, size_t(line + lineLength - at)));
}

void fill(Varnel3Data &record, const uchar *line, const Cells &cells)
{
    char *const flags[] = {&record.flag1, &record.flag2, &record.flag3, &record.flag4, &record.flag5};
    for (int i = 0; i < 5; ++i)
        *flags[i] = char(line[6 + i]);
    for (int i = 0; i < cells.count; ++i) {
        record.cells[i].voltage = cells.voltage[i];
        record.cells[i].balance = cells.balance[i] * balanceStep;
    }
}

} // namespace

bool parseFixedLayout(Varnel3Data &record, const FieldText &line)
{
    static const char modes[] = "CDBFT";
    const int timeDigits = line.size - lineLength + timeLength;
    if (timeDigits < timeLength || timeDigits > mostTimeDigits || *line.data != '#')
        return false;
    const uchar *const head = line.data;
    const uchar *const at = head + timeDigits - timeLength; // of what lies behind the time
    Check check;
    for (int flag = 6; flag <= 10; ++flag)
        check.expectNot(head + flag, ',');
    const int cellCount = check.number(head + 1, 2);
    const int cellType = check.number(head + 4, 2);
    const int current = check.number(head + 11, 1);
    const int time = readTime(head, timeDigits, check);
    // Each figure looks at the commas around it; the temperature lies between two of them.
    const int figures[] = {figure(at + 19, check), figure(at + 25, check), check.number(at + 31, 3),
        figure(at + 35, check), figure(at + 41, check)};
    const void *const mode = std::memchr(modes, head[3], sizeof modes - 1);
    if (check.failed || !mode || cellType >= Varnel3Data::noCellType)
        return false;
    Cells cells;
    readCells(cells, at, cellCount, check);
    if (check.failed)
        return false;
    record.device = Varnel3Data::Varnel3;
    record.cellCount = cellCount;
    record.mode = int(static_cast<const char *>(mode) - modes);
    record.cellType = cellType;
    record.ballansingCurrent = current * balancingCurrentStep;
    fill(record, head, cells);
    record.setTime(time);
    record.voltage = figures[0];
    record.current = figures[1];
    record.temperature = figures[2];
    record.energy = record.flag2 == '1' ? figures[3] * 10 : figures[3];
    record.internalResistance = figures[4];
    updateCellStatistics(record);
    return true;
}
