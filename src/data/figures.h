#pragma once

#include <QString>

class Varnel3Data;

/// `value` with `decimals` decimals in the user's number form, filled with blanks to `width` characters.
QString figure(double value, int width, int decimals);
/// Stands where a value is missing.
QString noFigure();
/// The values of `record` as one line: process, cells, voltage, current, temperature, energy and time, apart
/// by two blanks. `parts` many at most, those that can be missed best left out first.
QString informationText(const Varnel3Data &record, int parts = 7);
