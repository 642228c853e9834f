#pragma once

#include "data/linefields.h"
#include "data/varnel3data.h"

// One parser a dialect. Each assigns the record's fields in the order of the line and stops with false at the
// first one that does not fit; that field keeps its value, those before it are written. `device` is set by
// the caller.
template <typename Char>
bool parseVarnel3(Varnel3Data &record, const LineFields<Char> &fields);
template <typename Char>
bool parseVarnel2(Varnel3Data &record, const LineFields<Char> &fields);
template <typename Char>
bool parseVarnel2Plus(Varnel3Data &record, const LineFields<Char> &fields);
template <typename Char>
bool parseTandor(Varnel3Data &record, const LineFields<Char> &fields);

/// Per cent that a balance character stands for: '0' to '9' for 0 to 90, ':' for 100, anything else 0.
constexpr int balancePercent(unsigned character)
{
    return character >= '0' && character <= ':' ? int(character - '0') * 10 : 0;
}

/// Sets the cell statistics of a freshly parsed record; all 0 without balancing data.
void updateCellStatistics(Varnel3Data &record);
