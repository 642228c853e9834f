#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "support/simrig.h"
#include "support/warningcollector.h"

#include <QDir>
#include <QTimer>

namespace {

constexpr int linesInTheSystem = 30; // that a line may hold when its adapter is pulled; they are gone

int openFiles()
{
    return int(QDir(QStringLiteral("/proc/self/fd"))
                   .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                   .size());
}

} // namespace

/// Simulated devices that break off, under the whole program: nothing that was received is lost, and the other
/// devices go on.
class TestLiveFaults : public QObject, private SimRig {
    Q_OBJECT

public slots:
    void toggleOne();

private slots:
    void initTestCase() { initResources(); }
    void init() { setUp(50); }
    void cleanup() { tearDown(); }
    void hangUpInMidLine();
    void portsComeAndGo();

private:
    QVector<const MdiGraphChild *> recordingsOf(const char *port) const;
    int recordsOf(const char *port) const;

    int toggled = 0;
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

void TestLiveFaults::toggleOne()
{
    sim::SimDevice *one = rack->devices()[size_t(toggled++) % rack->devices().size()].get();
    QString error;
    if (one->isPlugged())
        one->unplug();
    else
        QVERIFY2(one->plug(&error), qPrintable(error));
}

// Four loose plugs, each going or coming twice a second, 16 times in all or for VARNEL_SECONDS.
void TestLiveFaults::portsComeAndGo()
{
    bool given = false;
    const int seconds = qEnvironmentVariableIntValue("VARNEL_SECONDS", &given);
    start({QStringLiteral("COM1:varnel3,endless"), QStringLiteral("COM2:varnel3,balance,endless"),
        QStringLiteral("COM3:varnel2plus,endless"), QStringLiteral("COM4:varnel2,endless")});
    const QStringList ports = listened();
    toggled = 0;
    for (const QString &port : ports)
        QTRY_VERIFY2(recordsOf(port.toLatin1()) > 0, qPrintable(port)); // each has its journal open
    const int filesBefore = openFiles();
    const WarningCollector collector;
    QTimer plugs;
    connect(&plugs, SIGNAL(timeout()), this, SLOT(toggleOne()));
    plugs.start(125);
    QTRY_VERIFY_WITH_TIMEOUT(toggled >= (given ? 8 * seconds : 16), 1000 * (20 + 2 * seconds));
    plugs.stop();
    QString error;
    for (const auto &one : rack->devices())
        QVERIFY2(one->plug(&error), qPrintable(error));
    QTRY_VERIFY_WITH_TIMEOUT(listened().size() == 4, 20000);
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

QTEST_MAIN(TestLiveFaults)
#include "tst_livefaults.moc"
