#include "logbook/window/course/packcourse.h"

#include "data/figuretext.h"
#include "data/varnel3data.h"
#include "graph/scene/graphcolours.h"
#include "logbook/logbook.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace PackCourse {

namespace {

constexpr double hundred = 100.0;
constexpr double thousand = 1000.0;
constexpr double msPerYear = 365.25 * 86400.0 * 1000.0;

// Shares of a cell's range from empty to full. A discharge begins under load, a charge with its current.
constexpr double fullLithium = 0.7;
constexpr double fullOther = 0.45; // the range of the others goes up to what only a charge reaches
constexpr double emptied = 0.55;
constexpr double leftBehind = 0.62; // a weak cell ends a discharge while the others hold something
// Where the device does not say that a process was completed.
constexpr double discharged = 0.35;
constexpr double chargedLithium = 0.95;
constexpr double chargedOther = 0.6;

QString text(const char *source)
{
    return QCoreApplication::translate("PackCourse", source);
}

bool isLithium(int cellType)
{
    return Varnel3Data::cellTypeName(cellType).startsWith(QLatin1Char('L'));
}

/// Of the way from an empty cell to a full one.
double shareOf(const LogbookFigures &figures, int voltage)
{
    const double low = Varnel3Data::cellTypeLowerVoltage(figures.cellType);
    const double high = Varnel3Data::cellTypeUpperVoltage(figures.cellType);
    return (double(voltage) / figures.cells - low) / (high - low);
}

/// The lowest cell is far below the others, at the end of a discharge where cells part anyhow.
bool isWeak(const LogbookFigures &figures)
{
    constexpr double share = 0.33; // of the range from empty to full
    const int range = Varnel3Data::cellTypeUpperVoltage(figures.cellType)
        - Varnel3Data::cellTypeLowerVoltage(figures.cellType);
    return range > 0 && figures.lowestCell >= 0 && figures.spread > share * range;
}

struct Trend {
    int count = 0;
    double first = 0;
    double last = 0;
    double slope = 0; ///< per year
};

/// A straight line through `points`, of which `at` is in ms.
Trend trendOf(const QVector<CoursePoint> &points)
{
    Trend trend;
    trend.count = points.size();
    if (points.isEmpty())
        return trend;
    trend.first = points.first().at;
    trend.last = points.last().at;
    double x = 0; // the mean
    for (const CoursePoint &point : points)
        x += (point.at - trend.first) / points.size();
    double xy = 0;
    double xx = 0;
    for (const CoursePoint &point : points) {
        const double apart = point.at - trend.first - x;
        xy += apart * point.value;
        xx += apart * apart;
    }
    trend.slope = xx > 0 ? xy / xx * msPerYear : 0;
    return trend;
}

/// What `quantity` comes to; less than 0 where it is not known.
double valueOf(const LogbookRecording &recording, Quantity quantity)
{
    const auto known = [](double figure) { return figure > 0 ? figure : -1; };
    const LogbookFigures &figures = recording.figures;
    switch (quantity) {
    case Capacity:
        return known(figures.charge / thousand);
    case Energy:
        return known(figures.energy);
    case Resistance:
        return known(figures.resistance);
    default:
        return figures.spread;
    }
}

QString unitOf(Quantity quantity)
{
    constexpr const char *units[quantityCount] = {"Ah", "Wh", "mΩ", "mV"};
    return QString::fromUtf8(units[quantity]);
}

bool isOf(const LogbookRecording &recording, int mode)
{
    return recording.figures.mode == mode && recording.figures.records > 0 && !recording.isLive;
}

QVector<CoursePoint> pointsOf(const Recordings &recordings, int mode, const Request &request)
{
    const QVector<int> cycles = cyclesOf(recordings);
    QVector<CoursePoint> points;
    for (int i = 0; i < recordings.size(); ++i) {
        const LogbookRecording &recording = *recordings[i];
        const double value = isOf(recording, mode) ? valueOf(recording, request.quantity) : -1;
        const double at = request.byDate ? double(recording.start.toMSecsSinceEpoch()) / thousand : cycles[i];
        if (value >= 0)
            points.append({at, value, recording.id, !isFull(recording)});
    }
    return points;
}

void keepFull(QVector<CoursePoint> *points)
{
    points->erase(
        std::remove_if(points->begin(), points->end(), [](const CoursePoint &p) { return p.partial; }),
        points->end());
}

/// The full discharges, or charges where there are none of these. Of what is no amount any will do then.
QVector<CoursePoint> fullPoints(const Recordings &recordings, const Request &request)
{
    for (const int mode : {int(Varnel3Data::Discharge), int(Varnel3Data::Charge)}) {
        QVector<CoursePoint> points = pointsOf(recordings, mode, request);
        keepFull(&points);
        if (!points.isEmpty())
            return points;
    }
    if (request.quantity <= Energy)
        return {};
    const QVector<CoursePoint> discharges = pointsOf(recordings, Varnel3Data::Discharge, request);
    return discharges.isEmpty() ? pointsOf(recordings, Varnel3Data::Charge, request) : discharges;
}

/// For a user who sees no course of any pack.
const char *whatIsMissing(
    const Logbook &logbook, const QHash<qint64, Recordings> &packs, const Request &request)
{
    if (logbook.size() == 0)
        return QT_TRANSLATE_NOOP("PackCourse",
            "No recordings yet. They come from your devices, from files that you open, and from the "
            "folders of Edit > Folders.");
    if (packs.isEmpty())
        return QT_TRANSLATE_NOOP("PackCourse",
            "Assign recordings to packs to see how these fare: choose rows, then "
            "Recordings > Assign to pack.");
    const QVector<LogbookPack> &all = logbook.packs();
    const bool anyNominal
        = std::any_of(all.begin(), all.end(), [](const LogbookPack &pack) { return pack.capacity > 0; });
    return request.quantity == Capacity && !anyNominal
        ? QT_TRANSLATE_NOOP("PackCourse",
            "Tell the nominal capacity of the packs to see how they fare: choose one, then Packs > Rename or "
            "change pack.")
        : QT_TRANSLATE_NOOP("PackCourse", "No recording of the packs tells it.");
}

CourseChart emptyChart(const Request &request)
{
    CourseChart chart;
    chart.byDate = request.byDate;
    chart.blackGround = request.blackGround;
    chart.unit = unitOf(request.quantity);
    return chart;
}

} // namespace

