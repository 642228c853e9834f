#include "journal/journalfolder.h"

#include "files/disk/lockedfile.h"
#include "support/columns.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

// clazy:excludeall=non-pod-global-static (a program of its own, which nothing else starts with)
const QByteArray line = "#c0605 00123,25200+02000,025,01234\n";

bool writeFile(const QString &name, const QByteArray &bytes, int daysAgo = 0)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()
        && file.setFileTime(
            QDateTime::currentDateTime().addDays(-daysAgo), QFileDevice::FileModificationTime);
}

} // namespace

/// What is removed from the journals' folder, and what never is.
class TestJournalFolder : public QObject {
    Q_OBJECT

private slots:
    void names_data()
    {
        columns<QString, int, QString>({"port", "attempt", "name"});
        QTest::newRow("plain") << "COM3" << 1 << "/j/2026-11-21_06-04-05_COM3.acp";
        QTest::newRow("taken") << "COM3" << 2 << "/j/2026-11-21_06-04-05_COM3_2.acp";
        QTest::newRow("harmful") << "../COM 3%1:\u0142" << 1 << "/j/2026-11-21_06-04-05____COM_3_1__.acp";
    }

    void names()
    {
        QFETCH(QString, port);
        QFETCH(int, attempt);
        const QDateTime time(QDate(2026, 11, 21), QTime(6, 4, 5));
        QTEST(JournalFolder(QStringLiteral("/j")).fileName(time, port, attempt), "name");
    }

    void removesOnlyEmptyJournals()
    {
        QTemporaryDir temporary;
        const JournalFolder folder(temporary.path());
        const QDateTime time = QDateTime::currentDateTime();
        const auto nameOf
            = [&](const char *port) { return folder.fileName(time, QString::fromLatin1(port), 1); };
        QVERIFY(writeFile(nameOf("A-empty"), QByteArray()));
        QVERIFY(writeFile(nameOf("B-one"), line + "!1,2,3\n" + line.left(20)));
        QVERIFY(writeFile(nameOf("C-two"), line + line));
        QVERIFY(writeFile(nameOf("D-long"), QByteArray(10000, 'x')));
        QVERIFY(writeFile(temporary.filePath(QStringLiteral("mine.acp")), line));
        const CreatedFile live = createLockedFile(nameOf("E-live"));
        QVERIFY(live.descriptor >= 0);
        QVERIFY(createLockedFile(nameOf("E-live")).exists);
        QVERIFY(isBeingWritten(nameOf("E-live")));

        QCOMPARE(folder.removeEmpty(), 2);
        QCOMPARE(folder.files(), QStringList({nameOf("E-live"), nameOf("D-long"), nameOf("C-two")}));
        QCOMPARE(folder.totalSize(), qint64(10000 + 2 * line.size()));
        QVERIFY(QFile::exists(temporary.filePath(QStringLiteral("mine.acp"))));

        closeFile(live.descriptor);
        QCOMPARE(folder.removeEmpty(), 1);
        QCOMPARE(JournalFolder(temporary.filePath(QStringLiteral("none"))).removeEmpty(), 0);
    }

    void ageLimitFillsTheBin()
    {
        const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
        QVERIFY(QDir().mkpath(data)); // the bin is on the disk of what it takes
        QTemporaryDir temporary(data + QStringLiteral("/XXXXXX"));
        const JournalFolder folder(temporary.path());
        const QDateTime time = QDateTime::currentDateTime();
        const auto nameOf
            = [&](const char *port) { return folder.fileName(time, QString::fromLatin1(port), 1); };
        QVERIFY(writeFile(nameOf("A-old"), line + line, 31));
        QVERIFY(writeFile(nameOf("B-young"), line + line, 29));
        const CreatedFile live = createLockedFile(nameOf("C-live"));
        QFile old(nameOf("C-live"));
        QVERIFY(old.open(QIODevice::ReadWrite));
        QVERIFY(old.setFileTime(time.addDays(-99), QFileDevice::FileModificationTime));
        QVERIFY(writeFile(nameOf("D-newest"), line + line, 1));
        QCOMPARE(folder.discardOlderThan(0), 0);
        QCOMPARE(folder.discardOlderThan(30, time.addDays(-9)), 0);
        QCOMPARE(
            folder.discardOlderThan(30, time.addYears(70)), 0); // the clock is wrong: D would be old, too
        QCOMPARE(folder.discardOlderThan(29, time.addYears(70)), 1);
        QCOMPARE(folder.files(), QStringList({nameOf("D-newest"), nameOf("C-live"), nameOf("B-young")}));
        QVERIFY(QDir(data + QStringLiteral("/Trash/files")).exists(QFileInfo(nameOf("A-old")).fileName()));
        closeFile(live.descriptor);
    }
};

QTEST_GUILESS_MAIN(TestJournalFolder)
#include "tst_journalfolder.moc"
