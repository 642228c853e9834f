#include "graph/curves/curvedata.h"
#include "graph/curves/curveoutline.h"
#include "graph/curves/curvepainter.h"
#include "graph/curves/inkcolumns.h"
#include "graph/curves/timecolumns.h"
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
    store->append(record);
}

void fill(SeriesStore *store, int count, const QString &name)
{
    const Wave &wave
        = *std::find_if(std::begin(waves), std::end(waves), [&](const Wave &w) { return name == w.name; });
    for (int i = 0; i < count; ++i)
        append(store, wave.time(i, count), wave.voltage(i, count));
}

CurvePainter::Job jobFor(
    const SeriesStore &store, double from, double to, double low, double high, int width = 1)
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
    void manySamplesPaintAsLines_data();
    void manySamplesPaintAsLines();
    void fewSamplesPaintAsCurve();
    void dashesTakeColumnsAway();
    void drawsFromAnySampleOn();
    void momentIsItsPoints();
    void finerDevicesGetFinerLines();
    void outlineKeepsExtremes();
    void redrawsWhatHasChanged();
    void backwardTimesStayInside();
    void sortsTimesIntoColumns();
    void knowsWhatIsPainted();
    void drawsStylesAsQwtDoes();
};

void TestCurvePainter::manySamplesPaintAsLines_data()
{
    columns<QString, int, double, double, int>({"wave", "count", "from", "to", "width"});
    for (int width : {1, 2}) {
        for (const char *wave :
            {"sine", "steps", "noise", "flat", "gaps", "walk", "set back", "set back, flat band", "joined"}) {
            const auto add = [&](int count, const char *part, double from, double to) {
                QTest::addRow("%s %d %s width %d", wave, count, part, width)
                    << QString::fromLatin1(wave) << count << count * from << count * to << width;
            };
            add(700, "whole", 0, 1);
            add(20000, "inside", 0.3, 0.6);
            add(20000, "past the end", 0.9, 1.1);
            add(100000, "close", 0.41, 0.43);
        }
    }
}

void TestCurvePainter::manySamplesPaintAsLines()
{
    QFETCH(QString, wave);
    QFETCH(int, count);
    QFETCH(double, from);
    QFETCH(double, to);
    QFETCH(int, width);
    SeriesStore store;
    fill(&store, count, wave);
    CurvePainter curves;
    for (double low : {8.0, 11.9}) { // all of the curve, and cut at the area's edge
        const CurvePainter::Job job = jobFor(store, from, to, low, 14.5, width);
        const QImage image = drawn(&curves, job);
        QVERIFY(image == drawnByLines(job));
        QVERIFY(low > 8.0 || image != canvas());
        QCOMPARE(drawn(&curves, job), image); // once more from what was found
    }
}

void TestCurvePainter::fewSamplesPaintAsCurve()
{
    for (const char *wave : {"sine", "steps", "noise", "flat", "gaps", "returns"}) {
        for (int count : {2, 17, 300, 602}) {
            if (count != 300 && QLatin1String(wave) == QLatin1String("returns"))
                continue; // no point of its own at the start
            SeriesStore store;
            fill(&store, count, QString::fromLatin1(wave));
            CurvePainter curves;
            const double end = store.series(SeriesStore::Time).maximum();
            for (int width : {1, 2}) {
                for (double from :
                    {0.0, count < 100 ? 0.45 * end : 0.0, 2.0 * end}) { // whole, a part, beyond
                    const CurvePainter::Job job = jobFor(store, from, from + end, 11.9, 14.5, width);
                    QVERIFY2(drawn(&curves, job) == drawnByCurve(job), wave);
                }
            }
        }
    }
}

/// The pixels of the whole line, but for columns in gaps, in which only what is steep is left: no peak is lost.
void TestCurvePainter::dashesTakeColumnsAway()
{
    for (const char *wave : {"sine", "noise", "gaps", "set back", "steps"}) {
        int gaps = 0;
        for (int count : {30, 400, 20000}) {
            SeriesStore store;
            fill(&store, count, QString::fromLatin1(wave));
            CurvePainter curves;
            CurvePainter::Job job = jobFor(store, 0, store.series(SeriesStore::Time).maximum(), 8.0, 14.5);
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
        }
        QVERIFY2(gaps > 80 || QLatin1String(wave) == QLatin1String("noise"), wave);
    }
    SeriesStore store; // on finer devices, in pieces: nothing is joined over a gap
    fill(&store, 30, QStringLiteral("flat"));
    CurvePainter curves;
    CurvePainter::Job job = jobFor(store, 0, 29, 8, 16);
    job.pen.setStyle(Qt::DashDotLine);
    job.dashUnit = 2;
    const QImage image = drawn(&curves, job, 4);
    QString line;
    for (int x = 0; x < 28; ++x)
        line += image.pixelColor((area.left() + x) * 4 + 2, (area.top() + 79) * 4 + 2) == QColor(Qt::green)
            ? '#'
            : '.';
    QCOMPARE(line, QStringLiteral("################....####...."));
}

