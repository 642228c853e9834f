#pragma once

#include "data/varnel3data.h"

/// The record line as one would write it first: arg() chains.
QString naiveRecordLine(const Varnel3Data &record);

/// And read: split() and toInt().
bool naiveParse(const QString &line, Varnel3Data *record);
