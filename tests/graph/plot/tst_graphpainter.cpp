#include "graph/scene/celllegend.h"
#include "data/figuretext.h"
#include "graph/scene/graphcolours.h"
#include "graph/scene/graphlayout.h"
#include "graph/plot/graphpainter.h"
#include "graph/scene/graphrequest.h"
#include "graph/scene/graphscene.h"
#include "support/samplerecords.h"
#include "support/pixels.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

namespace {

void append(SeriesStore *store, const RecordList &records)
{
    for (int i = 0; i < records.size(); ++i)
        store->append(records[i]);
}

// All values the same, one record every five seconds.
void appendConstant(SeriesStore *store, int count)
{
    Varnel3Data record;
    record.device = Varnel3Data::Varnel3;
    record.mode = Varnel3Data::Charge;
    record.temperature = 257;
    record.internalResistance = 43;
    record.current = -1500;
    record.voltage = 7400;
    for (int i = 0; i < count; ++i) {
        record.setTime(i * 5);
        store->append(record);
    }
}

QImage drawn(const GraphRequest &request)
{
    QImage image(request.size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    GraphPainter().paint(&painter, request);
    return image;
}

GraphRequest requestOf(const SeriesStore &store, bool black = true)
{
    GraphRequest request;
    request.size = QSize(1000, 600);
    request.store = &store;
    request.switches.blackBackground = black;
    request.windowNumber = 3;
    return request;
}

// How far the pixel that is most like `colour` is from it, all channels together.
int nearestIn(const QImage &image, const QRect &rect, const QColor &colour)
{
    int nearest = 3 * 255;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            nearest = qMin(nearest,
                qAbs(pixel.red() - colour.red()) + qAbs(pixel.green() - colour.green())
                    + qAbs(pixel.blue() - colour.blue()));
        }
    }
    return nearest;
}

// Pixels that belong to no part that may be painted on. Grid lines may cross the gap between the plots.
int strayPixels(const QImage &image, const QColor &background, bool gridInGap)
{
    const GraphLayout layout(image.size(), 100);
    QImage left = image;
    QPainter painter(&left);
    for (PlotArea area : {PlotArea::Upper, PlotArea::Lower})
        painter.fillRect(layout.area(area).adjusted(-2, 0, 2, 0), background);
    painter.fillRect(QRect(0, 0, image.width(), layout.plotTop()), background); // information
    painter.fillRect(QRect(0, layout.plotBottom(), image.width(), image.height()), background); // time axis
    painter.fillRect(QRect(1, 18, layout.plotLeft() - 4, image.height()), background); // labels, badge
    painter.fillRect(
        QRect(layout.plotRight() + 5, 18, image.width() - layout.plotRight() - 6, image.height()),
        background);
    if (gridInGap)
        painter.fillRect(
            QRect(layout.area(PlotArea::Upper).bottomLeft(), layout.area(PlotArea::Lower).topRight()),
            background);
    painter.end();
    return image.width() * image.height() - countOf(left, left.rect(), background);
}

} // namespace

class TestGraphPainter : public QObject {
    Q_OBJECT

private slots:
    void nothingOfAnEmptyGraph();
    void badgeHasItsWidth();
    void chargerColours_data();
    void chargerColours();
    void rightAxisFollowsDeltaMode();
    void balancerViewShowsCells();
    void statisticsAreLegible();
    void legendsTellUnits();
    void cellSelectionHidesAndMarks();
    void emptyPlotsSayWhy();
    void resistancesStay();
    void staysInItsPlaces_data();
    void staysInItsPlaces();
    void survivesAnyRecording_data();
    void survivesAnyRecording();
    void noFalseFirstStep();
    void zoomShowsAPart();
    void paintsWithUsedTools();
    void noteComesFirst();
    void informationIsComplete();
};

void TestGraphPainter::nothingOfAnEmptyGraph()
{
    const SeriesStore store;
    for (bool black : {true, false}) {
        const QImage image = drawn(requestOf(store, black));
        const QColor background = black ? Qt::black : Qt::white;
        QCOMPARE(image.pixelColor(0, 0), background);
        QVERIFY(countOf(image, QRect(200, 200, 600, 200), QColor(191, 191, 191)) > 1000);
        QCOMPARE(countOf(image, QRect(0, 0, 1000, 250), background), 250000);
        QCOMPARE(image.pixelColor(2, 579), QColor(Qt::yellow));
    }
}

