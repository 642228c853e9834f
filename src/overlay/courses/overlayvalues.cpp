#include "overlay/courses/overlayvalues.h"

#include <QtGlobal>

namespace {

constexpr OverlayScale scales[] = {
    {SeriesKinds::Voltage, QT_TRANSLATE_NOOP("Overlay", "Pack voltage"), QT_TRANSLATE_NOOP("Overlay", "V"),
        1.0, 3},
    {SeriesKinds::CellAverage, QT_TRANSLATE_NOOP("Overlay", "Mean cell"), QT_TRANSLATE_NOOP("Overlay", "V"),
        1.0, 3},
    {SeriesKinds::CellMax, QT_TRANSLATE_NOOP("Overlay", "Highest cell"), QT_TRANSLATE_NOOP("Overlay", "V"),
        1.0, 3},
    {SeriesKinds::CellMin, QT_TRANSLATE_NOOP("Overlay", "Lowest cell"), QT_TRANSLATE_NOOP("Overlay", "V"),
        1.0, 3},
    {SeriesKinds::CellDelta, QT_TRANSLATE_NOOP("Overlay", "Spread of the cells"),
        QT_TRANSLATE_NOOP("Overlay", "mV"), 1000.0, 0},
    {SeriesKinds::Current, QT_TRANSLATE_NOOP("Overlay", "Current"), QT_TRANSLATE_NOOP("Overlay", "A"), 1.0,
        3},
    {SeriesKinds::Temperature, QT_TRANSLATE_NOOP("Overlay", "Temperature"), "°C", 1.0, 1},
    {SeriesKinds::Resistance, QT_TRANSLATE_NOOP("Overlay", "Resistance"),
        QT_TRANSLATE_NOOP("Overlay", "m\u03a9"), 1.0, 0},
};

static_assert(sizeof(scales) / sizeof(*scales) == size_t(OverlayValue::Count), "one row a value");

} // namespace

const OverlayScale &overlayScale(OverlayValue value)
{
    return scales[size_t(value)];
}
