#include "data/voltageslope.h"
#include "graph/graphhost.h"
#include "graph/mdigraphchild.h"
#include "settings/viewstate.h"
#include "support/fakelink.h"
#include "support/graphcase.h"
#include "support/limits.h"
#include "support/paintlog.h"
#include "widgets/refreshgate.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QToolTip>
#include <QtTest>

namespace {

/// A shell that takes down all that a graph window asks of it.
class Shell : public QObject, public GraphHost {
    Q_OBJECT

public:
    ViewState *viewState() const override { return state; }
    bool isCurrent(const MdiGraphChild *) const override { return current; }
    void showRecord(const Varnel3Data &record, int number, bool keptRi) override
    {
        asked << QString("show %1 s, %2 mAh, of %3").arg(record.time).arg(record.balancedMah).arg(number)
                + (keptRi ? ", kept Ri" : "");
        slope = record.voltageSlope;
    }
    void showMessageStatusBar(const QString &text, int ms) override
    {
        asked << QString("%1 for %2").arg(text).arg(ms);
    }
    QObject *updateReceiver() override { return this; }
    bool mayClose(MdiGraphChild *) override { return mayCloseAny; }
    void graphClosing(MdiGraphChild *) override { asked << "closing"; }
    bool eventFilter(QObject *, QEvent *event) override // of a graph window
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    QStringList taken() { return std::exchange(asked, {}); }

    ViewState *state = new ViewState(this);
    bool current = false;
    bool mayCloseAny = true;
    QStringList asked;
    int paints = 0;
    int slope = 0; // of the record that was shown last

public slots:
    void updateCapacity(int now, char mode, int atMark, int number)
    {
        asked << QString("capacity %1 %2 %3 of %4").arg(now).arg(QLatin1Char(mode)).arg(atMark).arg(number);
    }
    void updateVoltage() { asked << "voltage"; }
};

} // namespace