void TestCurvePainter::drawsFromAnySampleOn()
{
    for (int count : {20, 2000}) {
        SeriesStore store;
        fill(&store, count, QStringLiteral("noise"));
        CurvePainter curves;
        CurvePainter::Job job = jobFor(store, 0, count, 8, 16);
        job.first = count / 2 + 1;
        const QImage image = drawn(&curves, job);
        QVERIFY(image == (count < 100 ? drawnByCurve(job) : drawnByLines(job)));
        QCOMPARE(image.copy(0, 0, 185, 200), canvas().copy(0, 0, 185, 200));
        job.first = count - 1; // a point that no line leads to
        QVERIFY(drawn(&curves, job) != canvas());
        job.first = count; // none yet
        QCOMPARE(drawn(&curves, job), canvas());
    }
}

// Each value has a whole point, at the edges too, and nothing else is drawn.
void TestCurvePainter::momentIsItsPoints()
{
    SeriesStore store;
    QVector<QRect> points;
    for (int volts : {8, 10, 13, 16, 20}) {
        append(&store, 100, volts * 1000);
        const int y = area.bottom() - qRound((volts - 8) / 8.0 * 159);
        points.append(
            QRect(area.left(), qBound(area.top(), y - 2, area.bottom() - 4), 5, volts > 16 ? 0 : 5));
    }
    const auto expected = [](const QVector<QRect> &rects) {
        return canvas([&](QPainter *painter) {
            for (const QRect &rect : rects)
                painter->fillRect(rect, Qt::green);
        });
    };
    CurvePainter curves;
    CurvePainter::Job job = jobFor(store, 100, 101, 8, 16);
    QCOMPARE(drawn(&curves, job), expected(points));
    job.timeMap.setScaleInterval(99, 100); // at the right edge
    QVector<QRect> right = points;
    for (QRect &rect : right)
        rect.moveRight(area.right());
    QCOMPARE(drawn(&curves, job), expected(right));
    job.timeMap.setScaleInterval(200, 300); // elsewhere
    QCOMPARE(drawn(&curves, job), canvas());
    job.timeMap.setScaleInterval(100, 101);
    job.first = 2;
    QCOMPARE(drawn(&curves, job), expected(points.mid(2)));
    for (int i = 0; i < 1000; ++i) // all of them, at the cost of one
        append(&store, 100, 15000 + i);
    QCOMPARE(drawn(&curves, job),
        expected({QRect(area.left(), area.top(), 5, points[2].bottom() - area.top() + 1)}));
}

void TestCurvePainter::finerDevicesGetFinerLines()
{
    SeriesStore store;
    fill(&store, 20000, QStringLiteral("sine"));
    const CurvePainter::Job job = jobFor(store, 0, 20000, 8, 16);
    CurvePainter curves;
    const auto outlined = [&](QPainter *painter) {
        painter->setPen(job.pen);
        painter->setClipRect(area);
        QwtPainter::drawPolyline(
            painter, curveOutline(store, job.series, 0, job.timeMap, job.valueMap, area));
    };
    QCOMPARE(drawn(&curves, job, 4), canvas(outlined, 4));
}

// Of a half pixel's samples the first, the lowest and the highest in their middle, and the last.
void TestCurvePainter::outlineKeepsExtremes()
{
    SeriesStore store;
    const int volts[] = {12, 9, 15, 13};
    for (int i = 0; i < 4 * 601; ++i)
        append(&store, i, volts[i % 4] * 1000);
    const CurvePainter::Job job = jobFor(store, 1.5, 1.5 + 600 * 4, 8, 16); // four of them on each half pixel
    for (int first : {0, 1202}) {
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
    }
}

void TestCurvePainter::redrawsWhatHasChanged()
{
    SeriesStore store;
    fill(&store, 5000, QStringLiteral("noise"));
    CurvePainter curves;
    CurvePainter::Job job = jobFor(store, 0, 5000, 8, 16);
    const auto isRedrawn = [&] { return drawn(&curves, job) == drawnByLines(job); };
    QVERIFY(isRedrawn());
    append(&store, 1, 12000); // runs back in time
    QVERIFY(isRedrawn());
    SeriesStore other;
    fill(&other, 5000, QStringLiteral("sine"));
    job = jobFor(other, 0, 5000, 8, 16);
    QVERIFY(isRedrawn());
    job.valueMap.setScaleInterval(4, 16);
    QVERIFY(isRedrawn());
    job.timeMap.setScaleInterval(1000, 4000);
    QVERIFY(isRedrawn());
    job.pen.setWidth(2);
    QVERIFY(isRedrawn());
    job.first = 2500;
    QVERIFY(isRedrawn());
    job.area.setRight(200);
    QVERIFY(isRedrawn());
}

