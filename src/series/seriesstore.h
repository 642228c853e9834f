#pragma once

#include "data/records/balanceintegrator.h"
#include "data/records/recordlist.h"
#include "series/derivedpoints.h"
#include "series/endmark.h"
#include "series/plotseries.h"

/// The records of one recording and the plot series derived from them, in step: record n is point n of every
/// series. A live recording grows by append(), a file is taken over whole by load(); the cost of a record
/// does not depend on how many there are. A store that was moved from is fit to be destroyed or to take
/// another one's place, and for nothing else.
class SeriesStore : public SeriesKinds {
public:
    /// What the comparison of capacities shows of a recording.
    struct Capacity {
        int energyNow = 0; ///< mAh, newest record
        char mode = 'C'; ///< 'C' charge, 'D' discharge, ' ' other
        int energyAtMark = 0; ///< mAh, first record that carries an end mark; else as energyNow
    };

    int size() const { return m_records.size(); }
    bool isEmpty() const { return m_records.isEmpty(); }
    /// The records as their device has sent them, each completed when it came and the same from then on, but
    /// for the resistances that a '!' line gives the newest one.
    const RecordList &records() const { return m_records; }
    /// Record `index` as it is shown: with the end mark and the dV that those after it and before it make.
    Varnel3Data record(int index) const;
    /// Records from this one on, and for those only, a file gets the end letter that their device did not
    /// send.
    int markedFrom() const { return m_end.markedFrom(); }
    /// Device code of the first record.
    int device() const { return m_device; }
    /// A view on a series, with a point for each record, cell series only where there are such; valid until
    /// the store is changed or moved.
    PlotSeries series(int kind) const { return PlotSeries(m_records, m_points, kind); }
    /// The first record carried cell data, so that the statistics of the cells have points.
    bool hasCellSeries() const { return m_points.hasCells(); }
    /// The recording is one of cells: its first record carried cell data, of a cell at least.
    bool hasCellData() const { return cellSeriesCount() > 0 && m_records.first().hasCellData(); }
    /// Cells that have a series, 0..16.
    int cellSeriesCount() const { return m_points.cellCount(); }
    /// No record's time lies before its predecessor's.
    bool isTimeMonotone() const { return m_points.isTimeMonotone(); }
    Capacity capacity() const;
    /// What the resistance of `cell`, from 0 on, was when a line gave it last, in mOhm; 0 while none has.
    double knownResistance(int cell) const { return m_resistances[cell]; }
    /// The newest record lacks the resistance of its first cell, which its predecessor had.
    bool newestLacksResistance() const;
    /// Another one after every record and every load, and never that of another store with records.
    quint64 revision() const { return m_revision; }
    /// Another one wherever points are no longer what they were; the same while records are only appended,
    /// once they are more than firstResistance(). Never that of another store with records.
    quint64 appendedTo() const { return m_appendedTo; }

    /// Takes a copy of `record`, completes it and derives its points. Throws std::bad_alloc where there is
    /// too little memory, some time before the rest of the program lacks it, and holds what it held before.
    void append(const Varnel3Data &record);
    /// Takes over the records of a file, of which the balanced charge is summed already, and
    /// derives all points. Throws std::bad_alloc where there is too little memory for these; the
    /// store is then only fit to be destroyed.
    void load(RecordList records);
    /// The same for a long file: takes over its records, of which loadSome() then derives the points. Until
    /// that is done nothing else may be asked.
    void beginLoad(RecordList records);
    /// Derives the points of up to `most` records more. True while there are more.
    bool loadSome(int most);
    /// Part of the records that have points, 0 to 1.
    double loadProgress() const;
    /// Applies a '!' line to the newest record; false without one and for a line that is none.
    bool applyResistanceLine(const QByteArray &line);
    void clear();

private:
    void begin(const Varnel3Data &record);
    void makeRoom();
    void complete(Varnel3Data *record);
    void goOnLive(const Varnel3Data &record);
    void noteResistances(const Varnel3Data &record);
    int slopeAt(int index) const;

    RecordList m_records;
    DerivedPoints m_points;
    BalanceIntegrator m_balance;
    EndMark m_end;
    int m_device = Varnel3Data::NoDevice;
    bool m_isLoaded = false; // and nothing appended since
    int m_syntheticTime = 0; // s
    double m_resistances[Varnel3Data::maxCells] = {}; // mOhm, the last known of each cell
    quint64 m_revision = 0;
    quint64 m_appendedTo = 0;
};
