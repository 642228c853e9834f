#include "files/disk/disksyncer.h"
#include "files/datafilepieces.h"
#include "files/wholefile.h"

#include "data/recordlist.h"
#include "support/asnobody.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/records.h"
#include "support/seed.h"

#include <QDir>
#include <QTemporaryDir>

#include <cerrno>
#include <optional>
#include <sys/stat.h>

namespace {

RecordList recording(int count)
{
    return RandomRecords(7).recording(count);
}

struct SaveResult {
    bool saved;
    int unreadable;
    QString reason;
};

SaveResult save(const QString &name, const RecordList &records)
{
    DataFilePieces lines(records);
    const WriteOutcome outcome = writeWholeFile(name, lines);
    return {outcome.written, lines.unreadable(), outcome.reason};
}

} // namespace

/// Saving: exact bytes, and the old file untouched whenever the new one is not wholly on the disk.
class TestWholeFile : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); } // files follow none
    // Up to more than one buffer and one block.
    void sameBytesAgain()
    {
        RandomRecords random(randomSeed());
        QTemporaryDir folder;
        const QString first = folder.filePath(QStringLiteral("a.acp"));
        const QString second = folder.filePath(QStringLiteral("b.acp"));
        for (const int most : {0, 2, 5, 5, 5, 800, 800, 6000, 6000}) {
            const int count = random.between((most + 1) / 2, most);
            const RecordList records = random.recording(count);
            QVERIFY(save(first, records).saved);
            QVERIFY(contents(first).startsWith(
                (count > 0 ? records.first().toRecordLine() + '\n' : "").toLatin1()));
            const SaveResult again = save(second, loaded(first));
            QVERIFY(again.saved && again.unreadable == 0);
            QVERIFY(contents(second) == contents(first));
            QCOMPARE(contents(second).count('\n'), count);
        }
    }

    // Mode, chemistry, balancing current; how many can't be read back, and the current that comes back.
    void namedExceptions()
    {
        const int cases[][5] = {
            {4, 5, 250, 1, 0}, {5, 5, 250, 1, 0}, {0, 13, 250, 1, 0}, {0, 5, 300, 0, 0}, {3, 5, 250, 0, 250}};
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("a.acp"));
        for (const auto &values : cases) {
            RecordList records = recording(3);
            records.last().mode = values[0];
            records.last().cellType = values[1];
            records.last().ballansingCurrent = values[2];
            const SaveResult result = save(name, records);
            QVERIFY(result.saved);
            QCOMPARE(result.unreadable, values[3]);
            QCOMPARE(contents(name).count('\n'), 3);
            const RecordList back = loaded(name);
            QCOMPARE(back.size(), 3 - result.unreadable);
            QCOMPARE(back.last().ballansingCurrent, values[3] ? records[1].ballansingCurrent : values[4]);
            DataFilePieces marked(records, 1);
            QVERIFY(writeWholeFile(name, marked).written);
            QCOMPARE(loaded(name)[0].flag4, records[0].flag4);
            QCOMPARE(loaded(name)[1].flag4, 'E');
        }
    }

    void replacesAndKeepsTheMode()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("a.acp"));
        QVERIFY(writeFile(name, QByteArray(100000, 'x')));
        QCOMPARE(::chmod(QFile::encodeName(name).constData(), 0640), 0);
        QVERIFY(save(name, recording(1)).saved);
        struct stat status { };
        QCOMPARE(::stat(QFile::encodeName(name).constData(), &status), 0);
        QCOMPARE(int(status.st_mode & 07777), 0640);
        QCOMPARE(contents(name).count('\n'), 1);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("a.acp")});
    }

    void followsLinks()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("deep")));
        const QString target = folder.filePath(QStringLiteral("deep/target.acp"));
        const QString middle = folder.filePath(QStringLiteral("deep/middle"));
        const QString link = folder.filePath(QStringLiteral("link.acp"));
        QVERIFY(QFile::link(QStringLiteral("target.acp"), middle));
        QVERIFY(QFile::link(middle, link));
        for (const char *round : {"dangling", "existing"}) {
            QVERIFY2(save(link, recording(2)).saved, round);
            QVERIFY(QFileInfo(link).isSymLink() && QFileInfo(middle).isSymLink());
            QVERIFY(!QFileInfo(target).isSymLink());
            QCOMPARE(contents(target).count('\n'), 2);
        }
        QVERIFY(
            QFile::link(folder.filePath(QStringLiteral("loop")), folder.filePath(QStringLiteral("loop"))));
        QVERIFY(!save(folder.filePath(QStringLiteral("loop")), recording(2)).saved);
    }

    // The limit on file sizes stands in for a disk that fills up in the middle.
    void fullDiskKeepsTheOldFile()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("a.acp"));
        QVERIFY(writeFile(name, "old"));
        const RecordList records = recording(5000);
        const SaveResult result = [&] {
            const FileSizeLimit limit(500 * 1024);
            return save(name, records);
        }();
        QVERIFY(!result.saved);
        QCOMPARE(result.reason, qt_error_string(EFBIG)); // not that of the write that took a part
        QCOMPARE(contents(name), QByteArray("old"));
        QCOMPARE(
            QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.acp")});
    }

    void whatCanNotBeSaved_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char *kind : {"folder", "no folder", "forbidden", "full device", "fifo"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

    void whatCanNotBeSaved()
    {
        QFETCH(QString, kind);
        QTemporaryDir folder;
        QString name = folder.filePath(QStringLiteral("a.acp"));
        if (kind == QLatin1String("folder"))
            QVERIFY(QDir().mkdir(name));
        else if (kind == QLatin1String("no folder"))
            name += QStringLiteral("/b.acp");
        else if (kind == QLatin1String("full device"))
            name = QStringLiteral("/dev/full");
        else if (kind == QLatin1String("fifo"))
            QCOMPARE(::mkfifo(QFile::encodeName(name).constData(), 0666), 0); // nobody reads: must not wait
        std::optional<AsNobody> mayNotWriteAll;
        if (kind == QLatin1String("forbidden")) {
            QFile::setPermissions(folder.path(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
            mayNotWriteAll.emplace();
        }
        const SaveResult result = save(name, recording(10));
        QVERIFY(!result.saved);
        QVERIFY(!result.reason.isEmpty());
        QCOMPARE(result.unreadable, 0);
        mayNotWriteAll.reset();
        QFile::setPermissions(
            folder.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }

    void devicesAreWrittenInPlace()
    {
        QTemporaryDir folder;
        const QString link = folder.filePath(QStringLiteral("null"));
        QVERIFY(QFile::link(QStringLiteral("/dev/null"), link));
        QVERIFY(save(link, recording(10)).saved);
        QVERIFY(QFileInfo(link).isSymLink());
        struct stat status { };
        QCOMPARE(::stat("/dev/null", &status), 0);
        QVERIFY(S_ISCHR(status.st_mode)); // not replaced by a file

        DiskSyncer syncer;
        const RecordList records = recording(1);
        DataFilePieces lines(records);
        const WriteOutcome outcome = WholeFile(link, WholeFile::Kind::Regular, lines, syncer).writeAll();
        QVERIFY(!outcome.written && !outcome.cancelled);
        QCOMPARE(outcome.reason, QStringLiteral("not a regular file"));
    }
};

QTEST_GUILESS_MAIN(TestWholeFile)
#include "tst_wholefile.moc"
