#include "data/figures.h"

#include "data/timetext.h"
#include "data/varnel3data.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace {

constexpr double milli = 1000.0;
constexpr int energyWithThreeDecimals = 99999; // mAh, up to this

QString temperatureText(int tenths)
{
    const QString degrees = QStringLiteral("\u00b0C");
    if (tenths == 0) // no sensor
        return QStringLiteral("--") + QLocale::system().decimalPoint() + QStringLiteral("- ") + degrees;
    return figure(tenths / 10.0, 4, 1) + QLatin1Char(' ') + degrees;
}

QString cellsText(const Varnel3Data &record)
{
    return QStringLiteral("%1x%2").arg(
        QString::number(record.cellCount), Varnel3Data::cellTypeName(record.cellType));
}

} // namespace

QString figure(double value, int width, int decimals)
{
    return QStringLiteral("%L1").arg(value, width, 'f', decimals, QLatin1Char(' '));
}

QString noFigure()
{
    return QStringLiteral("--") + QLocale().decimalPoint() + QLatin1Char('-');
}

QString informationText(const Varnel3Data &record, int parts)
{
    struct Part {
        int rank; // 1 is missed most
        QString text;
    };
    const Part all[] = {
        {6, Varnel3Data::modeName(record.mode)},
        {7, cellsText(record)},
        {1, figure(record.voltage / milli, 5, 2) + QStringLiteral(" V")},
        {2, figure(record.current / milli, 5, 2) + QStringLiteral(" A")},
        {5, temperatureText(record.temperature)},
        {3,
            figure(record.energy / milli, 5, record.energy <= energyWithThreeDecimals ? 3 : 2)
                + QStringLiteral(" Ah")},
        {4, clockText(record)},
    };
    QStringList texts;
    for (const Part &part : all) {
        if (part.rank <= parts && !part.text.isEmpty())
            texts.append(part.text);
    }
    return texts.join(QStringLiteral("  "));
}
