#include "protocol/lineparsers.h"

#include "protocol/lineconversions.h"
#include "data/saturated.h"

namespace {

constexpr int headLength = 11;
constexpr int balancerCells = 12; // pairs in a line

struct CellTypeCode {
    int code;
    int cellType;
};
constexpr CellTypeCode cellTypeCodes[] = {{5, 4}, {6, 5}, {7, 7}, {8, 11}}; // LiIo, LiPo, LiFe, LiHV

struct CurrentLetter {
    char letter;
    int current; // mA
};
constexpr CurrentLetter currentLetters[] = {{'B', 250}, {'C', 500}, {'D', 750}};

int cellTypeOfCode(int code)
{
    for (const CellTypeCode &entry : cellTypeCodes) {
        if (entry.code == code)
            return entry.cellType;
    }
    return Varnel3Data::noCellType;
}

int currentOfLetter(unsigned letter)
{
    for (const CurrentLetter &entry : currentLetters) {
        if (unsigned(entry.letter) == letter)
            return entry.current;
    }
    return 0;
}

bool parseHead(Varnel3Data &record, const FieldText &head)
{
    if (!head.mid(2, 2).toInt(&record.cellCount))
        return false;
    const std::optional<int> code = head.mid(4, 2).number();
    if (!code)
        return false;
    record.cellType = cellTypeOfCode(*code);
    if (record.cellType == Varnel3Data::noCellType)
        return false;
    record.ballansingCurrent = currentOfLetter(head.at(6));
    return head.mid(7).toInt(&record.cells[0].voltage);
}

} // namespace

bool parseTandor(Varnel3Data &record, const LineFields &fields)
{
    record.flag5 = 'B';
    if (fields[0].size != headLength)
        return false;
    record.mode = Varnel3Data::Balancing;
    if (!parseHead(record, fields[0]))
        return false;
    record.cells[0].balance = balancePercent(fields[1].at(0));
    record.voltage = record.cells[0].voltage;
    // Inclusive, as in the charger's line: the pair behind the last cell counts too.
    for (int i = 1; i <= record.cellCount && i < balancerCells; ++i) {
        CellData &cell = record.cells[i];
        if (!fields[2 * i].toInt(&cell.voltage))
            return false;
        record.voltage = saturated(qint64(record.voltage) + cell.voltage);
        cell.balance = balancePercent(fields[2 * i + 1].at(0));
    }
    updateCellStatistics(record);
    return true;
}