void TestGraphPainter::badgeHasItsWidth()
{
    const SeriesStore store;
    GraphRequest request = requestOf(store);
    const QColor yellow = Qt::yellow;
    for (int number : {9, 10, 100}) {
        const int right = number < 10 ? 10 : 14;
        request.windowNumber = number;
        const QImage image = drawn(request);
        QCOMPARE(image.pixelColor(1, 578), yellow);
        QCOMPARE(image.pixelColor(right, 598), yellow);
        QCOMPARE(countOf(image, image.rect(), yellow), countOf(image, QRect(1, 578, right, 21), yellow));
        QVERIFY(countOf(image, QRect(1, 578, right, 21), yellow) < right * 21 - 10); // the number
    }
}

void TestGraphPainter::chargerColours_data()
{
    QTest::addColumn<bool>("black");
    QTest::newRow("black") << true;
    QTest::newRow("white") << false;
}

void TestGraphPainter::chargerColours()
{
    QFETCH(bool, black);
    SeriesStore store;
    append(&store, recordings::lipoCharge(400));
    GraphRequest request = requestOf(store, black);
    const GraphLayout layout(request.size, store.size());
    const QRect upper = layout.area(PlotArea::Upper);
    const QRect lower = layout.area(PlotArea::Lower);
    const QColor current = black ? QColor(0x00, 0xFF, 0xFF) : QColor(0x00, 0x7A, 0xF5);
    const QColor slope = black ? QColor(0xFF, 0xFF, 0x00) : QColor(0xFF, 0xD7, 0x00);
    const QColor resistance(0xC7, 0x15, 0x85);

    QImage image = drawn(request);
    QVERIFY(countOf(image, upper, QColor(0, 255, 0)) > 400);
    QVERIFY(countOf(image, upper, slope) > 400);
    QVERIFY(countOf(image, lower, current) > 400);
    QVERIFY(countOf(image, lower, QColor(255, 0, 0)) > 400);
    QVERIFY(countOf(image, lower, resistance) > 400);
    QCOMPARE(countOf(image, upper, current), 0);
    QCOMPARE(countOf(image, lower, QColor(0, 255, 0)), 0);
    // a constant 2.5 A: from 0.177 A at the bottom to 2.75 A at the top
    const int height = lower.bottom()
        - qRound((2.5 - store.series(SeriesStore::Current).minimum())
            / (2.75 - store.series(SeriesStore::Current).minimum()) * (lower.height() - 1));
    QCOMPARE(image.pixelColor(45, height), current);
    // no resistance before it is known
    QCOMPARE(
        countOf(image, QRect(lower.left(), lower.top(), 17 * 860 / 400 - 2, lower.height()), resistance), 0);

    request.switches.temperature = request.switches.resistance = false;
    image = drawn(request);
    QCOMPARE(countOf(image, lower, QColor(255, 0, 0)), 0);
    QCOMPARE(countOf(image, lower, resistance), 0);
}

void TestGraphPainter::rightAxisFollowsDeltaMode()
{
    SeriesStore store;
    append(&store, recordings::lipoCharge(400));
    GraphRequest request = requestOf(store);
    const GraphLayout layout(request.size, store.size());
    const QRect labels(layout.plotRight() + 5, layout.plotTop() - 4, 34, 270);
    const QColor yellow(0xFF, 0xFF, 0x00);
    request.switches.rightAxis = RightAxis::None;
    QCOMPARE(countOf(drawn(request), labels, Qt::black), labels.width() * labels.height());
    request.switches.rightAxis = RightAxis::Slope;
    const QImage slope = drawn(request);
    request.switches.rightAxis = RightAxis::Energy;
    const QImage energy = drawn(request);
    QVERIFY(slope.copy(labels) != energy.copy(labels));
    // 2.5 A fill 3.3 Ah in 80 per cent of the time; the axis ends a tenth above
    const QRect upper = layout.area(PlotArea::Upper);
    const PlotSeries &charged = store.series(SeriesStore::Energy);
    const int middle = store.size() / 2;
    const QPoint half(layout.plotLeft() + qRound(860.0 * middle / (store.size() - 1)),
        upper.bottom() - qRound(charged[middle] / (charged.last() * 1.1) * (upper.height() - 1)));
    QCOMPARE(energy.pixelColor(half), yellow);
    QVERIFY(slope.copy(layout.area(PlotArea::Upper)) != energy.copy(layout.area(PlotArea::Upper)));
}

