#include "data/voltageslope.h"
#include "support/fakegraphhost.h"
#include "graph/mdigraphchild.h"
#include "support/samplerecords.h"
#include "support/fakelink.h"

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
    void showsItsDv();
    void liveWhileAReaderFeeds();
    void closingDetaches();
    void loadsAFile();
    void resistanceLineIsShownAgain();
    void showsHowItsProcessEnded_data();
    void showsHowItsProcessEnded();
    void repaintsSparingly();
    void switchesRepaint();
    void coveredWindowsCostNothing();
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
    QCOMPARE(host.voltageUpdates, 11);
    QCOMPARE(host.capacities.first(), QStringLiteral("0 D 0 4"));
    QCOMPARE(host.capacities.last(), QStringLiteral("2950 D 2950 4"));
    QVERIFY(host.shown.isEmpty()); // not current
}

void TestMdiGraphChild::flagsLostResistance()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    host.current = &child;
    RecordList records = samples::lipoCharge(5);
    for (int i : {2, 4})
        records[i].cells[0].resistance = 0.0;
    ViewSwitches switches;
    for (int i = 0; i < records.size(); ++i) {
        switches.cellValue = i == 4 ? CellValue::Charge : CellValue::Resistance;
        host.state->setSwitches(switches);
        child.addRecord(records[i]);
    }
    QVector<bool> flags;
    for (const FakeGraphHost::Shown &shown : std::as_const(host.shown))
        flags.append(shown.useKeptRi);
    QCOMPARE(flags, (QVector<bool>{false, false, true, false, false}));
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

void TestMdiGraphChild::showsItsDv()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    host.current = &child;
    Varnel3Data record = samples::lipoCharge(1)[0];
    record.voltage = 20000;
    for (int i = 0; i < 60; ++i, record.voltage += 7)
        child.addRecord(record);
    QCOMPARE(host.shown[17].record.voltageSlope, noVoltageSlope);
    QVERIFY(host.shown[18].record.voltageSlope > 0);
    QCOMPARE(host.shown[59].record.voltageSlope, qRound(child.store().series(SeriesStore::Dv)[59]));
    QCOMPARE(child.store().records()[59].voltageSlope, 0); // stays as the device sent it
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
    QCOMPARE(host.voltageUpdates, 0);
    QTRY_VERIFY(child.isNull());
    QCOMPARE(link.detached, 1);
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
    QVERIFY(host.capacities.isEmpty());
    QVERIFY(host.messages.isEmpty());
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
    QCOMPARE(host.shown.size(), 2);
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

void TestMdiGraphChild::repaintsSparingly()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.show();
    QVERIFY(QTest::qWaitForWindowExposed(&child));
    QTest::qWait(150);
    PaintCounter painted(&child);
    QElapsedTimer timer;
    timer.start();
    const RecordList records = samples::lipoCharge(100);
    for (int i = 0; i < records.size(); ++i) {
        child.addRecord(records[i]);
        QTest::qWait(5);
    }
    QTest::qWait(150);
    QVERIFY2(painted.count <= timer.elapsed() / 100 + 1, qPrintable(QString::number(painted.count)));
    QVERIFY(painted.count >= 3);
    const int before = painted.count;
    QTest::qWait(250); // and nothing goes on by itself
    QCOMPARE(painted.count, before);
}

void TestMdiGraphChild::switchesRepaint()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.show();
    QVERIFY(QTest::qWaitForWindowExposed(&child));
    PaintCounter painted(&child);
    ViewSwitches switches = host.state->switches();
    switches.cellValue = CellValue::Resistance; // nobody else asks for it
    host.state->setSwitches(switches);
    QTRY_COMPARE(painted.count, 1);
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
    QTest::qWait(150);
    PaintCounter painted(below);
    const RecordList records = samples::lipoCharge(20);
    for (int i = 0; i < records.size(); ++i)
        below->addRecord(records[i]);
    QTest::qWait(250);
    QCOMPARE(painted.count, 0);
    above->parentWidget()->move(400, 50); // comes to sight with all that it has
    QTRY_VERIFY(painted.count > 0);
}

void TestMdiGraphChild::notesSilence()
{
    FakeGraphHost host;
    MdiGraphChild child(&host);
    child.addRecord(samples::lipoCharge(1)[0]);
    const QDateTime since(QDate(2026, 2, 3), QTime(9, 5, 7));
    child.setSilentSince(since);
    QCOMPARE(child.picture(QSize(300, 200)).note, QStringLiteral("No line since 09:05:07"));
    for (char mark : {'_', 'E'}) { // of a device that sends no end: no current, or a trickle after that
        Varnel3Data ended = samples::lipoCharge(1)[0];
        ended.flag4 = mark;
        ended.current = mark == 'E' ? 50 : 0;
        child.addRecord(ended);
        child.setSilentSince(since);
        QCOMPARE(child.picture(QSize(300, 200)).note, QStringLiteral("Ended or silent since 09:05:07"));
    }
    child.addRecord(samples::lipoCharge(1)[0]);
    QCOMPARE(child.picture(QSize(300, 200)).note, QString());
    child.setSilentSince(QDateTime());
    QCOMPARE(child.picture(QSize(300, 200)).note, QString());
}

QTEST_MAIN(TestMdiGraphChild)
#include "tst_mdigraphchild.moc"
