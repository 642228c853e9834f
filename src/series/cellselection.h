#pragma once

#include "data/varnel3data.h"

#include <array>

/// Which cells the user has picked; index 0 is the first cell.
using CellSelection = std::array<bool, Varnel3Data::maxCells>;
