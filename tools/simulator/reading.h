#pragma once

#include <QtGlobal>

#include <array>

namespace sim {

constexpr int maxCells = 16;

enum class Model { Varnel3, Varnel2Plus, Varnel2, Tandor };
/// What a device does with the pack.
enum class Task { Charge, Discharge, Balance, Format, Test };

struct CellReading {
    int millivolts = 0;
    int level = 0; ///< balancer load in tenths, 0..10
    int tenthMilliohms = 0;
};

/// What a device means to say with one line, before it is put into the words of its model.
struct Reading {
    Model model = Model::Varnel3;
    Task task = Task::Charge;
    bool charging = true; ///< direction of the current; matters while formatting and testing
    int chemistry = 0; ///< index into chemistries()
    int cellCount = 0;
    int seconds = 0; ///< since the process began
    int millivolts = 0;
    int milliamps = 0; ///< a magnitude, the direction is `charging`
    int tenthDegrees = 0; ///< 0: no sensor
    int milliampHours = 0;
    bool coarseEnergy = false; ///< the line counts energy in steps of 10 mAh
    int milliohms = 0; ///< of the pack; 0: not measured this time
    char endLetter = '_'; ///< 'E' done, 'M' stopped by hand, 'S' error
    bool cellData = false;
    int balancingMilliamps = 0; ///< 0, 250, 500, 750 or 1000
    std::array<CellReading, maxCells> cells;
};

} // namespace sim