bool isFull(const LogbookRecording &recording)
{
    const LogbookFigures &figures = recording.figures;
    const bool isCompleted = figures.end == Varnel3Data::Completed;
    if (recording.isLive || (!isCompleted && figures.end != Varnel3Data::NoEnd))
        return false;
    if (figures.cells < 1 || Varnel3Data::cellTypeUpperVoltage(figures.cellType) == 0)
        return isCompleted;
    const bool lithium = isLithium(figures.cellType);
    const double start = shareOf(figures, figures.startVoltage);
    const double end = shareOf(figures, figures.endVoltage);
    if (figures.mode == Varnel3Data::Charge)
        return start <= leftBehind && (isCompleted || end >= (lithium ? chargedLithium : chargedOther));
    return figures.mode == Varnel3Data::Discharge && start >= (lithium ? fullLithium : fullOther)
        && end <= (isCompleted ? emptied : discharged);
}

QVector<int> cyclesOf(const Recordings &recordings)
{
    int charges = 0;
    int discharges = 0;
    QVector<int> cycles;
    for (const LogbookRecording *recording : recordings) {
        charges += isOf(*recording, Varnel3Data::Charge);
        discharges += isOf(*recording, Varnel3Data::Discharge);
        cycles.append(std::max(charges, discharges));
    }
    return cycles;
}

QString percentText(double percent)
{
    constexpr double little = 1e-6; // by which a quotient is off
    return FigureText::fixed(std::floor(percent + little), 0);
}

Health healthOf(const LogbookPack &pack, const Recordings &recordings)
{
    constexpr int leastPoints = 3;
    constexpr double leastSpan = msPerYear / 12; // less would be blown up to nonsense
    Health health;
    health.recordings = recordings.size();
    if (recordings.isEmpty())
        return health;
    const auto cycles = cyclesOf(recordings);
    health.cycles = cycles.last();
    health.newest = recordings.last()->start.toMSecsSinceEpoch();
    QVector<CoursePoint> points = fullPoints(recordings, Request());
    if (points.isEmpty())
        return health;
    const auto newest = std::find_if(recordings.begin(), recordings.end(),
        [&](const LogbookRecording *recording) { return recording->id == points.last().recording; });
    health.lowestCell = (*newest)->figures.lowestCell;
    health.spread = (*newest)->figures.spread;
    health.hasWeakCell = isWeak((*newest)->figures);
    if (pack.capacity < 1)
        return health;
    for (CoursePoint &point : points) {
        point.at *= thousand;
        point.value *= thousand * hundred / pack.capacity;
    }
    health.percent = points.last().value;
    const Trend trend = trendOf(points);
    if (trend.count >= leastPoints && trend.last - trend.first >= leastSpan)
        health.perYear = trend.slope;
    return health;
}

