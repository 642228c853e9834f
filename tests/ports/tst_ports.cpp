#include "ports/portinfo.h"

#include "ports/portobstacle.h"
#include "ports/portscan.h"
#include "ports/portwatcher.h"
#include "support/asnobody.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/literal.h"
#include "support/ptypair.h"

#include <QSerialPort>
#include <QtTest>

#include <cstdio>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(PortObstacle)

/// Ports that are links to pseudo-terminals in a folder of their own.
class PortsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        qputenv("VARNEL_PORT_DIR", folder->path().toLocal8Bit());
    }
    void listsLinksToDevicesOnly();
    void watcherTellsComingAndGoing();
    void tellsMissingRights_data();
    void tellsMissingRights();
    void tellsWhoHoldsThePort();
    void advises_data();
    void advises();
    void refusesLocksThatAreNoFiles();
    void readsLocksOfAllMakes_data();
    void readsLocksOfAllMakes();

private:
    QString path(const char *name) const { return folder->filePath(QLatin1String(name)); }
    std::unique_ptr<PtyPair> plug(const char *port) const
    {
        return std::make_unique<PtyPair>(folder->path(), QString::fromUtf8(port));
    }
    static QString locationOf(const char *port) { return findPort(QLatin1String(port)).location; }
    /// Of the port's lock, where this system keeps it.
    static QByteArray lockOf(const PortInfo &port)
    {
        return "/var/lock/LCK..pts_" + port.location.section(QLatin1Char('/'), -1).toLatin1();
    }

    std::unique_ptr<QTemporaryDir> folder;
};

void PortsTest::listsLinksToDevicesOnly()
{
    const QStringList own = listPortNames(); // this machine's
    const QByteArray before = portFingerprint();
    QVERIFY(writeFile(path("notes"), "x"));
    QCOMPARE(portFingerprint(), before); // of ports only: the system is asked when it changes
    std::vector<std::unique_ptr<PtyPair>> plugged;
    for (const char *name : {"COM5", "COM3", "COM-tower \u0142", "com4", "ttyUSB0"})
        plugged.push_back(plug(name));
    QVERIFY(writeFile(path("COM6"), "x") && QDir(folder->path()).mkdir("COM7"_s));
    QVERIFY(QFile::link("/nowhere/ttyUSB7"_s, path("COM8")) && QFile::link("COM5"_s, path("COM9")));
    QCOMPARE(listPortNames(), own + QStringList({"COM-tower \u0142", "COM3", "COM5", "COM9"}));
    QCOMPARE(findPort("COM5"_s).name, "COM5"_s);
    QVERIFY2(locationOf("COM5").startsWith("/dev/pts/"_s), qPrintable(locationOf("COM5")));
    QCOMPARE(locationOf("COM9"), locationOf("COM5"));
    QCOMPARE(findPort("COM55"_s).name + locationOf("COM55"), "COM55"_s);
    QCOMPARE(portLinkFolder(), folder->path());
    QVERIFY(QDir(folder->path()).mkdir("varnelgraph"_s)); // of itself in the runtime folder
    const PtyPair usual(path("varnelgraph"), "COM33"_s);
    qputenv("XDG_RUNTIME_DIR", folder->path().toLocal8Bit());
    qunsetenv("VARNEL_PORT_DIR");
    QCOMPARE(listPortNames(), own + QStringList("COM33"));
}

// Each once: what came next follows in the list.
void PortsTest::watcherTellsComingAndGoing()
{
    QCOMPARE(PortWatcher().findChild<QTimer *>()->interval(), 1000);
    QStringList told;
    const auto seventh = plug("COM7");
    PortWatcher watcher(nullptr, 10);
    connect(
        &watcher, &PortWatcher::arrived, this, [&](const PortInfo &port) { told.append("+" + port.name); });
    connect(&watcher, &PortWatcher::removed, this,
        [&](const PortInfo &port) { told.append("-" + port.name + ' ' + port.location); });
    auto fifth = plug("COM5");
    const QString fifthGone = "-COM5 " + locationOf("COM5");
    QTRY_COMPARE(told, QStringList("+COM5"));
    // A device takes another's place within one look, so that the port is never seen missing.
    const QString before = locationOf("COM7");
    const auto spare = plug("spare");
    QCOMPARE(std::rename(QFile::encodeName(path("spare")), QFile::encodeName(path("COM7"))), 0);
    QTRY_COMPARE(told, QStringList({"+COM5", "-COM7 " + before, "+COM7"}));
    const QString now = "-COM7 " + locationOf("COM7");
    QVERIFY(!now.endsWith(before) && QFile::symLinkTarget(path("COM7")) == locationOf("COM7"));
    fifth.reset();
    QTRY_COMPARE(told, QStringList({"+COM5", "-COM7 " + before, "+COM7", fifthGone}));
    // One that went and came back between two looks; who has seen it go says so.
    told.clear();
    watcher.noteLost("COM77"_s);
    watcher.noteLost("COM7"_s);
    QCOMPARE(told, QStringList());
    QTRY_COMPARE(told, QStringList({now, "+COM7"}));
    watcher.noteLost("COM7"_s);
    QVERIFY(QFile::remove(path("COM7")));
    QTRY_COMPARE(told, QStringList({now, "+COM7", now}));
    const auto next = plug("COM8");
    QTRY_COMPARE(told, QStringList({now, "+COM7", now, "+COM8"}));
}

