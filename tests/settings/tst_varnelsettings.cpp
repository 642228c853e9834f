#include "settings/settingskeeper.h"
#include "settings/varnelsettings.h"

#include "support/asnobody.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/ptypair.h"

#include <QtTest>

static constexpr std::chrono::seconds forEver(60);

/// The settings of a user whose profile is a folder of the test.
class VarnelSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        profile = std::make_unique<QTemporaryDir>();
        qputenv("VARNEL_PORT_DIR", profile->path().toLocal8Bit());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, profile->path());
        QCoreApplication::setOrganizationName(QStringLiteral("Maker"));
        QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
        place = profile->filePath(QStringLiteral("Maker"));
        file = place + QStringLiteral("/VarnelGraph.ini");
    }
    void cleanup() { QVERIFY(SettingsKeeper::waitForWritten(forEver)); }

    // Ports, whether the time is sent and journals are kept, and for how long; and the ports that are there.
    void readsWhatTheFileSays()
    {
        const PtyPair fifth(profile->path(), QStringLiteral("COM5"));
        const PtyPair third(profile->path(), QStringLiteral("COM3"));
        const PtyPair fourth(profile->path(), QStringLiteral("COM4"));
        const auto said = [this](const QByteArray &text) {
            const bool good = text.isEmpty() || (QDir().mkpath(place) && writeFile(file, text));
            const VarnelSettings settings;
            return QStringLiteral("%1 %2 %3 %4 %5")
                .arg(settings.ports().join(QLatin1Char('/')))
                .arg(settings.sendTime())
                .arg(settings.journalEnabled())
                .arg(good ? settings.journalMaxAgeDays() : -1)
                .arg(settings.listenPorts().join(QLatin1Char('/')));
        };
        QCOMPARE(said(""), QStringLiteral(" 0 1 0 "));
        QVERIFY(!QFile::exists(file)); // reading leaves no trace
        QCOMPARE(said("no settings at all \x01\xff"), QStringLiteral(" 0 1 0 "));
        QCOMPARE(said("[General]\nports=COM5, COM3, COM5, COM9\nsendTime=true\n"
                      "[journal]\nenabled=false\nmaxAgeDays=7\n"),
            QStringLiteral("COM5/COM3/COM5/COM9 1 0 7 COM3/COM5"));
        QCOMPARE(said("[ports]\nsendTime=true\n[journal]\nmaxAgeDays=-7\n"), QStringLiteral(" 0 1 0 "));
    }

    // While the object lives on, so that a crash loses nothing; by a thread that waits for the disk. Who
    // edits the file meanwhile is heard, and loses nothing.
    void storesAtOnce()
    {
        VarnelSettings settings;
        QVERIFY(QDir().mkpath(place) && writeFile(file + ".new", "[a]\nleft=over\n"));
        settings.setPorts({"COM5", "COM3"});
        QVERIFY(SettingsKeeper::waitForWritten(forEver));
        QCOMPARE(contents(file), QByteArray("[General]\nports=COM5, COM3\n"));
        QCOMPARE(settings.ports(), QStringList({"COM5", "COM3"})); // though it has not read it again
        QVERIFY(writeFile(file, "[General]\nports=COM4, COM2\n") && makeOld(file, 1));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM4", "COM2"}));
        SettingsKeeper::instance().write(file); // only looks
        QVERIFY(SettingsKeeper::waitForWritten(forEver));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM4", "COM2"}));
        QVERIFY(writeFile(file, "[General]\nports=COM6, COM7\n[own]\nkey=1\n"));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM6", "COM7"}));
        settings.setSendTime(true);
        QVERIFY(SettingsKeeper::waitForWritten(forEver));
        QCOMPARE(contents(file), QByteArray("[General]\nports=COM6, COM7\nsendTime=true\n\n[own]\nkey=1\n"));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM6", "COM7"})); // though it is as it was left
        settings.setPorts({});
        QVERIFY(VarnelSettings().ports().isEmpty() && VarnelSettings().sendTime());
        settings.setValue(QStringLiteral("/own/key"), 2);
        QCOMPARE(VarnelSettings().value(QStringLiteral("own/key")), QVariant(2));
        settings.clear();
        QVERIFY(!VarnelSettings().contains(QStringLiteral("own/key")) && !VarnelSettings().sendTime());
    }

    // A folder in its place, a file in the folder's place, a full disk, and a folder of another's.
    void whatCanNotBeWrittenHolds()
    {
        const QStringList ports{"COM5" + QString(999, '5')};
        const QString full = "the disk is full or reports an error";
        const std::tuple<QString, int, QString> cases[] = {
            {"Maker/VarnelGraph.ini/", -1, qt_error_string(EISDIR)}, {"Maker", -1, full}, {"Maker/", 0, full},
            {"Maker/", 900, full}, {"Maker/", -1, "its folder is protected against writing"}};
        for (const auto &[inTheWay, room, reason] : cases) { // as much as fits on the disk
            init();
            const bool isFile = !inTheWay.endsWith('/');
            const QString path = profile->filePath(inTheWay);
            QVERIFY(isFile ? writeFile(path, "") : QDir().mkpath(path));
            QSignalSpy troubled(&SettingsKeeper::instance(), SIGNAL(troubled()));
            const bool isThere = inTheWay.endsWith("ini/");
            SettingsKeeper::instance().write(file); // which is to change nothing
            QVERIFY(SettingsKeeper::waitForWritten(forEver));
            QCOMPARE(troubled.size(), int(isThere));
            {
                const bool isProtected = reason.contains("protected");
                QVERIFY(!isProtected || QFile::setPermissions(place, QFile::ReadOwner | QFile::ExeOwner));
                const auto mayNot = isProtected ? std::make_unique<AsNobody>() : nullptr;
                const auto limit = room >= 0 ? std::make_unique<FileSizeLimit>(room) : nullptr;
                VarnelSettings().setPorts(ports);
                QVERIFY(SettingsKeeper::waitForWritten(forEver));
                QCOMPARE(SettingsKeeper::instance().unwritable(), file + '\n' + reason);
                QCOMPARE(VarnelSettings().ports(), ports);
                QVERIFY((SettingsKeeper::instance().unreadable() == file) == isThere);
                QCOMPARE(troubled.size(), isThere ? 2 : 1);
            }
            QVERIFY(isFile ? QFile::remove(path) : QDir(path).removeRecursively());
            troubled.clear();
            VarnelSettings().setSendTime(true); // all of it goes there then
            QVERIFY(SettingsKeeper::waitForWritten(forEver));
            QVERIFY(SettingsKeeper::instance().unwritable().isEmpty() && troubled.size() == 1);
            QVERIFY(contents(file) == "[General]\nports=" + ports.first().toLatin1() + "\nsendTime=true\n");
        }
    }

private:
    std::unique_ptr<QTemporaryDir> profile;
    QString place;
    QString file;
};

QTEST_GUILESS_MAIN(VarnelSettingsTest)
#include "tst_varnelsettings.moc"
