#pragma once

#include "simulator/faults.h"
#include "simulator/reading.h"

#include <QString>
#include <QStringList>

namespace sim {

enum class Start { Now, OnOpen, Remote };

/// What one simulated device is and does, as people write it: "COM3:varnel3,cells=6,chemistry=LiPo,balance".
struct DeviceSettings {
    QString port; ///< "COM3"
    Model model = Model::Varnel3;
    Task task = Task::Charge;
    int chemistry = 5; ///< index into chemistries()
    int cells = 6;
    int capacity = 2200; ///< mAh
    int current = 0; ///< mA; 0: one capacity an hour
    int balance = 0; ///< mA of the balancer: 250, 500, 750, 1000; 0: no cell data in the lines
    int weak = 0; ///< cell 1..16 with less capacity; 0: none
    int age = 0; ///< charges that the pack has been through
    int failing = 0; ///< cell 1..16 that ages six times as fast; 0: none
    int charge = -1; ///< per cent held at the start; -1: what suits the task
    int spread = -1; ///< tenths of a per cent from cell to cell; -1: what suits the task
    int ambient = 23; ///< degrees Celsius
    bool sensor = true; ///< temperature sensor fitted
    bool coarse = false; ///< energy in steps of 10 mAh; of itself from 50 Ah
    int resistanceEvery = 60; ///< device seconds between '!' lines; 0: none
    int resistanceGaps = 0; ///< in how many of 1000 lines the pack's resistance is 0, not measured
    int processes = 1; ///< how many one after another; 0: no end
    int pause = 3; ///< s between processes; above 20 never shortened, never below 1
    int endLines = 1; ///< lines with the end letter, 1..5
    int cycles = 2; ///< of formatting
    int duration = 0; ///< device seconds after which a process ends; 0: when the pack is done
    int failAfter = 0; ///< device seconds after which it ends with an error; 0: never
    bool endless = false; ///< a finished process goes on
    bool fromZero = false; ///< first line of a process says 0 s instead of 1 s
    Start start = Start::Now;
    bool remote = true; ///< answers the remote control; a "Tandor" never does
    bool packOn = true; ///< a pack is connected
    int detect = 3; ///< s after the last key until a charger sees its pack
    QString replay; ///< file of lines to send instead of a simulated process
    bool loop = false; ///< replay begins again at its end
    FaultRates faults = {};

    /// Reads `text`. On failure `error` says what is wrong and the result is not to be used.
    static DeviceSettings parse(const QString &text, QString *error);
    /// One line for each option, for a help text.
    static QStringList options();

    int effectiveCurrent() const; ///< mA
    int mostCurrent() const
    {
        return model == Model::Varnel2Plus ? 9999 : 99999;
    } ///< mA that its lines have room for
    int secondsPerLine() const { return model == Model::Tandor ? 5 : 1; } ///< of the device's time
};

QString modelName(Model model); ///< as the command line has it

} // namespace sim
