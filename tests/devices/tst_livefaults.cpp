#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "support/holdport.h"
#include "support/limits.h"
#include "support/lines.h"
#include "support/simrig.h"
#include "support/warningcollector.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

#include <ctime>
#include <thread>

namespace {

constexpr int linesInTheSystem = 30; // that a line may hold when its adapter is pulled; they are gone

int openFiles()
{
    return int(QDir(QStringLiteral("/proc/self/fd"))
                   .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                   .size());
}

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace

/// Simulated devices that break off, stand still or babble, under the whole program: nothing that was
/// received is lost, the other devices go on, and whatever is on the screen may be closed meanwhile.
class TestLiveFaults : public QObject, private SimRig {
    Q_OBJECT

public slots:
    void toggleOne();

private slots:
    void initTestCase() { initResources(); }
    void init() { setUp(50); }
    void cleanup() { tearDown(); }
    void hangUpInMidLine();
    void hangUpDuringCommand_data();
    void hangUpDuringCommand();
    void hangUpDuringEndBox();
    void hangUpWhileClosing_data();
    void hangUpWhileClosing();
    void hourWithoutLineEnd();
    void portsComeAndGo();
    void portHeldByAnotherProgram();

private:
    QVector<const MdiGraphChild *> recordingsOf(const char *port) const;
    int recordsOf(const char *port) const;
    void closeOrPull(QChar what);
    void acceptPreferences() const;

    size_t toggled = 0;
};

QVector<const MdiGraphChild *> TestLiveFaults::recordingsOf(const char *port) const
{
    QVector<const MdiGraphChild *> found;
    const auto children = window->mdiChildren();
    for (const MdiGraphChild *child : children) {
        if (child->portName() == QLatin1String(port))
            found.append(child);
    }
    return found;
}

int TestLiveFaults::recordsOf(const char *port) const
{
    int records = 0;
    const auto recordings = recordingsOf(port);
    for (const MdiGraphChild *recording : recordings)
        records += recording->store().size();
    return records;
}

// Half a line is no record, and the rest of one after the return is none either.
void TestLiveFaults::hangUpInMidLine()
{
    start({QStringLiteral("COM1:varnel3,balance,start=open"), QStringLiteral("COM2:varnel2plus,start=open")});
    QTRY_VERIFY(recordsOf("COM1") > 20);
    device("COM1")->hangUp(1);
    QTRY_VERIFY(!device("COM1")->isPlugged());
    QTRY_COMPARE(fact(StatusFacts::Lost), QStringLiteral("Lost: COM1"));
    const qint64 sent = device("COM1")->handedOver(sim::LineKind::Measurement);
    const int kept = recordsOf("COM1");
    QVERIFY2(kept <= sent && kept >= sent - linesInTheSystem,
        qPrintable(QStringLiteral("%1 of %2").arg(kept).arg(sent)));
    const int others = recordsOf("COM2");
    QTRY_COMPARE(recordingsOf("COM1").size(), 2); // it is back
    QTRY_VERIFY(recordingsOf("COM1").constLast()->store().size() > 20);
    QCOMPARE(recordingsOf("COM1").constFirst()->store().size(), kept);
    QVERIFY(recordsOf("COM2") > others);
    const auto recordings = recordingsOf("COM1");
    for (const MdiGraphChild *recording : recordings) {
        const SeriesStore &store = recording->store();
        for (int i = 1; i < store.size(); ++i)
            QCOMPARE(store.records()[i].time, store.records()[i - 1].time + 1);
    }
}

void TestLiveFaults::hangUpDuringCommand_data()
{
    QTest::addColumn<int>("delay");
    QTest::newRow("before the first byte") << 0;
    QTest::newRow("in its own pause") << 150;
    QTest::newRow("in the other's pause") << 700;
}

void TestLiveFaults::hangUpDuringCommand()
{
    QFETCH(int, delay);
    start({QStringLiteral("COM1:varnel3,start=remote"), QStringLiteral("COM2:varnel3,start=remote")});
    QTimer::singleShot(delay, this, [this] { device("COM1")->unplug(); });
    for (int beeps : {1, 2}) {
        trigger(ActionId::SetTime);
        QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM2")));
        QTRY_COMPARE(device("COM2")->panel().beeps(), beeps);
        QTRY_VERIFY(!QApplication::overrideCursor());
    }
}

// The box is about a device that is gone: closing it must tell the remaining one nothing.
void TestLiveFaults::hangUpDuringEndBox()
{
    start({QStringLiteral("COM1:varnel3,start=open"), QStringLiteral("COM2:varnel3,start=open,endless")});
    QTRY_VERIFY(recordsOf("COM1") > 10 && recordsOf("COM2") > 10);
    int under = 0; // records of the other device while the box stood
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&, atFirst = -1]() mutable {
        if (!modalBox())
            return;
        if (atFirst < 0) {
            atFirst = recordsOf("COM2");
            device("COM1")->unplug();
        }
        under = recordsOf("COM2") - atFirst;
        if (under > 30)
            modalBox()->close();
    });
    watch.start(10);
    device("COM1")->endProcess('E');
    QTRY_VERIFY(under > 30 && !modalBox());
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM2")));
    QTest::qWait(200);
    QVERIFY(!told.contains(QStringLiteral("COM2 told #STOP")));
    QCOMPARE(window->mdiChildren().size(), 2);
}

