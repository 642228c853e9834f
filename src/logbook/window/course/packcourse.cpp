#include "logbook/window/course/packcourse.h"

#include "data/figuretext.h"
#include "data/varnel3data.h"
#include "graph/scene/graphcolours.h"
#include "logbook/logbook.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

namespace PackCourse {

namespace {

constexpr double hundred = 100.0;
constexpr double thousand = 1000.0;
constexpr double year = 365.25 * 86400.0; // s

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

/// Of a straight line through `points`, which are of more than one time.
double slopeOf(const QVector<CoursePoint> &points)
{
    double x = 0; // the mean
    for (const CoursePoint &point : points)
        x += point.at / points.size();
    double xy = 0;
    double xx = 0;
    for (const CoursePoint &point : points) {
        const double apart = point.at - x;
        xy += apart * point.value;
        xx += apart * apart;
    }
    return xy / xx;
}

/// What `quantity` comes to, where it is known.
std::optional<double> valueOf(const LogbookFigures &figures, Quantity quantity)
{
    const double values[quantityCount]
        = {figures.charge / thousand, figures.energy, double(figures.resistance), double(figures.spread)};
    const double value = values[quantity];
    return value > 0 || (quantity == Spread && value >= 0) ? std::optional(value) : std::nullopt;
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
        const std::optional<double> value = valueOf(recording.figures, request.quantity);
        const double at = request.byDate ? double(recording.start.toMSecsSinceEpoch()) / thousand : cycles[i];
        if (value && isOf(recording, mode))
            points.append({at, *value, recording.id, !isFull(recording)});
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
    constexpr double leastSpan = 1.0 / 12; // of a year; less would be blown up to nonsense
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
        point.at /= year;
        point.value *= thousand * hundred / pack.capacity;
    }
    health.percent = points.last().value;
    if (points.size() >= leastPoints && points.last().at - points.first().at >= leastSpan)
        health.perYear = slopeOf(points);
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
    std::multimap<double, CourseLine> worstFirst;
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
        worstFirst.emplace(request.quantity <= Energy ? last : -last, line);
    }
    for (auto &[order, line] : worstFirst) {
        const int i = chart.lines.size();
        if (i == mostLines)
            break;
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
