#include "simulator/linewriter.h"

#include "simulator/chemistry.h"

#include <algorithm>

namespace sim {

namespace {

constexpr int balancerCells = 12; // that a "Tandor" line has room for

QByteArray digits(int value, int width)
{
    return QByteArray::number(value).rightJustified(width, '0');
}

QByteArray cellPair(const CellReading &cell)
{
    return digits(cell.millivolts, 4) + ',' + char('0' + std::clamp(cell.level, 0, 10));
}

char taskLetter(Task task)
{
    return "CDBFT"[int(task)];
}

QByteArray varnel3Line(const Reading &reading)
{
    QByteArray line
        = "#" + digits(reading.cellCount, 2) + taskLetter(reading.task) + digits(reading.chemistry, 2);
    line += '_';
    line += reading.coarseEnergy ? '1' : '_';
    line += reading.endLetter;
    line += '_';
    line += reading.cellData ? 'B' : '_';
    line += char('0' + std::clamp(reading.balancingMilliamps / 250, 0, 4));
    line += ',' + digits(reading.seconds, 5) + ',' + digits(reading.millivolts, 5) + ','
        + digits(reading.milliamps, 5) + ',' + digits(reading.tenthDegrees, 3) + ','
        + digits(reading.coarseEnergy ? reading.milliampHours / 10 : reading.milliampHours, 5) + ','
        + digits(reading.milliohms, 5);
    for (const CellReading &cell : reading.cells)
        line += ',' + cellPair(reading.cellData ? cell : CellReading());
    return line;
}

/// The first field that both older chargers share.
QByteArray olderHead(const Reading &reading)
{
    const auto &chemistry = chemistries().at(reading.chemistry);
    return QByteArray("#") + taskLetter(reading.task) + digits(reading.cellCount, 2)
        + digits(chemistry.oldCode, 2) + 'D' + digits(std::min(reading.seconds, 99999), 5);
}

char direction(const Reading &reading)
{
    return reading.charging ? '+' : '-';
}

QByteArray varnel2PlusLine(const Reading &reading)
{
    return olderHead(reading) + ',' + digits(reading.millivolts, 5) + ',' + direction(reading)
        + digits(reading.milliamps, 4) + ',' + digits(reading.tenthDegrees, 3) + ','
        + digits(reading.milliampHours, 5);
}

QByteArray varnel2Line(const Reading &reading)
{
    return olderHead(reading) + ',' + digits(reading.millivolts, 5) + direction(reading)
        + digits(reading.milliamps, 5) + ',' + digits(reading.tenthDegrees, 3) + ','
        + digits(reading.milliampHours, 5);
}

char balancerLetter(int milliamps)
{
    return milliamps >= 750 ? 'D' : milliamps >= 500 ? 'C' : 'B';
}

QByteArray tandorLine(const Reading &reading)
{
    QByteArray line = "#E" + digits(reading.cellCount, 2)
        + digits(chemistries().at(reading.chemistry).balancerCode, 2)
        + balancerLetter(reading.balancingMilliamps);
    for (int i = 0; i < balancerCells; ++i)
        line += (i == 0 ? QByteArray() : QByteArray(",")) + cellPair(reading.cells[size_t(i)]);
    return line;
}

} // namespace

QByteArray measurementLine(const Reading &reading)
{
    static constexpr std::array<QByteArray (*)(const Reading &), 4> writers
        = {varnel3Line, varnel2PlusLine, varnel2Line, tandorLine};
    return writers[size_t(reading.model)](reading) + "\r\n";
}

QByteArray resistanceLine(const Reading &reading)
{
    QByteArray line("!");
    for (size_t i = 0; i < maxCells; ++i)
        line += (i == 0 ? QByteArray() : QByteArray(",")) + digits(reading.cells[i].tenthMilliohms, 4);
    return line + "\r\n";
}

} // namespace sim
