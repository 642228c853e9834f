#include "naive/naivecsv.h"

#include "series/seriesstore.h"

#include <QLocale>
#include <QStringList>

namespace {

QString number(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QStringList header(int cells)
{
    QStringList titles{"record", "device", "time [s]", "mode", "chemistry", "cells", "voltage [mV]",
        "current [mA]", "temperature [0.1 C]", "capacity [mAh]", "internal resistance [mOhm]",
        "balancing current [mA]", "flag 1", "flag 2", "flag 3", "flag 4", "flag 5", "cell maximum [mV]",
        "cell minimum [mV]", "cell average [mV]", "cell spread [mV]", "balance maximum [%]",
        "balanced charge maximum [mAh]"};
    for (int cell = 1; cell <= cells; ++cell) {
        for (const char *quantity :
            {"voltage [mV]", "balance [%]", "balanced charge [mAh]", "resistance [mOhm]"})
            titles << QStringLiteral("cell %1 %2").arg(QString::number(cell), QLatin1String(quantity));
    }
    return titles << "smoothed temperature [C]"
                  << "smoothed internal resistance [mOhm]"
                  << "smoothed voltage slope [mV/min]";
}

QString row(const SeriesStore &store, int index, int cells)
{
    const Varnel3Data record = store.records()[index];
    const auto flag = [](char c) { return QString(QLatin1Char(c)); };
    // clazy:excludeall=qstring-arg (chains of arg() are what is compared with)
    QString line = QStringLiteral("%1,%2,%3,%4,%5,%6,")
                       .arg(index + 1)
                       .arg(QLatin1String(Varnel3Data::deviceInFiles(record.device)))
                       .arg(record.time)
                       .arg(QLatin1String(Varnel3Data::modeInFiles(record.mode)))
                       .arg(Varnel3Data::cellTypeName(record.cellType))
                       .arg(record.cellCount);
    line += QStringLiteral("%1,%2,%3,%4,%5,%6,")
                .arg(record.voltage)
                .arg(record.current)
                .arg(record.temperature)
                .arg(record.energy)
                .arg(record.internalResistance)
                .arg(record.ballansingCurrent);
    line += QStringLiteral("%1,%2,%3,%4,%5,")
                .arg(flag(record.flag1))
                .arg(flag(record.flag2))
                .arg(flag(record.flag3))
                .arg(flag(record.flag4))
                .arg(flag(record.flag5));
    line += QStringLiteral("%1,%2,%3,%4,%5,%6,")
                .arg(record.cellMax)
                .arg(record.cellMin)
                .arg(record.cellAverage)
                .arg(record.cellMax - record.cellMin)
                .arg(record.balanceMax)
                .arg(record.balancedMah);
    for (int cell = 0; cell < cells; ++cell) {
        const CellData &data = record.cells[cell];
        line += QStringLiteral("%1,%2,%3,%4,")
                    .arg(data.voltage)
                    .arg(data.balance)
                    .arg(number(data.balanceCharge / double(Varnel3Data::chargePerMah)))
                    .arg(record.resistanceValid ? number(data.resistance) : QString());
    }
    return line
        + QStringLiteral("%1,%2,%3")
              .arg(number(store.series(SeriesStore::Temperature)[index]))
              .arg(number(store.series(SeriesStore::Resistance)[index]))
              .arg(number(store.series(SeriesStore::Dv)[index]));
}

} // namespace

void naiveCsv(QTextStream *stream, const SeriesStore &store)
{
    int cells = 0;
    for (int i = 0; i < store.size(); ++i)
        cells = qMax(cells, store.records()[i].cellsPresent());
    *stream << header(cells).join(QLatin1Char(',')) << '\n';
    for (int i = 0; i < store.size(); ++i)
        *stream << row(store, i, cells) << '\n';
}
