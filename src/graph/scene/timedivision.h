#pragma once

#include <QVector>

/// Times (s) at round seconds, minutes, hours or days that divide `from`..`to` into at most
/// `most` + 1 pieces. None for an empty range.
QVector<double> timeDivisions(double from, double to, int most);

/// Which of the ticks at the ascending `columns` (px) get a label `width` px wide: all, or every second,
/// third ... so that no two touch. `last` numbers the last tick; labelled are those whose number can be
/// divided by two, three ..., so that the labels of round times stay with them while ticks come and go.
QVector<int> labelledTicks(const QVector<int> &columns, int width, int last);
