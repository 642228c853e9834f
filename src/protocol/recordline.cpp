#include "protocol/recordline.h"

#include "protocol/lineconversions.h"
#include "data/varnel3data.h"

#include <QtGlobal>

#include <algorithm>
#include <cstring>

namespace {

constexpr char modeLetters[] = "CDBF"; // a test has none
constexpr int lettersCount = 4;
constexpr unsigned lastCurrentDigit = 4;

struct DigitPair {
    char tens;
    char ones;
};

struct DigitPairs {
    DigitPair of[100];
};

constexpr DigitPairs makeDigitPairs()
{
    DigitPairs pairs{};
    int number = 0;
    for (DigitPair &pair : pairs.of) {
        pair = {char('0' + number / 10), char('0' + number % 10)};
        ++number;
    }
    return pairs;
}

constexpr DigitPairs digitPairs = makeDigitPairs();

void putPair(char *out, unsigned value)
{
    std::memcpy(out, digitPairs.of + value, sizeof(DigitPair));
}

char *put4(char *out, int value)
{
    if (unsigned(value) > 9999)
        return writeZeroFilled(out, value, 4);
    putPair(out, unsigned(value) / 100);
    putPair(out + 2, unsigned(value) % 100);
    return out + 4;
}

char *put5(char *out, int value)
{
    if (unsigned(value) > 99999)
        return writeZeroFilled(out, value, 5);
    *out = char('0' + unsigned(value) / 10000);
    return put4(out + 1, value % 10000);
}

char currentDigit(int current)
{
    const auto steps = unsigned(current / balancingCurrentStep);
    const bool exact = current % balancingCurrentStep == 0 && steps <= lastCurrentDigit;
    return exact ? char('0' + steps) : '0';
}

char balanceCharacter(int balance)
{
    const int code = '0' + balance / 10;
    return code >= 0 && code <= 0xff ? char(code) : '?';
}

char modeLetter(int mode)
{
    return mode >= 0 && mode < lettersCount ? modeLetters[mode] : ' ';
}

bool isKnownCellType(int cellType)
{
    return cellType >= 0 && cellType < Varnel3Data::noCellType;
}

char *writeHead(char *out, const Varnel3Data &record)
{
    *out++ = '#';
    out = writeZeroFilled(out, record.cellCount, 2);
    *out++ = modeLetter(record.mode);
    if (isKnownCellType(record.cellType)) {
        putPair(out, unsigned(record.cellType));
        out += 2;
    } else {
        *out++ = ' ';
    }
    for (const char flag : {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5})
        *out++ = flag;
    *out++ = currentDigit(record.ballansingCurrent);
    return out;
}

char *writeFigures(char *out, const Varnel3Data &record)
{
    *out++ = ',';
    out = put5(out, record.time);
    *out++ = ',';
    out = put5(out, record.voltage);
    *out++ = ',';
    out = put5(out, record.current);
    *out++ = ',';
    out = writeZeroFilled(out, record.temperature, 3);
    *out++ = ',';
    out = put5(out, record.flag2 == '1' ? record.energy / 10 : record.energy);
    *out++ = ',';
    return put5(out, record.internalResistance);
}

} // namespace

char *writeZeroFilled(char *out, int value, int width)
{
    char digits[16];
    char *const end = digits + sizeof digits;
    char *begin = end;
    auto rest = unsigned(value);
    if (value < 0) {
        *out++ = '-';
        --width;
        rest = 0 - rest;
    }
    do {
        *--begin = char('0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    for (int fill = width - int(end - begin); fill > 0; --fill)
        *out++ = '0';
    return std::copy(begin, end, out);
}

char *writeRecordLine(char *out, const Varnel3Data &record)
{
    out = writeFigures(writeHead(out, record), record);
    // Inclusive, as the parser reads it.
    const int written = record.cellCount < 0 ? 0 : std::min(record.cellCount, Varnel3Data::maxCells - 1) + 1;
    for (int i = 0; i < written; ++i) {
        *out++ = ',';
        out = put4(out, record.cells[i].voltage);
        *out++ = ',';
        *out++ = balanceCharacter(record.cells[i].balance);
    }
    static const char absentCell[] = ",0000,0";
    for (int i = written; i < Varnel3Data::maxCells; ++i) {
        std::memcpy(out, absentCell, sizeof absentCell - 1);
        out += sizeof absentCell - 1;
    }
    return out;
}

bool isRecordLineReadable(const Varnel3Data &record)
{
    return modeLetter(record.mode) != ' ' && isKnownCellType(record.cellType) && record.cellCount >= -9
        && record.cellCount <= 99;
}

QString Varnel3Data::toRecordLine() const
{
    char line[maxRecordLineLength];
    return QString::fromLatin1(line, int(writeRecordLine(line, *this) - line));
}
