#include "graph/curves/curvedata.h"
#include "graph/curves/curveoutline.h"
#include "graph/curves/curvepainter.h"
#include "graph/curves/varnelplotcurve.h"
#include "support/columns.h"
#include "support/pixels.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <qwt_painter.h>

#include <cmath>
#include <functional>
#include <random>

namespace {

const QRect area(40, 22, 301, 160);

int noise(int width = 40)
{
    static std::mt19937 random(7);
    return std::uniform_int_distribution<int>(-width, width)(random);
}

int sine(int i, int count)
{
    return 12000 + int(3000 * std::sin(i * 6.0 / count)) + noise();
}

int walk(int i, int)
{
    static int voltage;
    return voltage = i == 0 ? 12000 : qBound(9000, voltage + noise(400), 14000);
}

int setBack(int i, int count) // to the start, halfway
{
    return 2 * i % count;
}

// Voltage (mV) and time (s) of record `i` of `count`.
struct Wave {
    const char *name;
    std::function<int(int i, int count)> voltage;
    std::function<int(int i, int count)> time = [](int i, int) { return i; };
};

const Wave waves[] = {{"sine", sine},
    {"steps", [](int i, int count) { return i * 7 / count % 2 == 0 ? 9000 : 15000; }},
    {"noise", [](int, int) { return 12000 + noise(3000); }}, {"flat", [](int, int) { return 12000; }},
    {"gaps", sine, [](int i, int) { return i + (i + 1) / 1000 * 1999; }}, {"walk", walk},
    {"set back", sine, setBack},
    // two heights in turn, after the middle on one of them
    {"set back, flat band", [](int i, int count) { return i < count / 8 * 5 && i % 2 == 0 ? 13000 : 12000; },
        setBack},
    {"joined", sine, [](int i, int count) { return i % (count / 150) * 150; }}, // many recordings in a row
    {"returns", sine, [](int i, int count) { return i == count - 1 ? 1 : i + 1; }}}; // to the very start

void append(SeriesStore *store, int seconds, int millivolts)
{
    Varnel3Data record;
    record.device = Varnel3Data::Varnel3;
    record.setTime(seconds);
    record.voltage = millivolts;
    record.internalResistance = 100 + seconds;
    store->append(record);
}

SeriesStore filled(int count, const QString &name)
{
    const auto isNamed = [&](const Wave &w) { return name == w.name; };
    const Wave &wave = *std::find_if(std::begin(waves), std::end(waves), isNamed);
    SeriesStore store;
    for (int i = 0; i < count; ++i)
        append(&store, wave.time(i, count), wave.voltage(i, count));
    return store;
}

CurvePainter::Job jobFor(
    const SeriesStore &store, double from, double to, double low = 8, double high = 16, int width = 1)
{
    CurvePainter::Job job{&store, SeriesStore::Voltage, 0, {}, {}, area, QPen(Qt::green, width)};
    job.timeMap.setScaleInterval(from, to);
    job.timeMap.setPaintInterval(area.left(), area.right());
    job.valueMap.setScaleInterval(low, high);
    job.valueMap.setPaintInterval(area.bottom(), area.top());
    return job;
}

QImage canvas(const std::function<void(QPainter *)> &paint = {}, int scale = 1)
{
    QImage image(QSize(400, 200) * scale, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.scale(scale, scale);
    if (paint)
        paint(&painter);
    return image;
}

QImage drawn(CurvePainter *curves, const CurvePainter::Job &job, int scale = 1)
{
    return canvas([&](QPainter *painter) { curves->draw(painter, job); }, scale);
}

QImage drawnByCurve(const CurvePainter::Job &job)
{
    QVector<QPointF> samples;
    for (int i = job.first; i < job.store->size(); ++i)
        samples.append({job.store->series(SeriesStore::Time)[i], job.store->series(job.series)[i]});
    VarnelPlotCurve curve;
    curve.setPen(job.pen);
    curve.setData(new CurveData(samples));
    return canvas(
        [&](QPainter *painter) { curve.drawSeries(painter, job.timeMap, job.valueMap, job.area, 0, -1); });
}

// A line from each sample's pixel to the next one's.
QImage drawnByLines(const CurvePainter::Job &job)
{
    return canvas([&](QPainter *painter) {
        painter->setPen(job.pen);
        painter->setClipRect(job.area);
        QPoint last;
        for (int i = job.first; i < job.store->size(); ++i) {
            const QPoint next(qRound(job.timeMap.transform(job.store->series(SeriesStore::Time)[i])),
                qRound(job.valueMap.transform(job.store->series(job.series)[i])));
            if (i > job.first)
                painter->drawLine(last, next);
            last = next;
        }
    });
}

} // namespace

class TestCurvePainter : public QObject {
    Q_OBJECT

private slots:
    void paintsAsLines_data()
    {
        columns<QString>({"wave"});
        for (const Wave &wave : waves)
            QTest::newRow(wave.name) << wave.name;
    }

