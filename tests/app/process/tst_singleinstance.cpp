#include "app/process/singleinstance.h"
#include "support/asnobody.h"
#include "support/columns.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QtTest>

#include <sys/inotify.h>
#include <unistd.h>

using Role = SingleInstance::Role;

namespace {

constexpr QFileDevice::Permissions ownOnly
    = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
constexpr QFileDevice::Permissions anybody
    = ownOnly | QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;

/// The one socket in `folder`; empty without one.
QString socketIn(const QString &folder)
{
    const QStringList names = QDir(folder).entryList({"varnelgraph-*"}, QDir::System);
    return names.isEmpty() ? QString() : folder + '/' + names.first();
}

/// A second start, which is another program: here a thread that blocks in its stead.
class SecondStart {
public:
    explicit SecondStart(const QStringList &files)
        : m_thread(QThread::create([this, files] { m_role = SingleInstance("settings").settle(files); }))
    {
        m_thread->start();
    }
    ~SecondStart() { m_thread->wait(); }
    SecondStart(const SecondStart &) = delete;
    SecondStart &operator=(const SecondStart &) = delete;

    bool isRunning() const { return m_thread->isRunning(); }
    /// Once it has one.
    Role role() const
    {
        return QTest::qWaitFor([this] { return !isRunning(); }, 30000) ? m_role : Role::Unanswered;
    }

private:
    Role m_role = Role::Unanswered;
    std::unique_ptr<QThread> m_thread;
};

} // namespace

