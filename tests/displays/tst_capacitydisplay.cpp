#include "displays/capacitydisplay.h"

#include "widgets/displayscale.h"
#include "resources/resources.h"
#include "support/columns.h"
#include "support/pixels.h"

#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr QRgb charging = qRgb(0, 127, 0);
constexpr QRgb discharging = qRgb(127, 0, 0);
constexpr QRgb balancing = qRgb(127, 127, 0);

CapacityChart chartOf(const QVector<int> &capacities)
{
    CapacityChart chart;
    for (const int capacity : capacities)
        chart.entries.append({capacity, 'C', chart.entries.size() + 1});
    return chart;
}

QImage paint(const CapacityChart &chart, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(chart.blackGround ? Qt::black : Qt::white);
    QPainter painter(&image);
    chart.paint(painter, size);
    return image;
}

} // namespace

/// The capacity comparison: where its bars stand, in which colours, and which entries are in view.
class TestCapacityDisplay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }

    void columns()
    {
        CapacityChart chart = chartOf({10, 20, 30, 40, 50, 60, 70, 80, 90});
        const QSize size(470, 280);
        QCOMPARE(chart.barRect(0, size).left(), 30);
        QCOMPARE(chart.barRect(0, size).width(), 38);
        QCOMPARE(chart.barRect(7, size).left(), 30 + 7 * (38 + 14));
        chart.first = 1;
        QCOMPARE(chart.barRect(1, size).left(), 30);
        QCOMPARE(chart.visibleEnd(), 9);
        QCOMPARE(chart.entryAt({31, 10}, size), 1);
        QCOMPARE(chart.entryAt({75, 10}, size), -1); // in a gap
    }

    void barTops_data()
    {
        ::columns<QVector<int>, QVector<int>, QVector<int>>({"capacities", "tops", "percents"});
        // 280 pixels: 168 of them between the baseline at 224 and the full scale at 56.
        QTest::newRow("parts") << QVector<int>{1000, 500, 1999, 2000} << QVector<int>{140, 182, 57, 56}
                               << QVector<int>{50, 25, 100, 100};
        QTest::newRow("nothing") << QVector<int>{0, 100} << QVector<int>{223, 56} << QVector<int>{0, 100};
        QTest::newRow("all nothing") << QVector<int>{0, 0} << QVector<int>{223, 223} << QVector<int>{0, 0};
        QTest::newRow("below nothing")
            << QVector<int>{-50, -7} << QVector<int>{223, 223} << QVector<int>{0, 0};
        QTest::newRow("32 bits") << QVector<int>{2147483647, 1073741824} << QVector<int>{56, 140}
                                 << QVector<int>{100, 50};
    }

    void barTops()
    {
        QFETCH(QVector<int>, capacities);
        QFETCH(QVector<int>, tops);
        QFETCH(QVector<int>, percents);
        const CapacityChart chart = chartOf(capacities);
        for (int i = 0; i < capacities.size(); ++i) {
            QCOMPARE(chart.barTop(i, 280), tops[i]);
            QCOMPARE(qRound(chart.percent(i)), percents[i]);
            QCOMPARE(chart.barRect(i, {470, 280}).bottom(), 280 - 56 - 1);
        }
    }

    void coloursAndHeights()
    {
        CapacityChart chart = chartOf({1000, 500, 250, 0});
        chart.entries[1].mode = 'D';
        chart.entries[2].mode = ' ';
        const QSize size(470, 280);
        const QImage image = paint(chart, size);
        const QRgb bodies[] = {charging, discharging, balancing};
        const QRgb pens[] = {qRgb(0, 255, 0), qRgb(255, 0, 0), qRgb(255, 255, 0)};
        for (int i = 0; i < 3; ++i) {
            const QRect bar = chart.barRect(i, size);
            const int x = bar.right() - 5;
            QCOMPARE(image.pixel(x, bar.top() + 1), bodies[i]);
            QCOMPARE(image.pixel(x, bar.bottom() - 1), bodies[i]);
            QCOMPARE(image.pixel(x, bar.top()), pens[i]);
            QCOMPARE(image.pixel(bar.left() + bar.width() / 6 + 1, bar.center().y()), pens[i]);
            // The number's box stands above the bar, the per cent's box above that.
            QCOMPARE(image.pixel(bar.left() + 8, bar.top() - 8), qRgb(255, 255, 200));
            QCOMPARE(image.pixel(bar.left() + 8, bar.top() - 24), qRgb(255, 255, 0));
        }
        const QRect empty = chart.barRect(3, size);
        QCOMPARE(image.pixel(empty.left() + 8, empty.top() - 8), qRgb(255, 255, 200));
        QCOMPARE(image.pixel(empty.left() + 8, empty.top() - 24), qRgb(0, 0, 0));
        for (const int y : {56, 112, 168, 224})
            QCOMPARE(image.pixel(21, y), qRgb(127, 127, 127));
        chart.blackGround = false;
        for (const char mode : {'C', 'D', ' '}) {
            chart.entries[3].mode = mode;
            QVERIFY(contrast(paint(chart, size).pixelColor(empty.center()), Qt::white) > 3);
        }
    }

    void figuresAndPage()
    {
        const QSize size(470, 280);
        CapacityChart chart = chartOf({2088, 1044});
        chart.blackGround = false;
        const QRect bar = chart.barRect(0, size);
        const QRect figure(bar.left() - 6, bar.bottom() + 30, bar.width() + 12, 14);
        const QImage image = paint(chart, size);
        const auto ink = [](const QImage &drawn, const QRect &box) {
            return box.width() * box.height() - countOf(drawn, box, Qt::white);
        };
        QVERIFY(ink(image, figure) > 40);
        chart.entries[0].staleSince = QDateTime::currentDateTime();
        const QImage dimmed = paint(chart, size);
        const QPoint body(bar.right() - 5, bar.center().y());
        QVERIFY(
            contrast(dimmed.pixelColor(body), Qt::white) < contrast(image.pixelColor(body), Qt::white) / 2);
        const QPoint other = chart.barRect(1, size).center();
        QCOMPARE(dimmed.pixel(other), image.pixel(other));

        chart.entries[1].recorded = QStringLiteral("2: Varnel 3 COM2, 14 x NiMh");
        QCOMPARE(chart.entries[1].text(), QStringLiteral("2: Varnel 3 COM2, 14 x NiMh, 1.044 Ah"));
        QImage page(chart.pageSize(size), QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        chart.paintPage(painter, size);
        for (const int top : {280, 295})
            QVERIFY(ink(page, {30, top, 411, 15}) > 40);
    }

    void boxesStayApartAndInside_data()
    {
        ::columns<QSize, qreal>({"size", "scale"});
        QTest::newRow("smallest") << QSize(470, 280) << 1.0;
        QTest::newRow("wide") << QSize(1900, 280) << 1.0;
        QTest::newRow("larger fonts") << QSize(705, 420) << 1.5;
    }

    void boxesStayApartAndInside()
    {
        QFETCH(QSize, size);
        QFETCH(qreal, scale);
        CapacityChart chart = chartOf(QVector<int>(8, 100));
        chart.scale = scale;
        const QImage image = paint(chart, size);
        // Along the upper boxes at full scale: eight separate runs of yellow, black between them.
        const int y = chart.barTop(0, size.height()) - qRound(24 * scale);
        QVERIFY(y > 0);
        int runs = 0;
        for (int x = 1; x < size.width(); ++x)
            runs += image.pixel(x, y) == qRgb(255, 255, 0) && image.pixel(x - 1, y) != qRgb(255, 255, 0);
        QCOMPARE(runs, 8);
        QVERIFY(image.pixel(size.width() - 1, y) != qRgb(255, 255, 0));
    }

    void paging();
    void removing();
    void changing();
    void openingPullsTheViewBack();
    void wantsEntriesWhileShown();

private:
    /// The kinds of process in the eight columns, as letters; '.' where no bar stands.
    static QByteArray columnsOf(CapacityDisplay &display);
};