void TestCurvePainter::backwardTimesStayInside()
{
    SeriesStore store;
    std::mt19937 random(3);
    std::uniform_int_distribution<int> anyTime(-2000000000, 2000000000);
    for (int i = 0; i < 50000; ++i) {
        const int time = i == 0 ? 500 : i == 49999 ? 700 : anyTime(random);
        append(&store, time, time);
    }
    CurvePainter curves;
    QImage image = drawn(&curves, jobFor(store, 500, 700, 0, 1));
    QPainter(&image).fillRect(area, Qt::black);
    QCOMPARE(image, canvas());
}

/// Of what lies on either side of the area only the ends count.
void TestCurvePainter::sortsTimesIntoColumns()
{
    const double times[] = {0, 1, 2, 9, 10, 10.2, 15, 21, 22, 30, 40};
    for (bool ascending : {true, false}) {
        TimeColumns columns;
        QwtScaleMap map;
        map.setScaleInterval(0, 100);
        map.setPaintInterval(0, 100);
        columns.assign(times, 11, ascending, map, 10, 20);
        QString text;
        for (const TimeColumns::Stretch &stretch : columns.stretches())
            text += QStringLiteral("%1:%2-%3 ").arg(stretch.x).arg(stretch.begin).arg(stretch.end);
        const QString middle = QStringLiteral("2:2-3 9:3-4 10:4-6 15:6-7 21:7-8 22:8-9 ");
        QCOMPARE(text, ascending ? middle : "0:0-1 " + middle + "40:10-11 ");
        QCOMPARE(columns.sampleCount(), 5);
    }
}

void TestCurvePainter::knowsWhatIsPainted()
{
    InkColumns ink(QRect(10, 20, 5, 6));
    ink.fill(QRect(11, 21, 2, 3));
    ink.fill(QRect(12, 25, 1, 9));
    QVERIFY(ink.covers(QRect(11, 21, 2, 3)) && ink.covers(QRect(5, 0, 2, 2)));
    QVERIFY(!ink.covers(QRect(11, 21, 3, 3)) && !ink.covers(QRect(11, 21, 1, 4)));
    QCOMPARE(ink.spans(), (QVector<QRect>{{11, 21, 1, 3}, {12, 21, 1, 3}, {12, 25, 1, 1}}));
}

/// In any style, but lines inside their rectangle, whatever the painter was clipped to.
void TestCurvePainter::drawsStylesAsQwtDoes()
{
    VarnelPlotCurve curve;
    QwtPlotCurve plain;
    QVERIFY(!curve.testPaintAttribute(QwtPlotCurve::ClipPolygons));
    plain.setPaintAttribute(QwtPlotCurve::ClipPolygons, false);
    const CurvePainter::Job maps = jobFor(SeriesStore(), 0, 2, 0, 1);
    const auto drawnBy = [&](QwtPlotCurve *each, bool clips) {
        return canvas([&](QPainter *painter) {
            painter->setClipRect(clips ? area : QRect(0, 0, 10, 10));
            painter->setClipping(clips);
            each->drawSeries(painter, maps.timeMap, maps.valueMap, area, 0, 1);
            QCOMPARE(painter->hasClipping(), clips);
        });
    };
    for (int style = QwtPlotCurve::NoCurve; style <= QwtPlotCurve::Dots; ++style) {
        for (bool fitted : {false, true}) {
            for (QwtPlotCurve *each : {static_cast<QwtPlotCurve *>(&curve), &plain}) {
                each->setPen(Qt::green);
                each->setData(new CurveData({{0, 0}, {1, 100}, {2, -100}}));
                each->setStyle(QwtPlotCurve::CurveStyle(style));
                each->setCurveAttribute(QwtPlotCurve::Fitted, fitted);
                QCOMPARE(each->dataRect(), QRectF(0, -100, 2, 200));
            }
            QCOMPARE(drawnBy(&curve, false), drawnBy(&plain, style == QwtPlotCurve::Lines));
            QCOMPARE(drawnBy(&curve, true) != canvas(), style > QwtPlotCurve::NoCurve);
        }
    }
}

QTEST_MAIN(TestCurvePainter)
#include "tst_curvepainter.moc"
