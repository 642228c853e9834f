#include "files/recordlines.h"

#include "files/wholefile.h"

#include "data/recordlist.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/records.h"
#include "support/seed.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <clocale>
#include <sys/stat.h>
#include <unistd.h>

namespace {

RecordList recording(int count)
{
    RecordList records;
    for (int i = 0; i < count; ++i) {
        Varnel3Data &record = records.appendNew();
        record.mode = Varnel3Data::Charge;
        record.cellType = 5;
        record.cellCount = 3;
        record.flag1 = '%';
        record.flag5 = 'B';
        record.voltage = 12600 - i;
        record.cells[0] = {4100, 100, 0, 0.0};
        record.setTime(i);
    }
    return records;
}

struct SaveResult {
    bool saved;
    int unreadable;
    QString reason;
};

SaveResult save(const QString &name, const RecordList &records)
{
    RecordLines lines(records);
    const WriteOutcome outcome = writeWholeFile(name, lines);
    return {outcome.written, lines.unreadable(), outcome.reason};
}

} // namespace

/// Saving: exact bytes, and the old file untouched whenever the new one is not wholly on the disk.
class TestDataFileWriter : public QObject {
    Q_OBJECT

private slots:
    void linesAndNothingElse();
    void sameBytesAgain_data();
    void sameBytesAgain();
    void namedExceptions_data();
    void namedExceptions();
    void sameInEveryLocale();
    void replacesAndKeepsTheMode();
    void followsLinks();
    void fullDiskKeepsTheOldFile();
    void whatCanNotBeSaved_data();
    void whatCanNotBeSaved();
    void writesDevicesInPlace();
};

void TestDataFileWriter::linesAndNothingElse()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("a.acp"));
    QVERIFY(save(name, RecordList()).saved);
    QCOMPARE(contents(name), QByteArray());
    const RecordList records = recording(2);
    QVERIFY(save(name, records).saved);
    QCOMPARE(contents(name),
        (records[0].toRecordLine() + QLatin1Char('\n') + records[1].toRecordLine() + QLatin1Char('\n'))
            .toLatin1());
}

void TestDataFileWriter::sameBytesAgain_data()
{
    QTest::addColumn<int>("most");
    QTest::addColumn<int>("recordings");
    QTest::newRow("short") << 5 << 200;
    QTest::newRow("some hundred records") << 800 << 40;
    QTest::newRow("more than one buffer and one block") << 6000 << 8;
}

void TestDataFileWriter::sameBytesAgain()
{
    QFETCH(int, most);
    QFETCH(int, recordings);
    RandomRecords random(randomSeed());
    QTemporaryDir folder;
    const QString first = folder.filePath(QStringLiteral("a.acp"));
    const QString second = folder.filePath(QStringLiteral("b.acp"));
    for (int i = 0; i < recordings; ++i) {
        const int count = random.between(most / 2, most);
        const QByteArray where = "recording " + QByteArray::number(i);
        QVERIFY2(save(first, random.recording(count)).saved, where);
        const SaveResult again = save(second, loaded(first));
        QVERIFY2(again.saved && again.unreadable == 0, where);
        QVERIFY2(contents(second) == contents(first), where);
        QVERIFY2(contents(second).count('\n') == count, where);
    }
}

void TestDataFileWriter::namedExceptions_data()
{
    columns<int, int, int, int, int>({"mode", "cellType", "current", "unreadable", "currentBack"});
    QTest::newRow("test mode") << 4 << 5 << 250 << 1 << -1;
    QTest::newRow("no mode") << 5 << 5 << 250 << 1 << -1;
    QTest::newRow("no chemistry") << 0 << 13 << 250 << 1 << -1;
    QTest::newRow("odd balancing current") << 0 << 5 << 300 << 0 << 0;
}

void TestDataFileWriter::namedExceptions()
{
    QFETCH(int, mode);
    QFETCH(int, cellType);
    QFETCH(int, current);
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("a.acp"));
    RecordList records = recording(3);
    records.last().mode = mode;
    records.last().cellType = cellType;
    records.last().ballansingCurrent = current;
    const SaveResult result = save(name, records);
    QVERIFY(result.saved);
    QTEST(result.unreadable, "unreadable");
    QCOMPARE(contents(name).count('\n'), 3);
    const RecordList back = loaded(name);
    QCOMPARE(back.size(), 3 - result.unreadable);
    QTEST(result.unreadable ? -1 : back.last().ballansingCurrent, "currentBack");
}

void TestDataFileWriter::sameInEveryLocale()
{
    QTemporaryDir folder;
    QByteArrayList files;
    for (const char *locale : {"C", "de_DE.UTF-8", "pl_PL.UTF-8"}) {
        std::setlocale(LC_ALL, locale);
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        const QString name = folder.filePath(QString::fromLatin1(locale));
        RecordList records = recording(3);
        records.last().voltage = 1234567;
        QVERIFY(writeFile(name, "6\nc\n3\n1 1.5 2.5 20.5 7\n2 1.5 2.5 20.5 8\n"));
        const RecordList columns = loaded(name);
        QCOMPARE(columns.size(), 2);
        records.append(columns.last());
        QVERIFY(save(name, records).saved);
        files += contents(name);
    }
    std::setlocale(LC_ALL, "C");
    QLocale::setDefault(QLocale::c());
    QCOMPARE(files[1], files[0]);
    QCOMPARE(files[2], files[0]);
}

void TestDataFileWriter::replacesAndKeepsTheMode()
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

void TestDataFileWriter::followsLinks()
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
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("loop")), folder.filePath(QStringLiteral("loop"))));
    QVERIFY(!save(folder.filePath(QStringLiteral("loop")), recording(2)).saved);
}

// The limit on file sizes stands in for a disk that fills up in the middle.
void TestDataFileWriter::fullDiskKeepsTheOldFile()
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
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.acp")});
}

void TestDataFileWriter::whatCanNotBeSaved_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"folder", "no folder", "read-only folder", "full device", "fifo"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestDataFileWriter::whatCanNotBeSaved()
{
    QFETCH(QString, kind);
    QTemporaryDir folder;
    QString name = folder.filePath(QStringLiteral("a.acp"));
    if (kind == QLatin1String("folder")) {
        QVERIFY(QDir().mkdir(name));
    } else if (kind == QLatin1String("no folder")) {
        name += QStringLiteral("/b.acp");
    } else if (kind == QLatin1String("read-only folder")) {
        if (::geteuid() == 0)
            QSKIP("root may write everywhere");
        QFile::setPermissions(folder.path(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    } else if (kind == QLatin1String("full device")) {
        name = QStringLiteral("/dev/full");
    } else {
        QCOMPARE(::mkfifo(QFile::encodeName(name).constData(), 0600), 0); // nobody reads: must not wait
    }
    const SaveResult result = save(name, recording(10));
    QVERIFY(!result.saved);
    QVERIFY(!result.reason.isEmpty());
    QCOMPARE(result.unreadable, 0);
    QFile::setPermissions(
        folder.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

void TestDataFileWriter::writesDevicesInPlace()
{
    QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("null"));
    QVERIFY(QFile::link(QStringLiteral("/dev/null"), link));
    QVERIFY(save(link, recording(10)).saved);
    QVERIFY(QFileInfo(link).isSymLink());
    struct stat status { };
    QCOMPARE(::stat("/dev/null", &status), 0);
    QVERIFY(S_ISCHR(status.st_mode)); // not replaced by a file
}

QTEST_GUILESS_MAIN(TestDataFileWriter)
#include "tst_datafilewriter.moc"
