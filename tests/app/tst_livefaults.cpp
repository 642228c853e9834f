#include "app/actionset.h"
#include "app/listenedports.h"
#include "app/mainwindow.h"
#include "app/statusfacts.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"
#include "simulator/rack.h"
#include "support/lines.h"
#include "support/ptypair.h"
#include "support/shellfixture.h"
#include "support/warningcollector.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QSerialPort>
#include <QtTest>

#include <ctime>
#include <functional>
#include <thread>

namespace {

constexpr int linesInTheSystem = 30; // that a line may hold when its adapter is pulled; they are gone

int openFiles()
{
    return int(QDir(QStringLiteral("/proc/self/fd"))
                   .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                   .size());
}

qint64 residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    return statm.open(QIODevice::ReadOnly) ? statm.readAll().split(' ').at(1).toLongLong() * 4096 : 0;
}

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace

class TestLiveFaults;
Q_DECLARE_METATYPE(std::function<void(TestLiveFaults *)>)

/// Simulated devices that break off, stand still or babble, under the whole program: nothing that was received is lost,
/// the other devices go on, and whatever is on the screen may be closed meanwhile.
class TestLiveFaults : public QObject {
    Q_OBJECT

public slots:
    void toggleOne();

private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup();
    void hangUpInMidLine();
    void hangUpDuringCommand_data();
    void hangUpDuringCommand();
    void hangUpDuringEndBox();
    void hangUpWhileClosing_data();
    void hangUpWhileClosing();
    void heldByAnotherProgram();
    void hourWithoutLineEnd();
    void portsComeAndGo();

private:
    void add(const QStringList &descriptions);
    void start(const QStringList &ports);
    sim::SimDevice *device(const char *port) const { return rack->device(QLatin1String(port)); }
    QVector<const MdiGraphChild *> recordingsOf(const char *port) const;
    int recordsOf(const char *port) const;
    QMessageBox *box() const { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); }
    void trigger(ActionId id) { window->actionSet()[id]->trigger(); }

    std::unique_ptr<ShellFixture> fixture;
    std::unique_ptr<sim::Rack> rack;
    std::unique_ptr<MainWindow> window;
    QStringList told; // by devices: what they were sent, what happened to them
    size_t toggled = 0;
};

void TestLiveFaults::init()
{
    fixture = std::make_unique<ShellFixture>();
    sim::RunSettings run;
    run.folder = fixture->portFolder();
    run.speed = 50;
    rack = std::make_unique<sim::Rack>(run);
    told.clear();
    connect(rack.get(), &sim::Rack::happened, this, [this](const QString &text) { told.append(text); });
}

void TestLiveFaults::cleanup()
{
    if (window)
        window->close();
    window.reset();
    rack.reset();
    fixture.reset();
}

void TestLiveFaults::add(const QStringList &descriptions)
{
    QString error;
    for (const QString &description : descriptions)
        QVERIFY2(rack->add(description, &error), qPrintable(error));
}

void TestLiveFaults::start(const QStringList &ports)
{
    VarnelSettings().setPorts(ports);
    window = std::make_unique<MainWindow>();
    window->show();
    QTRY_VERIFY(!window->listenedPorts().readers().isEmpty());
}

