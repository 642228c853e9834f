#include "protocol/lineparsers.h"

#include "protocol/lineconversions.h"
#include "data/saturated.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr int headLength = 12;
constexpr int firstCellField = 7;

int modeOfLetter(uchar letter)
{
    constexpr std::string_view letters = "CDBFT"; // by Varnel3Data::Mode
    static_assert(letters.size() == Varnel3Data::NoMode, "what is behind the last is none");
    return int(std::find(letters.begin(), letters.end(), char(letter)) - letters.begin());
}

bool parseCellType(Varnel3Data &record, const FieldText &code)
{
    const std::optional<int> type = code.number();
    if (!type)
        return false;
    const bool known = *type >= 0 && *type < Varnel3Data::noCellType;
    record.cellType = known ? *type : Varnel3Data::noCellType;
    return known;
}

bool parseHead(Varnel3Data &record, const FieldText &head)
{
    if (head.size != headLength || !head.mid(1, 2).toInt(&record.cellCount))
        return false;
    record.mode = modeOfLetter(head.at(3));
    if (record.mode == Varnel3Data::NoMode || !parseCellType(record, head.mid(4, 2)))
        return false;
    record.flag1 = char(head.at(6));
    record.flag2 = char(head.at(7));
    record.flag3 = char(head.at(8));
    record.flag4 = char(head.at(9));
    record.flag5 = char(head.at(10));
    record.ballansingCurrent = 0;
    const std::optional<int> steps = head.mid(11).number();
    if (!steps)
        return false;
    record.ballansingCurrent = *steps * balancingCurrentStep;
    return true;
}

bool parseFigures(Varnel3Data &record, const LineFields &fields)
{
    const std::optional<int> seconds = fields[1].number();
    if (!seconds)
        return false;
    record.setTime(*seconds);
    if (!fields[2].toInt(&record.voltage) || !fields[3].toInt(&record.current)
        || !fields[4].toInt(&record.temperature))
        return false;
    const std::optional<int> energy = fields[5].number();
    if (!energy)
        return false;
    record.energy = record.flag2 == '1' ? saturated(qint64(*energy) * 10) : *energy;
    return fields[6].toInt(&record.internalResistance);
}

// The bound is inclusive: the line always carries 16 pairs, and the one behind the last cell is taken as
// well.
bool parseCells(Varnel3Data &record, const LineFields &fields)
{
    for (int i = 0; i <= record.cellCount && i < Varnel3Data::maxCells; ++i) {
        if (!fields[firstCellField + 2 * i].toInt(&record.cells[i].voltage))
            return false;
        record.cells[i].balance = balancePercent(fields[firstCellField + 2 * i + 1].at(0));
    }
    return true;
}

} // namespace

bool parseVarnel3(Varnel3Data &record, const LineFields &fields)
{
    if (!parseHead(record, fields[0]) || !parseFigures(record, fields) || !parseCells(record, fields))
        return false;
    updateCellStatistics(record);
    return true;
}