void PortsTest::tellsMissingRights_data()
{
    // owner: group of the node
    columns<int, QByteArray, bool, QString>({"mode", "owner", "lacks", "group"});
    QTest::newRow("for everyone") << 0666 << QByteArray("dialout") << false << QString();
    QTest::newRow("for the group") << 0660 << QByteArray("dialout") << true << "dialout";
    QTest::newRow("group may only write") << 0620 << QByteArray("tty") << true << QString();
    QTest::newRow("the superuser's group") << 0660 << QByteArray("root") << true << QString();
    QTest::newRow("for nobody") << 0600 << QByteArray("dialout") << true << QString();
}

void PortsTest::tellsMissingRights()
{
    if (geteuid() != 0)
        QSKIP("only the superuser can give a node away and be another user for a while");
    QFETCH(int, mode);
    QFETCH(QByteArray, owner);
    const struct group *entry = getgrnam(owner);
    if (!entry)
        QSKIP("this system has no such group");
    const auto pty = plug("COM5");
    const PortInfo port = findPort("COM5"_s);
    QCOMPARE(chown(port.location.toLocal8Bit(), 0, entry->gr_gid), 0);
    QCOMPARE(chmod(port.location.toLocal8Bit(), mode_t(mode)), 0);
    PortObstacle obstacle;
    {
        const AsNobody powerless;
        obstacle = obstacleTo(port);
    }
    QTEST(obstacle.kind == PortObstacle::NoRights, "lacks");
    QTEST(obstacle.group, "group");
    QVERIFY(obstacleTo(port).kind != PortObstacle::NoRights);
    QCOMPARE(obstacleTo(findPort("COM55"_s)).kind, PortObstacle::Busy);
}

// By another user's program, which is killed, and by this one.
void PortsTest::tellsWhoHoldsThePort()
{
    if (geteuid() != 0)
        QSKIP("only the superuser can be another user for a while");
    const auto pty = plug("COM5");
    QVERIFY(QFile::link("COM5"_s, path("COM6")));
    const PortInfo port = findPort("COM5"_s);
    QCOMPARE(chmod(folder->path().toLocal8Bit(), 0755), 0);
    QCOMPARE(chmod(port.location.toLocal8Bit(), 0666), 0);
    const QString program = QCoreApplication::applicationFilePath();
    QProcess holder;
    holder.start(program, {"--hold", port.location});
    QVERIFY(holder.waitForReadyRead(30000) && holder.readAll() == "held\n");
    const QString held
        = "\"%1\", process %2"_s.arg(QFileInfo(program).fileName(), QString::number(holder.processId()));
    {
        const AsNobody powerless;
        QCOMPARE(adviceAgainst(obstacleTo(port)),
            "Another program holds the port: %1 of the user \"root\"."_s.arg(held));
    }
    holder.kill();
    QVERIFY(holder.waitForFinished(30000));
    {
        const AsNobody powerless;
        QSerialPort late(port.location);
        QVERIFY(!late.open(QIODevice::ReadWrite));
        const PortObstacle left = obstacleTo(port);
        QVERIFY(left.kind == PortObstacle::LeftOverLock && QFile::exists(left.file) && left.user == "root"_s);
        QVERIFY(adviceAgainst(left).contains(held));
    }
    QSerialPort own(port.location);
    QVERIFY(own.open(QIODevice::ReadWrite));
    QCOMPARE(obstacleTo(port).kind, PortObstacle::OwnPort);
    QCOMPARE(obstacleTo(findPort("COM6"_s)).names, QStringList("COM5"));
}

