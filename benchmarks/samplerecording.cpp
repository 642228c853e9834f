#include "samplerecording.h"

#include "protocol/recordline.h"

#include <cmath>

namespace {

// Measurement noise of -2..2 that is the same on every run.
int noise(unsigned index, unsigned stream)
{
    unsigned x = index * 2654435761u + stream * 40503u;
    x ^= x >> 15;
    x *= 2246822519u;
    x ^= x >> 13;
    return int(x % 5) - 2;
}

} // namespace

Varnel3Data sampleRecord(int index, int cells)
{
    const auto n = unsigned(index);
    const double course = 1.0 - std::exp(-index / 40000.0);
    Varnel3Data record;
    record.device = Varnel3Data::Varnel3;
    record.mode = Varnel3Data::Charge;
    record.cellType = 5;
    record.ballansingCurrent = 500;
    record.cellCount = cells;
    record.setTime(index);
    record.current = 2000 - int(1500 * course) + noise(n, 1);
    record.temperature = 250 + int(60 * course) + noise(n, 2);
    record.energy = index / 2 % 100000;
    record.internalResistance = index % 97 == 0 ? 0 : 45 + noise(n, 3);
    if (cells == 0) {
        record.voltage = 12000 + int(3000 * course) + noise(n, 4);
        return record;
    }
    record.flag5 = 'B';
    for (int i = 0; i < cells; ++i) {
        CellData &cell = record.cells[i];
        cell.voltage = 3300 + int(850 * course) + 3 * i + noise(n, 10 + unsigned(i));
        cell.balance = (index / 50 + i) % 11 * 10;
        record.voltage += cell.voltage;
    }
    // as a parser sets them
    record.cellMax = record.cellMin = record.cells[0].voltage;
    for (int i = 1; i < cells; ++i) {
        record.cellMax = qMax(record.cellMax, record.cells[i].voltage);
        record.cellMin = qMin(record.cellMin, record.cells[i].voltage);
    }
    record.cellAverage = record.voltage / cells;
    return record;
}

RecordList sampleRecording(int count, int cells)
{
    RecordList records;
    for (int i = 0; i < count; ++i)
        records.append(sampleRecord(i, cells));
    return records;
}

QByteArray sampleLines(int count)
{
    QByteArray lines;
    lines.reserve(count * maxRecordLineLength / 2);
    char line[maxRecordLineLength];
    for (int i = 0; i < count; ++i) {
        char *end = writeRecordLine(line, sampleRecord(i));
        *end++ = '\n';
        lines.append(line, int(end - line));
    }
    return lines;
}
