#include "graph/curvepainter.h"
#include "graph/seriesstore.h"
#include "samplerecording.h"

#include <QImage>
#include <QPainter>

#include <qwt_plot_curve.h>

#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

constexpr int curveCount = 20;
const QRect area(0, 0, 1400, 400);

SeriesStore storeOf(int count)
{
    SeriesStore store;
    store.load(sampleRecording(count));
    return store;
}

// Curve `curve` of the store, over all of its area.
CurvePainter::Job jobFor(const SeriesStore &store, int curve, int width)
{
    const int kind = SeriesStore::Voltage + curve;
    CurvePainter::Job job{&store, kind, 0, {}, {}, area, QColor::fromHsv(curve * 18, 255, 200), width};
    job.timeMap.setScaleInterval(0, store.size());
    job.timeMap.setPaintInterval(area.left(), area.right());
    job.valueMap.setScaleInterval(store.series(kind).minimum(), store.series(kind).maximum() + 0.001);
    job.valueMap.setPaintInterval(area.bottom(), area.top());
    return job;
}

QImage canvas()
{
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

// One QwtPlotCurve a series with a copy of its samples, made beforehand.
void paintNaive(benchmark::State &state)
{
    const SeriesStore store = storeOf(int(state.range(0)));
    std::vector<std::unique_ptr<QwtPlotCurve>> curves;
    for (int curve = 0; curve < curveCount; ++curve) {
        const auto job = jobFor(store, curve, int(state.range(1)));
        QVector<QPointF> samples;
        for (int i = 0; i < store.size(); ++i)
            samples.append({store.series(SeriesStore::Time)[i], store.series(job.series)[i]});
        curves.push_back(std::make_unique<QwtPlotCurve>());
        curves.back()->setSamples(samples);
        curves.back()->setPen(job.colour, job.width);
    }
    QImage image = canvas();
    for (auto _ : state) {
        QPainter painter(&image);
        for (int curve = 0; curve < curveCount; ++curve) {
            const auto job = jobFor(store, curve, int(state.range(1)));
            curves[size_t(curve)]->draw(&painter, job.timeMap, job.valueMap, area);
        }
    }
}

void paint(benchmark::State &state, bool anew)
{
    const SeriesStore store = storeOf(int(state.range(0)));
    CurvePainter curves;
    QImage image = canvas();
    for (auto _ : state) {
        if (anew)
            curves = CurvePainter();
        QPainter painter(&image);
        for (int curve = 0; curve < curveCount; ++curve)
            curves.draw(&painter, jobFor(store, curve, int(state.range(1))));
    }
}

// As after a record or a resize: all is looked at again.
void paintHouse(benchmark::State &state)
{
    paint(state, true);
}

// As after a window was uncovered.
void paintAgain(benchmark::State &state)
{
    paint(state, false);
}

} // namespace

BENCHMARK(paintNaive)->Name("paint/naive")->Args({sampleCount, 1})->Args({sampleCount, 2})->Iterations(1);
BENCHMARK(paintHouse)->Name("paint/house")->Args({10000, 1})->Args({sampleCount, 1})->Args({sampleCount, 2});
BENCHMARK(paintAgain)->Name("paint/again")->Args({sampleCount, 1});
