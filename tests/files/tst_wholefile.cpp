#include "files/wholefile.h"

#include "data/recordlist.h"
#include "files/datafilepieces.h"
#include "files/disk/disksyncer.h"
#include "support/asnobody.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/records.h"
#include "support/seed.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <optional>
#include <sys/stat.h>

namespace {

RecordList recording(int count)
{
    return RandomRecords(7).recording(count);
}

QString pathOf(const QTemporaryDir &folder, const char *name)
{
    return folder.filePath(QLatin1String(name));
}

bool setMode(const QString &name, mode_t mode)
{
    return ::chmod(QFile::encodeName(name).constData(), mode) == 0;
}

mode_t modeOf(const QString &name)
{
    struct stat status { };
    return ::stat(QFile::encodeName(name).constData(), &status) == 0 ? status.st_mode : 0;
}

// `unreadable`: records that the reader will refuse.
WriteOutcome save(const QString &name, const RecordList &records, int *unreadable = nullptr)
{
    DataFilePieces lines(records);
    const WriteOutcome outcome = writeWholeFile(name, lines);
    if (unreadable)
        *unreadable = lines.unreadable();
    return outcome;
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
        const QString first = pathOf(folder, "a.acp");
        const QString second = pathOf(folder, "b.acp");
        for (const int most : {0, 2, 5, 5, 5, 800, 800, 6000, 6000}) {
            const int count = random.between((most + 1) / 2, most);
            const RecordList records = random.recording(count);
            QVERIFY(save(first, records).written);
            QByteArray lines;
            for (int i = 0; i < count; ++i)
                lines += records[i].toRecordLine().toLatin1() + '\n';
            QVERIFY(contents(first) == lines);
            QVERIFY(save(second, loaded(first)).written && contents(second) == lines);
        }
    }

    // Of mode, chemistry and balancing current: how many can't be read back, and the current that comes back.
    void namedExceptions()
    {
        const int cases[][5] = {
            {4, 5, 250, 1, 0}, {5, 5, 250, 1, 0}, {0, 13, 250, 1, 0}, {0, 5, 300, 0, 0}, {3, 5, 250, 0, 250}};
        QTemporaryDir folder;
        const QString name = pathOf(folder, "a.acp");
        for (const auto &values : cases) {
            RecordList records = recording(3);
            records.last().mode = values[0];
            records.last().cellType = values[1];
            records.last().ballansingCurrent = values[2];
            int unreadable = 0;
            QVERIFY(save(name, records, &unreadable).written);
            QCOMPARE(unreadable, values[3]);
            const RecordList back = loaded(name);
            QCOMPARE(back.size(), 3 - unreadable);
            QCOMPARE(back.last().ballansingCurrent, unreadable ? records[1].ballansingCurrent : values[4]);
            DataFilePieces marked(records, 1);
            QVERIFY(writeWholeFile(name, marked).written);
            QVERIFY(loaded(name)[0].flag4 == records[0].flag4 && loaded(name)[1].flag4 == 'E');
        }
    }

    // The mode stays, a link too, over a second one to a file that may be there.
    void replaces()
    {
        QTemporaryDir folder;
        const QString target = pathOf(folder, "target.acp");
        const QString link = pathOf(folder, "link.acp");
        QVERIFY(QFile::link(QStringLiteral("target.acp"), pathOf(folder, "middle")));
        QVERIFY(QFile::link(pathOf(folder, "middle"), link));
        QVERIFY(QFile::link(pathOf(folder, "loop"), pathOf(folder, "loop")));
        QVERIFY(save(link, recording(2)).written);
        QVERIFY(writeFile(target, QByteArray(100000, 'x')) && setMode(target, 0640));
        QVERIFY(save(link, recording(2)).written);
        QCOMPARE(modeOf(target), mode_t(S_IFREG | 0640));
        QCOMPARE(contents(target).count('\n'), 2);
        QVERIFY(QFileInfo(link).isSymLink() && QFileInfo(pathOf(folder, "middle")).isSymLink());
        QCOMPARE(save(pathOf(folder, "loop"), recording(2)).reason, QStringLiteral("too many links"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::System | QDir::Hidden),
            QStringList({"link.acp", "loop", "middle", "target.acp"}));
    }

    // The limit on file sizes stands in for a disk that fills up in the middle.
    void fullDiskKeepsTheOldFile()
    {
        QTemporaryDir folder;
        const QString name = pathOf(folder, "a.acp");
        QVERIFY(writeFile(name, "old"));
        const RecordList records = recording(5000);
        {
            const FileSizeLimit limit(500 * 1024);
            QCOMPARE(save(name, records).reason, qt_error_string(EFBIG)); // not of the write that took a part
        }
        QCOMPARE(contents(name), QByteArray("old"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.acp"});
    }

    void whatCanNotBeSaved()
    {
        QTemporaryDir folder;
        const QString fifo = pathOf(folder, "fifo"); // which nobody reads: must not wait
        const QString forbidden = pathOf(folder, "forbidden/a.acp");
        QVERIFY(QDir().mkdir(pathOf(folder, "folder")) && QDir().mkdir(pathOf(folder, "forbidden")));
        QVERIFY(setMode(folder.path(), 0755) && setMode(pathOf(folder, "forbidden"), 0555));
        QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0666), 0);
        const std::pair<QString, int> cases[]
            = {{pathOf(folder, "folder"), 0}, {fifo, ENXIO}, {pathOf(folder, "none/b.acp"), ENOENT},
                {QStringLiteral("/dev/full"), ENOSPC}, {forbidden, EACCES}};
        for (const auto &expected : cases) {
            std::optional<AsNobody> mayNotWriteAll;
            if (expected.first == forbidden)
                mayNotWriteAll.emplace();
            const WriteOutcome outcome = save(expected.first, recording(10));
            QVERIFY2(!outcome.written && !outcome.reason.isEmpty(), qPrintable(expected.first));
            QVERIFY2(expected.second == 0 || outcome.reason == qt_error_string(expected.second),
                qPrintable(outcome.reason));
        }
    }

    void devicesAreWrittenInPlace()
    {
        QTemporaryDir folder;
        const QString link = pathOf(folder, "null");
        QVERIFY(QFile::link(QStringLiteral("/dev/null"), link));
        QVERIFY(save(link, recording(10)).written);
        QVERIFY(QFileInfo(link).isSymLink() && S_ISCHR(modeOf(QStringLiteral("/dev/null")))); // no file

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
