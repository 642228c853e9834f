#include "ports/portinfo.h"

#include "ports/portobstacle.h"
#include "ports/portscan.h"
#include "support/asnobody.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/holdport.h"
#include "support/ptypair.h"

#include <QFile>
#include <QProcess>
#include <QSerialPort>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(PortObstacle)

class PortInfoTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void listsLinksToDevicesOnly();
    void defaultFolderIsInTheRuntimeFolder();
    void findsThePortBehindTheLink();
    void tellsMissingRights_data();
    void tellsMissingRights();
    void tellsWhoHoldsThePort();
    void advises_data();
    void advises();
    void refusesLocksThatAreNoFiles();
    void readsLocksOfAllMakes_data();
    void readsLocksOfAllMakes();

private:
    QStringList linkedPorts() const;
    /// Of the port's lock, where this system keeps it.
    static QByteArray lockOf(const PortInfo &port)
    {
        return "/var/lock/LCK..pts_" + port.location.section(QLatin1Char('/'), -1).toLatin1();
    }

    std::unique_ptr<QTemporaryDir> folder;
};

void PortInfoTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    qputenv("VARNEL_PORT_DIR", folder->path().toLocal8Bit());
}

// Less what this machine has itself.
QStringList PortInfoTest::linkedPorts() const
{
    qputenv("VARNEL_PORT_DIR", "/nowhere");
    const QStringList own = listPortNames();
    qputenv("VARNEL_PORT_DIR", folder->path().toLocal8Bit());
    QStringList names = listPortNames();
    for (const QString &name : own)
        names.removeOne(name);
    return names;
}

void PortInfoTest::listsLinksToDevicesOnly()
{
    QCOMPARE(linkedPorts(), QStringList());
    const QByteArray before = portFingerprint();
    QVERIFY(writeFile(folder->filePath(QStringLiteral("notes")), "x"));
    QCOMPARE(portFingerprint(), before); // of ports only: the system is asked when it changes
    const PtyPair fifth(folder->path(), QStringLiteral("COM5"));
    const PtyPair third(folder->path(), QStringLiteral("COM3"));
    const PtyPair tower(folder->path(), QStringLiteral("COM-tower \u0142"));
    const PtyPair small(folder->path(), QStringLiteral("com4"));
    const PtyPair other(folder->path(), QStringLiteral("ttyUSB0"));
    QFile file(folder->filePath(QStringLiteral("COM6")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("COM7")));
    QVERIFY(QFile::link(QStringLiteral("/nowhere/ttyUSB7"), folder->filePath(QStringLiteral("COM8"))));
    QVERIFY(QFile::link(folder->filePath(QStringLiteral("COM5")), folder->filePath(QStringLiteral("COM9"))));
    QCOMPARE(linkedPorts(), QStringList({"COM-tower \u0142", "COM3", "COM5", "COM9"}));
}

void PortInfoTest::defaultFolderIsInTheRuntimeFolder()
{
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("varnelgraph")));
    const PtyPair pty(folder->filePath(QStringLiteral("varnelgraph")), QStringLiteral("COM33"));
    qputenv("XDG_RUNTIME_DIR", folder->path().toLocal8Bit());
    qunsetenv("VARNEL_PORT_DIR");
    QVERIFY(listPortNames().contains(QStringLiteral("COM33")));
}

void PortInfoTest::findsThePortBehindTheLink()
{
    const PtyPair pty(folder->path(), QStringLiteral("COM5"));
    QVERIFY(QFile::link(QStringLiteral("COM5"), folder->filePath(QStringLiteral("COM6"))));
    const PortInfo port = findPort(QStringLiteral("COM5"));
    QCOMPARE(port.name, QStringLiteral("COM5"));
    QVERIFY2(port.location.startsWith(QLatin1String("/dev/pts/")), qPrintable(port.location));
    QCOMPARE(findPort(QStringLiteral("COM6")).location, port.location);
    QCOMPARE(findPort(QStringLiteral("COM55")).location, QString());
}