QVector<const MdiGraphChild *> TestLiveFaults::recordingsOf(const char *port) const
{
    QVector<const MdiGraphChild *> found;
    const auto children = window->mdiChildren();
    for (const MdiGraphChild *child : children) {
        if (child->fileName() == QLatin1String(port))
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
    add({QStringLiteral("COM1:varnel3,balance,start=open"), QStringLiteral("COM2:varnel2plus,start=open")});
    start({QStringLiteral("COM1"), QStringLiteral("COM2")});
    QTRY_VERIFY(recordsOf("COM1") > 20);
    device("COM1")->hangUp(1);
    QTRY_VERIFY(!device("COM1")->isPlugged());
    QTRY_COMPARE(window->statusFacts().text(StatusFacts::Lost), QStringLiteral("Lost: COM1"));
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
    QTest::addColumn<int>("beeps"); // of the other device
    QTest::newRow("in its own pause") << 150 << 1;
    QTest::newRow("in the other's pause") << 700 << 1;
    QTest::newRow("before the first byte") << 0 << 1;
}

void TestLiveFaults::hangUpDuringCommand()
{
    QFETCH(int, delay);
    QFETCH(int, beeps);
    add({QStringLiteral("COM1:varnel3,start=remote"), QStringLiteral("COM2:varnel3,start=remote")});
    start({QStringLiteral("COM1"), QStringLiteral("COM2")});
    QTRY_COMPARE(window->listenedPorts().readers().size(), 2);
    QTimer::singleShot(delay, this, [this] { device("COM1")->unplug(); });
    trigger(ActionId::SetTime);
    QTRY_COMPARE(window->listenedPorts().portNames(), QStringList(QStringLiteral("COM2")));
    QTRY_COMPARE(device("COM2")->panel().beeps(), beeps);
    QVERIFY(!QApplication::overrideCursor());
    trigger(ActionId::SetTime);
    QTRY_COMPARE(device("COM2")->panel().beeps(), beeps + 1);
}

// The box is about a device that is gone: closing it must tell the remaining one nothing.
void TestLiveFaults::hangUpDuringEndBox()
{
    add({QStringLiteral("COM1:varnel3,start=open"), QStringLiteral("COM2:varnel3,start=open,endless")});
    start({QStringLiteral("COM1"), QStringLiteral("COM2")});
    QTRY_VERIFY(recordsOf("COM1") > 10 && recordsOf("COM2") > 10);
    int under = 0; // records of the other device while the box stood
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&, atFirst = -1]() mutable {
        if (!box())
            return;
        if (atFirst < 0) {
            atFirst = recordsOf("COM2");
            device("COM1")->unplug();
        }
        under = recordsOf("COM2") - atFirst;
        if (under > 30)
            box()->close();
    });
    watch.start(10);
    device("COM1")->endProcess('E');
    QTRY_VERIFY(under > 30 && !box());
    QTRY_COMPARE(window->listenedPorts().portNames(), QStringList(QStringLiteral("COM2")));
    QTest::qWait(200);
    QVERIFY(!told.contains(QStringLiteral("COM2 told #STOP")));
    QCOMPARE(window->mdiChildren().size(), 2);
}

void TestLiveFaults::hangUpWhileClosing_data()
{
    using Act = std::function<void(TestLiveFaults *)>;
    QTest::addColumn<Act>("act");
    const auto row = [](const char *name, const Act &act) { QTest::newRow(name) << act; };
    const Act unplug = [](TestLiveFaults *test) { test->device("COM1")->hangUp(0); };
    const Act closeGraph
        = [](TestLiveFaults *test) { test->recordingsOf("COM1").constFirst()->parentWidget()->close(); };
    const Act closeAll = [](TestLiveFaults *test) { test->window->close(); };
    const Act stop = [](TestLiveFaults *test) { test->window->stopRecording(); };
    const Act remove = [](TestLiveFaults *test) { test->window.reset(); };
    row("adapter, then graph window", [=](TestLiveFaults *t) {
        unplug(t);
        closeGraph(t);
    });
    row("graph window, then adapter", [=](TestLiveFaults *t) {
        closeGraph(t);
        unplug(t);
    });
    row("adapter, then program", [=](TestLiveFaults *t) {
        unplug(t);
        closeAll(t);
    });
    row("program, then adapter", [=](TestLiveFaults *t) {
        closeAll(t);
        unplug(t);
    });
    row("adapter, then listening ends", [=](TestLiveFaults *t) {
        unplug(t);
        stop(t);
        closeGraph(t);
    });
    row("adapter, then all is gone", [=](TestLiveFaults *t) {
        unplug(t);
        closeAll(t);
        remove(t);
    });
}