void TestGraphPainter::balancerViewShowsCells()
{
    SeriesStore store;
    append(&store, recordings::lipoCharge(400));
    for (bool black : {true, false}) {
        GraphRequest request = requestOf(store, black);
        request.switches.balancer = true;
        const GraphColours colours(black);
        const GraphLayout layout(request.size, store.size());
        const QRect upper = layout.area(PlotArea::Upper);
        QImage image = drawn(request);
        for (int cell = 0; cell < 6; ++cell) {
            QVERIFY(countOf(image, upper, colours.cell(cell)) > 20);
            QVERIFY(countOf(image, CellLegend(layout, 6).row(cell), colours.cell(cell)) >= 15);
        }
        QCOMPARE(countOf(image, upper, colours.cell(6)), 0);
        QCOMPARE(countOf(image, upper, colours.voltage()), 0);
        // the cell ahead of the others, between 3.3 and 4.35 V
        const double ahead = store.series(SeriesStore::Cell1 + 3)[0];
        const int height = upper.bottom() - qRound((ahead - 3.3) / 1.05 * (upper.height() - 1));
        QCOMPARE(image.pixelColor(40, height), colours.cell(3));

        request.switches.average = true;
        image = drawn(request);
        for (const QColor &colour :
            {colours.cellMax(), colours.cellAverage(), colours.cellMin(), colours.cellDelta()})
            QVERIFY(countOf(image, upper, colour) > 100);
        QCOMPARE(countOf(image, upper, colours.cell(4)), 0);
    }
}

/// Names in the legend's colour after a mark in the curve's, and apart from their values.
void TestGraphPainter::statisticsAreLegible()
{
    SeriesStore store;
    append(&store, recordings::lipoCharge(400));
    for (bool black : {true, false}) {
        GraphRequest request = requestOf(store, black);
        request.switches.balancer = request.switches.average = true;
        const QImage image = drawn(request);
        const GraphColours colours(black);
        const CellLegend legend(GraphLayout(request.size, store.size()), 4);
        const QColor marks[]
            = {colours.cellMax(), colours.cellAverage(), colours.cellMin(), colours.cellDelta()};
        for (int i = 0; i < 4; ++i) {
            const QRect row = legend.row(i);
            QVERIFY(countOf(image, row, marks[i]) >= 3 * (row.height() - 2));
            const QRect name(row.left() + 4, row.top(), 14, row.height());
            QVERIFY(nearestIn(image, name, colours.heading()) < 100); // thin letters are blended
            if (marks[i] != colours.cellMin()) // too much like the legend's own colour
                QVERIFY(nearestIn(image, name, marks[i]) > 100);
            int widestGap = 0;
            for (int x = row.left() + 4, gap = 0; x < row.right() - 4; ++x) {
                const QRect column(x, row.top(), 1, row.height());
                gap = countOf(image, column, colours.background()) == column.height() ? gap + 1 : 0;
                widestGap = qMax(widestGap, gap);
            }
            QVERIFY2(widestGap >= 4, qPrintable(QString::number(i)));
        }
    }

    QImage highest[2]; // a wide spread takes its own row smaller letters only
    for (const bool wide : {false, true}) {
        SeriesStore spread;
        RecordList records = recordings::lipoCharge(10);
        records.last().cellMin = records.last().cellMax - (wide ? 333 : 3);
        append(&spread, records);
        GraphRequest request = requestOf(spread);
        request.switches.balancer = request.switches.average = true;
        highest[wide] = drawn(request).copy(CellLegend(GraphLayout(request.size, 10), 4).row(0));
    }
    QCOMPARE(highest[true], highest[false]);
}

