#pragma once

#include "series/extremespyramid.h"
#include "series/keptpoints.h"
#include "series/resistancefold.h"

class RecordList;

/// Derives, record after record, what the points of the plot series need besides the figures of their own
/// record, and the extremes of each block. A record costs the same however many there are.
class DerivedPoints : public SeriesKinds {
public:
    /// Starts with the first record, which tells the device and the cells.
    void begin(const Varnel3Data &record);
    /// Takes the memory that addNewest() needs next. Throws std::bad_alloc where there is too little, and has
    /// changed nothing.
    void makeRoom();
    /// Adds the newest of `records`, the only one that was not added yet. Room was made.
    void addNewest(const RecordList &records);
    /// Adds up to `most` more `records` of a file, and no more than lie in one block; returns how many were
    /// added so far. Throws std::bad_alloc.
    int loadBlock(const RecordList &records, int most);
    /// The records of the file have ended, what comes now is live.
    void goOnLive();

    int size() const { return m_size; }
    /// Points of a series: as many as records, none where it is not in use.
    int size(int kind) const;
    bool hasCells() const { return m_hasCells; }
    int cellCount() const { return m_cellCount; }
    /// No record's time lies before its predecessor's.
    bool isTimeMonotone() const { return m_timeMonotone; }

    const KeptPoints &kept() const { return m_kept; }
    /// By each record of all such blocks.
    bool areCellsTold() const { return m_cellsTold; }
    /// The extremes of a series in a step of a block that gets no more points.
    const Interval &stepExtremes(int kind, int step) const { return m_pyramid.ofStep(kind, step); }
    /// Those of the steps `begin`..`end` - 1, of which there is at least one; hardly longer for more of them.
    Interval stepsExtremes(int kind, int begin, int end) const
    {
        return m_pyramid.extremes(kind, begin, end);
    }

private:
    int kindsInUse() const { return m_hasCells ? Cell1 + m_cellCount : int(CellMin); }
    bool isBlockFull() const { return m_size > 0 && m_size % KeptPoints::length == 0; }
    void makeBlockRoom(BlockArena::Growth growth);
    void packBlock(const RecordList &records);
    Interval rangeOf(const RecordList &records, int kind, int begin, bool isTold) const;
    void addFigures(const RecordList &records, int count);
    void addResistance(qint64 point);
    void fillFront();
    void seedLiveResistance(const RecordList &records);
    void addLiveResistance(const RecordList &records);
    void addLoadedResistances(const RecordList &records, int count);

    KeptPoints m_kept;
    int m_size = 0;
    int m_resistancePoints = 0; // as many, or one more
    ExtremesPyramid m_pyramid;
    ResistanceFold m_resistance;
    int m_device = Varnel3Data::NoDevice;
    bool m_hasCells = false;
    bool m_cellsTold = true;
    int m_cellCount = 0;
    qint64 m_temperatureSum = 0; // four times the running value
    double m_dvSum = 0.0; // twelve times the running value
    qint64 m_loadedResistanceSum = 0; // four times the running value, of a file's records
    bool m_timeMonotone = true;
};
