#pragma once

#include "simulator/reading.h"

#include <QByteArray>

namespace sim {

/// `reading` in the words of its model, with line end: 39 fields of a "Varnel 3", 5 of a "Varnel 2+", 4 of a
/// "Varnel 2", 24 of a "Tandor".
QByteArray measurementLine(const Reading &reading);
/// The '!' line with the resistances of 16 cells in tenths of a mOhm, with line end.
QByteArray resistanceLine(const Reading &reading);

} // namespace sim
