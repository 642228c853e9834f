#include "ports/portinfo.h"

#include "support/asnobody.h"
#include "support/columns.h"
#include "support/ptypair.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

class PortInfoTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void listsLinksToDevicesOnly();
    void defaultFolderIsInTheRuntimeFolder();
    void findsThePortBehindTheLink();
    void tellsMissingRights_data();
    void tellsMissingRights();

private:
    QStringList linkedPorts() const;

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
    QString named = QStringLiteral("left over");
    {
        const AsNobody powerless;
        QCOMPARE(lacksAccess(port, &named), lacks);
    }
    QCOMPARE(named, group);
    QVERIFY(!lacksAccess(port, &named));
    QVERIFY(!lacksAccess(findPort(QStringLiteral("COM55")), &named));
}

QTEST_GUILESS_MAIN(PortInfoTest)
#include "tst_portinfo.moc"
