#include "desk/datatoolbar.h"
#include "desk/deskarea.h"
#include "desk/graphwindows.h"
#include "desk/packsource.h"
#include "desk/stalewatch.h"
#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/voltagecomparison.h"
#include "graph/mdigraphchild.h"
#include "support/fakelink.h"
#include "support/lines.h"
#include "support/settle.h"
#include "support/shellrig.h"

#include <QDeadlineTimer>
#include <QLabel>
#include <QMdiSubWindow>
#include <QProxyStyle>
#include <QWindow>

namespace {

/// For the window manager.
bool isOnTop(const QWidget *window)
{
    return window->windowHandle() && window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
}

} // namespace

/// What the tool bar, the displays and the status bar tell of the graph windows, and of which one; what
/// stands above the displays, which stand above all else.
class TestDeskFigures : public ShellRig {
    Q_OBJECT

private slots:
    void init() override
    {
        ShellRig::init();
        open({});
    }

    /// Two thirds of the bar at most, each fact the same share where not all of them fit; tips have it all.
    void factsFitTheStatusBar()
    {
        QStatusBar bar;
        bar.resize(1000, 24);
        bar.show();
        StatusFacts facts(&bar);
        const auto label
            = [&](int kind) { return bar.findChild<QLabel *>(QString("statusFact%1").arg(kind)); };
        const auto shown = [&] { // those in sight, from left to right
            QStringList texts;
            for (int kind = 0; kind < StatusFacts::KindCount; ++kind)
                if (!label(kind)->isHidden())
                    texts << label(kind)->text();
            return texts.join('|');
        };
        QCOMPARE(shown(), QString("Listening: no port"));
        QCOMPARE(label(0)->contentsMargins(), QMargins(8, 0, 0, 0));
        QVERIFY(label(0)->minimumWidth() == 1 && label(0)->textFormat() == Qt::PlainText);
        facts.set(StatusFacts::Lost, "COM2", "since <noon>");
        facts.set(StatusFacts::Lost, "COM1");
        QCOMPARE(shown(), QString("Lost: COM1, COM2|Listening: no port"));
        for (const char *told : {"Lost: COM1, COM2", "Listening goes on when it is back.", "noon"})
            QVERIFY2(label(StatusFacts::Lost)->toolTip().contains(told), told);
        QVERIFY(facts.holds(StatusFacts::Lost, "COM1"));
        QString port;
        while (bar.fontMetrics().horizontalAdvance(port) < 600)
            port += '1';
        facts.set(StatusFacts::Failed, port);
        for (const int width : {1000, 2000, 400, 1000}) { // of which 650, 1300, 260, 650 for three facts
            bar.resize(width, 24);
            const int share = qMax(100, width * 65 / 100 / 3);
            const QLabel *failed = label(StatusFacts::Failed);
            const auto isWhole = [&] { return failed->text() == facts.text(StatusFacts::Failed); };
            QTRY_COMPARE(isWhole(), width == 2000);
            const int taken = failed->fontMetrics().horizontalAdvance(failed->text());
            QVERIFY(isWhole() || (taken <= share && taken > share * 3 / 4));
        }
        facts.clear(StatusFacts::Failed, port);
        facts.replace(StatusFacts::Lost, {{"COM3", ""}});
        QCOMPARE(shown(), QString("Lost: COM3|Listening: no port"));
    }

