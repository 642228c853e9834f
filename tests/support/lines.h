#pragma once

#include "data/varnel3data.h"

#include <QByteArray>

/// Lines as devices send them, with their line end, for tests that need a device rather than a dialect.
namespace Lines {

/// A line of 39 fields without its end: `head` is its first one, `cells` the pairs that are not absent.
inline QByteArray recordLine(const QByteArray &head, int time, const QByteArray &cells = QByteArray())
{
    return head + ',' + QByteArray::number(time).rightJustified(5, '0') + ",25200,02000,251,00150,00045"
        + cells + QByteArray(",0000,0").repeated(16 - cells.count(',') / 2);
}

/// A "Varnel 3" that charges six LiPo cells with balancing data; `end` is its end letter.
inline QByteArray charger(int time, char end = '_')
{
    return recordLine("#06C05__" + QByteArray(1, end) + "_B1", time, QByteArray(",4200,3").repeated(6))
        + "\r\n";
}

/// The record that is read from charger().
inline Varnel3Data record(int time)
{
    Varnel3Data record;
    record.parseLine(QString::fromLatin1(charger(time)).trimmed());
    return record;
}

/// A "Varnel 2+" that discharges three LiPo cells.
inline QByteArray discharger(int time)
{
    return "#D0306 " + QByteArray::number(time).rightJustified(5, '0') + ",11100,-1500,000,00300\r\n";
}

} // namespace Lines
