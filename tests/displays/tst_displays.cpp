#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/samplepack.h"
#include "displays/voltagecanvas.h"
#include "displays/voltagecomparison.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/paintlog.h"
#include "support/settle.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <QtTest>

namespace {

constexpr QSize smallest{470, 280};

class Packs : public VoltageSource {
public:
    QVector<PackVoltages> list;
    mutable int asked = 0;

    QVector<PackVoltages> packs() const override { return ++asked, list; }
    void toggleCell(int windowNumber, int cell) override
    {
        for (PackVoltages &pack : list)
            if (pack.windowNumber == windowNumber)
                pack.selected[cell] = !pack.selected[cell];
    }
};

/// What stands on the screen.
QImage onScreen(QWidget *window)
{
    QCoreApplication::sendPostedEvents();
    return window->screen()->grabWindow(window->winId()).toImage();
}

/// Entries of these kinds, numbered from 1.
void fill(CapacityDisplay &display, const QByteArray &kinds)
{
    display.resize(smallest);
    for (int i = 0; i < kinds.size(); ++i)
        display.addEntry({1000, kinds[i], i + 1});
}

/// The kinds of process in the eight columns, '.' where no bar stands, between < and > where there is more.
QString columnsOf(CapacityDisplay &display)
{
    QString kinds = display.findChild<QPushButton *>("previous")->isEnabled() ? "<" : "|";
    const QImage image = display.isVisible() ? onScreen(&display) : display.grab().toImage();
    for (int x = 64; x < 470; x += 52) {
        const QRgb pixel = image.pixel(x, 221);
        kinds += pixel == qRgb(0, 127, 0) ? 'C' : pixel == qRgb(127, 0, 0) ? 'D' : '.';
    }
    return kinds + (display.findChild<QPushButton *>("next")->isEnabled() ? ">" : "|");
}

} // namespace

