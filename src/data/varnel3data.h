#pragma once

#include <QString>

/// One cell of a pack, as the newest line and the recording so far give it.
struct CellData {
    int voltage = 0; ///< mV
    int balance = 0; ///< balancer load of this cell, per cent, 0..100 in steps of 10
    int balanceCharge = 0; ///< balanced so far, per cent x mA x s; BalanceIntegrator writes it
    double resistance = 0.0; ///< internal resistance, mOhm
};

/// One measurement of one device at one moment. A plain value in the device's own integer units; what is
/// shown in volts, amperes or ampere-hours is converted where it is shown.
class Varnel3Data {
public:
    /// Cells that a record has room for. `cellCount` is what the device said and may be any number.
    static constexpr int maxCells = 16;
    static constexpr int chargePerMah = 360000; ///< per cent x mA x s, of `balanceCharge`
    static constexpr int balancerPeriod = 5; ///< s between two lines of a balancer, which sends no time

    enum Device { Varnel3 = 0, Varnel2Plus = 1, Varnel2 = 2, Tandor = 3, NoDevice = 4 };
    enum Mode { Charge = 0, Discharge = 1, Balancing = 2, Format = 3, Test = 4, NoMode = 5 };
    /// How a process ended, as the shell is told it.
    enum End { Failed = 0, Aborted = 1, Completed = 2, NoEnd = -1 };
    static constexpr int noCellType = 13;

    int balancedMah
        = 0; ///< largest cell charge balanced so far, mAh; written by whoever sums the charge of its cells
    int mode = NoMode; ///< one of Mode, or whatever a caller put there
    int cellType = noCellType; ///< index into the chemistry table, or noCellType
    char flag1 = '_'; ///< passed through
    char flag2 = '_'; ///< '1': the line's energy counts in units of 10 mAh
    char flag3 = '_'; ///< 'S', 'M' or 'E': the process has ended
    char flag4 = '_'; ///< 'E': derived from the end mark of the recording, for who reads or writes it
    char flag5 = '_'; ///< 'B': the record carries balancing data of its cells
    int ballansingCurrent = 0; ///< balancing current, mA: 0, 250, 500, 750 or 1000
    int time = 0; ///< elapsed process time, s
    int hour = 0; ///< `time` split
    int minute = 0;
    int second = 0;
    int voltage = 0; ///< pack voltage, mV
    int current = 0; ///< mA
    int temperature = 0; ///< tenths of a degree Celsius; 0 when no sensor is fitted
    int energy = 0; ///< capacity charged or discharged, mAh
    int internalResistance = 0; ///< of the pack, mOhm
    int voltageSlope = 0; ///< mV/min; no device sends it
    int cellCount = 0; ///< as the device sent it: clamp before it indexes anything
    CellData cells[maxCells]; ///< index 0 is the first cell
    int cellMax = 0; ///< highest cell voltage, mV
    int cellMin = 0; ///< lowest cell voltage, mV
    int cellAverage = 0; ///< mean cell voltage, mV, truncated
    int balanceMax = 0; ///< highest cell balance, per cent
    int device = NoDevice; ///< one of Device
    bool resistanceValid = false; ///< a '!' line has been applied
    double resistanceSum = 0.0; ///< mOhm, over all 16 cells

    /// Sets `time` to `seconds` and splits it into `hour`, `minute` and `second`.
    void setTime(int seconds);

    /// Fills the record from one '#' line of any device; the number of fields tells which. False for
    /// a line that is none: the record is then partly overwritten, and fields that a dialect does
    /// not send keep their values. A number that does not convert leaves its field as it was; energy
    /// and sums stop at what 32 bits hold.
    bool parseLine(QLatin1String line);
    bool parseLine(const QString &line); ///< the same; what Latin-1 lacks counts as NUL
    /// Applies a '!' line of 16 cell resistances; a value that is no number leaves its cell as it was.
    bool parseResistanceLine(QLatin1String line);
    bool parseResistanceLine(const QString &line); ///< the same
    /// The record as one 39-field line without a line end, the form that data files hold.
    QString toRecordLine() const;

    /// Largest `balanceCharge` of the cells, in mAh, truncated; 0 when `cellCount` is below 1.
    int maxBalanceChargeMah() const;
    /// Sum of `balanceCharge` over the cells, undivided, at most what 32 bits
    /// hold; 0 when `cellCount` is below 1.
    int totalBalanceCharge() const;
    /// The whole record as one line for a log.
    QString toString() const;

    /// `cellCount` clamped to 0..maxCells, for loops over `cells`.
    int cellsPresent() const { return qBound(0, cellCount, maxCells); }
    bool hasBalancingData() const { return flag5 == 'B'; }
    /// The record has cells, a process, and balancing data.
    bool hasCellData() const;
    /// How the process ended with this record, by `flag3`; NoEnd while it goes on.
    int processEnd() const;

    static QString deviceName(int device); ///< translated
    static QString modeName(int mode); ///< translated; empty above NoMode
    static const char *deviceInFiles(int device); ///< as files have it, in whatever language
    static const char *modeInFiles(int mode); ///< so is this
    static QString cellTypeName(int cellType); ///< chemistry; "None" for unknown codes
    static int cellTypeScaleMin(int cellType); ///< mV, lower end of the cells' axis; 0 for unknown codes
    static int cellTypeScaleMax(int cellType); ///< mV, upper end of the cells' axis; 0 for unknown codes
    static int cellTypeUpperVoltage(int cellType); ///< mV, cell full; 0 for unknown codes
    static int cellTypeLowerVoltage(int cellType); ///< mV, cell empty; 0 for unknown codes
};
