#include "overlay/scene/overlayscene.h"

#include "data/figuretext.h"
#include "data/timetext.h"
#include "graph/scene/cursordifference.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/rounddivision.h"
#include "graph/scene/timedivision.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int colours = 16; // that differ; further entries have dashes of their own
const QChar delta(0x394);

// The emphasised one is wide among narrow ones.
OverlayScene::Line lineOf(const OverlayRequest &request, int entry)
{
    const GraphColours palette(request.black, request.distinct);
    const int width = request.picked < 0 ? palette.curveWidth() : request.picked == entry ? 2 : 1;
    return {palette.cell(entry), entry < colours ? palette.cellStyle(entry) : Qt::DashDotDotLine, width};
}

QString nameOf(const OverlayRequest &request, const OverlayEntry &entry)
{
    if (entry.shift == 0.0 || request.axis != OverlayAxis::Time)
        return entry.label;
    return entry.label
        + QStringLiteral(" (%1%2)").arg(entry.shift > 0 ? QStringLiteral("+") : QString(),
            OverlayScene::placeText(request.axis, entry.shift));
}

// The figures of one entry: what is asked about it, and its points there.
struct Figures {
    const OverlayRequest &request;
    int entry;

    const OverlayCourse &course() const { return *request.entries[entry].course; }
    int last() const { return course().size() - 1; }
    int pointAt(double place) const
    {
        return course().pointAt(request.axis, place - request.offsetOf(entry));
    }
    double at(OverlayAxis axis, int point) const { return double(course().along(axis)[std::size_t(point)]); }
    /// None where the recording does not reach, at -1.
    bool hasValue(int point) const
    {
        return point >= OverlayCourse::firstPoint(request.value) && course().has(request.value);
    }
    /// In the unit that is told.
    double value(int point) const
    {
        return double(course().values(request.value)[std::size_t(point)])
            * overlayScale(request.value).factor;
    }
    QString withUnit(const QString &figure) const
    {
        return figure + QLatin1Char(' ') + OverlayScene::tr(overlayScale(request.value).unit);
    }
    QString ofAll() const;
    QString atCursor() const;
    QString between() const;
    QString text() const;
};

QString Figures::ofAll() const
{
    const double duration = at(OverlayAxis::Time, last()) - at(OverlayAxis::Time, 0);
    return OverlayScene::placeText(OverlayAxis::Time, duration) + QStringLiteral("   ")
        + OverlayScene::placeText(OverlayAxis::Charge, at(OverlayAxis::Charge, last()));
}

QString Figures::atCursor() const
{
    const int point = pointAt(*request.cursor);
    if (!hasValue(point))
        return withUnit(FigureText::shortDashes());
    const OverlayAxis other = request.axis == OverlayAxis::Time ? OverlayAxis::Charge : OverlayAxis::Time;
    return withUnit(FigureText::fixed(value(point), overlayScale(request.value).decimals))
        + QStringLiteral("   ") + OverlayScene::placeText(other, at(other, point));
}

// From the earlier to the later one; without a cursor, to the end.
QString Figures::between() const
{
    const double marked = *request.marked;
    const double other = request.cursor.value_or(marked);
    const int from = pointAt(std::min(marked, other));
    const int to = request.cursor ? pointAt(std::max(marked, other)) : last();
    if (!hasValue(from) || !hasValue(to))
        return withUnit(FigureText::shortDashes());
    QString text = delta + QLatin1Char(' ')
        + withUnit(signedFigure(value(to) - value(from), overlayScale(request.value).decimals));
    for (OverlayAxis axis : {OverlayAxis::Time, OverlayAxis::Charge}) // that of the axis is the same for all
        if (axis != request.axis || !request.cursor)
            text += QStringLiteral("   ") + OverlayScene::placeText(axis, at(axis, to) - at(axis, from));
    return text;
}

QString Figures::text() const
{
    if (course().size() == 0)
        return FigureText::shortDashes();
    return request.marked ? between() : request.cursor ? atCursor() : ofAll();
}

QString headingOf(const OverlayRequest &request)
{
    const auto text = [&](double place) { return OverlayScene::placeText(request.axis, place); };
    QString heading = OverlayScene::valueName(request.value);
    if (request.marked && request.cursor)
        heading += QStringLiteral("   ") + delta + QLatin1Char(' ')
            + text(std::abs(*request.cursor - *request.marked));
    else if (request.marked)
        heading += QStringLiteral("   ") + OverlayScene::tr("from %1 to the end").arg(text(*request.marked));
    else if (request.cursor)
        heading += QStringLiteral("   ") + text(*request.cursor);
    return heading;
}

QString reasonOf(const OverlayRequest &request)
{
    const auto hasValues = [&](const OverlayEntry &entry) { return entry.course->has(request.value); };
    if (request.entries.isEmpty())
        return OverlayScene::tr("No recording is shown: add files, or take the open graph windows.");
    if (std::none_of(request.entries.begin(), request.entries.end(), hasValues))
        return OverlayScene::tr("None of these recordings has such values.");
    return {};
}

} // namespace

QString OverlayScene::valueName(OverlayValue value)
{
    return tr(overlayScale(value).name);
}

QString OverlayScene::axisName(OverlayAxis axis)
{
    return axis == OverlayAxis::Time ? tr("Time") : tr("Charge");
}

QString OverlayScene::placeText(OverlayAxis axis, double place)
{
    if (axis == OverlayAxis::Charge)
        return FigureText::fixed(std::round(place), 0) + tr(" mAh");
    return (place <= -1 ? QStringLiteral("-") : QString()) + elapsedTimeText(std::abs(place));
}

OverlayScene OverlayScene::of(const OverlayRequest &request, int mostPlaces, int mostValues)
{
    OverlayScene scene;
    scene.heading = headingOf(request);
    scene.reason = reasonOf(request);
    for (int i = 0; i < request.entries.size(); ++i) {
        scene.lines.append(lineOf(request, i));
        scene.rows.append({nameOf(request, request.entries[i]), Figures{request, i}.text()});
    }
    if (!scene.reason.isEmpty())
        return scene;
    const OverlayScale &scale = overlayScale(request.value);
    scene.unit = tr(scale.unit);
    const Interval places = request.shownPlaces();
    const auto placed = request.axis == OverlayAxis::Time ? timeDivisions(places.low, places.high, mostPlaces)
                                                          : RoundDivision(places, mostPlaces).places;
    for (const double place : placed)
        scene.places.append({place, placeText(request.axis, place)});
    const Interval values = request.shownValues();
    const RoundDivision divided({values.low * scale.factor, values.high * scale.factor}, mostValues);
    for (const double value : divided.places)
        scene.values.append({value / scale.factor, divided.text(value)});
    return scene;
}