/// A second start hands its files to the first.
class TestSingleInstance : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QFile::setPermissions(folder.path(), ownOnly);
        qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
        first = std::make_unique<SingleInstance>("settings");
        QCOMPARE(first->settle({}), Role::First);
        called = std::make_unique<QSignalSpy>(first.get(), SIGNAL(called(QStringList)));
    }
    void cleanup() { first.reset(); }

    void filesAreHandedOver()
    {
        QCOMPARE(SingleInstance("settings of a demonstration").settle({}), Role::First); // is left alone
        QCOMPARE(first->holder(), QCoreApplication::applicationPid());
        QVERIFY(!(QFile::permissions(socketIn(folder.path())) & (anybody & ~ownOnly)));
        QCOMPARE(SingleInstance("settings that nobody has").holder(), qint64(0));
        for (const QStringList &some : {files, QStringList()}) {
            called->clear();
            QCOMPARE(SecondStart(some).role(), Role::HandedOver);
            QCOMPARE(called->size(), 1);
            QCOMPARE(heard(), some);
        }
    }

    void firstOneLeaves()
    {
        QLocalSocket late; // it is heard no more
        late.connectToServer(socketIn(folder.path()));
        QTRY_VERIFY(first->findChild<QLocalSocket *>());
        first->retire();
        QTRY_COMPARE(late.state(), QLocalSocket::UnconnectedState);
        const int looks = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        QVERIFY(::inotify_add_watch(looks, qPrintable(folder.path()), IN_OPEN) >= 0);
        const SecondStart second(files);
        char events[4096];
        // A start looks at the lock, again and again; it must not hand over its files.
        for (int i = 0; i < 3; ++i)
            QVERIFY(QTest::qWaitFor([&] { return ::read(looks, events, sizeof events) > 0; }, 10000));
        ::close(looks);
        QVERIFY(second.isRunning());
        first->giveBack(); // while it is still there, with a disk to wait for
        QCOMPARE(second.role(), Role::First);
        QVERIFY(called->isEmpty());
    }

    void talk_data()
    {
        columns<QByteArray, int>({"said", "names"}); // -1: cut off
        QTest::newRow("another protocol, a count behind it") << QByteArray("GET / HT") << -1;
        QTest::newRow("one wrong letter") << QByteArray("VNX") << -1;
        QTest::newRow("length beyond all bounds") << QByteArray("VNL2\xff\xff\xff\xff", 8) << -1;
        QTest::newRow("just beyond the bound") << QByteArray("VNL2\x01\x00\x00\x01", 8) << -1;
        QTest::newRow("at the bound, the rest to come") << QByteArray("VNL2\x01\x00\x00\x00", 8) << 0;
        QTest::newRow("a byte to come") << QByteArray("VNL2\0\0\0\4/x\0", 11) << 0;
        QTest::newRow("two names, one empty") << QByteArray("VNL2\0\0\0\7/x\0\0/y\0", 15) << 2;
    }

    void talk()
    {
        QFETCH(QByteArray, said);
        QFETCH(int, names);
        QLocalSocket talker;
        talker.connectToServer(socketIn(folder.path()));
        talker.write(said);
        bool answered = false; // by the time that whoever opens the files hears of them
        connect(first.get(), &SingleInstance::called, &talker,
            [socket = &talker, seen = &answered] { *seen = socket->waitForReadyRead(10000); });
        const auto isHeard = [&] {
            const auto *listener = first->findChild<QLocalSocket *>();
            return names < 0 ? talker.state() == QLocalSocket::UnconnectedState
                : names > 0  ? talker.bytesAvailable() == 1
                             : listener && listener->bytesAvailable() == said.size();
        };
        QTRY_VERIFY(isHeard());
        const auto *patience = first->findChild<QTimer *>();
        QCOMPARE(patience ? patience->interval() : -1, names < 0 ? -1 : 10000);
        QCOMPARE(talker.state() == QLocalSocket::ConnectedState, names >= 0);
        QCOMPARE(heard().size(), qMax(0, names));
        QCOMPARE(answered, names > 0);
        if (names == 0) { // and nothing comes
            first->findChild<QTimer *>()->start(0);
            QTRY_COMPARE(talker.state(), QLocalSocket::UnconnectedState);
        }
    }

    void placeIsTheUsersOwn()
    {
        // a runtime folder, one that others can write to, and none
        for (const auto permissions : {ownOnly, anybody, QFileDevice::Permissions()}) {
            const QTemporaryDir home;
            const QTemporaryDir runtime;
            const QString run = home.path() + "/tst_singleinstance/run";
            qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
            qputenv("XDG_RUNTIME_DIR", permissions ? runtime.path().toLocal8Bit() : QByteArray());
            QFile::setPermissions(runtime.path(), permissions | ownOnly);
            SingleInstance another("settings");
            QCOMPARE(another.settle({}), Role::First);
            QCOMPARE(socketIn(runtime.path()).isEmpty(), permissions != ownOnly);
            QCOMPARE(socketIn(run).isEmpty(), permissions == ownOnly);
            QVERIFY(permissions == ownOnly || (QFile::permissions(run) & anybody) == ownOnly);
            another.giveBack();
            QFile::setPermissions(run, anybody);
            SingleInstance alone("settings");
            QCOMPARE(alone.settle({}), Role::First);
            QVERIFY(socketIn(run).isEmpty()); // others could put theirs into its place
        }
    }

    // Should the folder ever let somebody in, the system still says who is at the other end.
    void strangersAreNeitherHeardNorTold()
    {
        if (geteuid() != 0)
            QSKIP("only the superuser can be two users");
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
        QVERIFY(called->isEmpty());

        QVERIFY(QFile::remove(place));
        {
            const AsNobody nobody;
            QVERIFY(trap.listen(place));
        }
        QFile::setPermissions(folder.path(), ownOnly);
        const SecondStart second(files);
        QTRY_VERIFY(trap.hasPendingConnections());
        QLocalSocket *caught = trap.nextPendingConnection();
        QTRY_COMPARE(caught->state(), QLocalSocket::UnconnectedState);
        QCOMPARE(caught->readAll(), QByteArray());
        first->giveBack();
        QCOMPARE(second.role(), Role::First);
    }

private:
    QStringList heard() const { return called->value(0).value(0).toStringList(); }

    QTemporaryDir folder;
    std::unique_ptr<SingleInstance> first;
    std::unique_ptr<QSignalSpy> called;
    const QStringList files = {"/a/b.acp", QString::fromUtf8("/a/\u017c\u00f3\u0142w.acp")};
};

QTEST_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
