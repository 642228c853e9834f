#include "files/chargercolumns.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace {

// To the device's unit; 0 for whole numbers, which are taken as they are.
constexpr double scales[] = {0, 1000, 1000, 10, 0};
constexpr int width = 5; // of the time in the line; other fields may have it

// Whatever the locale; a '+' may stand in front.
bool toDouble(const FieldText &field, double *value)
{
    const char *begin = reinterpret_cast<const char *>(field.data);
    const char *const end = begin + field.size;
    if (field.at(0) == '+' && field.at(1) != '-')
        ++begin;
    const std::from_chars_result result = std::from_chars(begin, end, *value);
    return result.ec == std::errc() && result.ptr == end && std::isfinite(*value);
}

} // namespace

bool ChargerColumns::takeField(int index, const Field &field)
{
    const double scale = scales[index];
    if (scale == 0)
        return field.toInt(&m_values[index]);
    double value = 0;
    if (!toDouble(field, &value) || !(std::abs(value * scale) < std::numeric_limits<int>::max()))
        return false;
    m_values[index] = qRound(value * scale);
    return true;
}

char *ChargerColumns::writeLine(char *out) const
{
    out = writeHead(out);
    *out++ = 'D';
    for (int i = 0; i < fieldCount; ++i) {
        if (i > 0)
            *out++ = ',';
        out = writeZeroFilled(out, m_values[i], width);
    }
    return out;
}
