#pragma once

#include "data/largeblock.h"
#include "series/plotseries.h"
#include "series/resistancefold.h"
#include "series/serieskinds.h"

class RecordList;

/// The plot series derived from the records of one recording, and the running values they need. A record
/// costs the same however many there are.
class DerivedPoints : public SeriesKinds {
public:
    /// Starts with the first record, which tells the device and the cells.
    void begin(const Varnel3Data &record);
    /// Takes the memory that the points of the next record need. Throws std::bad_alloc where there is too
    /// little, and has added no point.
    void makeRoom();
    /// Bytes that makeRoom() may take for some time to come.
    qint64 nextGrowth() const;
    /// Adds the points of the newest of `records`, the only one that has none yet.
    void addNewest(const RecordList &records);

    /// Room for the points of so many records of a file. Throws std::bad_alloc
    /// where there is too little memory.
    void reserve(int records);
    /// Adds the points of up to `most` more `records` of a file, of which there are as many, and of no more
    /// than lie in one block; returns how many records have points now.
    int loadBlock(const RecordList &records, int most);
    /// The records of the file have ended, what comes now is live.
    void goOnLive();

    int size() const { return m_series[Time].size(); }
    const PlotSeries &series(int kind) const { return m_series[kind]; }
    bool hasCells() const { return m_hasCells; }
    int cellCount() const { return m_cellCount; }
    /// No record's time lies before its predecessor's.
    bool isTimeMonotone() const { return m_timeMonotone; }

private:
    int kindsInUse() const { return m_hasCells ? Cell1 + m_cellCount : int(CellMin); }
    void noteTime(int index);
    void addTemperature(const Varnel3Data &record);
    void addDv(const RecordList &records, int index);
    void seedLiveResistance(const RecordList &records);
    void addLiveResistance(const RecordList &records);
    void addLoadedResistance(const RecordList &records, int index);
    void addCellPoints(const Varnel3Data &record);
    void loadFigures(const Varnel3Data *records, int count);

    LargeBlock m_room; // of the series of a file, until they outgrow it
    PlotSeries m_series[kindCount];
    ResistanceFold m_resistance;
    int m_device = Varnel3Data::NoDevice;
    bool m_hasCells = false;
    int m_cellCount = 0;
    qint64 m_temperatureSum = 0; // four times the running value
    double m_dvSum = 0.0; // twelve times the running value
    qint64 m_loadedResistanceSum = 0; // four times the running value, of a file's records
    bool m_timeMonotone = true;
};