    /// With the decimal sign of the locale.
    void toolBarFigures()
    {
        using V = Varnel3Data;
        const struct {
            int mode, cells, voltage, current, temperature, energy, time;
            const char *shown;
        } rows[] = {
            {V::Test, 3, 0, 0, 0, 0, 0, "Test  3xLiPo| 0,00 V| 0,00 A|--,- \u00b0C|0,000 Ah|00:00:00"},
            {V::Charge, 6, 25200, 2000, 251, 150, 3723,
                "Charge  6xLiPo|25,20 V| 2,00 A|25,1 \u00b0C|0,150 Ah|01:02:03"},
            {V::Charge, 14, 5, -1500, -35, 99999, 0,
                "Charge 14xLiPo| 0,01 V|-1,50 A|-3,5 \u00b0C|99,999 Ah|00:00:00"},
            {V::Charge, 0, 4200, 2000, 251, 150, 3723, "|||||"}, // no cells
            {V::Charge, 1, 4200, 0, 0, 100000, 360000,
                "Charge  1xLiPo| 4,20 V| 0,00 A|--,- \u00b0C|100,00 Ah|100:00:00"},
            {V::NoMode, 6, 4200, 2000, 251, 150, 3723, "|||||"}, // no process
        };
        QLocale::setDefault(QLocale("de_DE"));
        DataToolBar bar(nullptr);
        QVERIFY(!bar.isMovable() && !bar.isFloatable());
        const auto labels = bar.findChildren<QLabel *>();
        for (const QLabel *label : labels)
            QVERIFY(label->frameStyle() == QFrame::Box && label->alignment() == Qt::AlignCenter);
        for (const auto &row : rows) {
            V record;
            record.mode = row.mode;
            record.cellType = 5;
            record.cellCount = row.cells;
            record.voltage = row.voltage;
            record.current = row.current;
            record.temperature = row.temperature;
            record.energy = row.energy;
            record.setTime(row.time);
            bar.showRecord(record);
            QStringList texts;
            for (const char *name :
                {"modeLabel", "voltageLabel", "currentLabel", "temperatureLabel", "energyLabel", "timeLabel"})
                texts << bar.findChild<QLabel *>(name)->text();
            QCOMPARE(texts.join('|'), QString::fromUtf8(row.shown));
            for (const QLabel *label : labels) // for those who can't see it
                QCOMPARE(
                    label->accessibleName(), (label->toolTip() + ' ' + label->text().simplified()).trimmed());
        }
    }

    void packsOfAllWindows()
    {
        PackSource source(part<GraphWindows>(), part<StaleWatch>());
        MdiGraphChild *first = window->createMdiChild();
        window->createMdiChild()->addRecord(Lines::record(5));
        QCOMPARE(message(), QString("Device: Varnel 3"));
        first->setPortName("COM7");
        const auto packs = source.packs();
        QVERIFY(!first->sourceName().isEmpty() && packs[0].source == first->sourceName());
        QCOMPARE(packs.size(), 2);
        QCOMPARE(packs[0].windowNumber * 10 + packs[1].windowNumber, 12);
        QCOMPARE(packs[1].voltages[5], 4200);
        for (const int cell : {-1, 0, 3, 15, 16, 3})
            source.toggleCell(2, cell);
        CellSelection both{};
        both[0] = both[15] = true;
        QVERIFY(source.packs().at(1).selected == both && first->selectedCells() == CellSelection{});
    }

    /// Closing a window renumbers the others; the figures of the current one follow, even if no further
    /// record comes. Without a window there is no number.
    void displaysNameTheWindow()
    {
        MdiGraphChild *first = window->createMdiChild();
        MdiGraphChild *second = window->createMdiChild();
        MdiGraphChild *third = window->createMdiChild();
        third->addRecord(Lines::record(5));
        trigger(ActionId::Data);
        const auto *number = part<DataDisplay>()->findChild<QLabel *>("windowNumberLabel");
        QTRY_COMPARE(number->text(), QString("3"));
        QCOMPARE(part<PowerDisplay>()->windowNumber(), 3);
        first->close();
        QTRY_COMPARE(number->text(), QString("2"));
        second->close();
        QTRY_COMPARE(number->text(), QString("1"));
        third->close();
        QCOMPARE(window->activeWindowNumber(), 0);
        QMetaObject::invokeMethod(window.get(), "toolBarEnergy", Q_ARG(bool, true));
        QTRY_VERIFY(!number->isVisible());
    }

