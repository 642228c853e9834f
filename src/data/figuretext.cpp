#include "data/figuretext.h"

#include "data/timetext.h"
#include "data/varnel3data.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace FigureText {

namespace {

constexpr double thousand = 1000.0;
constexpr int energyWithThreeDecimals = 99999; // mAh, up to this, in a line of figures

} // namespace

QString fixed(double value, int width, int decimals)
{
    const bool isNothing = std::abs(value) * std::pow(10.0, decimals) < 0.5; // "-0.0" otherwise
    return QStringLiteral("%L1").arg(isNothing ? 0.0 : value, width, 'f', decimals, QLatin1Char(' '));
}

QString volts(int millivolts, int width, int decimals)
{
    return fixed(millivolts / thousand, width, decimals);
}

QString amperes(int milliamperes)
{
    return fixed(milliamperes / thousand, 5, 2);
}

QString degrees(int tenths)
{
    return tenths == 0 ? shortDashes() : fixed(tenths / 10.0, 4, 1);
}

QString ampereHours(int milliampereHours)
{
    struct Range {
        double below; // Ah
        int width;
        int decimals;
    };
    static constexpr Range ranges[] = {{10.0, 7, 3}, {100.0, 6, 2}};
    const double value = milliampereHours / thousand;
    for (const Range &range : ranges)
        if (value < range.below)
            return fixed(value, range.width, range.decimals);
    return fixed(value, 5, 1);
}

QString ohms(int milliohms)
{
    return milliohms == 0 ? longDashes() : fixed(milliohms / thousand, 5, 3);
}

QString cells(int count, int type)
{
    return QString::number(count) + QStringLiteral(" x ") + Varnel3Data::cellTypeName(type);
}

QString shortDashes()
{
    return QStringLiteral("--") + QLocale().decimalPoint() + QLatin1Char('-');
}

QString longDashes()
{
    return QLatin1Char('-') + QString(QLocale().decimalPoint()) + QStringLiteral("---");
}

QString information(const Varnel3Data &record, int parts)
{
    struct Part {
        int rank; // 1 is missed most
        QString text;
    };
    const int decimals = record.energy <= energyWithThreeDecimals ? 3 : 2;
    const Part all[] = {
        {6, Varnel3Data::modeName(record.mode)},
        {7,
            QString::number(record.cellCount) + QLatin1Char('x')
                + Varnel3Data::cellTypeName(record.cellType)},
        {1, volts(record.voltage, 5, 2) + QStringLiteral(" V")},
        {2, amperes(record.current) + QStringLiteral(" A")},
        {5, degrees(record.temperature) + QStringLiteral(" \u00b0C")},
        {3, fixed(record.energy / thousand, 5, decimals) + QStringLiteral(" Ah")},
        {4, clockText(record)},
    };
    QStringList texts;
    for (const Part &part : all) {
        if (part.rank <= parts && !part.text.isEmpty())
            texts.append(part.text);
    }
    return texts.join(QStringLiteral("  "));
}

} // namespace FigureText