class TestMdiGraphChild : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        child.reset();
        shell = std::make_unique<Shell>();
        child = std::make_unique<MdiGraphChild>(shell.get());
        child->setWindowNumber(4);
    }

    void titleFollowsTheFile()
    {
        const QString first = "/data/a%1.acp COM7"; // it stays
        const std::pair<std::function<void()>, QString> steps[]
            = {{[] {}, "No file name"}, {[&] { child->setPortName("COM7"); }, "No file name COM7*"},
                {[&] { add("2"); }, "No file name COM7* !"},
                {[&] { child->markSaved("/data/a%1.acp", 2); }, first}, {[&] { add("1"); }, first + "* !"},
                {[&] { child->markSaved("/data/b.acp", 1); }, first + "* !"}, // one came while it was written
                {[&] { child->markSaved("/data/b.acp", 3); }, first},
                {[&] { child->load(storeOf("1"), "/data/one.acp"); }, first}, // one record is no data
                {[&] { child->load(storeOf("2"), "/data/old.acp"); }, "/data/old.acp"},
                {[&] {
                     child->load({}, "");
                     add("1");
                 },
                    "/data/old.acp !"},
                {[&] { child->load(storeOf("2"), "/data/new.acp"); }, "/data/new.acp"},
                {[&] { child->setPortName("COM8"); }, "/data/new.acp"}}; // it is saved
        shell->current = true;
        for (const auto &step : steps) {
            step.first();
            QCOMPARE(title(), step.second);
        }
        QCOMPARE(shell->taken().filter("show 60 s, 0 mAh, of 4").size(), 3);
        QCOMPARE(child->sourceName() + ' ' + child->portName(), "new.acp COM8 COM8");
    }

    void tellsEachRecord()
    {
        const QByteArray resistances = "!34" + QByteArray(",10").repeated(15);
        shell->current = true;
        child->showNewest();
        child->applyResistanceLine(resistances);
        QCOMPARE(shell->taken(), QStringList());
        shell->current = false;
        add("2 mode=1 device=1");
        child->showNewest();
        QCOMPARE(shell->taken(),
            QStringList({"Device: Varnel 2+ for 3000", "capacity 0 D 0 of 4", "voltage",
                "capacity 100 D 100 of 4", "voltage"}));
        shell->current = true;
        add("1");
        child->applyResistanceLine(resistances);
        QCOMPARE(child->store().records()[2].cells[0].resistance, 3.4);
        child->showNewest();
        const QString shown = "show 0 s, 0 mAh, of 4";
        QCOMPARE(
            shell->taken(), QStringList({"capacity 0 D 0 of 4", shown, "voltage", shown, "voltage", shown}));
    }

    /// All that the flag takes, and each thing missing once.
    void flagsLostResistance()
    {
        for (const auto &[words, expected] :
            {std::pair("9 r0=3 r0@1=0 r0@3=0 r0@5=0 r0@7=0 celldata@7=0", "000100000"),
                std::pair("3 r0=3 r0@2=0", "001")}) {
            init();
            shell->current = true;
            const RecordList records = recordsOf(words);
            QString flags;
            for (int i = 0; i < records.size(); ++i) {
                ViewSwitches switches;
                switches.cellValue = i == 5 ? CellValue::Charge : CellValue::Resistance;
                shell->state->setSwitches(switches);
                child->addRecord(records[i]);
                flags += shell->taken().filter("show")[0].endsWith("kept Ri") ? '1' : '0';
            }
            QCOMPARE(flags, expected);
        }
    }

    void liveWhileAReaderFeeds()
    {
        FakeLink link;
        QVERIFY(!child->isLive() && !child->stopProcess());
        child->attachReader(&link);
        QVERIFY(child->isLive() && child->stopProcess());
        QCOMPARE(link.commands, QStringList{"#STOP\r\n"});
        shell->mayCloseAny = false;
        QVERIFY(!child->close() && child->isLive());
        child->finishRecording();
        QVERIFY(!child->isLive() && !child->stopProcess());
        child.reset();
        QCOMPARE(link.detached, 0); // it had gone before
        QCOMPARE(shell->taken(), QStringList());

        shell->mayCloseAny = true;
        for (int detached : {1, 2}) { // closed, then deleted
            QPointer<MdiGraphChild> graph = new MdiGraphChild(shell.get());
            graph->attachReader(&link);
            detached == 1 ? void(graph->close()) : delete graph.data();
            QCOMPARE(link.detached, detached);
            if (graph)
                graph->addRecord(recordsOf("1")[0]); // on its way out: only the bar hears of it
            QTRY_VERIFY_WITH_TIMEOUT(graph.isNull(), 30000);
        }
        QCOMPARE(shell->taken(), QStringList({"closing", "Device: Varnel 3 for 3000"}));
        QCOMPARE(link.detached, 2);
    }

    /// By icon and tool tip, of a line and of a file.
    void showsHowItsProcessEnded()
    {
        const std::pair<char, const char *> ends[] = {{'_', ""}, {'S', "Error in process !"},
            {'M', "Process aborted by user."}, {'E', "Process completed."}};
        for (const auto &[letter, text] : ends) {
            for (bool loaded : {false, true}) {
                QMdiArea area;
                auto *graph = new MdiGraphChild(shell.get());
                QMdiSubWindow *frame = area.addSubWindow(graph);
                const qint64 before = frame->windowIcon().cacheKey();
                Varnel3Data record = recordsOf("1")[0];
                record.flag3 = letter;
                SeriesStore store;
                store.append(record);
                loaded ? graph->load(std::move(store), "x.acp") : graph->addRecord(record);
                QCOMPARE(frame->toolTip(), text);
                graph->setTitleTip("COM7");
                QCOMPARE(frame->toolTip(), letter == '_' ? "COM7" : text + QString("\nCOM7"));
                QCOMPARE(graph->toolTip(), text);
                QHelpEvent asked(QEvent::ToolTip, QPoint(99, 99), QPoint(99, 99)); // over the curves
                QApplication::sendEvent(graph, &asked);
                QCOMPARE(QToolTip::text(), text);
                QToolTip::hideText();
                QCOMPARE(frame->windowIcon().cacheKey() != before, letter != '_');
            }
        }
    }

    /// Of new records ten times a second, of what the user asks for at once; out of sight not at all.
    void repaintsSparingly()
    {
        const auto *gate = child->findChild<RefreshGate *>();
        add("1");
        QVERIFY(!gate->isPending());
        child->show();
        QVERIFY(QTest::qWaitForWindowExposed(child.get()));
        child->installEventFilter(shell.get());
        const auto asks = [&](const std::function<void()> &change) {
            QCoreApplication::sendPostedEvents();
            shell->paints = 0;
            change();
            QCoreApplication::sendPostedEvents();
            return shell->paints > 0;
        };
        ViewSwitches switches;
        switches.cellValue = CellValue::Resistance;
        QVERIFY(asks([&] { shell->state->setSwitches(switches); }));
        QVERIFY(asks([&] { child->setWindowNumber(5); }));
        QVERIFY(asks([&] { child->setScale(1.2); }));
        QVERIFY(asks([&] { child->setSilentSince(QDateTime::currentDateTime()); }));
        QVERIFY(asks([&] { child->load(storeOf("3"), "x.acp"); }));
        QVERIFY(!asks([] {}));
        QVERIFY(asks([&] { add("1"); }));
        child->setWindowState(Qt::WindowMinimized);
        add("1");
        QVERIFY(!gate->isPending());
        child->setWindowState(Qt::WindowNoState);
        add("1"); // too early for another
        QVERIFY(gate->isPending());
        QShowEvent shown; // of the main window that comes back
        QVERIFY(asks([&] { QApplication::sendEvent(child.get(), &shown); }));
    }

    /// The window's own events reach what mouse and keyboard do, and that is painted.
    void forwardsEvents()
    {
        MdiGraphChild *const graph = child.get();
        QCOMPARE(graph->sizeHint(), QSize(640, 400));
        graph->resize(1000, 600);
        graph->show();
        graph->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(graph) && graph->hasFocus());
        graph->load(storeOf("87 period=10 charge1@86=14400000"), "x.acp"); // a pixel is a second, from 40 on
        shell->current = true;
        const auto zoom = [&] { return graph->request(graph->size()).zoom; };
        const auto shown = [&] { return shell->asked.value(shell->asked.size() - 1); };
        const QPoint middle(470, 155);
        const QPoint corner(600, 250);
        QTest::mouseMove(graph, QPoint(20, 20));
        QTest::mouseMove(graph, middle);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), "show 430 s, 40 mAh, of 4", 30000); // the newest one's charge
        QCOMPARE(painted("line 470,304").size(), 1);
        QTest::keyClick(graph, Qt::Key_Left);
        QCOMPARE(shown(), "show 420 s, 40 mAh, of 4");
        for (const auto &[key, isMeant] : {std::pair(Qt::Key_Plus, true), std::pair(Qt::Key_Q, false)}) {
            QKeyEvent event(QEvent::KeyPress, key, {});
            QApplication::sendEvent(graph, &event);
            QCOMPARE(event.isAccepted(), isMeant);
        }
        QTest::keyClick(graph, Qt::Key_Home);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(graph, &leave);
        QCOMPARE(shown(), "show 860 s, 40 mAh, of 4");
        QCOMPARE(painted("line 460,304").size(), 0);
        shell->current = false; // its record is not in the figures
        QTest::mousePress(graph, Qt::LeftButton, Qt::NoModifier, middle);
        QCOMPARE(shown(), "show 860 s, 40 mAh, of 4");
        QMouseEvent move(QEvent::MouseMove, corner, QPoint(), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(graph, &move);
        QCOMPARE(painted("rect 470,155 130x95").size(), 2);
        QTest::mouseRelease(graph, Qt::LeftButton, Qt::NoModifier, corner);
        QCOMPARE(zoom().times().high, 560.0);
        graph->resize(449, 600);
        QCOMPARE(zoom().times().high, 600.0); // divided anew
        graph->setScale(1.4);
        QCOMPARE(graph->request(graph->size()).scale, 1.4);
        QTest::mouseDClick(graph, Qt::LeftButton, Qt::NoModifier, {200, 155});
        QVERIFY(!zoom().isActive());
        QWheelEvent wheel({200, 155}, {}, {}, QPoint(0, 120), {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(graph, &wheel);
        QCOMPARE(QString("%1 %2").arg(zoom().times().low, 0, 'f', 1).arg(wheel.isAccepted()), "97.9 1");
        ViewSwitches held;
        held.holdView = true;
        shell->state->setSwitches(held);
        add("1 start=870");
        QCOMPARE(graph->request({}).rangedRecords, 87);
        shell->state->setSwitches({});
        add("1 start=900"); // all is shown again as a record comes
        QVERIFY(!zoom().isActive());
        QApplication::sendEvent(graph, &wheel);
        QTest::keyClick(graph, Qt::Key_Space, Qt::ShiftModifier);
        QVERIFY(zoom().isActive() && painted("text '4'").size() == 1);
        QCOMPARE(painted("dash4,2 #aaaaaa").size(), 2);
        graph->load(storeOf("3"), "y.acp");
        QVERIFY(!zoom().isActive() && painted("dash4,2 #aaaaaa").isEmpty());
        QSignalSpy changes(graph, SIGNAL(selectedCellsChanged()));
        graph->setSelectedCells({true});
        graph->setSelectedCells({true});
        QCOMPARE(changes.size(), 1);
        QVERIFY(graph->selectedCells()[0] && graph->request({}).selectedCells[0]);
    }

    void notesWhatIsWrong()
    {
        const auto note = [&] { return child->request({}).note; };
        const QDateTime since({2026, 2, 3}, {9, 5, 7});
        for (int records = 0; records < 2; ++records) {
            child->setSilentSince(since);
            QCOMPARE(note(), "No line since 09:05:07");
            add("1");
            QCOMPARE(note(), "");
        }
        for (char mark : {'_', 'E'}) { // of a device that sends no end: no current, or a trickle after that
            Varnel3Data ended = recordsOf(mark == 'E' ? "1" : "1 current=0")[0];
            ended.flag4 = mark;
            child->addRecord(ended);
            child->setSilentSince(since);
            QCOMPARE(note(), "Ended or silent since 09:05:07");
        }
        FakeLink link;
        ViewSwitches switches;
        switches.holdView = true;
        shell->state->setSwitches(switches);
        QCOMPARE(painted("View held").size(), 0);
        child->attachReader(&link);
        QCOMPARE(painted("text 'View held   Ended or silent since 09:05:07   ").size(), 1);
        QCOMPARE(
            child->spokenText(), "Graph 4, charge, 3 x LiPo, 11.4 volts, Ended or silent since 09:05:07");
        child->setSilentSince(QDateTime());
        QCOMPARE(note(), "");
        QCOMPARE(painted("text 'View held   Charge").size(), 1);
        child->finishRecording();
    }

    /// Where memory ends the curves do, for good; the figures go on.
    void memoryEnds()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("a sanitizer's allocator has addresses in store");
#endif
        constexpr int full = 8 * RecordList::blockSize;
        child->load(storeOf(QByteArray::number(full)), "x.acp");
        shell->current = true;
        QTest::ignoreMessage(QtWarningMsg, "window 4: no memory for another record");
        {
            const AddressSpaceLimit limit(0);
            add("1");
        }
        add("1");
        child->applyResistanceLine("!34" + QByteArray(",10").repeated(15));
        const QString shown = "show 0 s, 0 mAh, of 4";
        QCOMPARE(shell->taken(), QStringList({shown, shown}));
        QVERIFY(shell->slope == noVoltageSlope && child->store().size() == full);
        QVERIFY(child->request({}).note.startsWith("Out of memory since "));
    }

private:
    void add(const char *words) const
    {
        const RecordList records = recordsOf(words);
        for (int i = 0; i < records.size(); ++i)
            child->addRecord(records[i]);
    }
    // Title, and a '!' where records are unsaved.
    QString title() const
    {
        return child->windowTitle() + (child->hasUnsavedData() ? " !" : "");
    }
    QStringList painted(const char *part) const
    {
        PaintLog log(child->size());
        child->render(&log);
        return log.lines().filter(QRegularExpression(part));
    }

    std::unique_ptr<Shell> shell;
    std::unique_ptr<MdiGraphChild> child;
};

QTEST_MAIN(TestMdiGraphChild)
#include "tst_mdigraphchild.moc"
