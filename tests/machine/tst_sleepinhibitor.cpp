#include "machine/sleepinhibitor.h"

#include "machine/sleepblock.h"
#include "settings/varnelsettings.h"
#include "support/shellfixture.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

/// The session manager of a desktop.
class FakeSession : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.SessionManager")
public:
    QSet<uint> held;
    QString asker;
    uint flags = 0;
    QString reason;

public slots:
    // NOLINTBEGIN(readability-identifier-naming): the names are those of the bus
    uint Inhibit(const QString &, uint, const QString &why, uint what)
    {
        static uint last = 100;
        asker = message().service();
        reason = why;
        flags = what;
        held.insert(++last);
        return last;
    }
    void Uninhibit(uint cookie) { held.remove(cookie); }
    // NOLINTEND(readability-identifier-naming)
};

/// The login manager of a system without a desktop: the block lasts as long as the file is open.
class FakeLogin : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public:
    int watched = -1;
    QString what;

    /// Nobody else has the file open any more.
    bool isClosed() const
    {
        char byte = 0;
        return watched != -1 && read(watched, &byte, 1) == 0;
    }

public slots:
    // NOLINTNEXTLINE(readability-identifier-naming): the name is that of the bus
    QDBusUnixFileDescriptor Inhibit(const QString &kinds, const QString &, const QString &, const QString &)
    {
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) != 0)
            return {};
        what = kinds;
        watched = ends[0];
        QDBusUnixFileDescriptor file;
        file.giveFileDescriptor(ends[1]);
        return file;
    }
};

/// Over a bus of its own, with the keepers played by the test.
class TestSleepInhibitor : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();
    void desktopIsAskedFirst();
    void loginManagerIsAskedNext();
    void takenBackBeforeTheAnswer();
    void blockLastsWhileAProcessIsRecorded();
    void busThatNeverAnswers();
    void busThatDies();

private:
    static QByteArray startBus(QProcess *daemon);
    void offer(QObject *keeper, const char *service, const char *path);

    ShellFixture fixture;
    QProcess daemon;
    QDBusConnection bus{QString()};
    FakeSession session;
    FakeLogin login;
};

void TestSleepInhibitor::initTestCase()
{
    if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
        QSKIP("no message bus to be had");
    const QByteArray address = startBus(&daemon);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
    bus = QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("keepers"));
    QVERIFY(bus.isConnected());
}