    /// Above what is open, but for dialogs; dressed, and painted as soon as a switch is thrown.
    void newWindowComesForward()
    {
        QWidget other;
        other.show();
        other.activateWindow();
        QTRY_VERIFY(other.isActiveWindow());
        MdiGraphChild *child = window->createMdiChild();
        const auto *frame = qobject_cast<QMdiSubWindow *>(child->parentWidget());
        QTRY_VERIFY(window->isActiveWindow());
        QVERIFY(part<DeskArea>()->activeSubWindow() == frame && child->isVisible());
        QVERIFY(qobject_cast<const QProxyStyle *>(frame->style()));
        QMessageBox question(window.get());
        question.setModal(true);
        question.show();
        other.activateWindow();
        window->createMdiChild();
        QCoreApplication::processEvents();
        QVERIFY(!window->isActiveWindow());
        question.hide();
        auto *graphs = part<GraphWindows>();
        auto *ended = new MdiGraphChild(graphs, window.get()); // as a file told
        ended->setToolTip("Completed");
        ended->setWindowIcon(QPixmap(16, 16));
        graphs->place(ended);
        QCOMPARE(ended->parentWidget()->toolTip(), QString("Completed"));
        QCOMPARE(ended->parentWidget()->windowIcon().cacheKey(), ended->windowIcon().cacheKey());
        ended->installEventFilter(this);
        paints = 0;
        trigger(ActionId::White);
        QVERIFY(paints > 0);
    }

    /// Of a window that comes to the front and whose newest record lacks resistances, nothing is known.
    void keptResistancesStayWithTheirWindow()
    {
        for (const ActionId id : {ActionId::Data, ActionId::Balancer, ActionId::Energy, ActionId::Energy})
            trigger(id);
        const auto *value = part<DataDisplay>()->findChild<QLabel *>("cellValue1");
        const auto measure = [](MdiGraphChild *child, const QByteArray &tenths) {
            for (int i = 0; i < 2; ++i)
                child->addRecord(Lines::record(i));
            child->applyResistanceLine('!' + tenths + (',' + tenths).repeated(15));
        };
        MdiGraphChild *hidden = window->createMdiChild();
        MdiGraphChild *seen = window->createMdiChild();
        measure(hidden, "50");
        hidden->addRecord(Lines::record(2)); // without any
        measure(seen, "20");
        settle(*part<DataDisplay>());
        QCOMPARE(value->text().trimmed().replace(',', '.'), QString("2.0"));
        part<DeskArea>()->setActiveSubWindow(qobject_cast<QMdiSubWindow *>(hidden->parentWidget()));
        settle(*part<DataDisplay>());
        QCOMPARE(value->text().replace(',', '.'), QString("--.-"));
    }

