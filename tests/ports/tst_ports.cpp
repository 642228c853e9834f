#include "ports/portinfo.h"

#include "ports/portobstacle.h"
#include "ports/portscan.h"
#include "ports/portwatcher.h"
#include "support/asnobody.h"
#include "support/files.h"
#include "support/literal.h"
#include "support/ptypair.h"

#include <QSerialPort>
#include <QtTest>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

/// Ports that are links to pseudo-terminals in a folder of their own.
class PortsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        qputenv("VARNEL_PORT_DIR", folder->path().toLocal8Bit());
    }

    void listsLinksToDevicesOnly()
    {
        const QStringList own = listPortNames(); // this machine's
        const QByteArray before = portFingerprint();
        QVERIFY(writeFile(path("notes"), "x"));
        QCOMPARE(portFingerprint(), before); // of ports only: the system is asked when it changes
        QVERIFY(writeFile(path("ttyS9"), "x") && portFingerprint() != before);
        std::vector<std::unique_ptr<PtyPair>> plugged;
        for (const char *name : {"COM5", "COM3", "COM-tower \u0142", "com4", "ttyUSB0"})
            plugged.push_back(plug(name));
        QVERIFY(writeFile(path("COM6"), "x") && QDir(folder->path()).mkdir("COM7"_s));
        QVERIFY(QFile::link("varnelgraph/COM33"_s, path("COM8")) && QFile::link("COM5"_s, path("COM9")));
        QCOMPARE(listPortNames(), own + QStringList({"COM-tower \u0142", "COM3", "COM5", "COM9"}));
        QCOMPARE(findPort("COM5"_s).name, "COM5"_s);
        QVERIFY2(locationOf("COM5").startsWith("/dev/pts/"_s), qPrintable(locationOf("COM5")));
        QCOMPARE(locationOf("COM9"), locationOf("COM5"));
        QCOMPARE(findPort("COM55"_s).name + locationOf("COM55"), "COM55"_s);
        QCOMPARE(portLinkFolder(), folder->path());
        if (geteuid() == 0) { // another way to the same device, which no look tells
            QVERIFY(QDir(folder->path()).mkdir("a"_s) && QDir(folder->path()).mkdir("b"_s));
            QCOMPARE(mknod(path("a/x").toLocal8Bit(), S_IFCHR | 0666, dev_t(0x0103)), 0);
            QCOMPARE(::link(path("a/x").toLocal8Bit(), path("b/x").toLocal8Bit()), 0);
            QVERIFY(QFile::link("to/x"_s, path("COM44")) && QFile::link("a"_s, path("to")));
            QCOMPARE(locationOf("COM44"), path("a/x"));
            QVERIFY(QFile::remove(path("to")) && QFile::link("b"_s, path("to")));
            QCOMPARE(locationOf("COM44"), path("a/x"));
            forgetListedPorts();
            QCOMPARE(locationOf("COM44"), path("b/x"));
        }
        QVERIFY(QDir(folder->path()).mkdir("varnelgraph"_s)); // of itself in the runtime folder
        const PtyPair usual(path("varnelgraph"), "COM33"_s);
        QVERIFY(listPortNames().contains("COM8"_s)); // no entry of its folder has changed
        qputenv("XDG_RUNTIME_DIR", folder->path().toLocal8Bit());
        qunsetenv("VARNEL_PORT_DIR");
        QCOMPARE(listPortNames(), own + QStringList("COM33"));
    }

    // Each once: what came next follows in the list.
    void watcherTellsComingAndGoing()
    {
        QCOMPARE(PortWatcher().findChild<QTimer *>()->interval(), 1000);
        QStringList told;
        const auto seventh = plug("COM7");
        PortWatcher watcher(nullptr, 10);
        connect(&watcher, &PortWatcher::arrived, this,
            [&](const PortInfo &port) { told.append("+" + port.name); });
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

    void tellsMissingRights()
    {
        if (geteuid() != 0)
            QSKIP("only the superuser can give a node away and be another user for a while");
        const QString none = "You have no right to use the port."_s;
        const std::tuple<mode_t, const char *, QString> rows[] = {// rights and group of the node
            {0666, "dialout", "This program listens on the port already."_s}, // its line's far end
            {0660, "dialout", none + " Join the group \"dialout\" and log in again."}, {0620, "tty", none},
            {0660, "root", none}, {0600, "dialout", none}};
        for (const auto &[mode, owner, advice] : rows) {
            const struct group *entry = getgrnam(owner);
            if (!entry)
                QSKIP("this system has no such group");
            const auto pty = plug("COM5");
            const PortInfo port = findPort("COM5"_s);
            QCOMPARE(chown(port.location.toLocal8Bit(), 0, entry->gr_gid), 0);
            QCOMPARE(chmod(port.location.toLocal8Bit(), mode), 0);
            {
                const AsNobody powerless;
                QCOMPARE(adviceAgainst(obstacleTo(port)), advice);
                for (const char *noPort : {"/nowhere", "/etc/shadow"})
                    QVERIFY(obstacleTo({"COM5"_s, {}, QLatin1String(noPort)}).kind != PortObstacle::NoRights);
            }
            QCOMPARE(obstacleTo(port).kind, PortObstacle::OwnPort);
        }
        QCOMPARE(obstacleTo(findPort("COM55"_s)).kind, PortObstacle::Busy);
    }

    // By another user's program, which is killed, by this one, and by one that makes no locks.
    void tellsWhoHoldsThePort()
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
            QVERIFY(
                left.kind == PortObstacle::LeftOverLock && QFile::exists(left.file) && left.user == "root"_s);
            QVERIFY(adviceAgainst(left).contains(held));
        }
        QSerialPort own(port.location);
        QVERIFY(own.open(QIODevice::ReadWrite));
        QCOMPARE(obstacleTo(port).kind, PortObstacle::OwnPort);
        QCOMPARE(obstacleTo(findPort("COM6"_s)).names, QStringList("COM5"));
        const int line = posix_openpt(O_RDWR | O_NOCTTY);
        QVERIFY(grantpt(line) == 0 && unlockpt(line) == 0);
        const PortInfo unlocked{"COM7"_s, QString(), QString::fromLocal8Bit(ptsname(line))};
        QFile::remove(lockOf(unlocked)); // of a program that was killed while it had another of this number
        holder.setStandardInputFile(unlocked.location);
        holder.start("sleep"_s, {"1000"});
        QVERIFY(holder.waitForStarted(30000));
        QCOMPARE(adviceAgainst(obstacleTo(unlocked)),
            "Another program holds the port: \"sleep\", process %1 of the user \"root\"."_s.arg(
                holder.processId()));
        holder.kill();
        QVERIFY(holder.waitForFinished(30000));
        QCOMPARE(adviceAgainst(obstacleTo(unlocked)), "Another program holds the port."_s);
        ::close(line);
    }

    // Whoever opens the pipe, or the device behind the link, waits or reads for ever.
    void refusesLocksThatAreNoFiles()
    {
        if (!QFileInfo("/var/lock"_s).isWritable())
            QSKIP("this system keeps its locks elsewhere");
        const auto pty = plug("COM5");
        const PortInfo port = findPort("COM5"_s);
        const QByteArray lock = lockOf(port);
        const QString user = QString::fromLocal8Bit(getpwuid(geteuid())->pw_name);
        const auto refused = [&](const char *thing) {
            const auto obstacle = obstacleToTrying(port);
            const bool isRead = obstacleTo(port).kind != PortObstacle::OwnPort; // its line's far end
            return std::remove(lock) == 0 && obstacle && !isRead
                && adviceAgainst(*obstacle)
                == "%1 should be the port's lock file and is %2.\nThe user \"%3\" or an administrator has to "
                   "remove it."_s.arg(QString::fromLatin1(lock), QLatin1String(thing), user);
        };
        std::remove(lock); // of a program that was killed
        QVERIFY(!obstacleToTrying(port));
        QVERIFY(mkfifo(lock, 0666) == 0 && refused("a pipe"));
        QVERIFY(symlink("/dev/zero", lock) == 0 && refused("a link"));
        QVERIFY(mkdir(lock, 0777) == 0 && refused("a folder"));
        QVERIFY(mknod(lock, S_IFSOCK | 0666, 0) == 0 && refused("a socket"));
        if (geteuid() == 0)
            QVERIFY(mknod(lock, S_IFCHR | 0666, dev_t(0x0105)) == 0 && refused("a device"));
        QVERIFY(writeFile(QFile::decodeName(lock), "1\n") && !obstacleToTrying(port));
        QVERIFY(std::remove(lock) == 0);
    }

    void readsLocksOfAllMakes()
    {
        if (!QFileInfo("/var/lock"_s).isWritable())
            QSKIP("this system keeps its locks elsewhere");
        const QByteArray parent = QByteArray::number(getppid());
        const QString running = QString::fromLocal8Bit(contents("/proc/%1/comm"_s.arg(getppid())).trimmed());
        const QString user = QString::fromLocal8Bit(getpwuid(geteuid())->pw_name);
        const auto held = [](const QString &process) {
            return "Another program holds the port: \"%1\", process %2 of the user \"%3\"."_s.arg(
                QString::fromLocal8Bit(contents("/proc/%1/comm"_s.arg(process)).trimmed()), process,
                QFileInfo("/proc/"_s + process).owner());
        };
        const QString left = "A program that has ended has left its lock behind%1.\n"
                             "The user \"%2\" or an administrator has to remove the file %3."_s;
        const QString program = ": \"varnelgraph\", process %1"_s.arg(getppid());
        const std::pair<QByteArray, QString> rows[]
            = {{"      " + parent + " minicom root\n", held(QString::number(getppid()))},
                {"1", held("1"_s)}, // one line, of the first of all
                {" 999999999\n", left.arg(QString(), user)},
                {parent + "\n varnelgraph\nbox\n", left.arg(program, user)}, // a number given anew
                {parent + "\nvarnelgraph", left.arg(program, user)}, {"", left.arg(QString(), user)},
                {QByteArray::number(getpid()) + '\n', "This program listens on the port already."_s}};
        for (const auto &[lock, advice] : rows) {
            const auto pty = plug("COM5");
            const PortInfo port = findPort("COM5"_s);
            QCOMPARE(chmod(port.location.toLocal8Bit(), 0666), 0);
            QVERIFY(writeFile(QFile::decodeName(lockOf(port)), lock));
            const auto openFiles = [] { return QDir("/proc/self/fd"_s).count(); };
            const uint filesBefore = openFiles();
            {
                const AsNobody powerless; // which may not so much as send a signal to another's process
                const QString place = QString::fromLatin1(lockOf(port));
                QCOMPARE(adviceAgainst(obstacleTo(port)), QString(advice).replace("%3"_s, place));
            }
            QCOMPARE(openFiles(), filesBefore);
            QVERIFY(std::remove(lockOf(port)) == 0);
        }
        // Where no program or no folder is known.
        PortObstacle unknown;
        unknown.program = running;
        unknown.process = 7;
        QCOMPARE(adviceAgainst(unknown), "Another program holds the port: \"%1\", process 7."_s.arg(running));
        unknown = {PortObstacle::NoLockFolder, {}, {}, {}, 0, {}, "/var/lock"_s, {}};
        QCOMPARE(adviceAgainst(unknown), "You have no right to make lock files in /var/lock."_s);
    }

private:
    QString path(const char *name) const { return folder->filePath(QLatin1String(name)); }
    std::unique_ptr<PtyPair> plug(const char *port) const
    {
        auto pair = std::make_unique<PtyPair>(folder->path(), QString::fromUtf8(port));
        QFile::remove(lockOf(findPort(pair->portName()))); // left by who was killed with one of this number
        return pair;
    }
    static QString locationOf(const char *port) { return findPort(QLatin1String(port)).location; }
    /// Of the port's lock, where this system keeps it.
    static QByteArray lockOf(const PortInfo &port)
    {
        return "/var/lock/LCK..pts_" + port.location.section(QLatin1Char('/'), -1).toLatin1();
    }

    std::unique_ptr<QTemporaryDir> folder;
};

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