void TestGraphPainter::legendsTellUnits()
{
    const QLocale before;
    QLocale::setDefault(QLocale::German);
    SeriesStore store;
    append(&store, recordings::lipoCharge(10));
    GraphRequest request = requestOf(store);
    request.switches.rightAxis = RightAxis::Slope;
    QCOMPARE(GraphScene::of(request).upperLegend.last().value, QStringLiteral("--,- mV/min")); // none yet
    request.switches.balancer = request.switches.average = true;
    const GraphScene scene = GraphScene::of(request);
    const double delta = store.series(SeriesStore::CellDelta).last() * 1000;
    QCOMPARE(scene.upperLegend.last().value, FigureText::fixed(delta, 0, 0) + QStringLiteral(" mV"));
    for (const GraphScene::Curve &curve : scene.curves) { // what the cursor tells
        if (curve.series == SeriesStore::CellDelta)
            QCOMPARE(FigureText::fixed(delta / 1000 * curve.factor, 0, curve.decimals) + QLatin1Char(' ')
                    + curve.unit,
                scene.upperLegend.last().value);
    }
    QLocale::setDefault(before);
}

void TestGraphPainter::cellSelectionHidesAndMarks()
{
    SeriesStore store;
    append(&store, recordings::tandorRun(400));
    GraphRequest request = requestOf(store);
    request.switches.balancer = true;
    request.selectedCells[2] = true;
    const GraphColours colours(true);
    const GraphLayout layout(request.size, store.size());
    const QRect upper = layout.area(PlotArea::Upper);
    const auto pixels = [&](int mode, int cell) {
        request.switches.cellsShown = CellsShown(mode);
        return countOf(drawn(request), upper, colours.cell(cell));
    };
    const int plain = pixels(1, 2);
    QVERIFY(plain > 100);
    QVERIFY(pixels(0, 2) > plain * 3 / 2); // emphasised
    QCOMPARE(pixels(1, 5), 0);
    QCOMPARE(pixels(2, 2), 0);
    QVERIFY(pixels(2, 5) > 0);
    const QRect marked = CellLegend(layout, 12).row(2);
    QCOMPARE(drawn(request).pixelColor(marked.left(), marked.top()), colours.highlight());
    const QRect plainRow = CellLegend(layout, 12).row(3);
    QCOMPARE(drawn(request).pixelColor(plainRow.left(), plainRow.top()), colours.background());
}

void TestGraphPainter::emptyPlotsSayWhy()
{
    SeriesStore nimh;
    append(&nimh, recordings::nimhDischarge(50));
    SeriesStore lipo;
    append(&lipo, recordings::lipoCharge(50));
    SeriesStore balancer; // whose pack has gone
    Varnel3Data noCells = recordings::tandorRun(1)[0];
    noCells.cellCount = 0;
    balancer.append(noCells);
    const QRect upper = GraphLayout(QSize(1000, 600), 50).area(PlotArea::Upper);
    const QColor yellow(0xFF, 0xFF, 0x00);
    GraphRequest request = requestOf(nimh);
    request.switches.balancer = true;
    const QImage withoutCells = drawn(request);
    QVERIFY(countOf(withoutCells, upper, yellow) > 100);
    for (bool average : {false, true}) {
        GraphRequest bare = requestOf(balancer);
        bare.switches.balancer = true;
        bare.switches.average = average;
        const GraphScene scene = GraphScene::of(bare);
        QCOMPARE(scene.upperReason, QStringLiteral("This recording has no cell data."));
        QVERIFY(scene.upperLegend.isEmpty() && scene.curves.first().area == PlotArea::Lower);
    }
    request.store = &lipo;
    QCOMPARE(countOf(drawn(request), upper, yellow), 0);
    request.switches.cellsShown = CellsShown::Selected;
    const QImage withoutSelection = drawn(request);
    QVERIFY(countOf(withoutSelection, upper, yellow) > 100);
    QVERIFY(withoutSelection.copy(upper) != withoutCells.copy(upper)); // another reason
}

