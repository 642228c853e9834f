#include "naive/naiverecordline.h"

#include <QStringList>

QString naiveRecordLine(const Varnel3Data &record)
{
    const QString modes = QStringLiteral("CDBF");
    const auto flag = [](char c) { return QString(QLatin1Char(c)); };
    // clazy:excludeall=qstring-arg (chains of arg() are what is compared with)
    QString line = QStringLiteral("#%1%2%3%4%5%6%7%8%9")
                       .arg(record.cellCount, 2, 10, QLatin1Char('0'))
                       .arg(record.mode < 4 ? modes.at(record.mode) : QLatin1Char(' '))
                       .arg(record.cellType, 2, 10, QLatin1Char('0'))
                       .arg(flag(record.flag1))
                       .arg(flag(record.flag2))
                       .arg(flag(record.flag3))
                       .arg(flag(record.flag4))
                       .arg(flag(record.flag5))
                       .arg(record.ballansingCurrent / 250);
    line += QStringLiteral(",%1,%2,%3,%4,%5,%6,")
                .arg(record.time, 5, 10, QLatin1Char('0'))
                .arg(record.voltage, 5, 10, QLatin1Char('0'))
                .arg(record.current, 5, 10, QLatin1Char('0'))
                .arg(record.temperature, 3, 10, QLatin1Char('0'))
                .arg(record.flag2 == '1' ? record.energy / 10 : record.energy, 5, 10, QLatin1Char('0'))
                .arg(record.internalResistance, 5, 10, QLatin1Char('0'));
    for (int i = 0; i < Varnel3Data::maxCells; ++i) {
        if (i > record.cellCount)
            line += QStringLiteral("0000,0");
        else
            line += QStringLiteral("%1,%2")
                        .arg(record.cells[i].voltage, 4, 10, QLatin1Char('0'))
                        .arg(QChar('0' + record.cells[i].balance / 10));
        if (i < Varnel3Data::maxCells - 1)
            line += QLatin1Char(',');
    }
    return line;
}

bool naiveParse(const QString &line, Varnel3Data *record)
{
    const QStringList fields = line.split(QLatin1Char(','));
    if (fields.size() != 39 || fields[0].size() != 12)
        return false;
    const QString &head = fields[0];
    bool ok = true;
    const auto number = [&ok](const QString &text) {
        bool good = false;
        const int value = text.toInt(&good);
        ok = ok && good;
        return value;
    };
    record->device = Varnel3Data::Varnel3;
    record->cellCount = number(head.mid(1, 2));
    record->mode = QStringLiteral("CDBFT").indexOf(head.at(3));
    record->cellType = number(head.mid(4, 2));
    record->flag1 = head.at(6).toLatin1();
    record->flag2 = head.at(7).toLatin1();
    record->flag3 = head.at(8).toLatin1();
    record->flag4 = head.at(9).toLatin1();
    record->flag5 = head.at(10).toLatin1();
    record->ballansingCurrent = number(head.mid(11, 1)) * 250;
    record->setTime(number(fields[1]));
    record->voltage = number(fields[2]);
    record->current = number(fields[3]);
    record->temperature = number(fields[4]);
    record->energy = number(fields[5]) * (record->flag2 == '1' ? 10 : 1);
    record->internalResistance = number(fields[6]);
    int sum = 0;
    for (int i = 0; i <= record->cellCount && i < Varnel3Data::maxCells; ++i) {
        CellData &cell = record->cells[i];
        cell.voltage = number(fields[7 + 2 * i]);
        cell.balance = (fields[8 + 2 * i].at(0).toLatin1() - '0') * 10;
        if (i == 0)
            record->cellMax = record->cellMin = cell.voltage;
        if (i < record->cellCount) {
            record->cellMax = qMax(record->cellMax, cell.voltage);
            record->cellMin = qMin(record->cellMin, cell.voltage);
            sum += cell.voltage;
        }
    }
    record->cellAverage = record->cellCount > 0 ? sum / record->cellCount : 0;
    return ok && record->mode >= 0;
}
