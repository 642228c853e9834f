#include "displays/capacitydisplay.h"
#include "displays/powerdisplay.h"
#include "displays/samplepack.h"
#include "displays/voltagecanvas.h"
#include "displays/voltagecomparison.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/paintlog.h"
#include "support/settle.h"
#include "support/warningcollector.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <memory>

namespace {

constexpr QSize smallest{470, 280};
const QDateTime silence({2026, 1, 2}, {3, 4, 5});

class Packs : public VoltageSource {
public:
    QVector<PackVoltages> list;
    mutable int asked = 0;

    QVector<PackVoltages> packs() const override
    {
        ++asked;
        return list;
    }
    void toggleCell(int windowNumber, int cell) override
    {
        for (PackVoltages &pack : list)
            if (pack.windowNumber == windowNumber)
                pack.selected[cell] = !pack.selected[cell];
    }
};

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
    const QImage image = display.grab().toImage();
    for (int x = 64; x < 470; x += 52) {
        const QRgb pixel = image.pixel(x, 221);
        kinds += pixel == qRgb(0, 127, 0) ? 'C' : pixel == qRgb(127, 0, 0) ? 'D' : '.';
    }
    return kinds + (display.findChild<QPushButton *>("next")->isEnabled() ? ">" : "|");
}

/// What the bar display lacks of what is expected.
QByteArray lack(PowerDisplay &display, const char *expected)
{
    settle(display);
    return paintFault(display, expected);
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

    void init()
    {
        m_warnings = std::make_unique<WarningCollector>();
        m_state = std::make_unique<ViewState>();
    }

    void cleanup()
    {
        QCOMPARE(m_warnings->warnings(), QStringList());
        m_warnings.reset();
    }

    void windows()
    {
        const QString grounds = " 470x280 465x364 black white black 0 1";
        QCOMPARE(toldOf<CapacityDisplay>(), "Varnel - capacity comparison" + grounds);
        QCOMPARE(toldOf<PowerDisplay>(), "Varnel - bar display" + grounds);
        const QString voltages = toldOf<VoltageComparison>(); // the sizes are its layout's
        QVERIFY2(voltages.startsWith("Varnel - voltage comparison 300x"), qPrintable(voltages));
        QVERIFY2(voltages.endsWith(" black white black 0 1"), qPrintable(voltages));
    }

    void capacityPaging()
    {
        CapacityDisplay display;
        fill(display, "DCCCCCCC");
        const auto after = [&display](Qt::Key key, const char *button) {
            if (button)
                display.findChild<QPushButton *>(button)->click();
            else
                QTest::keyClick(&display, key);
            return columnsOf(display);
        };
        display.showNext();
        display.showPrev();
        QCOMPARE(columnsOf(display), QString("|DCCCCCCC|"));
        display.addEntry({1000, 'C', 9}); // scrolls into view
        display.addEntry({1000, 'D', 10});
        display.showNext();
        QCOMPARE(columnsOf(display), QString("<CCCCCCCD|"));
        QCOMPARE(after({}, "previous"), QString("<CCCCCCCC>"));
        QCOMPARE(after(Qt::Key_Left, nullptr), QString("|DCCCCCCC>"));
        display.showPrev();
        QCOMPARE(after({}, "next"), QString("<CCCCCCCC>"));
        QCOMPARE(after(Qt::Key_Right, nullptr), QString("<CCCCCCCD|"));
        display.clear();
        QCOMPARE(columnsOf(display), QString("|........|"));
        display.addEntry({1000, 'D', 1});
        QCOMPARE(columnsOf(display), QString("|D.......|"));
        const auto *previous = display.findChild<QPushButton *>("previous");
        const auto *next = display.findChild<QPushButton *>("next");
        display.show();
        QCOMPARE(previous->geometry(), QRect(7, 120, 15, 40));
        QCOMPARE(next->geometry(), QRect(447, 120, 15, 40));
        QCOMPARE(next->iconSize(), QSize(12, 12));
        QCOMPARE(previous->toolTip() + next->toolTip(), QString("PreviousNext"));
    }

    void capacityEntries()
    {
        CapacityDisplay display;
        fill(display, "DCCCCCCCD");
        const auto without = [&display](int k) {
            display.removeEntry(k);
            return columnsOf(display);
        };
        QCOMPARE(without(-1), QString("<CCCCCCCD|"));
        QCOMPARE(without(9), QString("<CCCCCCCD|"));
        QCOMPARE(without(4), QString("|DCCCCCCD|"));
        display.addEntry({1000, 'C', 10}); // comes into view still
        QCOMPARE(columnsOf(display), QString("<CCCCCCDC|"));
        display.showPrev();
        QCOMPARE(without(0), QString("|CCCCCCDC|")); // of nine, the last out of view: what is seen is full
        for (const int k : {0, 9}) // counted from 1
            display.changeEntry({500, 'D', 2}, k);
        QCOMPARE(columnsOf(display), QString("|CCCCCCDC|"));
        for (const int k : {1, 8})
            display.changeEntry({500, 'D', 2}, k);
        QCOMPARE(columnsOf(display), QString("|DCCCCCDD|"));
        for (int left = 8; left > 1; --left)
            display.removeEntry(left - 1);
        QCOMPARE(without(0), QString("|........|"));
        display.addEntry({1000, 'D', 1});
        QCOMPARE(columnsOf(display), QString("|D.......|"));
    }

    void openingPullsTheViewBack()
    {
        CapacityDisplay display;
        fill(display, "DDCCCCCCCCCC");
        display.setWindowCount(2);
        QCOMPARE(columnsOf(display), QString("<CCCCCCCC|"));
        display.show();
        QCOMPARE(columnsOf(display), QString("<DCCCCCCC>")); // the second entry is leftmost
        display.setWindowCount(0);
        display.hide();
        display.show();
        QCOMPARE(columnsOf(display), QString("|DDCCCCCC>"));
        display.addEntry({1000, 'D', 13});
        QCOMPARE(columnsOf(display), QString("<DCCCCCCC>")); // its end went back, too
    }

    void toolTips()
    {
        CapacityDisplay display;
        fill(display, "C");
        display.addEntry({500, 'D', 2, "2: Varnel 3 COM2", silence});
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
    }

    void wantsEntriesWhileShown()
    {
        CapacityDisplay display;
        QSignalSpy wanted(&display, SIGNAL(entriesWanted()));
        auto *timer = display.findChild<QTimer *>();
        QCOMPARE(timer->interval(), 1000);
        QVERIFY(!timer->isActive());
        display.show();
        QCOMPARE(wanted.count(), 1);
        timer->setInterval(1);
        QTRY_VERIFY_WITH_TIMEOUT(wanted.count() > 2, 30000);
        display.close();
        QVERIFY(!timer->isActive());
    }

    void powerFollows()
    {
        PowerDisplay display;
        display.resize(smallest);
        display.setViewState(m_state.get());
        display.show();
        QCOMPARE(lack(display, "text 'NO DATA' mid 235,140 53 Arial #ffffff"), QByteArray());
        Varnel3Data record = samplePack({4100, 4000});
        record.cells[0].balanceCharge = 80 * 360000;
        display.updateData(record, 3);
        QCOMPARE(lack(display, "rect 39,63 157x35 #00ff00; text '3' mid 9,9 12 Arial #000000"), QByteArray());
        setView(CellValue::Charge, false);
        QCOMPARE(lack(display, "rect 39,56 157x112 #00ff00; text '[mAh]' left 24,10 11 Times #000000"),
            QByteArray());
        display.setStaleSince(silence);
        QCOMPARE(lack(display, "rect 39,56 157x112 #00ff00 dim"), QByteArray());
        QCOMPARE(display.toolTip(), QString("No line since 03:04:05"));
        display.setStaleSince({});
        QCOMPARE(lack(display, "rect 39,56 157x112 #00ff00"), QByteArray());
        QCOMPARE(display.toolTip(), QString());
        display.updateData(record, -1);
        QVERIFY(!lack(display, "rect 0,0 18x18 #ffff00").isEmpty()); // no window, no number
        display.setNoData();
        QCOMPARE(lack(display, "text 'NO DATA' mid 235,140 53 Arial #000000"), QByteArray());
    }

    void powerKeepsResistances()
    {
        const char *const half = "rect 235,98 157x70 #00ff00"; // 50 % of the other cell
        PowerDisplay display;
        display.setViewState(m_state.get());
        display.resize(smallest);
        display.show();
        const auto keeps = [&](CellValue value, const Varnel3Data &next, int window, bool useKept) {
            setView(value, true);
            Varnel3Data record = sampleResistances({2.0, 3.0});
            display.updateData(record, 1);
            record = next;
            display.updateData(record, window, useKept);
            setView(CellValue::Resistance, true);
            return lack(display, half).isEmpty();
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
        Packs source;
        source.list = {packOf(1, {4000, 4010, 4020}), packOf(5, {4000, 4010, 4020, 4030})};
        QPointer<VoltageComparison> window = new VoltageComparison;
        window->setSource(&source);
        window->show();
        auto *canvas = window->findChild<VoltageCanvas *>();
        const auto oneCell = [canvas] { return canvas->chart().oneCell; };
        const auto afterClick = [&](int pack, int cell, Qt::KeyboardModifiers modifiers = {}) {
            const QPoint point = pack < 0 ? QPoint(5, 100) // the axis
                                          : canvas->chart().barRect(pack, cell, canvas->size(), 0).center();
            QTest::mouseClick(canvas, Qt::LeftButton, modifiers, point);
            return oneCell();
        };
        const auto after = [&](Qt::Key key) {
            QTest::keyClick(window, key);
            return oneCell();
        };
        QTest::mouseClick(canvas, Qt::RightButton);
        QCOMPARE(afterClick(-1, 0), -1);
        QCOMPARE(afterClick(1, 2), 2);
        QCOMPARE(window->findChild<QLabel *>("hintLabel")->text(),
            QString("Cell 3 of every window (arrow keys: another; click or Esc: all cells)"));
        QCOMPARE(after(Qt::Key_Right), 3);
        QCOMPARE(after(Qt::Key_Right), 3); // no window has a fifth
        QCOMPARE(after(Qt::Key_Left), 2);
        QCOMPARE(afterClick(0, 2), -1);
        QCOMPARE(after(Qt::Key_Space), 2);
        QCOMPARE(after(Qt::Key_Escape), -1);
        QCOMPARE(after(Qt::Key_Enter), 2);
        QCOMPARE(afterClick(-1, 0), -1);
        QCOMPARE(afterClick(1, 3, Qt::ControlModifier), -1);
        QCOMPARE(afterClick(-1, 0, Qt::ControlModifier), -1);
        QVERIFY(source.list[1].selected[3] && canvas->chart().packs[1].selected[3]);

        // The shell makes a new window when it numbers the graph windows: the choice stays.
        QCOMPARE(after(Qt::Key_Return), 2);
        window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!window);
        VoltageComparison next;
        next.setSource(&source);
        next.show();
        QCOMPARE(next.findChild<VoltageCanvas *>()->chart().oneCell, 2);
        next.showAllCells(); // as the page of a window that is closed
        settle(next);
        QCOMPARE(next.findChild<VoltageCanvas *>()->chart().oneCell, -1);
        QTest::keyClick(&next, Qt::Key_Escape);
    }

    void selectionButton()
    {
        Packs source;
        source.list = {packOf(1, {4000, 4010, 4020}, {1})};
        VoltageComparison window;
        window.setViewState(m_state.get());
        window.setSource(&source);
        window.show();
        auto *button = window.findChild<QPushButton *>("selectionButton");
        const auto *canvas = window.findChild<VoltageCanvas *>();
        const auto *hint = window.findChild<QLabel *>("hintLabel");
        for (const char *seen : {"S All cells, the selected emphasised 3", "+ Only the selected cells 1",
                 "- All cells but the selected 2", "S All cells, the selected emphasised 3"}) {
            QCOMPARE(QString("%1 %2 %3")
                         .arg(button->text(), hint->text())
                         .arg(canvas->chart().shownCells(source.list[0]).size()),
                QString(seen));
            QCOMPARE(button->toolTip(), hint->text());
            button->click();
        }
        button->click();
        button->click(); // back to where the other tests start
        QCOMPARE(canvas->minimumHeight(), 190);
        QCOMPARE(hint->font().pixelSize(), 11);
        QCOMPARE(button->pos(), QPoint(3, 3));
        QCOMPARE(hint->x(), button->geometry().right() + 1 + 6);
        for (const bool black : {true, false}) {
            setView(CellValue::Voltage, black);
            settle(window);
            QCOMPARE(canvas->chart().blackGround, black);
            QCOMPARE(hint->palette().color(QPalette::WindowText), QColor(black ? Qt::white : Qt::black));
        }
    }

    void hiddenAsksNothing()
    {
        Packs source;
        VoltageComparison window;
        window.setSource(&source);
        window.updateVoltage();
        QCOMPARE(source.asked, 0);
        source.list = {packOf(1, {4000})};
        window.show();
        QCOMPARE(source.asked, 1);
        QCOMPARE(window.findChild<VoltageCanvas *>()->chart().packs.size(), 1);
        for (int i = 0; i < 50; ++i)
            window.updateVoltage();
        settle(window);
        QCOMPARE(source.asked, 2);
    }

    void keysAndWheelScroll()
    {
        Packs source;
        source.list = sixteens(12);
        VoltageComparison window;
        window.setSource(&source);
        window.resize(640, 360);
        window.show();
        const auto *bar = window.findChild<QScrollBar *>();
        QTRY_VERIFY_WITH_TIMEOUT(bar->isVisible() && window.width() == 640, 30000);
        const auto after = [&](Qt::Key key) {
            QTest::keyClick(&window, key);
            return bar->value();
        };
        const auto afterTurn = [&](const QPoint &angle) {
            QWheelEvent event(
                {9, 99}, window.mapToGlobal(QPoint(9, 99)), {}, angle, {}, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&window, &event);
            return bar->value();
        };
        QCOMPARE(bar->maximum(), 52 + 12 * 264 - 640);
        QCOMPARE(after(Qt::Key_Right), 40);
        QCOMPARE(after(Qt::Key_PageDown), 628); // all but the axis: no cell is passed over
        QCOMPARE(after(Qt::Key_Left), 588);
        QCOMPARE(afterTurn({0, -120}), 628);
        QCOMPARE(afterTurn({240, 0}), 548);
        VERIFY_PAINTS(*window.findChild<VoltageCanvas *>(),
            "rect 36,3 18x18 #ffff00; text '3' mid 45,12 12 Arial #000000");
        QCOMPARE(after(Qt::Key_PageUp), 0);
        QCOMPARE(after(Qt::Key_End), bar->maximum());
        QCOMPARE(after(Qt::Key_Home), 0);
    }

    /// What is looked at stays in view when the groups become narrow and wide again.
    void choosingKeepsThePlace()
    {
        Packs source;
        source.list = sixteens(12);
        VoltageComparison window;
        window.setSource(&source);
        window.resize(4000, 360);
        window.show();
        auto *bar = window.findChild<QScrollBar *>();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(!bar->isVisible());
        window.resize(400, 360);
        QTRY_VERIFY_WITH_TIMEOUT(bar->isVisible() && bar->height() > 0, 30000);
        const auto *canvas = window.findChild<VoltageCanvas *>();
        bar->setValue(canvas->chart().groupStart(6, canvas->width()) - 9);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Right, Qt::Key_Escape}) {
            QTest::keyClick(&window, key);
            QCOMPARE(bar->value(), canvas->chart().groupStart(6, canvas->width()) - 9);
        }
    }

