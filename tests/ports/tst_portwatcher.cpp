#include "ports/portwatcher.h"

#include "ports/portscan.h"
#include "support/ptypair.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

namespace {

constexpr int soon = 2000; // ms
constexpr int quiet = 2500; // ms; longer than a watcher takes to notice

} // namespace

class PortWatcherTest : public QObject {
    Q_OBJECT

public slots:
    void noteArrival(const PortInfo &port) { events.append('+' + port.name); }
    void noteRemoval(const PortInfo &port) { events.append('-' + port.name); }

private slots:
    void initTestCase();
    void init();
    void tellsComingAndGoing();
    void tellsADeviceThatTookAnothersPlace();
    void tellsAReturnThatItCouldNotSee();
    void looksAreCheap();

private:
    QTemporaryDir folder;
    QStringList events;
    std::unique_ptr<PtyPair> present;
    std::unique_ptr<PortWatcher> watcher;
};

void PortWatcherTest::initTestCase()
{
    QVERIFY(folder.isValid());
    qputenv("VARNEL_PORT_DIR", folder.path().toLocal8Bit());
}

void PortWatcherTest::init()
{
    events.clear();
    present.reset();
    present = std::make_unique<PtyPair>(folder.path(), QStringLiteral("COM7"));
    watcher = std::make_unique<PortWatcher>();
    connect(watcher.get(), SIGNAL(arrived(PortInfo)), this, SLOT(noteArrival(PortInfo)));
    connect(watcher.get(), SIGNAL(removed(PortInfo)), this, SLOT(noteRemoval(PortInfo)));
}

void PortWatcherTest::tellsComingAndGoing()
{
    {
        const PtyPair fifth(folder.path(), QStringLiteral("COM5"));
        const PtyPair third(folder.path(), QStringLiteral("COM3"));
        QTRY_COMPARE_WITH_TIMEOUT(events, QStringList({"+COM3", "+COM5"}), soon);
        present->hangUp();
        QTRY_COMPARE_WITH_TIMEOUT(events, QStringList({"+COM3", "+COM5", "-COM7"}), soon);
        events.clear();
    }
    QTRY_COMPARE_WITH_TIMEOUT(events.size(), 2, soon);
    events.sort();
    QCOMPARE(events, QStringList({"-COM3", "-COM5"}));
    QTest::qWait(quiet);
    QCOMPARE(events.size(), 2);
}

// Within one look, so that the port is never seen missing.
void PortWatcherTest::tellsADeviceThatTookAnothersPlace()
{
    const QString path = folder.filePath(QStringLiteral("COM7"));
    const PtyPair other(folder.path(), QStringLiteral("spare"));
    QCOMPARE(std::rename(qPrintable(folder.filePath(QStringLiteral("spare"))), qPrintable(path)), 0);
    QTRY_COMPARE_WITH_TIMEOUT(events, QStringList({"-COM7", "+COM7"}), soon);
    QCOMPARE(findPort(QStringLiteral("COM7")).location, QFile::symLinkTarget(path));
}

void PortWatcherTest::tellsAReturnThatItCouldNotSee()
{
    watcher->noteLost(QStringLiteral("COM7"));
    QTest::qWait(500);
    QCOMPARE(events, QStringList());
    QTRY_COMPARE_WITH_TIMEOUT(events, QStringList({"-COM7", "+COM7"}), soon);
    watcher->noteLost(QStringLiteral("COM7"));
    watcher->noteLost(QStringLiteral("COM77"));
    present->hangUp();
    QTRY_COMPARE_WITH_TIMEOUT(events, QStringList({"-COM7", "+COM7", "-COM7"}), soon);
    QTest::qWait(quiet);
    QCOMPARE(events.size(), 3);
}

// One a second must not be felt, nor seen among the busy programs.
void PortWatcherTest::looksAreCheap()
{
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 100; ++i)
        QCOMPARE(portFingerprint(), portFingerprint());
    QVERIFY2(clock.elapsed() < 400, qPrintable(QString::number(clock.elapsed())));
}

QTEST_GUILESS_MAIN(PortWatcherTest)
#include "tst_portwatcher.moc"
