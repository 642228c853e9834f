#include "graph/plot/scaledrawtime.h"

#include "data/timetext.h"

QwtText ScaleDrawTime::label(double value) const
{
    return value >= 0 ? elapsedTimeText(value) : QStringLiteral(" ");
}
