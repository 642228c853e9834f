#include "displays/packvoltages.h"

#include "data/varnel3data.h"

PackVoltages PackVoltages::of(const Varnel3Data &record, int windowNumber)
{
    PackVoltages pack;
    pack.windowNumber = windowNumber;
    pack.device = Varnel3Data::deviceName(record.device);
    pack.hasCellData = record.hasCellData() && record.cellsPresent() > 0;
    pack.cellCount = pack.hasCellData ? record.cellsPresent() : 0;
    for (int i = 0; i < pack.cellCount; ++i)
        pack.voltages[i] = record.cells[i].voltage;
    return pack;
}
