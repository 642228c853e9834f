#include "machine/sleepinhibitor.h"

#include "machine/sleepblock.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/literal.h"
#include "support/shellfixture.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QtTest>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A message bus, and all who keep a computer awake on request there under their names: they give the number
/// 101, or as the login manager a file.
class Bus : public QDBusVirtualObject {
public:
    /// Its address is in the environment under `name` then.
    Bus(const char *name, const QStringList &services)
    {
        m_daemon.start("dbus-daemon"_s, {"--session", "--nofork", "--print-address"});
        const QByteArray address = m_daemon.waitForReadyRead() ? m_daemon.readLine().trimmed() : "none";
        qputenv(name, address);
        connection = QDBusConnection::connectToBus(QString::fromLatin1(address), address);
        connection.registerVirtualObject("/org"_s, this, QDBusConnection::SubPath);
        for (const QString &service : services)
            connection.registerService(service);
    }
    ~Bus() override
    {
        end();
        QDBusConnection::disconnectFromBus(connection.name());
    }

    void end()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        QStringList words;
        const QVariantList arguments = message.arguments();
        for (const QVariant &argument : arguments)
            words.append(argument.toString());
        calls.append(
            "%1 %2 %3(%4)"_s.arg(message.path(), message.interface(), message.member(), words.join(", "_s)));
        if (refuses)
            return bus.send(message.createErrorReply(QDBusError::AccessDenied, "not today"_s));
        if (!message.path().endsWith("login1"_s))
            return bus.send(message.createReply(quint32(101)));
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) != 0)
            return false;
        m_watched = ends[0];
        QDBusUnixFileDescriptor file;
        file.giveFileDescriptor(ends[1]);
        return bus.send(message.createReply(QVariant::fromValue(file)));
    }

    /// Nobody has the file that was given any more.
    bool isFileClosed() const
    {
        char byte = 0;
        return m_watched != -1 && read(m_watched, &byte, 1) == 0;
    }

    QDBusConnection connection{QString()};
    QStringList calls; ///< "path interface method(arguments)"
    bool refuses = false;

private:
    QProcess m_daemon;
    int m_watched = -1;
};

const char sessionBus[] = "DBUS_SESSION_BUS_ADDRESS";
const char systemBus[] = "DBUS_SYSTEM_BUS_ADDRESS";
const char sessionManager[] = "org.gnome.SessionManager";
const char loginManager[] = "org.freedesktop.login1";

} // namespace