QByteArray TestCapacityDisplay::columnsOf(CapacityDisplay &display)
{
    QByteArray kinds;
    const QImage image = display.grab().toImage();
    CapacityChart geometry = chartOf(QVector<int>(8, 1));
    geometry.scale = displayScale();
    for (int i = 0; i < 8; ++i) {
        const QRect bar = geometry.barRect(i, display.size());
        const QRgb pixel = image.pixel(bar.right() - 4, bar.bottom() - 3);
        kinds += pixel == charging ? 'C' : pixel == discharging ? 'D' : pixel == balancing ? ' ' : '.';
    }
    return kinds;
}

void TestCapacityDisplay::paging()
{
    CapacityDisplay display;
    display.resize(display.minimumSize());
    for (int i = 1; i <= 8; ++i)
        display.addEntry({1000, i == 1 ? 'D' : 'C', i});
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCC"));
    display.showNext();
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCC"));

    display.addEntry({1000, ' ', 9}); // scrolls into view
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCC "));
    display.showNext();
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCC "));
    display.showPrev();
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCC"));
    display.showPrev();
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCC"));
    QTest::keyClick(&display, Qt::Key_Right);
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCC "));
    const auto buttons = display.findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 2);
    QVERIFY(buttons[0]->isEnabled() != buttons[1]->isEnabled());

    display.clear();
    QCOMPARE(columnsOf(display), QByteArray("........"));
}