void TestLiveFaults::closeOrPull(QChar what)
{
    switch (what.toLatin1()) {
    case 'a':
        return device("COM1")->hangUp(0);
    case 'g':
        return void(recordingsOf("COM1").constFirst()->parentWidget()->close());
    case 'l':
        return window->stopRecording();
    case 'p':
        return void(window->close());
    default:
        window.reset();
    }
}

void TestLiveFaults::acceptPreferences() const
{
    QTimer::singleShot(
        200, window.get(), [] { qobject_cast<QDialog *>(QApplication::activeModalWidget())->accept(); });
    trigger(ActionId::Preferences);
}

void TestLiveFaults::hangUpWhileClosing_data()
{
    QTest::addColumn<QString>("acts");
    QTest::newRow("adapter, then graph window") << "ag";
    QTest::newRow("graph window, then adapter") << "ga";
    QTest::newRow("adapter, then program") << "ap";
    QTest::newRow("program, then adapter") << "pa";
    QTest::newRow("adapter, then listening ends") << "alg";
    QTest::newRow("adapter, then all is gone") << "ap-";
}

void TestLiveFaults::hangUpWhileClosing()
{
    QFETCH(QString, acts);
    const WarningCollector collector;
    start({QStringLiteral("COM1:varnel3,balance,start=open"), QStringLiteral("COM2:varnel3,start=open")});
    QTRY_VERIFY(recordsOf("COM1") > 5 && recordsOf("COM2") > 5);
    device("COM1")->sendRaw("#06C05");
    for (QChar what : qAsConst(acts))
        closeOrPull(what);
    QTest::qWait(600);
    QVERIFY(!window || !listened().contains(QStringLiteral("COM1")));
    QVERIFY(!window || window->isVisible() || listened().isEmpty());
    QCOMPARE(collector.warnings(), QStringList());
}

// A device with the wrong rate or a broken converter sends no line end for an hour: 1920 bytes
// a second. What it sends is kept as bytes, costs the same at the end as at the beginning, and
// the next good line is a record again.
void TestLiveFaults::hourWithoutLineEnd()
{
    constexpr int quarter = 1920 * 900;
    PtyPair *babbler = plug(QStringLiteral("COM7"));
    open(add({QStringLiteral("COM2:varnel3,start=open,endless")}) << babbler->portName());
    QTRY_COMPARE(listened().size(), 2);
    const QByteArray bytes = QByteArray(",12345,\x91\x02zzzz").repeated(quarter / 12);
    [[maybe_unused]] const qint64 memoryBefore = residentBytes();
    QVector<double> cost; // seconds of the processor, by quarters
    for (int i = 0; i < 4; ++i) {
        std::atomic<bool> done = false;
        const double before = processorSeconds();
        std::thread sender([&] {
            babbler->send(bytes);
            done = true;
        });
        while (!done)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        sender.join();
        cost.append(processorSeconds() - before);
    }
    QVERIFY2(
        cost[3] < 3 * cost[0] + 0.2, qPrintable(QStringLiteral("%1 s, then %2 s").arg(cost[0]).arg(cost[3])));
#ifndef __SANITIZE_ADDRESS__ // which keeps what was freed
    const qint64 grown = residentBytes() - memoryBefore;
    QVERIFY2(grown < 4 * quarter * 5 / 2, qPrintable(QString::number(grown)));
#endif
    const int others = recordsOf("COM2");
    babbler->send("\r\n" + Lines::charger(1) + Lines::charger(2));
    QTRY_COMPARE(recordsOf("COM7"), 2);
    QTRY_VERIFY(recordsOf("COM2") > others);
}

