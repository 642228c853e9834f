#pragma once

#include "data/recordlist.h"

/// Recordings made up for pictures: one record each `period` seconds, with courses as batteries show them.
namespace samples {

/// A "Varnel 3" charging six LiPo cells with balancing data, one cell ahead of the others.
RecordList lipoCharge(int count, int period = 5);
/// A "Varnel 2+" discharging fourteen NiMh cells, without cell data.
RecordList nimhDischarge(int count, int period = 5);

} // namespace samples