    /// Of few samples as Qwt does, of many as lines from pixel to pixel.
    void paintsAsLines()
    {
        QFETCH(QString, wave);
        const std::tuple<int, double, double> parts[] // samples; what of the whole is shown
            = {{2, 0, 1}, {2, 0.45, 1.45}, {17, 0, 1}, {17, 0.45, 1.45}, {300, 0, 1}, {300, 2, 3},
                {602, 0, 1}, {603, 0, 1}, {20000, 0.3, 0.6}, {20000, 0.9, 1.1}, {100000, 0.41, 0.43}};
        for (const auto &[count, from, to] : parts) {
            const bool few = count <= 2 * area.width();
            if (wave == "returns" ? count != 300 : few && (wave == "joined" || wave.startsWith("set back")))
                continue; // nothing at the start, or nothing but one moment
            const SeriesStore store = filled(count, wave);
            const double end = few ? store.series(SeriesStore::Time).maximum() : count;
            CurvePainter curves;
            for (double low : {8.0, 11.9}) { // all of the curve, and cut at the area's edge
                for (int width : {1, 2}) {
                    const auto job = jobFor(store, end * from, end * to, low, 14.5, width);
                    if (few && low == 8.0)
                        continue; // there Qt cuts a stroke that it draws from outside the picture by a pixel
                    const QImage image = drawn(&curves, job);
                    QVERIFY2(
                        image == (few ? drawnByCurve(job) : drawnByLines(job)), QByteArray::number(count));
                    QVERIFY(few || low > 8.0 || image != canvas());
                    QCOMPARE(drawn(&curves, job), image); // once more from what was found
                }
            }
        }
    }

    /// What was found before records came is drawn on, and is the same as found anew; but for the first
    /// resistances, which come to be known later.
    void drawsOnAsRecordsCome()
    {
        for (const char *name : {"noise", "gaps", "steps", "set back"}) {
            const Wave &wave = *std::find_if(std::begin(waves), std::end(waves),
                [&](const Wave &w) { return QLatin1String(name) == w.name; });
            SeriesStore store;
            CurvePainter kept[5];
            for (int i = 0, next = 10; i < 6000; ++i) {
                append(&store, wave.time(i, 6000), wave.voltage(i, 6000));
                if (i != next)
                    continue;
                next += i < 40 || i % 3 == 0 ? 1 : 97;
                for (int way = 0; way < 5; ++way) { // with a future, and with neighbours on both sides
                    auto job = way < 4
                        ? jobFor(store, way < 2 ? 0 : 500, way < 2 ? 7000 : 3000, 11.9, 14.5, way % 2 + 1)
                        : jobFor(store, 0, 40 * area.width() / 6.0, 0, 200);
                    job.series = way < 4 ? SeriesStore::Voltage : SeriesStore::Resistance;
                    job.area.setWidth(way < 4 ? area.width() : 6);
                    CurvePainter anew;
                    QVERIFY2(drawn(&kept[way], job) == drawn(&anew, job), qPrintable(QString::number(i)));
                }
            }
        }
    }

    /// While a recording runs.
    void boundsFollowTheSamples()
    {
        struct Growing : CurveData {
            using CurveData::d_samples;
        } data;
        data.d_samples = {{1, 2}};
        QCOMPARE(data.boundingRect(), QRectF(1, 2, 0, 0));
        data.d_samples.append({4, 0});
        QCOMPARE(data.boundingRect(), QRectF(1, 0, 3, 2));
    }

