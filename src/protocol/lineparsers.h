#pragma once

#include "protocol/linefields.h"
#include "data/varnel3data.h"

// One parser a dialect. Each assigns the record's fields in the order of the line and stops with false at the
// first one that does not fit; that field keeps its value, those before it are written. `device` is set by
// the caller.
bool parseVarnel3(Varnel3Data &record, const LineFields &fields);
bool parseVarnel2(Varnel3Data &record, const LineFields &fields);
bool parseVarnel2Plus(Varnel3Data &record, const LineFields &fields);
bool parseTandor(Varnel3Data &record, const LineFields &fields);
