#include "data/packedcolumn.h"

#include <algorithm>

namespace {

// Into a place of its own first, which the compiler knows to be no figure's, so that it takes many at once.
template <typename Number>
void narrow(const int *figures, int low, char *bytes)
{
    Number numbers[PackedColumn::length];
    for (int i = 0; i < PackedColumn::length; ++i)
        numbers[i] = Number(quint32(figures[i]) - quint32(low));
    std::memcpy(bytes, numbers, sizeof numbers);
}

} // namespace

PackedColumn PackedColumn::pack(const int *figures, char *block, quint32 *end)
{
    PackedColumn column = {figures[0], figures[0], *end};
    for (int i = 0; i < length; ++i) {
        column.low = std::min(column.low, figures[i]);
        column.high = std::max(column.high, figures[i]);
    }
    const int width = column.width();
    char *const bytes = block + *end;
    if (width == 1)
        narrow<quint8>(figures, column.low, bytes);
    else if (width == 2)
        narrow<quint16>(figures, column.low, bytes);
    else if (width == 4)
        narrow<quint32>(figures, column.low, bytes);
    *end += quint32(width * length);
    return column;
}
