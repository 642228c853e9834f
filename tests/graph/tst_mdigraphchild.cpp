#include "support/fakegraphhost.h"
#include "graph/mdigraphchild.h"
#include "support/samplerecords.h"
#include "support/fakelink.h"
#include "widgets/refreshgate.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QtTest>

#include <utility>

namespace {

// Counts the repaints of a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

} // namespace

class TestMdiGraphChild : public QObject {
    Q_OBJECT

private slots:
    void titleFollowsTheFile();
    void tellsEachRecord();
    void flagsLostResistance();
    void showsRecordsWhileCurrent();
    void liveWhileAReaderFeeds();
    void closingDetaches();
    void loadsAFile();
    void resistanceLineIsShownAgain();
    void showsHowItsProcessEnded_data();
    void showsHowItsProcessEnded();
    void repaintsSparingly();
    void coveredWindowsCostNothing();
    void forwardsEvents();
    void notesSilence();
};

void TestMdiGraphChild::titleFollowsTheFile()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    const RecordList records = samples::nimhDischarge(3);
    QCOMPARE(child.windowTitle(), QStringLiteral("No file name"));
    child.setPortName(QStringLiteral("COM7"));
    QCOMPARE(child.windowTitle(), QStringLiteral("No file name COM7*"));
    child.addRecord(records[0]);
    QCOMPARE(child.windowTitle(), QStringLiteral("No file name COM7*"));
    QVERIFY(child.hasUnsavedData());
    child.markSaved(QStringLiteral("/data/a%1.acp"), 1);
    QCOMPARE(child.windowTitle(), QStringLiteral("/data/a%1.acp COM7"));
    QVERIFY(!child.hasUnsavedData());
    child.addRecord(records[1]);
    QCOMPARE(child.windowTitle(), QStringLiteral("/data/a%1.acp COM7*"));
    QVERIFY(child.hasUnsavedData());
    child.finishRecording();
    child.markSaved(QStringLiteral("/data/b.acp"), 1); // one came while it was written
    QCOMPARE(child.windowTitle(), QStringLiteral("/data/a%1.acp COM7*"));
    QVERIFY(child.hasUnsavedData());
    child.markSaved(QStringLiteral("/data/b.acp"), 2);
    QCOMPARE(child.windowTitle(), QStringLiteral("/data/a%1.acp COM7")); // the first name stays
}

void TestMdiGraphChild::tellsEachRecord()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.setWindowNumber(4);
    RecordList records = samples::nimhDischarge(11);
    for (int i = 0; i < records.size(); ++i)
        child.addRecord(records[i]);
    QCOMPARE(host.messages, QStringList{QStringLiteral("Device: Varnel 2+ 3000")});
    QCOMPARE(host.calls, QByteArray("cv").repeated(11)); // not current
    QCOMPARE(host.capacities.first(), QStringLiteral("0 D 0 4"));
    QCOMPARE(host.capacities.last(), QStringLiteral("2950 D 2950 4"));
    host.current = &child;
    child.addRecord(records[10]);
    QCOMPARE(host.calls.right(3), QByteArray("crv"));
}

void TestMdiGraphChild::flagsLostResistance()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    host.current = &child;
    // all that it takes, and each thing missing once
    RecordList records = samples::lipoCharge(9);
    for (int i : {1, 3, 5, 7})
        records[i].cells[0].resistance = 0.0;
    records[7].flag5 = '_';
    ViewSwitches switches;
    for (int i = 0; i < records.size(); ++i) {
        switches.cellValue = i == 5 ? CellValue::Charge : CellValue::Resistance;
        host.state->setSwitches(switches);
        child.addRecord(records[i]);
    }
    QVector<bool> flags;
    for (const FakeGraphHost::Shown &shown : std::as_const(host.shown))
        flags.append(shown.useKeptRi);
    QCOMPARE(flags, (QVector<bool>{false, false, false, true, false, false, false, false, false}));
}

void TestMdiGraphChild::showsRecordsWhileCurrent()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.setWindowNumber(2);
    child.showNewest(); // nothing to show
    host.current = &child;
    child.showNewest();
    QVERIFY(host.shown.isEmpty());
    child.addRecord(samples::lipoCharge(1)[0]);
    QCOMPARE(host.shown.size(), 1);
    QCOMPARE(host.shown[0].number, 2);
    child.showNewest();
    QCOMPARE(host.shown.size(), 2);
    QCOMPARE(host.shown[1].record.voltage, child.store().records()[0].voltage);
}

void TestMdiGraphChild::liveWhileAReaderFeeds()
{
    FakeGraphHost host;
    FakeLink link;
    MdiGraphChild child(&host);
    QVERIFY(!child.isLive());
    QVERIFY(!child.stopProcess());
    child.attachReader(&link);
    QVERIFY(child.isLive());
    QVERIFY(child.stopProcess());
    QCOMPARE(link.commands, QStringList{QStringLiteral("#STOP\r\n")});
    child.finishRecording();
    child.finishRecording();
    QVERIFY(!child.isLive());
    QVERIFY(!child.stopProcess());
    QCOMPARE(link.detached, 0);
}

