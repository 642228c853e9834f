#pragma once

#include <QString>

class Varnel3Data;

/// Figures as texts, for drawing and displays alike, with the decimal point and the grouping of the default
/// locale, which is the system's unless the program was told otherwise.
namespace FigureText {

/// `value` with `decimals` digits after the point, filled with blanks on the left to `width` characters. What
/// is rounded to nothing has no sign.
QString fixed(double value, int width, int decimals);
inline QString fixed(double value, int decimals)
{
    return fixed(value, 0, decimals);
}
/// mV as volts.
QString volts(int millivolts, int width, int decimals);
/// mA as amperes.
QString amperes(int milliamperes);
/// Tenths of a degree as degrees; dashes for 0, which means that no sensor is fitted.
QString degrees(int tenths);
/// mAh as ampere-hours, with three, two or one decimals below 10 Ah, below 100 Ah and above.
QString ampereHours(int milliampereHours);
/// mOhm as ohms; dashes for 0, which means not measured.
QString ohms(int milliohms);

/// Such as "14 x NiMh".
QString cells(int count, int type);

/// "--,-": a figure with one decimal that there is none of.
QString shortDashes();
/// "-,---": a figure with three decimals that there is none of.
QString longDashes();

/// The values of `record` as one line: process, cells, voltage, current, temperature, energy and time, apart
/// by two blanks. `parts` many at most, those that can be missed best left out first.
QString information(const Varnel3Data &record, int parts = 7);

} // namespace FigureText
