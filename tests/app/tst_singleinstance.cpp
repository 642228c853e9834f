#include "app/singleinstance.h"

#include "support/asnobody.h"

#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>

namespace {

constexpr QFileDevice::Permissions ownOnly
    = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
constexpr QFileDevice::Permissions anybody
    = ownOnly | QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;

/// The one socket in `folder`; empty without one.
QString socketIn(const QString &folder)
{
    const QStringList names = QDir(folder).entryList({QStringLiteral("varnelgraph-*")}, QDir::System);
    return names.isEmpty() ? QString() : folder + QLatin1Char('/') + names.first();
}

} // namespace

/// A second start hands its files to the first.
class TestSingleInstance : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void filesAreHandedOver();
    void othersAreLeftAlone();
    void firstOneLeaves();
    void nonsenseIsRefused_data();
    void nonsenseIsRefused();
    void placeIsTheUsersOwn_data();
    void placeIsTheUsersOwn();
    void strangersAreNeitherHeardNorTold();

private:
    QTemporaryDir folder;
};

void TestSingleInstance::initTestCase()
{
    QFile::setPermissions(folder.path(), ownOnly);
    qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
}

void TestSingleInstance::filesAreHandedOver()
{
    SingleInstance first(QStringLiteral("settings"));
    QCOMPARE(first.settle({}), SingleInstance::Role::First);
    QSignalSpy called(&first, SIGNAL(called(QStringList)));
    const QStringList files = {QStringLiteral("/a/b.acp"), QStringLiteral("/a/\u017c\u00f3\u0142w.acp")};
    bool handed = false;
    // The second start is another program; here a thread that blocks in its stead.
    QScopedPointer<QThread> second(QThread::create([&] {
        SingleInstance instance(QStringLiteral("settings"));
        handed = instance.settle(files) == SingleInstance::Role::HandedOver;
    }));
    second->start();
    QTRY_VERIFY(second->isFinished());
    QVERIFY(handed);
    QCOMPARE(called.size(), 1);
    QCOMPARE(called.first().first().toStringList(), files);
}

void TestSingleInstance::othersAreLeftAlone()
{
    SingleInstance first(QStringLiteral("settings"));
    SingleInstance demo(QStringLiteral("settings of a demonstration"));
    QCOMPARE(first.settle({}), SingleInstance::Role::First);
    QCOMPARE(demo.settle({}), SingleInstance::Role::First);
}

void TestSingleInstance::firstOneLeaves()
{
    auto first = std::make_unique<SingleInstance>(QStringLiteral("settings"));
    QCOMPARE(first->settle({}), SingleInstance::Role::First);
    QSignalSpy called(first.get(), SIGNAL(called(QStringList)));
    first->retire();
    SingleInstance::Role role = SingleInstance::Role::Unanswered;
    QScopedPointer<QThread> second(QThread::create(
        [&] { role = SingleInstance(QStringLiteral("settings")).settle({QStringLiteral("/a/b.acp")}); }));
    second->start();
    QTest::qWait(300); // a program takes its time to leave; a start must not hand its files to it
    QVERIFY(second->isRunning());
    first->giveBack(); // while it is still there, with a disk to wait for
    QTRY_VERIFY(second->isFinished());
    QCOMPARE(role, SingleInstance::Role::First);
    QVERIFY(called.isEmpty());
}

void TestSingleInstance::nonsenseIsRefused_data()
{
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("another protocol, a count behind it") << QByteArray("GET / HT");
    QTest::newRow("one wrong letter") << QByteArray("VNX");
    QTest::newRow("length beyond all bounds") << QByteArray("VNL2\xff\xff\xff\xff", 8);
    QTest::newRow("length just beyond the bound") << QByteArray("VNL2\x01\x00\x00\x01", 8);
}

void TestSingleInstance::nonsenseIsRefused()
{
    QFETCH(QByteArray, said);
    SingleInstance first(QStringLiteral("settings"));
    QCOMPARE(first.settle({}), SingleInstance::Role::First);
    QSignalSpy called(&first, SIGNAL(called(QStringList)));
    QLocalSocket talker;
    talker.connectToServer(socketIn(folder.path()));
    talker.write(said);
    QTRY_COMPARE(talker.state(), QLocalSocket::UnconnectedState);
    QVERIFY(called.isEmpty());
}

void TestSingleInstance::placeIsTheUsersOwn_data()
{
    QTest::addColumn<bool>("given");
    QTest::addColumn<int>("permissions");
    QTest::addColumn<bool>("used");
    QTest::newRow("a runtime folder") << true << int(ownOnly) << true;
    QTest::newRow("a folder that others can write to") << true << int(anybody) << false;
    QTest::newRow("no runtime folder") << false << int(ownOnly) << false;
}

void TestSingleInstance::placeIsTheUsersOwn()
{
    QFETCH(bool, given);
    QFETCH(int, permissions);
    QFETCH(bool, used);
    const QTemporaryDir home;
    const QTemporaryDir runtime;
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", given ? runtime.path().toLocal8Bit() : QByteArray());
    QFile::setPermissions(runtime.path(), QFileDevice::Permissions(permissions));
    SingleInstance first(QStringLiteral("settings"));
    QCOMPARE(first.settle({}), SingleInstance::Role::First);
    qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
    const QString run
        = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/run");
    QCOMPARE(!socketIn(runtime.path()).isEmpty(), used);
    QCOMPARE(!socketIn(run).isEmpty(), !used);
    if (!used)
        QCOMPARE(QFile::permissions(run) & anybody, ownOnly);
}

// Should the folder ever let somebody in, the system still says who is at the other end.
void TestSingleInstance::strangersAreNeitherHeardNorTold()
{
    if (geteuid() != 0)
        QSKIP("only the superuser can be two users");
    SingleInstance first(QStringLiteral("settings"));
    QCOMPARE(first.settle({}), SingleInstance::Role::First);
    QSignalSpy called(&first, SIGNAL(called(QStringList)));
    const QString place = socketIn(folder.path());
    QFile::setPermissions(folder.path(), anybody);
    QFile::setPermissions(place, anybody);
    QLocalSocket stranger;
    QLocalServer trap;
    {
        const AsNobody nobody;
        stranger.connectToServer(place);
        QVERIFY(stranger.waitForConnected());
    }
    stranger.write(QByteArray("VNL2\0\0\0\3/x\0", 11));
    QTRY_COMPARE(stranger.state(), QLocalSocket::UnconnectedState);
    QVERIFY(called.isEmpty());

    QVERIFY(QFile::remove(place));
    {
        const AsNobody nobody;
        QVERIFY(trap.listen(place));
    }
    QFile::setPermissions(folder.path(), ownOnly);
    SingleInstance::Role role = SingleInstance::Role::Unanswered;
    QScopedPointer<QThread> second(QThread::create(
        [&] { role = SingleInstance(QStringLiteral("settings")).settle({QStringLiteral("/a/b.acp")}); }));
    second->start();
    QTRY_VERIFY(trap.hasPendingConnections());
    QLocalSocket *caught = trap.nextPendingConnection();
    QTRY_COMPARE(caught->state(), QLocalSocket::UnconnectedState);
    QCOMPARE(caught->readAll(), QByteArray());
    first.giveBack();
    QTRY_VERIFY(second->isFinished());
    QCOMPARE(role, SingleInstance::Role::First);
}

QTEST_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
