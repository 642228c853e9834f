#include "data/fixedlayout.h"

#include "data/lineconversions.h"
#include "data/varnel3data.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

constexpr int cellsStart = 46; // the comma before the first cell
constexpr int cellLength = 7; // ",dddd,b"
constexpr int lineLength = cellsStart + Varnel3Data::maxCells * cellLength;

// Gathers whether anything was not as expected, so that the common case runs without a branch.
struct Check {
    quint64 failed = 0;

    void expectNot(const uchar *at, char c) { failed |= unsigned(*at == uchar(c)); }
    template <int width>
    int number(const uchar *at)
    {
        unsigned sum = 0;
        for (int i = 0; i < width; ++i) {
            const unsigned digit = unsigned(at[i]) - '0';
            failed |= unsigned(digit > 9);
            sum = sum * 10 + digit;
        }
        return int(sum);
    }
    /// Eight characters at once, as a number whose lowest byte is the first: `pattern` says what stands where ('0' for
    /// any digit), `exact` which bytes must be just that, `digits` which must be digits. Gives the digits' values.
    quint64 characters(const uchar *at, quint64 pattern, quint64 exact, quint64 digits)
    {
        const quint64 value = qFromLittleEndian<quint64>(at) ^ pattern;
        const quint64 tooLarge
            = (value + (digits & everyByte * 6)) | value; // beyond 9, the high half shows it
        failed |= (value & exact) | (tooLarge & digits & everyByte * 0xf0);
        return value;
    }

private:
    static constexpr quint64 everyByte = Q_UINT64_C(0x0101010101010101);
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
    const quint64 value = check.characters(at - 2, Q_UINT64_C(0x2c30303030302c00),
        Q_UINT64_C(0xff0000000000ff00), Q_UINT64_C(0x00ffffffffff0000));
    return int(value >> 16 & 0xff) * 10000 + fourDigits(value >> 24 & 0xffffffff);
}

struct Cells {
    int count = 0;
    int voltage[Varnel3Data::maxCells];
    uchar balance[Varnel3Data::maxCells];
};

void readCells(Cells &cells, const uchar *line, int cellCount, Check &check)
{
    static const char absent[] = ",0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0"
                                 ",0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0,0000,0";
    cells.count = std::min(cellCount + 1, int(Varnel3Data::maxCells));
    const uchar *at = line + cellsStart;
    for (int i = 0; i < cells.count; ++i, at += cellLength) {
        const quint64 value = check.characters(at - 1, Q_UINT64_C(0x002c303030302c00),
            Q_UINT64_C(0x00ff00000000ff00), Q_UINT64_C(0x0000ffffffff0000));
        cells.voltage[i] = fourDigits(value >> 16 & 0xffffffff);
        check.expectNot(at + 6, ',');
        cells.balance[i] = at[6];
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
        record.cells[i].balance = balancePercent(cells.balance[i]);
    }
}

} // namespace

bool parseFixedLayout(Varnel3Data &record, const FieldText<uchar> &line)
{
    static const char modes[] = "CDBFT";
    if (line.size != lineLength || *line.data != '#')
        return false;
    const uchar *const at = line.data;
    Check check;
    for (int flag = 6; flag <= 10; ++flag)
        check.expectNot(at + flag, ',');
    const int cellCount = check.number<2>(at + 1);
    const int cellType = check.number<2>(at + 4);
    const int current = check.number<1>(at + 11);
    // Each figure looks at the commas around it; the temperature lies between two of them.
    const int figures[] = {figure(at + 13, check), figure(at + 19, check), figure(at + 25, check),
        check.number<3>(at + 31), figure(at + 35, check), figure(at + 41, check)};
    const void *const mode = std::memchr(modes, at[3], sizeof modes - 1);
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
    fill(record, at, cells);
    record.setTime(figures[0]);
    record.voltage = figures[1];
    record.current = figures[2];
    record.temperature = figures[3];
    record.energy = record.flag2 == '1' ? figures[4] * 10 : figures[4];
    record.internalResistance = figures[5];
    updateCellStatistics(record);
    return true;
}