void PortInfoTest::tellsMissingRights_data()
{
    // owner: group of the node
    columns<int, QByteArray, bool, QString>({"mode", "owner", "lacks", "group"});
    QTest::newRow("for everyone") << 0666 << QByteArray("dialout") << false << QString();
    QTest::newRow("for the group") << 0660 << QByteArray("dialout") << true << QStringLiteral("dialout");
    QTest::newRow("group may only write") << 0620 << QByteArray("tty") << true << QString();
    QTest::newRow("the superuser's group") << 0660 << QByteArray("root") << true << QString();
    QTest::newRow("for nobody") << 0600 << QByteArray("dialout") << true << QString();
}

void PortInfoTest::tellsMissingRights()
{
    if (geteuid() != 0)
        QSKIP("only the superuser can give a node away and be another user for a while");
    QFETCH(int, mode);
    QFETCH(QByteArray, owner);
    QFETCH(bool, lacks);
    QFETCH(QString, group);
    const struct group *entry = getgrnam(owner);
    if (!entry)
        QSKIP("this system has no such group");
    const PtyPair pty(folder->path(), QStringLiteral("COM5"));
    const PortInfo port = findPort(QStringLiteral("COM5"));
    QCOMPARE(chown(port.location.toLocal8Bit(), 0, entry->gr_gid), 0);
    QCOMPARE(chmod(port.location.toLocal8Bit(), mode_t(mode)), 0);
    PortObstacle obstacle;
    {
        const AsNobody powerless;
        obstacle = obstacleTo(port);
    }
    QCOMPARE(obstacle.kind == PortObstacle::NoRights, lacks);
    QCOMPARE(obstacle.group, group);
    QVERIFY(obstacleTo(port).kind != PortObstacle::NoRights);
    QCOMPARE(obstacleTo(findPort(QStringLiteral("COM55"))).kind, PortObstacle::Busy);
}

// By another user's program, which is killed, and by this one.
void PortInfoTest::tellsWhoHoldsThePort()
{
    if (geteuid() != 0)
        QSKIP("only the superuser can be another user for a while");
    const PtyPair pty(folder->path(), QStringLiteral("COM5"));
    QVERIFY(QFile::link(QStringLiteral("COM5"), folder->filePath(QStringLiteral("COM6"))));
    const PortInfo port = findPort(QStringLiteral("COM5"));
    QCOMPARE(chmod(folder->path().toLocal8Bit(), 0755), 0);
    QCOMPARE(chmod(port.location.toLocal8Bit(), 0666), 0);
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    QProcess holder;
    holder.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--hold"), port.location});
    QVERIFY(holder.waitForReadyRead(10000) && holder.readAll() == "held\n");
    const qint64 process = holder.processId();
    {
        const AsNobody powerless;
        const PortObstacle held = obstacleTo(port);
        QCOMPARE(held.kind, PortObstacle::Busy);
        QCOMPARE(held.program, program);
        QCOMPARE(held.process, process);
        QCOMPARE(held.user, QStringLiteral("root"));
    }
    holder.kill();
    QVERIFY(holder.waitForFinished(10000));
    {
        const AsNobody powerless;
        QSerialPort late(port.location);
        QVERIFY(!late.open(QIODevice::ReadWrite));
        const PortObstacle left = obstacleTo(port);
        QCOMPARE(left.kind, PortObstacle::LeftOverLock);
        QVERIFY(QFile::exists(left.file));
        QCOMPARE(left.program, program);
        QCOMPARE(left.process, process);
        QCOMPARE(left.user, QStringLiteral("root"));
    }
    QSerialPort own(port.location);
    QVERIFY(own.open(QIODevice::ReadWrite));
    const PortObstacle twice = obstacleTo(findPort(QStringLiteral("COM6")));
    QCOMPARE(twice.kind, PortObstacle::OwnPort);
    QCOMPARE(twice.names, QStringList("COM5"));
}

