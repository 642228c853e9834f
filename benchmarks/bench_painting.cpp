#include "graph/curves/curvepainter.h"
#include "graph/plot/graphpainter.h"
#include "graph/scene/graphrequest.h"
#include "samplerecording.h"

#include <QImage>
#include <QPainter>

#include <qwt_plot_curve.h>

#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

constexpr int allCells = Varnel3Data::maxCells;
constexpr int huge = 4000000; // records
const QRect area(0, 0, 1400, 400);

// What is shown of a recording, and how.
struct View {
    int firstSeries;
    int curves;
    int width; // px
    double from, to; // shares of the recording's time
    double low, high; // shares of each curve's height
    int joined; // recordings one after the other, each of which begins anew
};

constexpr View whole = {SeriesStore::Voltage, 20, 1, 0, 1, 0, 1, 1};
constexpr View wide = {SeriesStore::Voltage, 20, 2, 0, 1, 0, 1, 1};
constexpr View cells = {SeriesStore::Cell1, allCells, 1, 0, 1, 0, 1, 1};
constexpr View zoomed = {SeriesStore::Voltage, 20, 1, 0.3, 0.7, 0.25, 0.75, 1};
constexpr View wideCells = {SeriesStore::Cell1, allCells, 2, 0, 1, 0, 1, 1};
constexpr View twoJoined = {SeriesStore::Voltage, 20, 1, 0, 1, 0, 1, 2};
constexpr View dozensJoined = {SeriesStore::Voltage, 20, 2, 0, 1, 0, 1, 24};

SeriesStore storeOf(int count, int joined = 1)
{
    RecordList records;
    for (int i = 0; i < count; ++i) {
        Varnel3Data record = sampleRecord(i, allCells);
        record.setTime(i % (count / joined));
        records.append(record, BlockArena::Fast); // as a file is read
    }
    SeriesStore store;
    store.load(std::move(records));
    return store;
}

CurvePainter::Job jobFor(const SeriesStore &store, const View &view, int curve)
{
    const int kind = view.firstSeries + curve;
    const double low = store.series(kind).minimum();
    const double height = store.series(kind).maximum() + 0.001 - low;
    CurvePainter::Job job{
        &store, kind, 0, {}, {}, area, QPen(QColor::fromHsv(curve * 18, 255, 200), view.width)};
    const double end = store.series(SeriesStore::Time).maximum();
    job.timeMap.setScaleInterval(view.from * end, view.to * end);
    job.timeMap.setPaintInterval(area.left(), area.right());
    job.valueMap.setScaleInterval(low + view.low * height, low + view.high * height);
    job.valueMap.setPaintInterval(area.bottom(), area.top());
    return job;
}

QImage canvas(const QSize &size = area.size())
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

// One QwtPlotCurve a series with a copy of its samples, made beforehand.
void paintNaive(benchmark::State &state, const View &view)
{
    const SeriesStore store = storeOf(int(state.range(0)), view.joined);
    std::vector<std::unique_ptr<QwtPlotCurve>> curves;
    for (int curve = 0; curve < view.curves; ++curve) {
        const auto job = jobFor(store, view, curve);
        QVector<QPointF> samples;
        for (int i = 0; i < store.size(); ++i)
            samples.append({store.series(SeriesStore::Time)[i], store.series(job.series)[i]});
        curves.push_back(std::make_unique<QwtPlotCurve>());
        curves.back()->setSamples(samples);
        curves.back()->setPen(job.pen);
    }
    QImage image = canvas();
    for (auto _ : state) {
        QPainter painter(&image);
        for (int curve = 0; curve < view.curves; ++curve) {
            const auto job = jobFor(store, view, curve);
            curves[size_t(curve)]->draw(&painter, job.timeMap, job.valueMap, area);
        }
    }
}

void paint(benchmark::State &state, const View &view, bool anew)
{
    const SeriesStore store = storeOf(int(state.range(0)), view.joined);
    CurvePainter curves;
    QImage image = canvas();
    for (auto _ : state) {
        if (anew)
            curves = CurvePainter();
        QPainter painter(&image);
        for (int curve = 0; curve < view.curves; ++curve)
            curves.draw(&painter, jobFor(store, view, curve));
    }
}

