#include "ports/portwatcher.h"

#include "support/ptypair.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <cstdio>

class PortWatcherTest : public QObject {
    Q_OBJECT

public slots:
    void noteArrival(const PortInfo &port) { events.append('+' + port.name); }
    void noteRemoval(const PortInfo &port) { events.append('-' + port.name + ' ' + port.location); }

private slots:
    void initTestCase();
    void init();
    void tellsComingAndGoing();
    void tellsADeviceThatTookAnothersPlace();
    void tellsAReturnThatItCouldNotSee();

private:
    QString locationOf(const char *port) const
    {
        return QFile::symLinkTarget(folder.filePath(QLatin1String(port)));
    }

    QTemporaryDir folder;
    QStringList events;
    std::unique_ptr<PtyPair> present;
    std::unique_ptr<PortWatcher> watcher;
};

void PortWatcherTest::initTestCase()
{
    QVERIFY(folder.isValid());
    qputenv("VARNEL_PORT_DIR", folder.path().toLocal8Bit());
    const PortWatcher usual;
    QCOMPARE(usual.findChild<QTimer *>()->interval(), 1000);
}

void PortWatcherTest::init()
{
    events.clear();
    present.reset();
    present = std::make_unique<PtyPair>(folder.path(), QStringLiteral("COM7"));
    watcher = std::make_unique<PortWatcher>(nullptr, 10);
    connect(watcher.get(), SIGNAL(arrived(PortInfo)), this, SLOT(noteArrival(PortInfo)));
    connect(watcher.get(), SIGNAL(removed(PortInfo)), this, SLOT(noteRemoval(PortInfo)));
}

// Each once: what came next follows in the list.
void PortWatcherTest::tellsComingAndGoing()
{
    const QString seventh = "-COM7 " + locationOf("COM7");
    auto fifth = std::make_unique<PtyPair>(folder.path(), QStringLiteral("COM5"));
    const QString fifthGone = "-COM5 " + locationOf("COM5");
    QTRY_COMPARE(events, QStringList({"+COM5"}));
    present->hangUp();
    QTRY_COMPARE(events, QStringList({"+COM5", seventh}));
    const PtyPair third(folder.path(), QStringLiteral("COM3"));
    QTRY_COMPARE(events, QStringList({"+COM5", seventh, "+COM3"}));
    fifth.reset();
    QTRY_COMPARE(events, QStringList({"+COM5", seventh, "+COM3", fifthGone}));
}

// Within one look, so that the port is never seen missing.
void PortWatcherTest::tellsADeviceThatTookAnothersPlace()
{
    const QString before = locationOf("COM7");
    const PtyPair other(folder.path(), QStringLiteral("spare"));
    const QByteArray path = QFile::encodeName(folder.path());
    QCOMPARE(std::rename(path + "/spare", path + "/COM7"), 0);
    QTRY_COMPARE(events, QStringList({"-COM7 " + before, "+COM7"}));
    QCOMPARE(findPort(QStringLiteral("COM7")).location, locationOf("COM7"));
    QVERIFY(before != locationOf("COM7"));
}

void PortWatcherTest::tellsAReturnThatItCouldNotSee()
{
    const QString gone = "-COM7 " + locationOf("COM7");
    watcher->noteLost(QStringLiteral("COM77"));
    watcher->noteLost(QStringLiteral("COM7"));
    QCOMPARE(events, QStringList());
    QTRY_COMPARE(events, QStringList({gone, "+COM7"}));
    watcher->noteLost(QStringLiteral("COM7"));
    present->hangUp();
    QTRY_COMPARE(events, QStringList({gone, "+COM7", gone}));
    const PtyPair next(folder.path(), QStringLiteral("COM8"));
    QTRY_COMPARE(events, QStringList({gone, "+COM7", gone, "+COM8"}));
}

QTEST_GUILESS_MAIN(PortWatcherTest)
#include "tst_portwatcher.moc"
