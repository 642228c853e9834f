#include "files/chargercolumns.h"

#include <QString>

#include <cmath>
#include <limits>

namespace {

struct Column {
    double scale; // to the device's unit; 0 for whole numbers, which are taken as they are
    int width;
};
constexpr Column columns[] = {{0, 5}, {1000, 5}, {1000, 5}, {10, 3}, {0, 5}};

// Whole digits with a point among them. The result is the nearest double, as both parts are exact.
bool plainToDouble(const FieldText<uchar> &field, double *value)
{
    static constexpr double powers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    constexpr int safeLength = 10; // 9 digits and the point
    int decimals = -1;
    int digits = 0;
    if (field.size > safeLength)
        return false;
    for (int i = 0; i < field.size; ++i) {
        if (field.data[i] == '.' && decimals < 0) {
            decimals = field.size - i - 1;
            continue;
        }
        const unsigned digit = unsigned(field.data[i]) - '0';
        if (digit > 9 || i - (decimals >= 0) > 8)
            return false;
        digits = digits * 10 + int(digit);
    }
    if (field.size == 0 || decimals == 0 || decimals == field.size - 1)
        return false;
    *value = digits / powers[decimals < 0 ? 0 : decimals];
    return true;
}

bool toDouble(const FieldText<uchar> &field, double *value)
{
    if (plainToDouble(field, value))
        return true;
    bool ok = false;
    *value = QString::fromLatin1(reinterpret_cast<const char *>(field.data), field.size).toDouble(&ok);
    return ok && std::isfinite(*value);
}

} // namespace

bool ChargerColumns::takeField(int index, const Field &field)
{
    const double scale = columns[index].scale;
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
        out = writeZeroFilled(out, m_values[i], columns[i].width);
    }
    return out;
}