    /// Those of Qwt; a fitted curve is drawn from its first sample to its last.
    void stylesOfACurve()
    {
        const SeriesStore store = filled(9, "noise");
        const auto job = jobFor(store, -1, 9, 7, 17);
        VarnelPlotCurve own;
        QwtPlotCurve plain;
        for (int i = 0; i < 10; ++i) {
            const auto style = QwtPlotCurve::CurveStyle(i / 2 - 1); // from none on
            const auto picture = [&](QwtPlotCurve *curve) {
                curve->setPen(Qt::green);
                curve->setSamples(QVector<double>{0, 1, 2, 3, 4, 5, 6, 7, 8},
                    QVector<double>{9, 12, 15, 10, 8, 14, 9, 16, 11});
                curve->setStyle(style);
                curve->setCurveAttribute(QwtPlotCurve::Fitted, i % 2 == 1);
                return canvas([&](QPainter *painter) {
                    curve->drawSeries(painter, job.timeMap, job.valueMap, area, 2, 5);
                });
            };
            QCOMPARE(picture(&own), picture(&plain));
            QCOMPARE(picture(&own) == canvas(), style == QwtPlotCurve::NoCurve);
        }
    }

    /// The pixels of the whole line, but for columns in gaps, in which only what is steep is left: no peak is
    /// lost.
    void dashesTakeColumnsAway()
    {
        for (const char *wave : {"sine", "noise", "gaps", "set back", "steps"}) {
            for (int count : {30, 400, 20000}) {
                int gaps = 0;
                const SeriesStore store = filled(count, wave);
                CurvePainter curves;
                CurvePainter::Job job
                    = jobFor(store, 0, store.series(SeriesStore::Time).maximum(), 8.0, 14.5);
                job.dashUnit = 2;
                const QImage whole = drawn(&curves, job);
                job.pen.setStyle(Qt::DotLine);
                const QImage dotted = drawn(&curves, job);
                for (int x = area.left(); x <= area.right(); ++x) {
                    const QImage left = dotted.copy(x, 0, 1, 200);
                    const QImage all = whole.copy(x, 0, 1, 200);
                    const int pixels = countOf(all, all.rect(), Qt::green);
                    const bool isGap = left != all && countOf(left, left.rect(), Qt::green) == 0;
                    QVERIFY2(left == all || (isGap && (x - area.left()) / 4 % 2 == 1 && pixels <= 12), wave);
                    gaps += isGap;
                }
                QVERIFY2(gaps > 40 || wave == QLatin1String("noise"), wave);
            }
        }
        for (int count : {30, 20000}) { // on finer devices, in pieces: nothing is joined over a gap
            const SeriesStore store = filled(count, "flat");
            CurvePainter curves;
            CurvePainter::Job job = jobFor(store, 0, count - 1);
            job.pen.setStyle(Qt::DashDotLine);
            job.dashUnit = 2;
            const QImage image = drawn(&curves, job, 4);
            const QRect pixels(area.left() * 4 + 2, (area.top() + 79) * 4 + 2, 1, 1);
            QString line;
            for (int x = 0; x < 28; ++x)
                line += countOf(image, pixels.translated(4 * x, 0), Qt::green) > 0 ? '#' : '.';
            QCOMPARE(line, "################....####....");
        }
    }

    void drawsFromAnySampleOn()
    {
        const SeriesStore store = filled(20, "noise");
        CurvePainter curves;
        CurvePainter::Job job = jobFor(store, 0, 20);
        job.first = 11;
        QCOMPARE(drawn(&curves, job), drawnByCurve(job));
        job.first = 19; // a point that no line leads to
        QVERIFY(drawn(&curves, job) != canvas());
        job.first = 20; // none yet
        QCOMPARE(drawn(&curves, job), canvas());
    }