/// The comparisons and the bar display as windows: what they show of what they are told, and what they do.
class TestDisplays : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initResources();
        QLocale::setDefault(QLocale::c());
    }

    void init() { m_state.setSwitches({}); }
    void cleanup() { delete m_comparison; }

    void windows()
    {
        CapacityDisplay capacities;
        capacities.setViewState(&m_state);
        PowerDisplay power;
        power.setViewState(&m_state);
        VoltageComparison voltages;
        voltages.setViewState(&m_state);
        voltages.setAttribute(Qt::WA_DeleteOnClose, false);
        DataDisplay data;
        const QVector<std::tuple<QWidget *, QString, QSize, QSize>> rows{
            {&capacities, "Varnel - capacity comparison", smallest, {465, 364}},
            {&power, "Varnel - bar display", smallest, {465, 364}},
            {&voltages, "Varnel - voltage comparison", {300, 0}, voltages.sizeHint()},
            {&data, "Varnel - Data Display", smallest, data.sizeHint()}};
        for (const auto &[display, title, least, first] : rows) {
            QVERIFY(display->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
            QCOMPARE(display->windowTitle(), title);
            QCOMPARE(display->minimumSize(), least);
            QCOMPARE(display->sizeHint(), first);
            display->resize(smallest);
            display->show();
            QVERIFY(!display->windowIcon().isNull());
            for (const bool black : {true, false, true}) {
                setView(CellValue::Voltage, black);
                const QColor ground = black || display == &data ? Qt::black : Qt::white;
                QTRY_COMPARE_WITH_TIMEOUT(onScreen(display).pixelColor(1, 270), ground, 30000);
            }
            QSignalSpy closed(display, SIGNAL(closed()));
            display->hide(); // which is no closing
            display->show();
            QTest::mouseClick(display, Qt::LeftButton);
            QVERIFY(display == &data || display->focusWidget() == display);
            QKeyEvent other(QEvent::KeyPress, Qt::Key_Q, {}); // closes none
            QApplication::sendEvent(display, &other);
            QVERIFY(!other.isAccepted() && closed.isEmpty());
            display->close();
            QCOMPARE(closed.count(), 1);
        }
    }

    /// What is seen after each step.
    void capacities()
    {
        CapacityDisplay display;
        QSignalSpy wanted(&display, SIGNAL(entriesWanted()));
        auto *timer = display.findChild<QTimer *>();
        auto *previous = display.findChild<QPushButton *>("previous");
        auto *next = display.findChild<QPushButton *>("next");
        const auto add = [&](const char *kinds) { fill(display, kinds); };
        const auto remove = [&](int k) { display.removeEntry(k); };
        const auto change = [&](int k) { display.changeEntry({500, 'D', 2}, k); };
        const auto key = [&](Qt::Key pressed) { QTest::keyClick(&display, pressed); };
        QCOMPARE(timer->interval(), 1000);
        timer->setInterval(std::numeric_limits<int>::max());
        display.show();
        const std::pair<std::function<void()>, QString> steps[] = {{[&] { add("DCCCCCCC"); }, "|DCCCCCCC|"},
            {[&] { display.showNext(); }, "|DCCCCCCC|"},
            {[&] { display.showPrev(); }, "|DCCCCCCC|"}, // as many as are seen
            {[&] { add("CD"); }, "<CCCCCCCD|"}, {[&] { display.showNext(); }, "<CCCCCCCD|"},
            {[&] { previous->click(); }, "<CCCCCCCC>"}, {[&] { key(Qt::Key_Left); }, "|DCCCCCCC>"},
            {[&] { display.showPrev(); }, "|DCCCCCCC>"}, {[&] { next->click(); }, "<CCCCCCCC>"},
            {[&] { key(Qt::Key_Right); }, "<CCCCCCCD|"}, {[&] { display.clear(); }, "|........|"},
            {[&] { add("DCCCCCCCD"); }, "<CCCCCCCD|"}, {[&] { remove(-1); }, "<CCCCCCCD|"},
            {[&] { remove(9); }, "<CCCCCCCD|"}, {[&] { remove(4); }, "|DCCCCCCD|"},
            {[&] { add("C"); }, "<CCCCCCDC|"}, {[&] { display.showPrev(); }, "|DCCCCCCD>"},
            {[&] { remove(0); }, "|CCCCCCDC|"}, // the last was out of view: what is seen is full
            {[&] { change(0); }, "|CCCCCCDC|"}, {[&] { change(1); }, "|DCCCCCDC|"}, // counted from 1
            {[&] { change(8); }, "|DCCCCCDD|"}, {[&] { change(9); }, "|DCCCCCDD|"},
            {[&] { display.clear(); }, "|........|"}, {[&] { add("DDCCCCCCCCCC"); }, "<CCCCCCCC|"},
            {[&] { display.hide(); }, "<CCCCCCCC|"}, {[&] { display.setWindowCount(2); }, "<CCCCCCCC|"},
            {[&] { display.show(); }, "<DCCCCCCC>"}, // the second entry is leftmost
            {[&] { display.setWindowCount(0); }, "<DCCCCCCC>"}, {[&] { display.hide(); }, "<DCCCCCCC>"},
            {[&] { display.show(); }, "|DDCCCCCC>"}, {[&] { add("D"); }, "<DCCCCCCC>"}}; // its end went back
        for (const auto &[step, expected] : steps) {
            step();
            QTRY_COMPARE_WITH_TIMEOUT(columnsOf(display), expected, 30000);
            QCOMPARE(timer->isActive(), display.isVisible());
        }
        QCOMPARE(wanted.size(), 3);
        timer->start(1);
        QTRY_VERIFY_WITH_TIMEOUT(wanted.size() > 3, 30000);
        QCOMPARE(previous->geometry(), QRect(7, 120, 15, 40));
        QCOMPARE(next->geometry(), QRect(447, 120, 15, 40));
        QCOMPARE(next->iconSize(), QSize(12, 12));
        QCOMPARE(previous->toolTip() + next->toolTip(), QString("PreviousNext"));
    }

    void toolTips()
    {
        CapacityDisplay display;
        fill(display, "C");
        display.addEntry({500, 'D', 2, "2: Varnel 3 COM2", QDateTime({2026, 1, 2}, {3, 4, 5})});
        display.show();
        const auto toolTipAt = [&display](int x) {
            const QPoint point(x, 100);
            QHelpEvent event(QEvent::ToolTip, point, display.mapToGlobal(point));
            QCoreApplication::sendEvent(&display, &event);
            return QToolTip::isVisible() ? QToolTip::text() : QString();
        };
        QCOMPARE(toolTipAt(40), QString("1, 1.000 Ah"));
        QCOMPARE(toolTipAt(90), QString("2: Varnel 3 COM2, 0.500 Ah\nNo line since 03:04:05"));
        toolTipAt(400);
        QTRY_VERIFY_WITH_TIMEOUT(!QToolTip::isVisible(), 8000); // 0.3 s; by itself in 10
        QTest::keyClick(&display, Qt::Key_Space);
        QCOMPARE(QToolTip::text(), display.spokenText());
        QCOMPARE(display.spokenText(), "Varnel - capacity comparison\n1: 1, 1.000 Ah\n2: " + toolTipAt(90));
    }

    void power()
    {
        PowerDisplay display;
        display.resize(smallest);
        display.setViewState(&m_state);
        display.show();
        const auto lack = [&display](const char *expected) {
            settle(display);
            return paintFault(display, expected);
        };
        QCOMPARE(lack("text 'NO DATA' mid 235,140 53 Arial #ffffff"), QByteArray());
        QCOMPARE(display.spokenText(), QString("Varnel - bar display, NO DATA"));
        Varnel3Data record = samplePack({4100, 4000});
        record.cells[0].balanceCharge = 80 * 360000;
        display.updateData(record, 3);
        QCOMPARE(lack("rect 39,63 157x35 #00ff00; text '3' mid 9,9 12 Arial #000000"), QByteArray());
        QCOMPARE(display.spokenText(),
            QString("Varnel - bar display, window 3, cell 1: 50 mV, balancing 0 %, "
                    "cell 2: -50 mV, balancing 0 %"));
        setView(CellValue::Charge, false);
        QCOMPARE(lack("rect 39,56 157x112 #007f00; text '[mAh]' left 24,10 11 Times #000000"), QByteArray());
        display.setStaleSince(QDateTime({2026, 1, 2}, {3, 4, 5}));
        QCOMPARE(lack("rect 39,56 157x112 #007f00 dim"), QByteArray());
        QCOMPARE(display.toolTip(), QString("No line since 03:04:05"));
        display.setStaleSince({});
        QCOMPARE(lack("rect 39,56 157x112 #007f00"), QByteArray());
        QCOMPARE(display.toolTip(), QString());
        display.updateData(record, -1);
        QVERIFY(!lack("rect 0,0 18x18 #ffff00").isEmpty()); // no window, no number
        display.setNoData();
        QCOMPARE(lack("text 'NO DATA' mid 235,140 53 Arial #000000"), QByteArray());

        const auto keeps = [&](CellValue value, const Varnel3Data &next, int window, bool useKept) {
            setView(value, true);
            record = sampleResistances({2.0, 3.0});
            display.updateData(record, 1);
            record = next;
            display.updateData(record, window, useKept);
            setView(CellValue::Resistance, true);
            return lack("rect 235,98 157x70 #00ff00").isEmpty(); // 50 % of the other cell
        };
        const Varnel3Data bare = samplePack({4100, 4000});
        QVERIFY(keeps(CellValue::Resistance, bare, 1, true));
        QVERIFY(!keeps(CellValue::Voltage, bare, 1, true));
        QVERIFY(!keeps(CellValue::Resistance, samplePack({}), 1, true)); // nothing to keep them for
        QVERIFY(!keeps(CellValue::Resistance, bare, 2, true)); // another device's never stay
        QVERIFY(!keeps(CellValue::Resistance, bare, 1, false));
    }

    void oneCellOfEveryWindow()
    {
        compare({packOf(1, {4000, 4010, 4020}), packOf(5, {4000, 4010, 4020, 4030})});
        QCOMPARE(m_source.asked, 1); // not before it is shown
        const auto oneCell = [this] { return canvas()->chart().oneCell; };
        const auto afterClick = [&](int pack, int cell, Qt::KeyboardModifiers modifiers = {}) {
            const QPoint point = pack < 0
                ? QPoint(5, 100) // the axis
                : canvas()->chart().barRect(pack, cell, canvas()->size(), 0).center();
            QTest::mouseClick(canvas(), Qt::LeftButton, modifiers, point);
            return oneCell();
        };
        const auto after = [&](Qt::Key key) {
            QTest::keyClick(m_comparison, key);
            return oneCell();
        };
        QTest::mouseClick(canvas(), Qt::RightButton);
        QCOMPARE(afterClick(-1, 0), -1);
        QCOMPARE(afterClick(1, 2), 2);
        QCOMPARE(after(Qt::Key_Space), -1);
        QCOMPARE(after(Qt::Key_Space), 2);
        QCOMPARE(m_comparison->findChild<QLabel *>("hintLabel")->text(),
            QString("Cell 3 of every window (arrow keys: another; click or Esc: all cells)"));
        for (const int right : {3, 3}) // no window has a fifth
            QCOMPARE(after(Qt::Key_Right), right);
        QCOMPARE(m_comparison->spokenText(),
            QString("Varnel - voltage comparison\nwindow 1, Varnel 3, No cell 4\n"
                    "window 5, Varnel 3, cell 4: 4.030 volts"));
        for (const int left : {2, 1, 0, 0})
            QCOMPARE(after(Qt::Key_Left), left);
        QCOMPARE(afterClick(0, 0), -1);
        QCOMPARE(after(Qt::Key_Space), 0);
        QCOMPARE(after(Qt::Key_Escape), -1);
        QCOMPARE(after(Qt::Key_Enter), 0);
        QCOMPARE(afterClick(-1, 0), -1);
        QCOMPARE(afterClick(0, 2, Qt::ControlModifier), -1);
        QCOMPARE(afterClick(-1, 0, Qt::ControlModifier), -1);
        QVERIFY(m_source.list[0].selected[2] && canvas()->chart().packs[0].selected[2]);

        // The shell makes a new window when it numbers the graph windows: the choice stays.
        QCOMPARE(after(Qt::Key_Return), 0);
        QCOMPARE(after(Qt::Key_Right), 1);
        m_comparison->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!m_comparison);
        compare({packOf(1, {4000})});
        QCOMPARE(oneCell(), 1);
        QCOMPARE(after(Qt::Key_Right), 0); // none has another
        m_comparison->showAllCells(); // as the page of a window that is closed
        settle(*m_comparison);
        QCOMPARE(oneCell(), -1);
        QTest::keyClick(m_comparison, Qt::Key_Escape);
    }

    void selectionButton()
    {
        compare({packOf(1, {4000, 4010, 4020}, {1})});
        auto *button = m_comparison->findChild<QPushButton *>("selectionButton");
        const auto *hint = m_comparison->findChild<QLabel *>("hintLabel");
        for (const char *seen : {"S All cells, the selected emphasised 3", "+ Only the selected cells 1",
                 "- All cells but the selected 2"}) {
            const int cells = canvas()->chart().shownCells(m_source.list[0]).size();
            QCOMPARE(QString("%1 %2 %3").arg(button->text(), hint->text()).arg(cells), QString(seen));
            QCOMPARE(button->toolTip(), hint->text());
            cells == 3 ? QTest::keyClick(m_comparison, Qt::Key_Asterisk) : button->click();
        }
        QCOMPARE(canvas()->minimumHeight(), 190);
        QCOMPARE(hint->font().pixelSize(), 11);
        QVERIFY(button->pos() == QPoint(3, 3) && canvas()->y() == button->height() + 6);
        setView(CellValue::Voltage, false);
        settle(*m_comparison);
        QVERIFY(!canvas()->chart().blackGround && canvas()->chart().distinct);
        QCOMPARE(hint->palette().color(QPalette::WindowText), QColor(Qt::black));
    }

    void scrolling()
    {
        compare(sixteens(12), {4000, 360});
        auto *bar = m_comparison->findChild<QScrollBar *>();
        QVERIFY(QTest::qWaitForWindowExposed(m_comparison));
        QVERIFY(!bar->isVisible());
        m_comparison->resize(640, 360);
        QTRY_VERIFY_WITH_TIMEOUT(bar->isVisible() && bar->height() > 0, 30000);
        const auto after = [&](Qt::Key key) {
            QTest::keyClick(m_comparison, key);
            return bar->value();
        };
        const auto afterTurn = [&](const QPoint &angle) {
            const QPoint place(9, 99);
            QWheelEvent event(
                place, m_comparison->mapToGlobal(place), {}, angle, {}, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(m_comparison, &event);
            return bar->value();
        };
        QCOMPARE(bar->maximum(), 52 + 12 * 264 - 640);
        QCOMPARE(after(Qt::Key_Right), 40);
        QCOMPARE(after(Qt::Key_PageDown), 628); // all but the axis: no cell is passed over
        QCOMPARE(after(Qt::Key_Left), 588);
        QCOMPARE(afterTurn({0, -120}), 628);
        QCOMPARE(afterTurn({240, 0}), 548);
        VERIFY_PAINTS(*canvas(), "rect 36,3 18x18 #ffff00; text '3' mid 45,12 12 Arial #000000");
        QCOMPARE(canvas()->grab().toImage().pixelColor(40, 5), QColor(Qt::black)); // but not over the axis
        QCOMPARE(after(Qt::Key_PageUp), 0);
        QCOMPARE(after(Qt::Key_End), bar->maximum());
        QCOMPARE(after(Qt::Key_Home), 0);
        bar->setValue(canvas()->chart().groupStart(6, 640) - 9); // stays in view however wide the groups are
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Right, Qt::Key_Escape}) {
            const int value = after(key);
            QCOMPARE(value, canvas()->chart().groupStart(6, 640) - 9);
        }
    }

private:
    void setView(CellValue cellValue, bool black)
    {
        ViewSwitches switches;
        switches.cellValue = cellValue;
        switches.blackBackground = black;
        switches.distinctLines = !black;
        m_state.setSwitches(switches);
    }

    /// Shows the comparison of these windows.
    void compare(const QVector<PackVoltages> &packs, const QSize &size = smallest)
    {
        m_source = {};
        m_source.list = packs;
        m_comparison = new VoltageComparison;
        m_comparison->setViewState(&m_state);
        m_comparison->setSource(&m_source);
        m_comparison->resize(size);
        m_comparison->show();
    }
    VoltageCanvas *canvas() const { return m_comparison->findChild<VoltageCanvas *>(); }

    ViewState m_state;
    Packs m_source;
    QPointer<VoltageComparison> m_comparison; // which deletes itself when it is closed
};

QTEST_MAIN(TestDisplays)
#include "tst_displays.moc"
