#include "graph/curves/curvedata.h"
#include "graph/curves/curvepainter.h"
#include "graph/curves/varnelplotcurve.h"
#include "support/columns.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <cmath>
#include <random>

namespace {

const QRect area(40, 22, 301, 160);

// A recording whose voltage (mV) follows `wave` over the records.
void fill(SeriesStore *store, int count, const QString &wave)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> noise(-40, 40);
    int time = 0;
    int voltage = 12000;
    for (int i = 0; i < count; ++i) {
        Varnel3Data record;
        record.device = Varnel3Data::Varnel3;
        time += wave == QLatin1String("gaps") && i % 1000 == 999 ? 2000 : 1;
        if (wave.startsWith(QLatin1String("set back"))) // for a quarter of the recording
            time += i == count / 2 ? -count / 4 : i == count / 4 * 3 ? count / 4 : 0;
        if (wave == QLatin1String("joined")) // many recordings, one after the other
            time = i % (count / 150) * 150;
        if (wave == QLatin1String("returns") && i == count - 1) // to the very start
            time = 1;
        record.setTime(time);
        record.voltage = 12000 + int(3000 * std::sin(i * 6.0 / count)) + noise(random);
        if (wave == QLatin1String("steps"))
            record.voltage = i * 7 / count % 2 == 0 ? 9000 : 15000;
        else if (wave == QLatin1String("noise"))
            record.voltage = 12000 + noise(random) * 75;
        else if (wave == QLatin1String("flat"))
            record.voltage = 12000;
        else if (wave
            == QLatin1String("set back, flat band")) // two heights in turn, from the middle on one of them
            record.voltage = 12000 + (i < count / 8 * 5 && i % 2 == 0 ? 1000 : 0);
        else if (wave == QLatin1String("walk"))
            record.voltage = voltage = qBound(9000, voltage + noise(random) * 10, 14000);
        store->append(record);
    }
}

CurvePainter::Job jobFor(const SeriesStore &store, double from, double to, double low, double high)
{
    CurvePainter::Job job{&store, SeriesStore::Voltage, 0, {}, {}, area, QPen(Qt::green, 1)};
    job.timeMap.setScaleInterval(from, to);
    job.timeMap.setPaintInterval(area.left(), area.right());
    job.valueMap.setScaleInterval(low, high);
    job.valueMap.setPaintInterval(area.bottom(), area.top());
    return job;
}

QImage canvas()
{
    QImage image(400, 200, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

QImage drawn(CurvePainter *curves, const CurvePainter::Job &job)
{
    QImage image = canvas();
    QPainter painter(&image);
    curves->draw(&painter, job);
    return image;
}

QImage drawnByCurve(const CurvePainter::Job &job)
{
    QVector<QPointF> samples;
    for (int i = job.first; i < job.store->size(); ++i)
        samples.append({job.store->series(SeriesStore::Time)[i], job.store->series(job.series)[i]});
    VarnelPlotCurve curve;
    curve.setPen(job.pen);
    curve.setData(new CurveData(samples));
    QImage image = canvas();
    QPainter painter(&image);
    curve.drawSeries(&painter, job.timeMap, job.valueMap, job.area, 0, -1);
    return image;
}

// A line from each sample's pixel to the next one's.
QImage drawnByLines(const CurvePainter::Job &job)
{
    QImage image = canvas();
    QPainter painter(&image);
    painter.setPen(job.pen);
    painter.setClipRect(job.area);
    QPoint last;
    for (int i = job.first; i < job.store->size(); ++i) {
        const QPoint next(qRound(job.timeMap.transform(job.store->series(SeriesStore::Time)[i])),
            qRound(job.valueMap.transform(job.store->series(job.series)[i])));
        if (i > job.first)
            painter.drawLine(last, next);
        last = next;
    }
    return image;
}

// Painted pixels within one pixel of a place.
int countNear(const QImage &image, int x, int y)
{
    int count = 0;
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            if (image.rect().contains(x + dx, y + dy))
                count += image.pixelColor(x + dx, y + dy) != QColor(Qt::black);
        }
    }
    return count;
}

} // namespace