    /// Each value has a whole point, at the edges too, and nothing else is drawn.
    void momentIsItsPoints()
    {
        SeriesStore store;
        for (int volts : {8, 10, 13, 16, 20})
            append(&store, 100, volts * 1000);
        CurvePainter curves;
        CurvePainter::Job job = jobFor(store, 100, 101);
        const auto draws = [&](int left, const QVector<int> &tops, int height = 5) {
            const QImage expected = canvas([&](QPainter *painter) {
                for (int top : tops)
                    painter->fillRect(left, top, 5, height, Qt::green);
            });
            return drawn(&curves, job) == expected;
        };
        QVERIFY(draws(40, {177, 139, 80, 22}));
        job.timeMap.setScaleInterval(99, 100); // at the right edge
        QVERIFY(draws(336, {177, 139, 80, 22}));
        job.timeMap.setScaleInterval(200, 300); // elsewhere
        QVERIFY(draws(0, {}));
        job.timeMap.setScaleInterval(100, 101);
        job.first = 2;
        QVERIFY(draws(40, {80, 22}));
        for (int i = 0; i < 1000; ++i) // all of them, at the cost of one
            append(&store, 100, 15000 + i);
        QVERIFY(draws(40, {22}, 63));
    }

    /// Of a half pixel's samples the first, the lowest and the highest in their middle, and the last: what
    /// finer devices draw.
    void outlineKeepsExtremes()
    {
        SeriesStore store;
        const int volts[] = {12, 9, 15, 13};
        for (int i = 0; i < 4 * 601; ++i)
            append(&store, i, volts[i % 4] * 1000);
        auto job = jobFor(store, 1.5, 1.5 + 600 * 4); // four of them on each half pixel
        for (int first : {0, 1202}) {
            job.first = first;
            QPolygonF expected;
            const auto add = [&](int time, int value) {
                expected.append({job.timeMap.transform(time), job.valueMap.transform(value)});
            };
            for (int i = first; i < store.size(); i += 4 - i % 4) {
                add(i, volts[i % 4]);
                add(i - i % 4 + 2 + i % 4 / 2, i % 4 == 0 ? 9 : 13);
                add(i - i % 4 + 2 + i % 4 / 2, 15);
                add(i - i % 4 + 3, 13);
            }
            QCOMPARE(curveOutline(store, job.series, first, job.timeMap, job.valueMap, job.area), expected);
            const auto paint = [&](QPainter *painter) {
                painter->setPen(job.pen);
                painter->setClipRect(area);
                QwtPainter::drawPolyline(painter, expected);
            };
            CurvePainter curves;
            QCOMPARE(drawn(&curves, job, 4), canvas(paint, 4));
        }
        job = jobFor(store, 1000, 1600); // a sample each half pixel, and few beside the area
        const QPolygonF part = curveOutline(store, job.series, 0, job.timeMap, job.valueMap, job.area);
        QVERIFY(part.first().x() > area.left() - 2 && part.last().x() < area.right() + 2);
    }

    void redrawsWhatHasChanged()
    {
        SeriesStore store = filled(5000, "noise");
        const SeriesStore other = filled(5000, "sine");
        CurvePainter curves;
        CurvePainter::Job job = jobFor(store, 0, 5000);
        const std::function<void()> changes[]
            = {[&] { job.area.setRight(200); }, [&] { append(&store, 1, 12000); }, // back in time
                [&] { job.store = &other; }, [&] { job.valueMap.setScaleInterval(4, 16); },
                [&] { job.timeMap.setScaleInterval(1000, 4000); }, [&] { job.pen.setWidth(2); },
                [&] { job.first = 2509; }, [&] { job.area.setRight(340); }};
        for (const auto &change : changes) {
            change();
            QVERIFY(drawn(&curves, job) == drawnByLines(job));
        }
    }

    void backwardTimesStayInside()
    {
        SeriesStore store;
        std::mt19937 random(3);
        std::uniform_int_distribution<int> anyTime(-2000000000, 2000000000);
        for (int i = 0; i < 50000; ++i)
            append(&store, i == 0 ? 500 : i == 49999 ? 700 : anyTime(random), 12000);
        CurvePainter curves;
        QImage image = drawn(&curves, jobFor(store, 500, 700, 0, 17));
        QPainter(&image).fillRect(area, Qt::black);
        QCOMPARE(image, canvas());
    }
};

QTEST_MAIN(TestCurvePainter)
#include "tst_curvepainter.moc"