void TestCapacityDisplay::removing()
{
    CapacityDisplay display;
    display.resize(display.minimumSize());
    for (int i = 1; i <= 9; ++i)
        display.addEntry({1000, i == 1 ? 'D' : i == 9 ? ' ' : 'C', i});
    display.removeEntry(-1);
    display.removeEntry(9);
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCC "));
    display.removeEntry(4);
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCC "));
    // A new one still comes into view.
    display.addEntry({1000, 'D', 10});
    QCOMPARE(columnsOf(display), QByteArray("CCCCCC D"));
    for (int left = 9; left > 0; --left)
        display.removeEntry(left - 1);
    QCOMPARE(columnsOf(display), QByteArray("........"));
    display.addEntry({1000, 'D', 1});
    QCOMPARE(columnsOf(display), QByteArray("D......."));
}

void TestCapacityDisplay::changing()
{
    CapacityDisplay display;
    display.resize(display.minimumSize());
    display.addEntry({1000, 'C', 1});
    display.addEntry({1000, 'C', 2});
    display.changeEntry({500, 'D', 2}, 0);
    display.changeEntry({500, 'D', 2}, 3);
    QCOMPARE(columnsOf(display), QByteArray("CC......"));
    display.changeEntry({500, 'D', 2}, 2);
    QCOMPARE(columnsOf(display), QByteArray("CD......"));
}

void TestCapacityDisplay::openingPullsTheViewBack()
{
    CapacityDisplay display;
    display.resize(display.minimumSize());
    for (int i = 1; i <= 12; ++i)
        display.addEntry({1000, i <= 2 ? 'D' : 'C', i});
    display.setWindowCount(2);
    QCOMPARE(columnsOf(display), QByteArray("CCCCCCCC"));
    display.show();
    QCOMPARE(columnsOf(display), QByteArray("DCCCCCCC")); // the second entry is leftmost
    display.setWindowCount(0);
    display.hide();
    display.show();
    QCOMPARE(columnsOf(display), QByteArray("DDCCCCCC"));
}

void TestCapacityDisplay::wantsEntriesWhileShown()
{
    CapacityDisplay display;
    QSignalSpy wanted(&display, SIGNAL(entriesWanted()));
    QSignalSpy closed(&display, SIGNAL(closed()));
    QTest::qWait(1100);
    QCOMPARE(wanted.count(), 0);
    display.show();
    QCOMPARE(wanted.count(), 1);
    QTest::qWait(1500);
    QCOMPARE(wanted.count(), 2);
    QCOMPARE(closed.count(), 0);
    display.close();
    QCOMPARE(closed.count(), 1);
    QTest::qWait(1100);
    QCOMPARE(wanted.count(), 2);
}

QTEST_MAIN(TestCapacityDisplay)
#include "tst_capacitydisplay.moc"
