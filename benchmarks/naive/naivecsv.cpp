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

QStringList row(const SeriesStore &store, int index, int cells)
{
    const Varnel3Data record = store.records()[index];
    QStringList fields{QString::number(index + 1),
        QString::fromLatin1(Varnel3Data::deviceInFiles(record.device)), QString::number(record.time),
        QString::fromLatin1(Varnel3Data::modeInFiles(record.mode)),
        Varnel3Data::cellTypeName(record.cellType)};
    for (const int figure : {record.cellCount, record.voltage, record.current, record.temperature,
             record.energy, record.internalResistance, record.ballansingCurrent})
        fields << QString::number(figure);
    for (const char flag : {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5})
        fields << QString(QLatin1Char(flag));
    for (const int figure : {record.cellMax, record.cellMin, record.cellAverage,
             record.cellMax - record.cellMin, record.balanceMax, record.balancedMah})
        fields << QString::number(figure);
    for (int cell = 0; cell < cells; ++cell) {
        const CellData &data = record.cells[cell];
        fields << QString::number(data.voltage) << QString::number(data.balance)
               << number(data.balanceCharge / double(Varnel3Data::chargePerMah))
               << (record.resistanceValid ? number(data.resistance) : QString());
    }
    for (const int kind : {SeriesStore::Temperature, SeriesStore::Resistance, SeriesStore::Dv})
        fields << number(store.series(kind)[index]);
    return fields;
}

} // namespace

void naiveCsv(QTextStream *stream, const SeriesStore &store)
{
    int cells = 0;
    for (int i = 0; i < store.size(); ++i)
        cells = qMax(cells, store.records()[i].cellsPresent());
    *stream << header(cells).join(QLatin1Char(',')) << '\n';
    for (int i = 0; i < store.size(); ++i)
        *stream << row(store, i, cells).join(QLatin1Char(',')) << '\n';
}
