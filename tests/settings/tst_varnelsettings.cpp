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

    void init()
    {
        profile = std::make_unique<QTemporaryDir>();
        QVERIFY(profile->isValid());
        qputenv("VARNEL_PORT_DIR", profile->path().toLocal8Bit());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, profile->path());
        QCoreApplication::setOrganizationName(QStringLiteral("Maker"));
        QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    }
    void cleanup() { QVERIFY(SettingsKeeper::waitForWritten(forEver)); }

    void standInTheUsersIniFile()
    {
        const VarnelSettings settings;
        QCOMPARE(QFileInfo(settings.fileName()), QFileInfo(fileName()));
        QCOMPARE(settings.ports(), QStringList());
        QVERIFY(!settings.sendTime());
        QCOMPARE(settings.listenPorts(), QStringList());
        QVERIFY(!QFile::exists(fileName())); // reading leaves no trace
    }

    void readsWhatTheFileSays()
    {
        QVERIFY(QDir(profile->path()).mkpath(QStringLiteral("Maker")));
        const auto said = [this](const QByteArray &text) {
            const bool good = writeFile(fileName(), text);
            const VarnelSettings settings;
            return QStringLiteral("%1 %2 %3 %4")
                .arg(settings.ports().join(QLatin1Char('/')))
                .arg(settings.sendTime())
                .arg(settings.journalEnabled())
                .arg(good ? settings.journalMaxAgeDays() : -1);
        };
        QCOMPARE(said("no settings at all \x01\xff"), QStringLiteral(" 0 1 0"));
        QCOMPARE(
            said(
                "[General]\nports=COM5, COM3, COM5\nsendTime=true\n[journal]\nenabled=false\nmaxAgeDays=7\n"),
            QStringLiteral("COM5/COM3/COM5 1 0 7"));
        QCOMPARE(said("[ports]\nsendTime=true\n[journal]\nmaxAgeDays=-7\n"), QStringLiteral(" 0 1 0"));
    }

    // While the object lives on, so that a crash loses nothing; by a thread that waits for the disk.
    void storesAtOnce()
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
    void othersWriteTheSameFile()
    {
        VarnelSettings().setPorts({"COM5"});
        QVERIFY(SettingsKeeper::waitForWritten(forEver));
        QVERIFY(writeFile(fileName(), "[General]\nports=COM6, COM7\n[own]\nkey=1\n"));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM6", "COM7"}));
        VarnelSettings().setSendTime(true);
        QVERIFY(SettingsKeeper::waitForWritten(forEver));
        QCOMPARE(VarnelSettings().ports(),
            QStringList({"COM6", "COM7"})); // now that the file is as it was left, too
        QCOMPARE(
            contents(fileName()), QByteArray("[General]\nports=COM6, COM7\nsendTime=true\n\n[own]\nkey=1\n"));
    }

    void whatCanNotBeWrittenHolds_data()
    {
        columns<QString>({"fault"});
        for (const char *fault : {"folder in its place", "file in the folder's place", "full disk"})
            QTest::newRow(fault) << QString::fromLatin1(fault);
    }

    void whatCanNotBeWrittenHolds()
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

    void listensOnChosenPortsThatArePresent()
    {
        const PtyPair fifth(profile->path(), QStringLiteral("COM5"));
        const PtyPair third(profile->path(), QStringLiteral("COM3"));
        const PtyPair fourth(profile->path(), QStringLiteral("COM4"));
        VarnelSettings settings;
        settings.setPorts({"COM5", "COM3", "COM5", "COM9"});
        QCOMPARE(settings.listenPorts(), QStringList({"COM3", "COM5"}));
    }

private:
    QString fileName() const { return profile->filePath(QStringLiteral("Maker/VarnelGraph.ini")); }

    std::unique_ptr<QTemporaryDir> profile;
};

QTEST_GUILESS_MAIN(VarnelSettingsTest)
#include "tst_varnelsettings.moc"