// A device measures them once a minute.
void TestGraphPainter::resistancesStay()
{
    RecordList records = recordings::tandorRun(3);
    records[0].parseResistanceLine(QStringLiteral("!35,41") + QStringLiteral(",50").repeated(14));
    SeriesStore store;
    store.load(std::move(records));
    store.append(recordings::tandorRun(1)[0]);
    GraphRequest request = requestOf(store);
    request.switches.balancer = true;
    request.switches.cellValue = CellValue::Resistance;
    const auto shown = [&] {
        const GraphScene scene = GraphScene::of(request);
        return scene.upperLegend[0].value.trimmed() + QLatin1Char(' ') + scene.upperLegend[1].value.trimmed();
    };
    QCOMPARE(shown(), FigureText::fixed(3.5, 0, 1) + QLatin1Char(' ') + FigureText::fixed(4.1, 0, 1));
    store.applyResistanceLine("!36,0" + QByteArray(",50").repeated(14));
    QCOMPARE(shown(),
        FigureText::fixed(3.6, 0, 1) + QLatin1Char(' ') + FigureText::fixed(4.1, 0, 1)); // 0: not measured
}

void TestGraphPainter::staysInItsPlaces_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("view");
    for (QSize size : {QSize(300, 200), QSize(500, 333), QSize(1400, 900)}) {
        for (int view = 0; view < 4; ++view)
            QTest::addRow("%dx%d view %d", size.width(), size.height(), view) << size << view;
    }
}

void TestGraphPainter::staysInItsPlaces()
{
    QFETCH(QSize, size);
    QFETCH(int, view);
    for (bool black : {true, false}) {
        SeriesStore store;
        append(&store, recordings::lipoCharge(2000));
        GraphRequest request = requestOf(store, black);
        request.size = size;
        request.switches.balancer = view >= 2;
        request.switches.average = view == 3;
        request.switches.rightAxis = view == 0 ? RightAxis::Slope : RightAxis::Energy;
        if (view == 1)
            request.zoom.show({3000, 5000}, PlotArea::Upper, {0.2, 0.7}, {0, 9995});
        QCOMPARE(strayPixels(drawn(request), black ? Qt::black : Qt::white, view < 2), 0);
    }
}

void TestGraphPainter::survivesAnyRecording_data()
{
    QTest::addColumn<int>("count");
    for (int count : {1, 2, 17, 18, 19, 100000})
        QTest::addRow("%d records", count) << count;
}

void TestGraphPainter::survivesAnyRecording()
{
    QFETCH(int, count);
    Varnel3Data hostile;
    hostile.device = Varnel3Data::Varnel3;
    hostile.mode = Varnel3Data::Charge;
    hostile.flag5 = 'B';
    hostile.cellType = 77;
    hostile.cellCount = 99;
    hostile.current = -2000000000;
    hostile.voltage = 2000000000;
    hostile.temperature = 2000000000;
    hostile.cells[3].voltage = 1000000000;
    SeriesStore stores[3];
    append(&stores[0], recordings::lipoCharge(count));
    appendConstant(&stores[1], count);
    for (int i = 0; i < count; ++i) {
        stores[2].append(hostile); // time stands still too
        hostile.cellCount = -hostile.cellCount;
    }
    for (const SeriesStore &store : stores) {
        for (bool balancer : {true, false}) {
            GraphRequest request = requestOf(store);
            request.switches.balancer = balancer;
            const QImage image = drawn(request);
            const QRect lower = GraphLayout(request.size, count).area(PlotArea::Lower);
            QVERIFY(countOf(image, lower, QColor(0x00, 0xFF, 0xFF))
                > (count > 1 && &store != &stores[2] ? 400 : 5));
            request.size = QSize(90, 40);
            drawn(request);
        }
    }
}

void TestGraphPainter::noFalseFirstStep()
{
    // a constant recording is drawn as level lines only
    SeriesStore store;
    appendConstant(&store, 60);
    const GraphRequest request = requestOf(store);
    const QImage image = drawn(request);
    const QRect lower = GraphLayout(request.size, 60).area(PlotArea::Lower);
    QCOMPARE(countOf(image, lower, QColor(0x00, 0xFF, 0xFF)), lower.width());
    QCOMPARE(countOf(image, lower, QColor(255, 0, 0)), lower.width());
}

