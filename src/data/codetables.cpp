#include "data/varnel3data.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct CellTypeEntry {
    const char *name;
    int scaleMin; // mV, as the rest
    int scaleMax;
    int upperVoltage;
    int lowerVoltage;
};

constexpr CellTypeEntry cellTypes[] = {
    {"NiCd", 850, 1850, 1650, 600},
    {"NiMh", 1000, 1850, 1650, 850},
    {"Pb", 1800, 2550, 2450, 1800},
    {"RAM", 1000, 1850, 1650, 1000},
    {"LiIo", 3000, 4300, 4100, 2700},
    {"LiPo", 3300, 4350, 4200, 3000},
    {"LiTa", 2400, 3600, 3450, 2400},
    {"LiFe", 2800, 3800, 3650, 2200},
    {"LiS", 1700, 2850, 2500, 1200},
    {"NiZn", 1100, 1980, 1900, 1000},
    {"LiXX", 2800, 4750, 4500, 2500},
    {"LiHV", 3300, 4550, 4350, 3000},
    {"LTO", 1500, 2900, 2800, 1300},
};
static_assert(sizeof cellTypes / sizeof *cellTypes == Varnel3Data::noCellType, "one entry a chemistry");

constexpr CellTypeEntry unknownCellType = {"None", 0, 0, 0, 0};

constexpr const char *deviceNames[] = {
    QT_TRANSLATE_NOOP("Varnel3Data", "Varnel 3"),
    QT_TRANSLATE_NOOP("Varnel3Data", "Varnel 2+"),
    QT_TRANSLATE_NOOP("Varnel3Data", "Varnel 2"),
    QT_TRANSLATE_NOOP("Varnel3Data", "Tandor"),
    QT_TRANSLATE_NOOP("Varnel3Data", "None"),
};

constexpr const char *modeNames[] = {
    QT_TRANSLATE_NOOP("Varnel3Data", "Charge"),
    QT_TRANSLATE_NOOP("Varnel3Data", "Discharge"),
    QT_TRANSLATE_NOOP("Varnel3Data", "Balancing"),
    QT_TRANSLATE_NOOP("Varnel3Data", "Format"),
    QT_TRANSLATE_NOOP("Varnel3Data", "Test"),
    QT_TRANSLATE_NOOP("Varnel3Data", "None"),
};

const CellTypeEntry &cellTypeEntry(int cellType)
{
    return cellType >= 0 && cellType < Varnel3Data::noCellType ? cellTypes[cellType] : unknownCellType;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("Varnel3Data", text);
}

} // namespace

QString Varnel3Data::deviceName(int device)
{
    return translated(deviceInFiles(device));
}

QString Varnel3Data::modeName(int mode)
{
    const char *const name = modeInFiles(mode);
    return *name ? translated(name) : QString();
}

const char *Varnel3Data::deviceInFiles(int device)
{
    return deviceNames[std::min(unsigned(device), unsigned(NoDevice))];
}

const char *Varnel3Data::modeInFiles(int mode)
{
    return mode >= 0 && mode <= NoMode ? modeNames[mode] : "";
}

QString Varnel3Data::cellTypeName(int cellType)
{
    return QString::fromLatin1(cellTypeEntry(cellType).name);
}

int Varnel3Data::cellTypeScaleMin(int cellType)
{
    return cellTypeEntry(cellType).scaleMin;
}

int Varnel3Data::cellTypeScaleMax(int cellType)
{
    return cellTypeEntry(cellType).scaleMax;
}

int Varnel3Data::cellTypeUpperVoltage(int cellType)
{
    return cellTypeEntry(cellType).upperVoltage;
}

int Varnel3Data::cellTypeLowerVoltage(int cellType)
{
    return cellTypeEntry(cellType).lowerVoltage;
}
