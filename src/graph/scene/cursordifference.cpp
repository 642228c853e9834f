#include "graph/scene/cursordifference.h"

#include "data/figuretext.h"
#include "data/timetext.h"
#include "graph/scene/graphrequest.h"
#include "graph/scene/graphscene.h"
#include "series/seriesstore.h"

#include <algorithm>
#include <cmath>

namespace {

// Of a pack's volts and amperes the axes show hundredths; devices send thousandths.
int decimalsOf(const GraphScene::Curve &curve)
{
    return curve.decimals == 2 ? 3 : curve.decimals;
}

} // namespace

QString signedFigure(double value, int decimals)
{
    const double places = std::pow(10.0, decimals);
    const double rounded = std::round(value * places) / places + 0.0; // no "-0"
    return (rounded > 0 ? QStringLiteral("+") : QString()) + FigureText::fixed(rounded, decimals);
}

QStringList cursorDifference(const GraphRequest &request, const GraphScene &scene)
{
    const SeriesStore &store = *request.store;
    if (request.markedRecord < 0)
        return {};
    const int other = request.cursorRecord >= 0 ? request.cursorRecord : store.size() - 1;
    const auto [from, to] = std::minmax(request.markedRecord, other);
    const auto change = [&store, from = from, to = to](
                            int kind) { return store.series(kind)[to] - store.series(kind)[from]; };
    const double seconds = change(SeriesStore::Time); // below 0 where a clock was set back
    QStringList parts{QStringLiteral("\u0394 ") + (seconds < 0 ? QStringLiteral("-") : QString())
            + elapsedTimeText(std::abs(seconds)),
        signedFigure(change(SeriesStore::Energy), 0) + GraphScene::tr(" mAh")};
    for (const GraphScene::Curve &curve : scene.curves) {
        if (curve.series == SeriesStore::Energy || from < curve.first)
            continue;
        parts.append(curve.name + QLatin1Char(' ')
            + signedFigure(change(curve.series) * curve.factor, decimalsOf(curve)) + QLatin1Char(' ')
            + curve.unit);
    }
    return parts;
}