void TestMdiGraphChild::closingDetaches()
{
    FakeGraphHost host;
    FakeLink link;
    QPointer<MdiGraphChild> child = new MdiGraphChild(&host);
    child->attachReader(&link);
    child->show();
    child->close();
    QCOMPARE(host.closed.size(), 1);
    QCOMPARE(link.detached, 1);
    child->addRecord(samples::lipoCharge(1)[0]); // on its way out
    QVERIFY(host.calls.isEmpty());
    QTRY_VERIFY(child.isNull());
    QCOMPARE(link.detached, 1);
    {
        MdiGraphChild deleted(&host);
        deleted.attachReader(&link);
    }
    QCOMPARE(link.detached, 2);
    MdiGraphChild refused(&host);
    refused.attachReader(&link);
    host.mayCloseAny = false;
    QVERIFY(!refused.close() && refused.isLive());
    refused.addRecord(samples::lipoCharge(1)[0]);
    QCOMPARE(host.calls, QByteArray("cv"));
}

void TestMdiGraphChild::loadsAFile()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    host.current = &child;
    SeriesStore store;
    store.load(samples::lipoCharge(30));
    child.load(std::move(store), QStringLiteral("/data/old.acp"));
    QCOMPARE(child.windowTitle(), QStringLiteral("/data/old.acp"));
    QVERIFY(!child.hasUnsavedData());
    QVERIFY(!child.isLive());
    QCOMPARE(host.shown.size(), 1);
    QCOMPARE(host.shown[0].record.time, 29 * 5);
    QCOMPARE(host.calls, QByteArray("r"));
    QVERIFY(host.messages.isEmpty());
    child.setPortName(QStringLiteral("COM7"));
    QCOMPARE(child.windowTitle(), QStringLiteral("/data/old.acp")); // it is saved
    QCOMPARE(child.sourceName(), QStringLiteral("old.acp COM7"));
    MdiGraphChild single(&host); // one record is no data
    host.current = &single;
    SeriesStore lone;
    lone.load(samples::lipoCharge(1));
    single.load(std::move(lone), QStringLiteral("/data/one.acp"));
    single.setPortName(QStringLiteral("COM7"));
    QCOMPARE(single.windowTitle(), QStringLiteral("No file name COM7*"));
    QCOMPARE(host.shown.size(), 1);
}

void TestMdiGraphChild::resistanceLineIsShownAgain()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    host.current = &child;
    const QByteArray line = "!34" + QByteArray(",10").repeated(15);
    child.applyResistanceLine(line);
    QVERIFY(host.shown.isEmpty());
    child.addRecord(samples::lipoCharge(1)[0]);
    child.applyResistanceLine(line);
    QCOMPARE(host.calls, QByteArray("crvrv"));
    QCOMPARE(host.shown[1].record.cells[0].resistance, 3.4);
}

void TestMdiGraphChild::showsHowItsProcessEnded_data()
{
    QTest::addColumn<char>("letter");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << '_' << QString();
    QTest::newRow("error") << 'S' << QStringLiteral("Error in process !");
    QTest::newRow("aborted") << 'M' << QStringLiteral("Process aborted by user.");
    QTest::newRow("completed") << 'E' << QStringLiteral("Process completed.");
}

void TestMdiGraphChild::showsHowItsProcessEnded()
{
    QFETCH(char, letter);
    FakeGraphHost host;
    QMdiArea area;
    auto *child = new MdiGraphChild(&host);
    QMdiSubWindow *frame = area.addSubWindow(child);
    const qint64 before = frame->windowIcon().cacheKey();
    Varnel3Data record = samples::lipoCharge(1)[0];
    child->addRecord(record);
    record.flag3 = letter;
    child->addRecord(record);
    QTEST(child->toolTip(), "text");
    QTEST(frame->toolTip(), "text");
    QCOMPARE(frame->windowIcon().cacheKey() != before, letter != '_');
}

/// At once, then a tenth of a second later for all that came meanwhile.
void TestMdiGraphChild::repaintsSparingly()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.show();
    QVERIFY(QTest::qWaitForWindowExposed(&child));
    QSignalSpy refreshes(child.findChild<RefreshGate *>(), SIGNAL(refresh()));
    const RecordList records = samples::lipoCharge(50);
    for (int i = 0; i < records.size(); ++i)
        child.addRecord(records[i]);
    QCOMPARE(refreshes.size(), 1);
    PaintCounter painted(&child);
    QTRY_COMPARE_WITH_TIMEOUT(refreshes.size(), 2, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(painted.count > 0, 30000);
    const int before = painted.count;
    ViewSwitches switches;
    switches.cellValue = CellValue::Resistance; // nobody else asks for it
    host.state->setSwitches(switches);
    QTRY_VERIFY_WITH_TIMEOUT(painted.count > before, 30000);
}

