#pragma once

#include "logbook/window/course/coursechart.h"

#include <QHash>
#include <QVector>

#include <optional>

class GraphColours;
class Logbook;
struct LogbookPack;
struct LogbookRecording;

/// What the recordings of packs tell about their course.
namespace PackCourse {

using Recordings = QVector<const LogbookRecording *>;

enum Quantity { Capacity, Energy, Resistance, Spread, quantityCount };

/// State of health, in per cent, below which a pack counts as worn out.
constexpr double wornOut = 80.0;
/// A state of health in whole per cent, never rounded up: a pack below the limit must not read as if it were
/// on it.
QString percentText(double percent);

/// Whether `recording` tells what the pack holds: a charge from empty, or a discharge from full to empty.
/// Judged by the voltages of its first and last record and by how it ended, as far as the device tells.
bool isFull(const LogbookRecording &recording);

/// How a pack fares.
struct Health {
    std::optional<double> percent; ///< capacity of the newest full discharge, else charge, of the nominal one
    std::optional<double> perYear; ///< by which that changes, a line through all of them
    int lowestCell = -1; ///< at the end of that recording, from 0 on; -1 without cells
    int spread = -1; ///< mV, of the cells then
    bool hasWeakCell = false; ///< the lowest cell is far below the others then
    int recordings = 0;
    int cycles = 0; ///< see cyclesOf()
    qint64 newest = 0; ///< ms since 1970, of the newest recording; 0 without one

    bool isWornOut() const { return percent && *percent < wornOut; }
};
/// Of `pack`, whose recordings these are, sorted by their start.
Health healthOf(const LogbookPack &pack, const Recordings &recordings);

/// The recordings of each pack of `logbook` that have a start, sorted by it.
QHash<qint64, Recordings> byPack(const Logbook &logbook);
/// The same of one pack.
Recordings of(const Logbook &logbook, qint64 pack);

/// The number of the cycle of each of `recordings`, which are sorted by their start: as many charges, or
/// discharges where there are more of these, as the pack has had up to then.
QVector<int> cyclesOf(const Recordings &recordings);

struct Request {
    Quantity quantity = Capacity;
    bool byDate = true;
    bool blackGround = true;
    bool distinct = false;
};
/// Charges and discharges of one pack.
CourseChart chartOf(const LogbookPack &pack, const Recordings &recordings, const Request &request);
/// A line for each pack, the most worn first: discharges, or charges where it has no full one. Capacities are
/// in per cent of the nominal ones.
CourseChart chartOfAll(const Logbook &logbook, const Request &request);

} // namespace PackCourse
