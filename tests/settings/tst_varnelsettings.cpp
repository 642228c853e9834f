#include "settings/settingskeeper.h"
#include "settings/varnelsettings.h"

#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/ptypair.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr std::chrono::seconds forEver(60);

} // namespace

/// The settings of a user whose profile is a folder of the test.
class VarnelSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { QVERIFY(SettingsKeeper::waitForWritten(forEver)); }
    void standInTheUsersIniFile();
    void readsWhatTheFileSays_data();
    void readsWhatTheFileSays();
    void storesAtOnce();
    void othersWriteTheSameFile();
    void whatCanNotBeWrittenHolds_data();
    void whatCanNotBeWrittenHolds();
    void listensOnChosenPortsThatArePresent();

private:
    QString fileName() const { return profile->filePath(QStringLiteral("Maker/VarnelGraph.ini")); }

    std::unique_ptr<QTemporaryDir> profile;
};

void VarnelSettingsTest::init()
{
    profile = std::make_unique<QTemporaryDir>();
    QVERIFY(profile->isValid());
    qputenv("VARNEL_PORT_DIR", profile->path().toLocal8Bit());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, profile->path());
    QCoreApplication::setOrganizationName(QStringLiteral("Maker"));
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
}

void VarnelSettingsTest::standInTheUsersIniFile()
{
    const VarnelSettings settings;
    QCOMPARE(QFileInfo(settings.fileName()), QFileInfo(fileName()));
    QCOMPARE(settings.ports(), QStringList());
    QVERIFY(!settings.sendTime());
    QCOMPARE(settings.listenPorts(), QStringList());
    QVERIFY(!QFile::exists(fileName())); // reading leaves no trace
}

void VarnelSettingsTest::readsWhatTheFileSays_data()
{
    columns<QByteArray, QStringList, bool, bool>({"text", "ports", "sendTime", "userWave"});
    const auto row
        = [](const char *name, const char *text, const QStringList &ports, bool sendTime, bool userWave) {
              QTest::newRow(name) << QByteArray(text) << ports << sendTime << userWave;
          };
    row("empty", "", {}, false, true);
    row("one port", "[General]\nports=COM3\n", {"COM3"}, false, true);
    row("ports and time", "[General]\nports=COM5, COM3, COM5\nsendTime=true\n", {"COM5", "COM3", "COM5"},
        true, true);
    row("no ports", "[General]\nports=@Invalid()\nsendTime=false\n", {}, false, true);
    row("second sound off", "[General]\nsendTime=1\n[mp3]\nuser_wave=false\n", {}, true, false);
    row("keys of another group", "[ports]\nsendTime=true\n", {}, false, true);
    row("damaged", "no settings at all \x01\xff", {}, false, true);
}

void VarnelSettingsTest::readsWhatTheFileSays()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, ports);
    QFETCH(bool, sendTime);
    QFETCH(bool, userWave);
    QVERIFY(QDir(profile->path()).mkpath(QStringLiteral("Maker")));
    QVERIFY(writeFile(fileName(), text));
    const VarnelSettings settings;
    QCOMPARE(settings.ports(), ports);
    QCOMPARE(settings.sendTime(), sendTime);
    QCOMPARE(settings.value(QStringLiteral("/mp3/user_wave"), true).toBool(), userWave);
}

// While the object lives on, so that a crash loses nothing; by a thread that waits for the disk.
void VarnelSettingsTest::storesAtOnce()
{
    VarnelSettings settings;
    settings.setPorts({"COM5", "COM3"});
    QTRY_COMPARE(contents(fileName()), QByteArray("[General]\nports=COM5, COM3\n"));
    settings.setSendTime(true);
    QTRY_COMPARE(contents(fileName()), QByteArray("[General]\nports=COM5, COM3\nsendTime=true\n"));
    settings.setPorts({});
    QCOMPARE(VarnelSettings().ports(), QStringList());
    QVERIFY(VarnelSettings().sendTime());
}

// Who edits the file while the program runs is heard, and loses nothing.
void VarnelSettingsTest::othersWriteTheSameFile()
{
    VarnelSettings().setPorts({"COM5"});
    QVERIFY(SettingsKeeper::waitForWritten(forEver));
    QVERIFY(writeFile(fileName(), "[General]\nports=COM6, COM7\n[own]\nkey=1\n"));
    QCOMPARE(VarnelSettings().ports(), QStringList({"COM6", "COM7"}));
    VarnelSettings().setSendTime(true);
    QVERIFY(SettingsKeeper::waitForWritten(forEver));
    QCOMPARE(
        contents(fileName()), QByteArray("[General]\nports=COM6, COM7\nsendTime=true\n\n[own]\nkey=1\n"));
}

void VarnelSettingsTest::whatCanNotBeWrittenHolds_data()
{
    columns<QString>({"fault"});
    for (const char *fault : {"folder in its place", "file in the folder's place", "full disk"})
        QTest::newRow(fault) << QString::fromLatin1(fault);
}

void VarnelSettingsTest::whatCanNotBeWrittenHolds()
{
    QFETCH(QString, fault);
    const bool folder = fault.startsWith(QLatin1String("folder"));
    const bool full = fault.startsWith(QLatin1String("full"));
    const QString inTheWay = folder ? fileName() : QFileInfo(fileName()).path();
    if (folder || full)
        QVERIFY(QDir().mkpath(inTheWay));
    else
        QVERIFY(writeFile(inTheWay, QByteArray()));
    {
        const auto limit = full ? std::make_unique<FileSizeLimit>(0) : nullptr;
        VarnelSettings().setPorts({"COM5"});
        QVERIFY(SettingsKeeper::waitForWritten(forEver));
        QVERIFY(SettingsKeeper::instance().unwritable().startsWith(fileName()));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM5"}));
        QCOMPARE(SettingsKeeper::instance().unreadable() == fileName(), folder);
    }
    QVERIFY(QDir().remove(inTheWay) || QDir().rmdir(inTheWay));
    VarnelSettings().setSendTime(true); // all of it goes there then
    QVERIFY(SettingsKeeper::waitForWritten(forEver));
    QCOMPARE(SettingsKeeper::instance().unwritable(), QString());
    QCOMPARE(contents(fileName()), QByteArray("[General]\nports=COM5\nsendTime=true\n"));
}

void VarnelSettingsTest::listensOnChosenPortsThatArePresent()
{
    const PtyPair fifth(profile->path(), QStringLiteral("COM5"));
    const PtyPair third(profile->path(), QStringLiteral("COM3"));
    const PtyPair fourth(profile->path(), QStringLiteral("COM4"));
    VarnelSettings settings;
    settings.setPorts({"COM5", "COM3", "COM5", "COM9"});
    QCOMPARE(settings.listenPorts(), QStringList({"COM3", "COM5"}));
}

QTEST_GUILESS_MAIN(VarnelSettingsTest)
#include "tst_varnelsettings.moc"