/// Over buses of its own, with the keepers played by the test.
class TestSleepInhibitor : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable("dbus-daemon"_s).isEmpty())
            QSKIP("no message bus to be had");
    }

    // Each as long as none of those before it is there or willing. A file is given back by closing it.
    void keepersAreAskedInTurn()
    {
        const struct {
            QString service, object, arguments, release;
        } keepers[] = {
            {sessionManager, "/org/gnome/SessionManager org.gnome.SessionManager",
                "VarnelGraph, 0, charging, 4", "Uninhibit"},
            {"org.freedesktop.PowerManagement",
                "/org/freedesktop/PowerManagement/Inhibit org.freedesktop.PowerManagement.Inhibit",
                "VarnelGraph, charging", "UnInhibit"},
            {loginManager, "/org/freedesktop/login1 org.freedesktop.login1.Manager",
                "sleep:idle, VarnelGraph, charging, block", QString()},
            {"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver org.freedesktop.ScreenSaver",
                "VarnelGraph, charging", "UnInhibit"},
        };
        QStringList there;
        for (const auto &keeper : keepers)
            there.append(keeper.service);
        for (const auto &keeper : keepers) {
            Bus session(sessionBus, there), system(systemBus, there);
            Bus &asked = keeper.service == loginManager ? system : session;
            const QString call = "%1 Inhibit(%2)"_s.arg(keeper.object, keeper.arguments);
            QStringList calls(call);
            const uint filesBefore = openFiles();
            {
                SleepBlock block;
                block.acquire("charging"_s);
                block.acquire("charging"_s);
                QTRY_VERIFY(block.isHeld());
                QVERIFY(asked.calls == calls && !asked.isFileClosed());
            }
            if (!keeper.release.isEmpty()) {
                calls.append("%1 %2(101)"_s.arg(keeper.object, keeper.release));
                QCOMPARE(openFiles(), filesBefore);
            }
            QTRY_COMPARE(asked.calls, calls);
            QTRY_COMPARE(asked.isFileClosed(), keeper.release.isEmpty());
            QCOMPARE(session.calls + system.calls, calls);
            asked.refuses = true; // the next one is asked
            SleepBlock next;
            next.acquire("charging"_s);
            QTRY_VERIFY(asked.calls.count(call) == 2);
            QTRY_COMPARE(next.isHeld(), there.size() > 1);
            there.removeFirst();
        }
        const auto everyHelperIsBuried = [] {
            SleepBlock().release();
            siginfo_t ended;
            return ::waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) != 0 && errno == ECHILD;
        };
        QTRY_VERIFY(everyHelperIsBuried());
    }

    void blockLastsWhileAProcessIsRecorded()
    {
        const Bus bus(sessionBus, {sessionManager});
        bool recording = true;
        SleepInhibitor inhibitor([&recording] { return recording; });
        auto *look = inhibitor.findChild<QTimer *>();
        QVERIFY(look->isActive() && look->interval() == 5000);
        look->start(1);
        QTRY_VERIFY(inhibitor.isHeld());
        QVERIFY(bus.calls.value(0).contains("A process is being recorded"_s));
        for (const bool wanted : {false, true}) {
            VarnelSettings().setValue(SettingsKey::keepAwake, wanted);
            QTRY_COMPARE(inhibitor.isHeld(), wanted);
        }
        recording = false;
        QTRY_VERIFY(!inhibitor.isHeld());
    }

    // It takes the connection and says nothing. Who asks it waits, but neither this process nor, for long,
    // the one that was started to ask.
    void busThatNeverAnswers()
    {
        const Bus nobodyThere(sessionBus, {});
        QLocalServer silent;
        QVERIFY(silent.listen(fixture.path("bus"_s)));
        qputenv(systemBus, "unix:path=" + silent.fullServerName().toLocal8Bit());
        for (const bool killed : {false, true}) {
            QLocalSocket *asker = nullptr;
            {
                SleepBlock block;
                block.acquire("charging"_s);
                QTRY_VERIFY(silent.hasPendingConnections());
                asker = silent.nextPendingConnection();
                QTRY_VERIFY(asker->bytesAvailable() > 0);
                QVERIFY(!block.isHeld());
                const uint filesBefore = openFiles();
                if (killed) { // another one would fare no better
                    const QByteArray helper = contents("/proc/thread-self/children"_s).simplified();
                    QCOMPARE(::kill(helper.split(' ').constLast().toInt(), SIGKILL), 0);
                    QTRY_COMPARE(openFiles(), filesBefore - 2); // what it said, and the asker
                    block.acquire("charging"_s);
                    QCOMPARE(openFiles(), filesBefore - 2);
                }
            }
            QTRY_COMPARE_WITH_TIMEOUT(asker->state(), QLocalSocket::UnconnectedState, 30000);
        }
    }

    // The block has gone with it; the login manager on the other bus grants one.
    void busThatDies()
    {
        Bus desktop(sessionBus, {sessionManager});
        const Bus system(systemBus, {loginManager});
        SleepBlock block;
        block.acquire("charging"_s);
        QTRY_VERIFY(block.isHeld());
        QVERIFY(system.calls.isEmpty());
        desktop.end();
        QTRY_VERIFY(!block.isHeld());
        block.acquire("charging"_s);
        QTRY_VERIFY(block.isHeld() && !system.isFileClosed());
        QCOMPARE(system.calls.size(), 1);
    }

    // For one pipe to the helper, or for the other.
    void noFileIsLeft()
    {
        const Bus bus(sessionBus, {sessionManager});
        for (const rlim_t room : {0, 2}) {
            SleepBlock block;
            const uint filesBefore = openFiles();
            const int next = ::dup(STDIN_FILENO);
            ::close(next);
            {
                const ProcessLimit<RLIMIT_NOFILE> limit(rlim_t(next) + room);
                block.acquire("charging"_s);
            }
            QCOMPARE(openFiles(), filesBefore);
            block.acquire("charging"_s);
            QTRY_VERIFY(block.isHeld());
        }
    }

private:
    static uint openFiles() { return QDir("/proc/self/fd"_s).count(); }

    ShellFixture fixture;
};

int main(int argc, char **argv)
{
    if (SleepBlock::isHelper(argc, argv))
        return SleepBlock::runHelper(argc, argv);
    QTEST_MAIN_IMPL(TestSleepInhibitor)
}
#include "tst_sleepinhibitor.moc"