class TestCurvePainter : public QObject {
    Q_OBJECT

private slots:
    void manySamplesPaintAsLines_data();
    void manySamplesPaintAsLines();
    void fewSamplesPaintAsCurve_data();
    void fewSamplesPaintAsCurve();
    void drawsFromAnySampleOn();
    void momentIsItsPoints();
    void finerDevicesGetFinerLines();
    void redrawsWhatHasChanged();
    void backwardTimesStayInside();
    void curveIsCutAtItsRectangle();
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
            add(20000, "whole", 0, 1);
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
        CurvePainter::Job job = jobFor(store, from, to, low, 14.5);
        job.pen.setWidth(width);
        const QImage image = drawn(&curves, job);
        QVERIFY(image == drawnByLines(job));
        QVERIFY(low > 8.0 || image != canvas());
        QCOMPARE(drawn(&curves, job), image); // once more from what was found
    }
}

void TestCurvePainter::fewSamplesPaintAsCurve_data()
{
    columns<QString, int>({"wave", "count"});
    for (const char *wave : {"sine", "steps", "noise", "flat", "gaps"}) {
        for (int count : {2, 17, 300, 600})
            QTest::addRow("%s %d", wave, count) << QString::fromLatin1(wave) << count;
    }
    QTest::newRow("back to the start") << QStringLiteral("returns") << 300; // no point of its own there
}

void TestCurvePainter::fewSamplesPaintAsCurve()
{
    QFETCH(QString, wave);
    QFETCH(int, count);
    SeriesStore store;
    fill(&store, count, wave);
    CurvePainter curves;
    for (int width : {1, 2}) {
        CurvePainter::Job job = jobFor(store, 0, store.series(SeriesStore::Time).maximum(), 11.9, 14.5);
        job.pen.setWidth(width);
        QVERIFY(drawn(&curves, job) == drawnByCurve(job));
    }
}

void TestCurvePainter::drawsFromAnySampleOn()
{
    SeriesStore store;
    fill(&store, 2000, QStringLiteral("noise"));
    CurvePainter curves;
    CurvePainter::Job job = jobFor(store, 0, 2000, 8, 16);
    job.first = 1001;
    const QImage image = drawn(&curves, job);
    QVERIFY(image == drawnByLines(job));
    QCOMPARE(image.copy(0, 0, 185, 200), canvas().copy(0, 0, 185, 200));
}

// Each value has a whole point, at the edges too, and nothing else is drawn.
void TestCurvePainter::momentIsItsPoints()
{
    SeriesStore store;
    QImage expected = canvas();
    QPainter painter(&expected);
    for (int volts : {8, 10, 13, 16}) {
        Varnel3Data record;
        record.setTime(100);
        record.voltage = volts * 1000;
        store.append(record);
        const int y
            = qBound(area.top() + 2, area.bottom() - qRound((volts - 8) / 8.0 * 159), area.bottom() - 2);
        painter.fillRect(QRect(area.left(), y - 2, 5, 5), Qt::green);
    }
    painter.end();
    CurvePainter curves;
    CurvePainter::Job job = jobFor(store, 100, 101, 8, 16);
    QCOMPARE(drawn(&curves, job), expected);
    job.timeMap.setScaleInterval(200, 300); // elsewhere
    QCOMPARE(drawn(&curves, job), canvas());
    job.timeMap.setScaleInterval(100, 101);
    for (int i = 0; i < 1000; ++i) { // all of them, at the cost of one
        const Varnel3Data newest = store.records().last();
        store.append(newest);
    }
    painter.begin(&expected);
    painter.fillRect(QRect(area.left(), area.top(), 5, area.height()), Qt::green);
    painter.end();
    QCOMPARE(drawn(&curves, job), expected);
}