/// Its address.
QByteArray TestSleepInhibitor::startBus(QProcess *daemon)
{
    daemon->start(QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    return daemon->waitForReadyRead() ? daemon->readLine().trimmed() : QByteArray();
}

void TestSleepInhibitor::cleanup()
{
    for (const char *service : {"org.gnome.SessionManager", "org.freedesktop.login1"})
        bus.unregisterService(QLatin1String(service));
    VarnelSettings().clear();
}

void TestSleepInhibitor::cleanupTestCase()
{
    daemon.kill();
    daemon.waitForFinished();
}

void TestSleepInhibitor::offer(QObject *keeper, const char *service, const char *path)
{
    bus.registerObject(QLatin1String(path), keeper, QDBusConnection::ExportAllSlots);
    QVERIFY(bus.registerService(QLatin1String(service)));
}

void TestSleepInhibitor::desktopIsAskedFirst()
{
    SleepBlock block;
    offer(&session, "org.gnome.SessionManager", "/org/gnome/SessionManager");
    offer(&login, "org.freedesktop.login1", "/org/freedesktop/login1");
    block.acquire(QStringLiteral("charging"));
    block.acquire(QStringLiteral("charging"));
    QTRY_VERIFY(block.isHeld());
    QCOMPARE(session.held.size(), 1);
    QCOMPARE(session.flags, 4U);
    QCOMPARE(session.reason, QStringLiteral("charging"));
    QCOMPARE(login.watched, -1);
    block.release();
    QVERIFY(!block.isHeld());
    QTRY_VERIFY(session.held.isEmpty());
}

void TestSleepInhibitor::loginManagerIsAskedNext()
{
    offer(&login, "org.freedesktop.login1", "/org/freedesktop/login1");
    {
        SleepBlock block;
        block.acquire(QStringLiteral("charging"));
        QTRY_VERIFY(block.isHeld());
        QCOMPARE(login.what, QStringLiteral("sleep:idle"));
        QVERIFY(!login.isClosed());
    }
    QTRY_VERIFY(login.isClosed());
}

void TestSleepInhibitor::takenBackBeforeTheAnswer()
{
    offer(&session, "org.gnome.SessionManager", "/org/gnome/SessionManager");
    session.asker.clear();
    SleepBlock block;
    block.acquire(QStringLiteral("charging"));
    QTRY_VERIFY(!session.asker.isEmpty()); // the answer is on its way
    block.release();
    QTRY_VERIFY(!bus.interface()->isServiceRegistered(session.asker)); // its block has gone with it
    QVERIFY(!block.isHeld());
}

void TestSleepInhibitor::blockLastsWhileAProcessIsRecorded()
{
    offer(&session, "org.gnome.SessionManager", "/org/gnome/SessionManager");
    bool recording = true;
    SleepInhibitor inhibitor([&recording] { return recording; });
    QTimer *look = inhibitor.findChild<QTimer *>();
    QVERIFY(look->isActive() && look->interval() == 5000);
    look->start(1);
    QTRY_VERIFY(inhibitor.isHeld());
    VarnelSettings().setValue(QStringLiteral("power/keepAwake"), false);
    QTRY_VERIFY(!inhibitor.isHeld());
    VarnelSettings().setValue(QStringLiteral("power/keepAwake"), true);
    QTRY_VERIFY(inhibitor.isHeld());
    recording = false;
    QTRY_VERIFY(!inhibitor.isHeld());
}

// It takes the connection and says nothing. Who asks it waits, but neither this process nor, for long, the
// one that was started to ask.
void TestSleepInhibitor::busThatNeverAnswers()
{
    QLocalServer silent;
    QVERIFY(silent.listen(fixture.path(QStringLiteral("bus"))));
    const QByteArray usual = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + silent.fullServerName().toLocal8Bit());
    QLocalSocket *asker = nullptr;
    {
        SleepBlock block;
        block.acquire(QStringLiteral("charging"));
        QTRY_VERIFY(silent.hasPendingConnections());
        asker = silent.nextPendingConnection();
        QTRY_VERIFY(asker->bytesAvailable() > 0);
        QVERIFY(!block.isHeld());
    }
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", usual);
    QTRY_COMPARE(asker->state(), QLocalSocket::UnconnectedState);
}

// The block has gone with it; the login manager on the other bus grants one.
void TestSleepInhibitor::busThatDies()
{
    QProcess mortal;
    const QByteArray usual = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray address = startBus(&mortal);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QDBusConnection desktop
        = QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("mortal"));
    desktop.registerObject(
        QStringLiteral("/org/gnome/SessionManager"), &session, QDBusConnection::ExportAllSlots);
    QVERIFY(desktop.registerService(QStringLiteral("org.gnome.SessionManager")));
    offer(&login, "org.freedesktop.login1", "/org/freedesktop/login1");
    SleepBlock block;
    block.acquire(QStringLiteral("charging"));
    QTRY_VERIFY(block.isHeld());
    mortal.kill();
    QVERIFY(mortal.waitForFinished());
    QTRY_VERIFY(!block.isHeld());
    block.acquire(QStringLiteral("charging"));
    QTRY_VERIFY(block.isHeld() && !login.isClosed());
    QDBusConnection::disconnectFromBus(QStringLiteral("mortal"));
    qputenv("DBUS_SESSION_BUS_ADDRESS", usual);
}

int main(int argc, char **argv)
{
    if (SleepBlock::isHelper(argc, argv))
        return SleepBlock::runHelper(argc, argv);
    QTEST_MAIN_IMPL(TestSleepInhibitor)
}
#include "tst_sleepinhibitor.moc"