void TestMdiGraphChild::coveredWindowsCostNothing()
{
    FakeGraphHost host;
    QMdiArea area;
    area.resize(800, 600);
    area.show();
    auto *below = new MdiGraphChild(&host);
    area.addSubWindow(below)->setGeometry(100, 100, 300, 200);
    below->show();
    auto *above = new MdiGraphChild(&host);
    area.addSubWindow(above)->setGeometry(50, 50, 500, 400);
    above->show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    auto *gate = below->findChild<RefreshGate *>();
    QSignalSpy refreshes(gate, SIGNAL(refresh()));
    below->addRecord(samples::lipoCharge(1)[0]);
    QVERIFY(refreshes.isEmpty() && !gate->isPending());
    PaintCounter painted(below);
    above->parentWidget()->move(400, 50); // comes to sight with all that it has
    QTRY_VERIFY_WITH_TIMEOUT(painted.count > 0, 30000);
    below->addRecord(samples::lipoCharge(1)[0]);
    QCOMPARE(refreshes.size(), 1);
}

/// The window's own events reach what mouse and keyboard do, and that is painted.
void TestMdiGraphChild::forwardsEvents()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.resize(1000, 600);
    child.show();
    child.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&child));
    SeriesStore store;
    store.load(samples::lipoCharge(87, 10)); // a pixel is a second, from 40 on
    child.load(std::move(store), QStringLiteral("x.acp"));
    host.current = &child;
    const auto zoom = [&] { return child.request(child.size()).zoom; };
    const auto shown = [&] { return host.shown.isEmpty() ? -1 : host.shown.last().record.time; };
    const QPoint middle(470, 155);
    QTest::mouseMove(&child, QPoint(20, 20));
    QTest::mouseMove(&child, middle);
    QTRY_COMPARE_WITH_TIMEOUT(shown(), 430, 30000);
    QCOMPARE(host.shown.last().record.balancedMah, 40); // the newest one's, whatever the record
    const QImage with = child.grab().toImage();
    QTest::keyClick(&child, Qt::Key_Left);
    QCOMPARE(shown(), 420);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&child, &leave);
    QCOMPARE(shown(), 860);
    QVERIFY(!host.shown.last().useKeptRi);
    QVERIFY(child.grab().toImage() != with); // the cursor line has gone
    QTest::mousePress(&child, Qt::LeftButton, Qt::NoModifier, middle);
    QMouseEvent move(QEvent::MouseMove, QPoint(600, 250), QPoint(), Qt::NoButton, Qt::LeftButton, {});
    const QImage pressed = child.grab().toImage();
    QApplication::sendEvent(&child, &move);
    QVERIFY(child.grab().toImage() != pressed); // a rectangle
    QTest::mouseRelease(&child, Qt::LeftButton, Qt::NoModifier, QPoint(600, 250));
    QCOMPARE(zoom().times().high, 560.0);
    child.resize(449, 600);
    QCOMPARE(zoom().times().high, 600.0); // divided anew
    child.setScale(1.4);
    QCOMPARE(child.request(child.size()).scale, 1.4);
    QTest::mouseDClick(&child, Qt::LeftButton, Qt::NoModifier, QPoint(200, 155));
    QVERIFY(!zoom().isActive());
    QWheelEvent wheel(QPoint(200, 155), QPoint(), QPoint(), QPoint(0, 120), {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&child, &wheel);
    QVERIFY(zoom().isActive() && wheel.isAccepted());
    QSignalSpy changes(&child, SIGNAL(selectedCellsChanged()));
    child.setSelectedCells({true});
    child.setSelectedCells({true});
    QCOMPARE(changes.size(), 1);
    QVERIFY(child.selectedCells()[0]);
}

void TestMdiGraphChild::notesSilence()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.addRecord(samples::lipoCharge(1)[0]);
    const QDateTime since(QDate(2026, 2, 3), QTime(9, 5, 7));
    child.setSilentSince(since);
    QCOMPARE(child.request(QSize(300, 200)).note, QStringLiteral("No line since 09:05:07"));
    for (char mark : {'_', 'E'}) { // of a device that sends no end: no current, or a trickle after that
        Varnel3Data ended = samples::lipoCharge(1)[0];
        ended.flag4 = mark;
        ended.current = mark == 'E' ? 50 : 0;
        child.addRecord(ended);
        child.setSilentSince(since);
        QCOMPARE(child.request(QSize(300, 200)).note, QStringLiteral("Ended or silent since 09:05:07"));
    }
    child.addRecord(samples::lipoCharge(1)[0]);
    QCOMPARE(child.request(QSize(300, 200)).note, QString());
    child.setSilentSince(QDateTime());
    QCOMPARE(child.request(QSize(300, 200)).note, QString());
}

QTEST_MAIN(TestMdiGraphChild)
#include "tst_mdigraphchild.moc"