void TestGraphPainter::zoomShowsAPart()
{
    SeriesStore store;
    append(&store, recordings::lipoCharge(1000));
    GraphRequest request = requestOf(store);
    const GraphLayout layout(request.size, store.size());
    const QRect upper = layout.area(PlotArea::Upper);
    const QRect lower = layout.area(PlotArea::Lower);
    const QColor cyan(0x00, 0xFF, 0xFF);
    // the current bends at 70 per cent of the time
    const Interval whole = {0, 4995};
    request.zoom.show({3000, 4000}, PlotArea::Upper, {0, 1}, whole);
    QImage image = drawn(request);
    const int level = lower.bottom()
        - qRound((2.5 - store.series(SeriesStore::Current).minimum())
            / (2.75 - store.series(SeriesStore::Current).minimum()) * (lower.height() - 1));
    QCOMPARE(image.pixelColor(lower.left() + 400, level), cyan);
    QVERIFY(image.pixelColor(lower.right() - 5, level) != cyan);
    // only the upper plot's values are cut
    const QImage before = image;
    request.zoom.show({3000, 4000}, PlotArea::Upper, {0.5, 1}, whole);
    image = drawn(request);
    QCOMPARE(image.copy(lower), before.copy(lower));
    QVERIFY(image.copy(upper) != before.copy(upper));
    QVERIFY(image.copy(0, 20, 36, 270) != before.copy(0, 20, 36, 270)); // labels
}

/// What one painting left in pens, curves, scales and grid shows in no other.
void TestGraphPainter::paintsWithUsedTools()
{
    SeriesStore stores[3];
    append(&stores[0], recordings::lipoCharge(300));
    append(&stores[1], recordings::nimhDischarge(5));
    append(&stores[2], recordings::tandorRun(2000));
    GraphPainter used;
    for (int round = 0; round < 12; ++round) {
        GraphRequest request = requestOf(stores[round % 3], round % 2 == 0);
        request.size = QSize(400 + 50 * round, 300);
        request.switches.balancer = round % 4 > 1;
        request.switches.average = round > 7;
        request.selectedCells[2] = round < 6;
        QImage image(request.size, QImage::Format_RGB32);
        QPainter painter(&image);
        used.paint(&painter, request);
        painter.end();
        QVERIFY2(image == drawn(request), qPrintable(QString::number(round)));
    }
}

void TestGraphPainter::noteComesFirst()
{
    SeriesStore store;
    append(&store, recordings::lipoCharge(20));
    GraphRequest request = requestOf(store);
    const QRect line(0, 0, 1000, 21);
    const QImage plain = drawn(request);
    QCOMPARE(countOf(plain, line, GraphColours(true).note()), 0);
    request.note = QStringLiteral("No data since 12:00:00");
    QVERIFY(countOf(drawn(request), line, GraphColours(true).note()) > 0);
    request.size = QSize(300, 200);
    QCOMPARE(countOf(drawn(request), QRect(0, 0, 1, 21), Qt::black), 21); // it fits
}

void TestGraphPainter::informationIsComplete()
{
    const QLocale before;
    QLocale::setDefault(QLocale::C);
    Varnel3Data record;
    record.mode = Varnel3Data::Charge;
    record.cellCount = 6;
    record.cellType = 5;
    record.voltage = 24215;
    record.current = 1500;
    record.temperature = 253;
    record.energy = 99999;
    record.setTime(3725);
    QCOMPARE(FigureText::information(record),
        QStringLiteral("Charge  6xLiPo  24.21 V   1.50 A  25.3 \u00b0C  99.999 Ah  01:02:05"));
    record.energy = 100000;
    record.temperature = 0;
    QVERIFY(FigureText::information(record).contains(QStringLiteral("100.00 Ah")));
    QVERIFY(FigureText::information(record).contains(
        QStringLiteral("--") + QLocale::system().decimalPoint() + QStringLiteral("- \u00b0C")));
    QCOMPARE(FigureText::information(record, 2), QStringLiteral("24.21 V   1.50 A"));
    QLocale::setDefault(before);
}

QTEST_MAIN(TestGraphPainter)
#include "tst_graphpainter.moc"
