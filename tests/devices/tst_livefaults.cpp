#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "support/simrig.h"
#include "support/warningcollector.h"

#include <QDir>
#include <QTimer>

namespace {

int openFiles()
{
    return int(QDir(QStringLiteral("/proc/self/fd"))
                   .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                   .size());
}

} // namespace

/// Simulated devices that break off, under the whole program: nothing that was received is lost, and the
/// other devices go on.
class TestLiveFaults : public QObject, private SimRig {
    Q_OBJECT

public slots:
    void toggleOne();

private slots:
    void initTestCase() { initResources(); }
    void init() { setUp(50); }
    void cleanup() { tearDown(); }
    void portsComeAndGo();

private:
    int recordsOf(const QString &port) const;

    int toggled = 0;
};

int TestLiveFaults::recordsOf(const QString &port) const
{
    int records = 0;
    const auto children = window->mdiChildren();
    for (const MdiGraphChild *child : children)
        records += child->portName() == port ? child->store().size() : 0;
    return records;
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
        QTRY_VERIFY2(recordsOf(port) > 0, qPrintable(port)); // each has its journal open
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
        const int before = recordsOf(port);
        QTRY_VERIFY2(recordsOf(port) > before, qPrintable(port));
    }
    const auto children = window->mdiChildren();
    for (const MdiGraphChild *child : children) {
        for (int i = 1; i < child->store().size(); ++i)
            QCOMPARE(child->store().records()[i].time, child->store().records()[i - 1].time + 1);
    }
    QCOMPARE(fact(StatusFacts::Lost), QString());
    QVERIFY(window->findChildren<QMessageBox *>().isEmpty());
    QCOMPARE(collector.warnings(), QStringList());
    QTRY_VERIFY(openFiles() <= filesBefore); // journals are closed once they are on the disk
}

QTEST_MAIN(TestLiveFaults)
#include "tst_livefaults.moc"