QHash<qint64, Recordings> byPack(const Logbook &logbook)
{
    QHash<qint64, Recordings> packs;
    const QVector<qint64> ids = logbook.recordings(); // newest first
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
        const LogbookRecording *recording = logbook.recording(*id);
        if (recording->pack != LogbookPack::none && recording->start.isValid())
            packs[recording->pack].append(recording);
    }
    return packs;
}

Recordings of(const Logbook &logbook, qint64 pack)
{
    LogbookFilter filter;
    filter.pack = pack;
    Recordings recordings;
    const QVector<qint64> ids = logbook.recordings(filter);
    for (auto id = ids.rbegin(); id != ids.rend(); ++id)
        if (logbook.recording(*id)->start.isValid())
            recordings.append(logbook.recording(*id));
    return recordings;
}

CourseChart chartOf(const LogbookPack &pack, const Recordings &recordings, const Request &request)
{
    const GraphColours colours(request.blackGround, request.distinct);
    CourseChart chart = emptyChart(request);
    chart.emptyText = text(QT_TRANSLATE_NOOP("PackCourse", "No recording of this pack tells it."));
    struct Kind {
        int mode;
        QColor colour;
        CourseLine::Marker marker;
    };
    const Kind kinds[] = {{Varnel3Data::Charge, QColor(0, 190, 60), CourseLine::Triangle},
        {Varnel3Data::Discharge, QColor(255, 80, 60), CourseLine::Disc}};
    int place = 0;
    for (const Kind &kind : kinds) {
        CourseLine line;
        line.name = Varnel3Data::modeName(kind.mode);
        line.colour = request.distinct ? colours.cell(place) : colours.readable(kind.colour);
        line.style = colours.style(place++);
        line.marker = kind.marker;
        line.points = pointsOf(recordings, kind.mode, request);
        if (!line.points.isEmpty())
            chart.lines.append(line);
    }
    if (request.quantity == Capacity && pack.capacity > 0) {
        chart.reference = pack.capacity / thousand;
        chart.referenceName = text(QT_TRANSLATE_NOOP("PackCourse", "nominal")) + QLatin1Char(' ')
            + FigureText::fixed(chart.reference, 3) + QStringLiteral(" Ah");
        chart.inPercent = true;
    }
    return chart;
}

CourseChart chartOfAll(const Logbook &logbook, const Request &request)
{
    constexpr int mostLines = 16;
    const GraphColours colours(request.blackGround, request.distinct);
    CourseChart chart = emptyChart(request);
    const QHash<qint64, Recordings> packs = byPack(logbook);
    chart.emptyText = text(whatIsMissing(logbook, packs, request));
    struct Entry {
        double order;
        CourseLine line;
    };
    QVector<Entry> entries;
    for (const LogbookPack &pack : logbook.packs()) {
        CourseLine line;
        line.name = pack.name;
        line.points = fullPoints(packs.value(pack.id), request);
        const bool isShare = request.quantity == Capacity;
        if (line.points.isEmpty() || (isShare && pack.capacity < 1))
            continue;
        for (CoursePoint &point : line.points)
            point.value *= isShare ? thousand * hundred / pack.capacity : 1.0;
        const double last = line.points.last().value;
        entries.append({request.quantity <= Energy ? last : -last, line});
    }
    std::stable_sort(
        entries.begin(), entries.end(), [](const Entry &a, const Entry &b) { return a.order < b.order; });
    for (int i = 0; i < std::min(mostLines, int(entries.size())); ++i) {
        CourseLine &line = entries[i].line;
        line.colour = colours.readable(colours.cell(i));
        line.style = colours.style(i);
        line.marker = CourseLine::Marker(i % CourseLine::markerCount);
        chart.lines.append(line);
    }
    if (request.quantity == Capacity) {
        chart.unit = QStringLiteral("%");
        chart.reference = chart.lines.isEmpty() ? 0 : wornOut;
        chart.referenceName = text(QT_TRANSLATE_NOOP("PackCourse", "worn out below 80 %"));
    }
    return chart;
}

} // namespace PackCourse