void PortsTest::advises_data()
{
    columns<PortObstacle, QString>({"obstacle", "advice"});
    const auto row = [](const PortObstacle &obstacle, const char *advice) {
        QTest::newRow(advice) << obstacle << QString::fromLatin1(advice);
    };
    using O = PortObstacle;
    const QString who = "minicom"_s, eve = "eve"_s, lock = "/var/lock/x"_s;
    row({}, "Another program holds the port.");
    row({O::Busy, {}, {}, who, 7, {}, {}, {}}, "Another program holds the port: \"minicom\", process 7.");
    row({O::NoRights, {}, {}, {}, 0, {}, {}, {}}, "You have no right to use the port.");
    row({O::NoRights, "dialout"_s, {}, {}, 0, {}, {}, {}},
        "You have no right to use the port. Join the group \"dialout\" and log in again.");
    row({O::OwnPort, {}, {}, {}, 0, {}, {}, {}}, "This program listens on the port already.");
    row({O::OwnPort, {}, {"COM5", "COM6"}, {}, 0, {}, {}, {}},
        "This program listens on the same device already, under another name: COM5, COM6.");
    for (const bool known : {false, true})
        row({O::LeftOverLock, {}, {}, known ? who : QString(), 7, eve, lock, {}},
            QByteArray("A program that has ended has left its lock behind")
                + (known ? ": \"minicom\", process 7.\n" : ".\n")
                + "The user \"eve\" or an administrator has to remove the file /var/lock/x.");
    row({O::NoLockFolder, {}, {}, {}, 0, {}, lock, {}},
        "You have no right to make lock files in /var/lock/x.");
    const char *const things[] = {"a pipe", "a socket", "a link", "a folder", "a device"};
    for (int thing = O::Pipe; thing <= O::Device; ++thing)
        row({O::StrangeLock, {}, {}, {}, 0, eve, lock, O::Thing(thing)},
            QByteArray("/var/lock/x should be the port's lock file and is ") + things[thing]
                + ".\nThe user \"eve\" or an administrator has to remove it.");
}

void PortsTest::advises()
{
    QFETCH(PortObstacle, obstacle);
    QTEST(adviceAgainst(obstacle), "advice");
}

// Whoever opens the pipe, or the device behind the link, waits or reads for ever.
void PortsTest::refusesLocksThatAreNoFiles()
{
    if (!QFileInfo("/var/lock"_s).isWritable())
        QSKIP("this system keeps its locks elsewhere");
    const auto pty = plug("COM5");
    const PortInfo port = findPort("COM5"_s);
    const QByteArray lock = lockOf(port);
    const auto refused = [&](PortObstacle::Thing thing) {
        const auto obstacle = obstacleToTrying(port);
        return std::remove(lock) == 0 && obstacle && obstacle->kind == PortObstacle::StrangeLock
            && obstacle->thing == thing && obstacle->file == QLatin1String(lock) && !obstacle->user.isEmpty();
    };
    std::remove(lock); // of a program that was killed
    QVERIFY(!obstacleToTrying(port));
    QVERIFY(mkfifo(lock, 0666) == 0 && refused(PortObstacle::Pipe));
    QVERIFY(symlink("/dev/zero", lock) == 0 && refused(PortObstacle::Link));
    QVERIFY(mkdir(lock, 0777) == 0 && refused(PortObstacle::Folder));
    QVERIFY(mknod(lock, S_IFSOCK | 0666, 0) == 0 && refused(PortObstacle::Socket));
    if (geteuid() == 0)
        QVERIFY(mknod(lock, S_IFCHR | 0666, dev_t(0x0105)) == 0 && refused(PortObstacle::Device));
    QVERIFY(writeFile(QFile::decodeName(lock), "1\n") && !obstacleToTrying(port));
    QVERIFY(std::remove(lock) == 0);
}

void PortsTest::readsLocksOfAllMakes_data()
{
    columns<QByteArray, bool, QString>({"lock", "held", "program"});
    const QByteArray parent = QByteArray::number(getppid());
    const QString running = QString::fromLocal8Bit(contents("/proc/%1/comm"_s.arg(getppid())).trimmed());
    QTest::newRow("a running one") << "      " + parent + " minicom root\n" << true << running;
    QTest::newRow("one that has ended") << QByteArray(" 999999999\n") << false << QString();
    QTest::newRow("a number given anew") << parent + "\nvarnelgraph\nbox\n" << false << "varnelgraph";
    QTest::newRow("empty") << QByteArray() << false << QString();
}

void PortsTest::readsLocksOfAllMakes()
{
    if (!QFileInfo("/var/lock"_s).isWritable())
        QSKIP("this system keeps its locks elsewhere");
    QFETCH(QByteArray, lock);
    const auto pty = plug("COM5");
    const PortInfo port = findPort("COM5"_s);
    QVERIFY(writeFile(QFile::decodeName(lockOf(port)), lock));
    const PortObstacle obstacle = obstacleTo(port);
    QVERIFY(std::remove(lockOf(port)) == 0);
    QTEST(obstacle.kind == PortObstacle::Busy, "held");
    QTEST(obstacle.program, "program");
}

// With --hold this is another process that uses a port, until it is killed.
int main(int argc, char *argv[])
{
    if (argc == 3 && qstrcmp(argv[1], "--hold") == 0) {
        QSerialPort port(QFile::decodeName(argv[2]));
        return !(port.open(QIODevice::ReadWrite) && std::puts("held") >= 0 && std::fflush(stdout) == 0
            && std::getchar() == 0);
    }
    QCoreApplication app(argc, argv);
    PortsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ports.moc"
