#include "files/columnheader.h"

#include "protocol/fieldtext.h"

#include <cstring>

bool ColumnHeader::takeLine(int index, QLatin1String line, const Rules &rules)
{
    const FieldText text{reinterpret_cast<const uchar *>(line.data()), line.size()};
    switch (index) {
    case 0:
        return text.toInt(&cellTypeCode);
    case 1:
        mode = char(text.at(0));
        return mode != 0 && std::strchr(rules.modes, mode);
    default:
        return text.toInt(&cellCount) || !rules.countConverts;
    }
}