void PortInfoTest::advises_data()
{
    columns<PortObstacle, QString>({"obstacle", "advice"});
    const auto row = [](const PortObstacle &obstacle, const char *advice) {
        QTest::newRow(advice) << obstacle << QString::fromLatin1(advice);
    };
    using O = PortObstacle;
    const QString who = QStringLiteral("minicom");
    const QString eve = QStringLiteral("eve");
    const QString path = QStringLiteral("/var/lock/x");
    row({}, "Another program holds the port.");
    row({O::Busy, {}, {}, who, 7, {}, {}, {}}, "Another program holds the port: \"minicom\", process 7.");
    row({O::Busy, {}, {}, who, 7, eve, {}, {}},
        "Another program holds the port: \"minicom\", process 7 of the user \"eve\".");
    row({O::NoRights, {}, {}, {}, 0, {}, {}, {}}, "You have no right to use the port.");
    row({O::NoRights, QStringLiteral("dialout"), {}, {}, 0, {}, {}, {}},
        "You have no right to use the port. Join the group \"dialout\" and log in again.");
    row({O::OwnPort, {}, {}, {}, 0, {}, {}, {}}, "This program listens on the port already.");
    row({O::OwnPort, {}, {"COM5", "COM6"}, {}, 0, {}, {}, {}},
        "This program listens on the same device already, under another name: COM5, COM6.");
    row({O::LeftOverLock, {}, {}, {}, 0, eve, path, {}},
        "A program that has ended has left its lock behind.\n"
        "The user \"eve\" or an administrator has to remove the file /var/lock/x.");
    row({O::LeftOverLock, {}, {}, who, 7, eve, path, {}},
        "A program that has ended has left its lock behind: \"minicom\", process 7.\n"
        "The user \"eve\" or an administrator has to remove the file /var/lock/x.");
    row({O::NoLockFolder, {}, {}, {}, 0, {}, path, {}},
        "You have no right to make lock files in /var/lock/x.");
    const char *const things[] = {"a pipe", "a socket", "a link", "a folder", "a device"};
    for (int thing = O::Pipe; thing <= O::Device; ++thing)
        row({O::StrangeLock, {}, {}, {}, 0, eve, path, O::Thing(thing)},
            QByteArray("/var/lock/x should be the port's lock file and is ") + things[thing]
                + ".\nThe user \"eve\" or an administrator has to remove it.");
}

void PortInfoTest::advises()
{
    QFETCH(PortObstacle, obstacle);
    QTEST(adviceAgainst(obstacle), "advice");
}

// Whoever opens the pipe, or the device behind the link, waits or reads for ever.
void PortInfoTest::refusesLocksThatAreNoFiles()
{
    if (!QFileInfo(QStringLiteral("/var/lock")).isWritable())
        QSKIP("this system keeps its locks elsewhere");
    const PtyPair pty(folder->path(), QStringLiteral("COM5"));
    const PortInfo port = findPort(QStringLiteral("COM5"));
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
    QVERIFY(writeFile(QFile::decodeName(lock), "1\n"));
    QVERIFY(!obstacleToTrying(port));
    QVERIFY(std::remove(lock) == 0);
}

void PortInfoTest::readsLocksOfAllMakes_data()
{
    columns<QByteArray, bool, QString>({"lock", "held", "program"});
    const QByteArray parent = QByteArray::number(getppid());
    QFile name(QStringLiteral("/proc/%1/comm").arg(getppid()));
    QVERIFY(name.open(QIODevice::ReadOnly));
    const QString running = QString::fromLocal8Bit(name.readAll().trimmed());
    QTest::newRow("a running one") << "      " + parent + " minicom root\n" << true << running;
    QTest::newRow("one that has ended") << QByteArray(" 999999999\n") << false << QString();
    QTest::newRow("a number given anew") << parent + "\nvarnelgraph\nbox\n"
                                         << false << QStringLiteral("varnelgraph");
    QTest::newRow("empty") << QByteArray() << false << QString();
}

void PortInfoTest::readsLocksOfAllMakes()
{
    QFETCH(QByteArray, lock);
    QFETCH(bool, held);
    QFETCH(QString, program);
    const PtyPair pty(folder->path(), QStringLiteral("COM5"));
    const PortInfo port = findPort(QStringLiteral("COM5"));
    const QString path = QFile::decodeName(lockOf(port));
    if (!QFileInfo(QStringLiteral("/var/lock")).isWritable())
        QSKIP("this system keeps its locks elsewhere");
    QVERIFY(writeFile(path, lock));
    const PortObstacle obstacle = obstacleTo(port);
    QVERIFY(QFile::remove(path));
    QCOMPARE(obstacle.kind, held ? PortObstacle::Busy : PortObstacle::LeftOverLock);
    QCOMPARE(obstacle.program, program);
}

int main(int argc, char *argv[])
{
    if (argc == 3 && qstrcmp(argv[1], "--hold") == 0)
        return holdPort(argv[2]);
    QCoreApplication app(argc, argv);
    PortInfoTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_portinfo.moc"
