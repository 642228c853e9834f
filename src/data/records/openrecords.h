#pragma once

#include "data/records/narrownumbers.h"
#include "data/records/recordcolumns.h"

#include <memory>

/// The newest records of a recording, up to a block of them, column by column as they come.
class OpenRecords {
public:
    OpenRecords() = default;

    int count() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    bool isFull() const;
    /// Takes the memory that the next add() needs; not of a full block. Throws std::bad_alloc, and has
    /// changed nothing.
    void makeRoom();
    /// Room was made.
    void add(const Varnel3Data &record);
    void replaceLast(const Varnel3Data &record);
    /// Forgets the records and keeps their memory.
    void restart();

    /// Cells of which some record tells anything.
    int cells() const { return m_cells; }
    /// Some record has a fraction that is not 0.
    bool hasFractions() const { return m_hasFractions; }
    /// RecordColumns::Column, or one of a cell.
    NarrowNumbers numbers(int column) const;
    const int *figures(int column) const { return m_figures.get() + column * stride(); }
    /// For hasFractions().
    const double *fractions(int index) const { return m_fractions + index * m_capacity; }
    double fraction(int index, int record) const { return m_hasFractions ? fractions(index)[record] : 0.0; }

private:
    int stride() const;
    int *place(int column) { return m_figures.get() + column * stride(); }
    template <int step>
    void store(const Varnel3Data &record);
    void makeCells(int cells);
    void makeFractions();

    std::unique_ptr<int[]> m_figures; // the fractions lie behind
    double *m_fractions = nullptr;
    int m_capacity = 0; // records
    int m_count = 0;
    int m_cells = 0;
    bool m_hasFractions = false;
};