void TestLiveFaults::hangUpWhileClosing()
{
    QFETCH(std::function<void(TestLiveFaults *)>, act);
    const WarningCollector collector;
    add({QStringLiteral("COM1:varnel3,balance,start=open"), QStringLiteral("COM2:varnel3,start=open")});
    start({QStringLiteral("COM1"), QStringLiteral("COM2")});
    QTRY_VERIFY(recordsOf("COM1") > 5 && recordsOf("COM2") > 5);
    device("COM1")->sendRaw("#06C05");
    act(this);
    QTest::qWait(600);
    QVERIFY(!window || !window->listenedPorts().portNames().contains(QStringLiteral("COM1")));
    QVERIFY(!window || window->isVisible() || window->listenedPorts().readers().isEmpty());
    QCOMPARE(collector.warnings(), QStringList());
}

void TestLiveFaults::heldByAnotherProgram()
{
    add({QStringLiteral("COM1:varnel3,start=remote"), QStringLiteral("COM2:varnel3,start=open")});
    QSerialPort other(QFile::symLinkTarget(fixture->portFolder() + QStringLiteral("/COM1")));
    QVERIFY(other.open(QIODevice::ReadWrite));
    start({QStringLiteral("COM1"), QStringLiteral("COM2")});
    QTRY_VERIFY(recordsOf("COM2") > 10); // the box does not stand in its way
    auto *failed = window->findChild<QMessageBox *>(QStringLiteral("portFailed"));
    QVERIFY(failed);
    QVERIFY2(failed->text().contains(QStringLiteral("Another program holds the port.")),
        qPrintable(failed->text()));
    other.close();
    window->startRecording();
    QCOMPARE(window->listenedPorts().readers().size(), 2);
    device("COM1")->startProcess();
    QTRY_VERIFY(recordsOf("COM1") > 10);
}

// A device with the wrong rate or a broken converter sends no line end for an hour: 1920 bytes a second. What it sends
// is kept as bytes, costs the same at the end as at the beginning, and the next good line is a record again.
void TestLiveFaults::hourWithoutLineEnd()
{
    constexpr int quarter = 1920 * 900;
    PtyPair babbler(fixture->portFolder(), QStringLiteral("COM7"));
    add({QStringLiteral("COM2:varnel3,start=open,endless")});
    start({QStringLiteral("COM2"), QStringLiteral("COM7")});
    QTRY_COMPARE(window->listenedPorts().readers().size(), 2);
    const QByteArray bytes = QByteArray(",12345,\x91\x02zzzz").repeated(quarter / 12);
    [[maybe_unused]] const qint64 memoryBefore = residentBytes();
    QVector<double> cost; // seconds of the processor, by quarters
    for (int i = 0; i < 4; ++i) {
        std::atomic<bool> done = false;
        const double before = processorSeconds();
        std::thread sender([&] {
            babbler.send(bytes);
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
    babbler.send("\r\n" + Lines::charger(1) + Lines::charger(2));
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
    add({QStringLiteral("COM1:varnel3,endless"), QStringLiteral("COM2:varnel3,balance,endless"),
        QStringLiteral("COM3:varnel2plus,endless"), QStringLiteral("COM4:varnel2,endless")});
    const QStringList ports{
        QStringLiteral("COM1"), QStringLiteral("COM2"), QStringLiteral("COM3"), QStringLiteral("COM4")};
    start(ports);
    QTRY_COMPARE(window->listenedPorts().readers().size(), 4);
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
    QTRY_VERIFY_WITH_TIMEOUT(window->listenedPorts().readers().size() == 4, 10000);
    QStringList listened = window->listenedPorts().portNames();
    std::sort(listened.begin(), listened.end());
    QCOMPARE(listened, ports);
    for (const char *port : {"COM1", "COM2", "COM3", "COM4"}) {
        const int before = recordsOf(port);
        QTRY_VERIFY2(recordsOf(port) > before, port);
    }
    QCOMPARE(window->statusFacts().text(StatusFacts::Lost), QString());
    QVERIFY(window->findChildren<QMessageBox *>().isEmpty());
    QCOMPARE(collector.warnings(), QStringList());
    QTRY_COMPARE(openFiles(), filesBefore); // journals are closed once they are on the disk
}

QTEST_MAIN(TestLiveFaults)
#include "tst_livefaults.moc"