private:
    void setView(CellValue cellValue, bool black)
    {
        ViewSwitches switches;
        switches.cellValue = cellValue;
        switches.blackBackground = black;
        m_state->setSwitches(switches);
    }

    /// What every display has: title, smallest and first size, grounds, and how often it has told that it was
    /// closed when it is hidden and when it is closed.
    template <typename Display>
    QString toldOf()
    {
        Display display;
        display.setAttribute(Qt::WA_DeleteOnClose, false);
        display.setViewState(m_state.get());
        display.resize(smallest);
        display.show();
        QStringList told{display.windowTitle()};
        for (const QSize &size : {display.minimumSize(), display.sizeHint()})
            told << QString("%1x%2").arg(size.width()).arg(size.height());
        for (const bool black : {true, false, true}) {
            setView(CellValue::Voltage, black);
            const auto shows = [&] {
                return display.grab().toImage().pixelColor(1, 270) == QColor(black ? Qt::black : Qt::white);
            };
            told << (QTest::qWaitFor(shows, 30000) ? black ? "black" : "white" : "wrong");
        }
        QSignalSpy closed(&display, SIGNAL(closed()));
        display.hide();
        told << QString::number(closed.count());
        display.show();
        display.close();
        const bool onTop = display.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        return (told << QString::number(closed.count())).join(' ')
            + (onTop && !display.windowIcon().isNull() ? "" : "!");
    }

    std::unique_ptr<WarningCollector> m_warnings;
    std::unique_ptr<ViewState> m_state;
};

QTEST_MAIN(TestDisplays)
#include "tst_displays.moc"