// As after a record or a resize: all is looked at again.
void paintHouse(benchmark::State &state, const View &view)
{
    paint(state, view, true);
}

// As after a window was uncovered.
void paintAgain(benchmark::State &state)
{
    paint(state, whole, false);
}

// As after each record of a recording whose axes have room for more.
void paintGrown(benchmark::State &state)
{
    SeriesStore store = storeOf(int(state.range(0)));
    std::vector<CurvePainter::Job> jobs;
    jobs.reserve(size_t(whole.curves));
    for (int curve = 0; curve < whole.curves; ++curve)
        jobs.push_back(jobFor(store, whole, curve));
    CurvePainter curves;
    QImage image = canvas();
    for (auto _ : state) {
        store.append(sampleRecord(store.size(), allCells));
        QPainter painter(&image);
        for (const CurvePainter::Job &job : jobs)
            curves.draw(&painter, job);
    }
}

// The spans alone, found beforehand: the least that painting can take.
void paintSpans(benchmark::State &state, const View &view)
{
    const SeriesStore store = storeOf(int(state.range(0)));
    std::vector<CurveSpans> found(size_t(view.curves));
    for (int curve = 0; curve < view.curves; ++curve) {
        const auto job = jobFor(store, view, curve);
        TimeColumns columns;
        columns.assign(store.series(SeriesStore::Time), true, job.timeMap, area.left(), area.right());
        found[size_t(curve)].assign({store.series(job.series), 0, columns, job.valueMap}, area, view.width);
    }
    QImage image = canvas();
    for (auto _ : state) {
        QPainter painter(&image);
        for (int curve = 0; curve < view.curves; ++curve) {
            painter.setPen(jobFor(store, view, curve).pen);
            found[size_t(curve)].draw(&painter);
        }
    }
}

// A window with sixteen cells, frame, axes, texts and all, as a new record has it drawn.
void paintWindow(benchmark::State &state)
{
    SeriesStore store = storeOf(int(state.range(0)));
    GraphRequest request;
    request.size = QSize(1400, 860);
    request.store = &store;
    request.switches.balancer = true;
    request.windowNumber = 1;
    GraphPainter graph;
    QImage image = canvas(request.size);
    for (auto _ : state) {
        store.append(sampleRecord(store.size(), allCells));
        QPainter painter(&image);
        graph.paint(&painter, request);
    }
}

} // namespace

// Each view as one would draw it first, as the program does, and at the least.
#define PAINT(name, view)                                                                                    \
    BENCHMARK_CAPTURE(paintNaive, view, view)->Name(name "/naive")->Arg(sampleCount)->Iterations(1);         \
    BENCHMARK_CAPTURE(paintHouse, view, view)->Name(name "/house")->Arg(10000)->Arg(sampleCount);            \
    BENCHMARK_CAPTURE(paintSpans, view, view)->Name(name "/spans")->Arg(sampleCount)

PAINT("paint", whole);
PAINT("paint wide", wide);
PAINT("paint zoomed", zoomed);
PAINT("paint cells", cells);
PAINT("paint wide cells", wideCells);
BENCHMARK_CAPTURE(paintHouse, wholeHuge, whole)->Name("paint/house")->Arg(huge)->Iterations(20);
BENCHMARK_CAPTURE(paintHouse, cellsHuge, cells)->Name("paint cells/house")->Arg(huge)->Iterations(20);
BENCHMARK_CAPTURE(paintHouse, twoJoined, twoJoined)->Name("paint two joined/house")->Arg(sampleCount);
BENCHMARK_CAPTURE(paintHouse, dozensJoined, dozensJoined)
    ->Name("paint dozens joined/house")
    ->Arg(sampleCount);
BENCHMARK(paintAgain)->Name("paint/again")->Arg(sampleCount);
BENCHMARK(paintGrown)->Name("paint/grown")->Arg(sampleCount)->Iterations(100);
BENCHMARK(paintWindow)->Name("paint window/house")->Arg(10000)->Arg(sampleCount)->Iterations(100);