void TestLiveFaults::toggleOne()
{
    sim::SimDevice *one = rack->devices()[toggled++ % rack->devices().size()].get();
    QString error;
    if (one->isPlugged())
        one->unplug();
    else
        QVERIFY2(one->plug(&error), qPrintable(error));
}

// Four loose plugs, each going or coming twice a second, for VARNEL_SECONDS.
void TestLiveFaults::portsComeAndGo()
{
    bool given = false;
    const int seconds = qEnvironmentVariableIntValue("VARNEL_SECONDS", &given);
    start({QStringLiteral("COM1:varnel3,endless"), QStringLiteral("COM2:varnel3,balance,endless"),
        QStringLiteral("COM3:varnel2plus,endless"), QStringLiteral("COM4:varnel2,endless")});
    const QStringList ports{
        QStringLiteral("COM1"), QStringLiteral("COM2"), QStringLiteral("COM3"), QStringLiteral("COM4")};
    for (const QString &port : ports)
        QTRY_VERIFY2(recordsOf(port.toLatin1()) > 0, qPrintable(port)); // each has its journal open
    const int filesBefore = openFiles();
    const WarningCollector collector;
    QTimer plugs;
    connect(&plugs, SIGNAL(timeout()), this, SLOT(toggleOne()));
    plugs.start(125);
    QTest::qWait((given ? seconds : 5) * 1000);
    plugs.stop();
    QString error;
    for (const auto &one : rack->devices())
        QVERIFY2(one->plug(&error), qPrintable(error));
    QTRY_VERIFY_WITH_TIMEOUT(listened().size() == 4, 10000);
    for (const QString &port : ports) {
        QVERIFY(listened().contains(port));
        const int before = recordsOf(port.toLatin1());
        QTRY_VERIFY2(recordsOf(port.toLatin1()) > before, qPrintable(port));
    }
    QCOMPARE(fact(StatusFacts::Lost), QString());
    QVERIFY(window->findChildren<QMessageBox *>().isEmpty());
    QCOMPARE(collector.warnings(), QStringList());
    QTRY_VERIFY(openFiles() <= filesBefore); // journals are closed once they are on the disk
}

// The holder ends as a crashed program does, with its lock left behind.
void TestLiveFaults::portHeldByAnotherProgram()
{
    const QStringList ports = add({QStringLiteral("COM1:varnel3,start=open,endless"),
        QStringLiteral("COM2:varnel2plus,start=open,endless")});
    QProcess holder;
    holder.start(QCoreApplication::applicationFilePath(),
        {QStringLiteral("--hold"), QFile::symLinkTarget(fixture->portFolder() + QStringLiteral("/COM1"))});
    QVERIFY(holder.waitForReadyRead(10000) && holder.readAll() == "held\n");

    open(ports);
    QCOMPARE(listened(), QStringList(QStringLiteral("COM2")));
    QVERIFY(box("portFailed"));
    QVERIFY2(box("portFailed")->text().startsWith(QLatin1String("Device COM1 failed to open: "))
            && box("portFailed")->text().contains(QLatin1String("\nAnother program holds the port: \"")),
        qPrintable(box("portFailed")->text()));
    QVERIFY(fact(StatusFacts::Failing).contains(QLatin1String("COM1")));
    QTRY_VERIFY(recordsOf("COM2") > 20);
    acceptPreferences(); // which tries again what is not open
    QCOMPARE(listened(), QStringList(QStringLiteral("COM2")));
    QCOMPARE(recordsOf("COM1"), 0);
    QVERIFY(fact(StatusFacts::Failing).contains(QLatin1String("COM1")));

    holder.kill();
    QVERIFY(holder.waitForFinished(10000));
    QTRY_COMPARE(listened(), QStringList({QStringLiteral("COM2"), QStringLiteral("COM1")}));
    QTRY_VERIFY(!box("portFailed"));
    QCOMPARE(fact(StatusFacts::Failing), QString());
    const int others = recordsOf("COM2");
    QTRY_VERIFY(recordsOf("COM1") > 20 && recordsOf("COM2") > others);
    QCOMPARE(recordingsOf("COM2").size(), 1); // one recording all the time
}

// As QTEST_MAIN does, but for the other program.
int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--hold") == 0)
        return holdPort(argv[2]);
    const QApplication application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi, true);
    QTEST_SET_MAIN_SOURCE_PATH
    TestLiveFaults test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_livefaults.moc"