    void staleFiguresSaySince()
    {
        trigger(ActionId::Data);
        MdiGraphChild *child = window->createMdiChild();
        child->attachReader(&link);
        child->addRecord(Lines::record(5));
        for (const ActionId id : {ActionId::BarGraph, ActionId::Balancer, ActionId::Power})
            trigger(id);
        auto *watch = part<StaleWatch>();
        QVERIFY(watch->findChild<QTimer *>()->isActive());
        QCOMPARE(watch->findChild<QTimer *>()->interval(), 1000);
        watch->findChild<QTimer *>()->stop(); // which knows the time
        const QDateTime now = QDateTime::currentDateTime();
        const QString since = now.toString("HH:mm:ss");
        const qint64 begin = QDeadlineTimer::current().deadline();
        // The clock is set back meanwhile.
        const auto lookAfter = [&](int ms) { watch->lookAt(now.addSecs(-3600), begin + ms); };
        const auto told = [&] { // by figures, bars, graph, status bar and, being dim, tool bar
            settle(*part<DataDisplay>());
            settle(*part<PowerDisplay>());
            return QString("%1%2%3%4%5")
                .arg(part<DataDisplay>()->toolTip().contains(since))
                .arg(part<PowerDisplay>()->toolTip().contains(since))
                .arg(child->request({400, 300}).note.contains(since))
                .arg(fact(StatusFacts::Silent).startsWith("No data: "))
                .arg(!part<DataToolBar>()->findChild<QLabel *>()->isEnabled());
        };
        const auto capacities = [this] { return part<CapacityDisplay>()->grab().toImage(); };
        watch->lookAt(now, begin);
        lookAfter(StaleWatch::patience * 1000 - 1);
        QCOMPARE(told(), QString("00000"));
        QVERIFY(!watch->staleSince(child).isValid());
        const QImage before = capacities();
        lookAfter(StaleWatch::patience * 1000);
        QCOMPARE(told(), QString("11111"));
        QCOMPARE(watch->staleSince(child), now);
        QCOMPARE(PackSource(part<GraphWindows>(), watch).packs().at(0).staleSince, now);
        QVERIFY(capacities() != before);
        child->addRecord(Lines::record(6));
        QCOMPARE(told(), QString("00000"));

        lookAfter(0);
        child->finishRecording(); // nothing is waited for any more
        lookAfter(10 * StaleWatch::patience * 1000);
        QVERIFY(!watch->staleSince(child).isValid());
    }

    /// Whatever opens, modal or not, comes up last and stays on top while a display is in sight; without one
    /// it is left as it is.
    void questionsStandAboveDisplays()
    {
        window->createMdiChild();
        auto *figures = part<DataDisplay>();
        const auto standsAbove = [&](bool modal) {
            QMessageBox question(window.get());
            question.setModal(modal);
            question.move(figures->pos());
            question.show();
            return lastRaised() == &question && isOnTop(&question) && isOnTop(figures) != modal;
        };
        for (const bool modal : {true, false}) {
            QMessageBox alone(window.get());
            alone.setModal(modal);
            alone.show();
            QCoreApplication::sendPostedEvents();
            QVERIFY(!isOnTop(&alone));
            alone.hide();
            QVERIFY(!standsAbove(modal));
            trigger(ActionId::Data);
            figures->activateWindow();
            QVERIFY(standsAbove(modal));
            QCoreApplication::sendPostedEvents();
            QVERIFY(isOnTop(figures)); // again
            trigger(ActionId::Data);
        }
    }

    /// A recording that starts makes the voltage comparison anew: below what is open, the keyboard left where
    /// it is.
    void displaysComeUpBelowQuestions()
    {
        window->createMdiChild();
        trigger(ActionId::Graph);
        part<VoltageComparison>()->hide(); // as for the open dialog
        QMessageBox question(window.get());
        QMessageBox notice(window.get());
        question.move(part<VoltageComparison>()->pos());
        question.open();
        notice.setModal(false);
        notice.show();
        window->createMdiChild();
        QCOMPARE(lastRaised(), static_cast<QWidget *>(&question)); // the one that takes input
        QVERIFY(isOnTop(&question));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto *comparison = part<VoltageComparison>();
        QVERIFY(!isOnTop(comparison) && comparison->testAttribute(Qt::WA_ShowWithoutActivating));
    }

protected:
    /// Counts paintings, and hears which window comes up above all others.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        auto *widget = qobject_cast<QWidget *>(watched);
        const bool comesUp = event->type() == QEvent::Show || event->type() == QEvent::ZOrderChange;
        if (comesUp && widget && widget->isWindow() && isOnTop(widget))
            last = widget;
        return false;
    }

private:
    /// By what has been asked for and is not done yet.
    QWidget *lastRaised()
    {
        last = nullptr;
        qApp->installEventFilter(this);
        QCoreApplication::sendPostedEvents();
        qApp->removeEventFilter(this);
        return last;
    }
    int paints = 0;
    QWidget *last = nullptr;
    FakeLink link;
};

QTEST_MAIN(TestDeskFigures)
#include "tst_deskfigures.moc"