void TestCurvePainter::finerDevicesGetFinerLines()
{
    SeriesStore store;
    fill(&store, 20000, QStringLiteral("sine"));
    const CurvePainter::Job job = jobFor(store, 0, 20000, 8, 16);
    constexpr int scale = 4;
    QImage fine(canvas().size() * scale, QImage::Format_RGB32);
    fine.fill(Qt::black);
    QPainter painter(&fine);
    painter.scale(scale, scale);
    CurvePainter().draw(&painter, job);
    painter.end();
    const QImage coarse = drawnByLines(job);
    int finer = 0;
    for (int y = 0; y < coarse.height(); ++y) {
        for (int x = 0; x < coarse.width(); ++x) {
            int inked = 0;
            for (int part = 0; part < scale * scale; ++part)
                inked += fine.pixelColor(x * scale + part % scale, y * scale + part / scale)
                    != QColor(Qt::black);
            finer += inked > 0 && inked < scale * scale;
            const bool nearCurve = countNear(coarse, x, y) > 0;
            QVERIFY2(inked == 0 || nearCurve, qPrintable(QStringLiteral("%1 %2").arg(x).arg(y)));
        }
    }
    QVERIFY(finer > 200); // no blown-up pixels
}

void TestCurvePainter::redrawsWhatHasChanged()
{
    SeriesStore store;
    fill(&store, 5000, QStringLiteral("noise"));
    CurvePainter curves;
    CurvePainter::Job job = jobFor(store, 0, 5000, 8, 16);
    drawn(&curves, job);
    fill(&store, 1, QStringLiteral("flat")); // runs back in time to 1
    QVERIFY(drawn(&curves, job) == drawnByLines(job));

    SeriesStore other;
    fill(&other, 5000, QStringLiteral("sine"));
    job = jobFor(other, 0, 5000, 8, 16);
    QVERIFY(drawn(&curves, job) == drawnByLines(job));
    job.valueMap.setScaleInterval(4, 16);
    QVERIFY(drawn(&curves, job) == drawnByLines(job));
    job.timeMap.setScaleInterval(1000, 4000);
    QVERIFY(drawn(&curves, job) == drawnByLines(job));
    job.pen.setWidth(2);
    QVERIFY(drawn(&curves, job) == drawnByLines(job));
}

void TestCurvePainter::backwardTimesStayInside()
{
    SeriesStore store;
    std::mt19937 random(3);
    std::uniform_int_distribution<int> anyTime(-2000000000, 2000000000);
    for (int i = 0; i < 50000; ++i) {
        Varnel3Data record;
        record.setTime(i == 0 ? 500 : i == 49999 ? 700 : anyTime(random));
        record.voltage = record.time;
        store.append(record);
    }
    CurvePainter curves;
    const QImage image = drawn(&curves, jobFor(store, 500, 700, 0, 1));
    QImage outside = image;
    QPainter(&outside).fillRect(area, Qt::black);
    QCOMPARE(outside, canvas());
}

void TestCurvePainter::curveIsCutAtItsRectangle()
{
    VarnelPlotCurve curve;
    QVERIFY(!curve.testPaintAttribute(QwtPlotCurve::ClipPolygons));
    curve.setPen(Qt::green);
    curve.setData(new CurveData({{0, 0}, {1, 100}, {2, -100}}));
    const CurvePainter::Job maps = jobFor(SeriesStore(), 0, 2, 0, 1);
    for (int style : {QwtPlotCurve::Lines, QwtPlotCurve::NoCurve}) {
        QImage image = canvas();
        QPainter painter(&image);
        curve.setStyle(QwtPlotCurve::CurveStyle(style));
        curve.drawSeries(&painter, maps.timeMap, maps.valueMap, area, 0, -1);
        painter.setClipping(false);
        QCOMPARE(image != canvas(), style == QwtPlotCurve::Lines);
        painter.fillRect(area, Qt::black);
        QCOMPARE(image, canvas());
    }
}

QTEST_MAIN(TestCurvePainter)
#include "tst_curvepainter.moc"
