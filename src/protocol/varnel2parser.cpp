#include "protocol/lineparsers.h"

// "Varnel 2" and "Varnel 2+" share the head of the line; they differ in where the sign of the current stands
// and in whether voltage and current share a field.
namespace {

constexpr int headLength = 12;
constexpr int lastCellTypeCode = 12; // chemistries count from 1 here, and LTO has no code

int modeOfLetter(unsigned letter, bool charging)
{
    switch (letter) {
    case 'C':
    case 'c':
        return Varnel3Data::Charge;
    case 'D':
    case 'd':
        return Varnel3Data::Discharge;
    case 'F':
    case 'f':
        return charging ? Varnel3Data::Charge : Varnel3Data::Discharge;
    default:
        return Varnel3Data::NoMode;
    }
}

bool parseHead(Varnel3Data &record, const FieldText &head, uchar sign)
{
    if (head.size != headLength)
        return false;
    record.mode = modeOfLetter(head.at(1), sign == '+');
    if (record.mode == Varnel3Data::NoMode || !head.mid(2, 2).toInt(&record.cellCount))
        return false;
    const std::optional<int> code = head.mid(4, 2).number();
    if (!code)
        return false;
    const bool known = *code >= 1 && *code <= lastCellTypeCode;
    record.cellType = known ? *code - 1 : Varnel3Data::noCellType;
    const std::optional<int> seconds = head.mid(7).number();
    if (!known || !seconds)
        return false;
    record.setTime(*seconds);
    return true;
}

} // namespace

bool parseVarnel2(Varnel3Data &record, const LineFields &fields)
{
    const FieldText electric = fields[1];
    return parseHead(record, fields[0], electric.at(5)) && electric.mid(0, 5).toInt(&record.voltage)
        && electric.mid(6, 5).toInt(&record.current) && fields[2].toInt(&record.temperature)
        && fields[3].toInt(&record.energy);
}

bool parseVarnel2Plus(Varnel3Data &record, const LineFields &fields)
{
    return parseHead(record, fields[0], fields[2].at(0)) && fields[1].toInt(&record.voltage)
        && fields[2].mid(1, 4).toInt(&record.current) && fields[3].toInt(&record.temperature)
        && fields[4].toInt(&record.energy);
}
