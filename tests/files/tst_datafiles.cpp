#include "documents/loadoutcome.h"
#include "files/datafileloader.h"
#include "files/datafilepieces.h"
#include "files/disk/diskjobs.h"
#include "files/disk/disksyncer.h"
#include "files/wholefile.h"
#include "support/asnobody.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/lines.h"
#include "support/records.h"
#include "support/seed.h"

#include <QtTest>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int longTime = 60000; // ms
const QString acp = QStringLiteral("x.acp");
const QString abp = QStringLiteral("x.ABP");

QByteArray recordLine(int time)
{
    return Lines::recordLine("#02C05____B2", time, ",4100,1,4101,2,4102,3");
}

std::unique_ptr<DataFileLoader> loaderOf(const QByteArray &bytes, const QString &name)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    return std::make_unique<DataFileLoader>(std::move(buffer), name);
}

// What a file holds: of each record the device, its line up to the second cell, what was balanced, and the
// resistance of the second cell. Or why it was not loaded.
QStringList told(const QByteArray &bytes, const QString &name)
{
    const auto loader = loaderOf(bytes, name);
    if (!loader->readAll())
        return {loader->reason()};
    const RecordList records = loader->takeRecords();
    QStringList lines;
    for (int i = 0; i < records.size(); ++i) {
        const Varnel3Data record = records[i];
        lines += QStringLiteral("%1 %2 %3 %4")
                     .arg(Varnel3Data::deviceName(record.device),
                         record.toRecordLine().section(QLatin1Char(','), 0, 10))
                     .arg(record.balancedMah)
                     .arg(record.cells[1].resistance);
    }
    return lines;
}

// Each line, and what is to be said of it.
QByteArrayList linesOf(QIODevice &device, int chunk)
{
    LineSource source(device, chunk);
    QByteArrayList lines;
    QLatin1String line;
    for (;;) {
        const LineSource::Found found = source.next(&line);
        if (found == LineSource::Found::Error)
            return {"error"};
        if (found == LineSource::Found::End)
            return source.bytesRead() == device.size() ? lines : QByteArrayList{"not all"};
        if (found == LineSource::Found::Nothing)
            continue;
        lines += source.wasCut() && line.size() == chunk ? "cut" : QByteArray(line.data(), line.size());
        lines.last() += source.hasEnd() || source.wasCut() ? "" : " at the end";
        if (source.lineNumber() != lines.size())
            return {"miscounted"};
    }
}

RecordList recording(int count)
{
    return RandomRecords(7).recording(count);
}

uint openFiles()
{
    return QDir(QStringLiteral("/proc/self/fd")).count();
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

WriteOutcome save(
    const QString &name, const RecordList &records, WholeFile::Kind allowed = WholeFile::Kind::Any)
{
    DataFilePieces lines(records);
    DiskSyncer syncer;
    WholeFile file(name, allowed, lines, syncer);
    const WriteOutcome outcome = file.writeAll();
    return file.writeSome(0) ? WriteOutcome::failure("goes on for ever") : outcome;
}

} // namespace

/// Data files: what is read of the three dialects, whole, damaged and hostile, and what is written.
class TestDataFiles : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); } // files follow none
    void init() { m_open = openFiles(); }
    void cleanup() { QTRY_COMPARE_WITH_TIMEOUT(openFiles(), m_open, longTime); } // by threads, too

    // With every size of pieces, so that each border falls everywhere.
    void lines()
    {
        const QByteArrayList three = {"one", "", "three"};
        const QByteArrayList unended = {"one", "", "three at the end"};
        const auto wide = [](const char *codec, const char *text) { // with its mark
            return QTextCodec::codecForName(codec)->fromUnicode(QString::fromUtf8(text));
        };
        const std::pair<QByteArray, QByteArrayList> cases[]
            = {{"", {}}, {"one\n\nthree\n", three}, {"one\r\n\r\nthree\r\n", three},
                {"one\r\n\nthree", unended}, {"\xef\xbb\xbfone\n\nthree\n", three}, {"\xef\xbb\xbf", {}},
                {wide("UTF-16LE", "one\r\n\r\nthree"), unended}, {wide("UTF-16BE", "one\n\nthree\n"), three},
                {wide("UTF-16LE", "a\ufe42\u00ff\n"), {QByteArray("a\0\xff", 3)}},
                {QByteArray("a\0b\nc\n", 6), {QByteArray("a\0b", 3), "c"}},
                {"first\n" + QByteArray(1000, 'x') + "\nlast\n", {"first", "cut", "last"}}};
        for (const auto &expected : cases) {
            for (int chunk = 16; chunk < 40; ++chunk) {
                QBuffer buffer;
                buffer.setData(expected.first);
                buffer.open(QIODevice::ReadOnly);
                QCOMPARE(linesOf(buffer, chunk), expected.second);
            }
        }
        QBuffer closed;
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::read (QBuffer): device not open");
        QCOMPARE(linesOf(closed, 64), QByteArrayList{"error"});
    }

    void outcomes()
    {
        const QByteArray line = recordLine(0);
        const QByteArray lines = line + '\n' + line + '\n';
        const QByteArray two = "#c0605 00123,25200+02000,025,01234";
        const QByteArray gap(300000, ' '); // longer than what is read at once
        const std::tuple<QString, QString, QByteArrayList> cases[] = {
            // A last line without its end may be cut short: within the cells, a balance or a number.
            {acp, "Data loaded from disk. 1000 ms, 2 records",
                {lines, lines + line.left(90), lines + line.chopped(1), lines + line.chopped(2),
                    line + '\n' + two + '\n' + two.chopped(1), two + '\n' + two, line + '\n' + two,
                    recordLine(100000) + '\n' + recordLine(5), // whole
                    line + "\njunk\n#02C\n\n" + line.mid(1) + '\n' + line + '\n',
                    line + '\n' + two + gap + "1\n" + line + '\n', // whose first piece is a record
                    "6\ncharge\n3\n0 12.5 1.5 25 100\n1 12.6 1.5 25 101\n",
                    "6\nc\n3\n# 1\n \t0\v1\f1\r1 1\n#\n1 1 1 1 1", "6\nc\n99\n0 1 1 1 1\n1 1 1 1 1\n",
                    "6\nc\n-5\n0 1 1 1 1\n1 1 1 1 1\n"}},
            {acp, "No data in file. 1000 ms, 1 records", {line, "6\nc\n3\n0 12.5 1.5 25 100\n\n \r\n"}},
            {acp, "No data in file. 1000 ms, 0 records",
                {"", "#\n", "#c060000\n", "6\nc\n3",
                    "6\nc\n100\n0 1 1 1 1\n1 1 1 1 1\n", // the count too wide
                    "13\nc\n1\n0 1 1 1 1\n"}},
            {acp, "Format error in x.acp 2000 ms, line 1",
                {"\n", "x\nc\n3\n0 12.5 1.5 25 100\n", "!10,20,30\n" + lines}},
            {acp, "Format error in x.acp 2000 ms, line 2", {"6\nC\n3\n", "6\n\n3\n", "6\nc\n"}},
            {acp, "Format error in x.acp 2000 ms, line 3", {"6\nc\n3000000000\n", "6\nc\n" + gap + "3\n"}},
            {acp, "Format error in x.acp 8000 ms, line 4",
                {"6\nc\n3\n0 12.5 1.5 25 100 1\n", "6\nc\n3\n0 12.5" + gap + "1.5 25 100\n"}},
            {acp, "Format error in x.acp 8000 ms, line 5",
                {"6\nc\n3\n\n0 12.5 1.5 25 100\n", "6\nc\n3\n0 1 1 1 1\n0 12.5 1.5 25\n",
                    "6\nc\n3\n#\n0.5 1 1 1 1\n", "6\nc\n3\n#\n0 1 1 1 1.5\n"}},
            {abp, "Data loaded from disk. 1000 ms, 2 records",
                {"6\ntandor\n2\n4000 10 4001 20\n4000 10 4001 20\n"}},
            {abp, "No data in file. 1000 ms, 1 records",
                {"6\nt\n99\n" + QByteArray("4000 10 ").repeated(99) + '\n'}},
            {abp, "No data in file. 1000 ms, 0 records", {"6\nt\nx\n2\n", "9\nt\n1\n4000 10\n"}},
            {abp, "Format error in x.ABP 2000 ms, line 1", {""}},
            {abp, "Format error in x.ABP 2000 ms, line 2", {"6\nc\n2\n4000 10 4001 20\n", "6\nt\n"}},
            {abp, "Format error in x.ABP 8000 ms, line 4",
                {"6\nt\n2\n4000 10 4001\n", "6\nt\n2\n4000 10 4001 20.5\n", "6\nt\n0\n4000 10\n",
                    "6\nt\n-5\n4000 10\n", "6\nt\n2000000000\n4000 10\n", "6\nt\n1\n3000000000 10\n",
                    "6\nt\n1\n4\n3300 0\n", "6\nt\n1\n0\n3300 0\n"}}};
        for (const auto &[name, outcome, files] : cases) {
            for (const QByteArray &bytes : files) {
                const auto loader = loaderOf(bytes, name);
                for (double progress = 0; loader->readSome(0); progress = loader->progress())
                    QVERIFY(loader->progress() > progress && loadOutcome(*loader).text.isEmpty());
                QCOMPARE(loader->progress(), 1.0);
                const LoadOutcome said = loadOutcome(*loader);
                const bool loaded = loader->status() == DataFileLoader::Status::Loaded;
                const int count = loader->recordCount();
                QCOMPARE(loader->takeRecords().size(), count);
                const QString reason = loaded ? QStringLiteral("%1 records").arg(count)
                                              : loader->reason().mid(int(qstrlen("format error in ")));
                QCOMPARE(QStringLiteral("%1 %2 ms, %3").arg(said.text).arg(said.timeout).arg(reason)
                        + bytes.right(50),
                    outcome + bytes.right(50));
            }
        }
    }

    void records()
    {
        const QByteArray resistances = "!10,20,30,40,50,60,70,80,90,100,110,120,130,140,150,160";
        const QByteArray figures = " 3725\t12.3456  -1.5 25.35 -7\n";
        const QString charged = QStringLiteral("%1,03725,12346,01500,254,-0007,00000,0000,0,0000,0 0 0");
        const QString balanced
            = QStringLiteral("Tandor #01B07____B%1,00000,03300,00000,000,00000,00000,3300,0,0000,0 0 0");
        const QString record = QString::fromLatin1(recordLine(3600)).section(QLatin1Char(','), 0, 10);
        const std::tuple<QString, QByteArray, QStringList> cases[] = {
            {acp, "1\ncharge\n8\n" + figures, {charged.arg("Varnel 2+ #08C00_____0")}},
            {acp, " 6 \r\nd\r\n12\r\n" + figures, {charged.arg("Varnel 2+ #12D05_____0")}},
            {acp, "12\nf\n1\n" + figures, {charged.arg("Varnel 2+ #01D11_____0")}}, // no sign says otherwise
            // The voltage of five digits is dropped, but its 5 s pass; a balance beyond 100 per cent is none.
            {abp, "7\nt\n2\n3\n3300 0 3310 100\n# note\n33000 0 3310 0\n3301 57 3311 2610\n",
                {"Tandor #02B07____B3,00000,06610,00000,000,00000,00000,3300,0,3310,: 0 0",
                    "Tandor #02B07____B3,00010,06612,00000,000,00000,00000,3301,5,3311,0 1 0"}},
            {abp, "7\nt\n1\n1\n3300 0\n", {balanced.arg(1)}},
            {abp, "7\nt\n1\n 2\r\n3300 0\n", {balanced.arg(2)}},
            {abp, "7\nt\n1\n# 1\n3300 0\n", {balanced.arg(2)}},
            // The time before the first record counts as well; a '!' line of five values is none.
            {acp, recordLine(3600) + '\n' + resistances + "\r\n" + recordLine(7200) + " \n!1,2,3,4,5\n",
                {"Varnel 3 " + record + " 100 2",
                    "Varnel 3 " + QString(record).replace("3600", "7200") + " 200 0"}},
            {acp, recordLine(3600) + '\n' + resistances, // whose last value may lack a digit
                {"Varnel 3 " + record + " 100 0"}}};
        for (const auto &[name, bytes, expected] : cases)
            QCOMPARE(told(bytes, name), expected);
        const auto nine = loaderOf("7\nt\n9\n3\n" + QByteArray("3300 0 ").repeated(8) + "3344 50\n", abp);
        QVERIFY(nine->readAll());
        QCOMPARE(nine->takeRecords().last().cells[8].voltage, 3344);
    }

    // Volts, and what becomes of them in millivolts; '-' is a format error.
    void numbers()
    {
        QStringList said;
        for (const char *volts :
            {"12", "0.0005", "0.0004999", "-0.25", "+5", "1.25e1", "12.34549999999", ".5", "5.", "2147483",
                "2147483.647", "3000000", "1e400", "NaN", "inf", "12,5", "1.2.3", ".", "+", "+-5", "0x10"}) {
            const auto loader = loaderOf(QByteArray("6\nc\n3\n0 ") + volts + " 1 1 1\n", acp);
            QVERIFY(!loader->readSome(longTime)); // at once, if there is the time
            said += loader->reason().isEmpty() ? QString::number(loader->takeRecords().last().voltage)
                                               : QStringLiteral("-");
        }
        QCOMPARE(said.join(QLatin1Char(' ')),
            QStringLiteral("12000 1 0 -250 5000 12500 12345 500 5000 2147483000 - - - - - - - - - - -"));
    }

    // What is no file, or none for this user, is neither written nor read. The limit on file sizes stands in
    // for a disk that fills up in the middle.
    void whatIsNoFile()
    {
        QTemporaryDir folder;
        const QString full = pathOf(folder, "full.acp");
        const QString fifo = pathOf(folder, "fifo"); // whose other end would be waited for
        const QString closed = pathOf(folder, "closed");
        QVERIFY(QDir().mkdir(pathOf(folder, "folder")) && QDir().mkdir(closed));
        QVERIFY(writeFile(full, "old") && ::mkfifo(QFile::encodeName(fifo).constData(), 0666) == 0);
        QVERIFY(writeFile(closed + "/b.acp", "x") && setMode(closed + "/b.acp", 0));
        QVERIFY(setMode(folder.path(), 0755) && setMode(closed, 0555));
        const std::pair<QString, int> cases[] = {{fifo, ENXIO}, {QStringLiteral("/dev/full"), ENOSPC},
            {pathOf(folder, "none/%1.acp"), ENOENT}, // the names' '%' are theirs
            {closed + "/a.acp", EACCES}, {closed + "/b.acp", 0}, {pathOf(folder, "folder"), 0},
            {full, EFBIG}};
        const RecordList records = recording(5000);
        for (const auto &[name, error] : cases) {
            std::optional<AsNobody> mayNotDoAll;
            if (name.startsWith(closed))
                mayNotDoAll.emplace();
            std::optional<FileSizeLimit> limit;
            if (name == full)
                limit.emplace(500 * 1024);
            const WriteOutcome outcome = save(name, records);
            QVERIFY2(!outcome.written && !outcome.reason.isEmpty(), qPrintable(name));
            QVERIFY2(error == 0 || outcome.reason == qt_error_string(error), qPrintable(outcome.reason));
            if (name == full)
                continue;
            DataFileLoader loader(name);
            QVERIFY(!loader.readAll() && !loader.reason().isEmpty());
            QCOMPARE(loader.status(), DataFileLoader::Status::CanNotOpen);
            QCOMPARE(loadOutcome(loader).text, QStringLiteral("Can not open file ") + name);
            QCOMPARE(loadOutcome(loader).timeout, 0);
        }
        QCOMPARE(contents(full), QByteArray("old"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"full.acp"});
    }

    // A lease on the file makes the system hold up whoever opens it.
    void slowDiskIsNotWaitedFor()
    {
        const QStringList folders{QDir::rootPath(), QDir::tempPath(), QDir::homePath()};
        QCOMPARE(DiskJobs::silent(folders, 60 * longTime), QStringList()); // not waited for after the last
        std::signal(SIGIO, SIG_IGN);
        QTemporaryFile file;
        QVERIFY(file.open() && file.write((recordLine(1) + '\n').repeated(3)) > 0 && file.flush());
        QCOMPARE(::fcntl(file.handle(), F_SETLEASE, F_WRLCK), 0);
        auto given = std::make_unique<DataFileLoader>(file.fileName());
        DataFileLoader loader(file.fileName());
        for (int i = 0; i < 3; ++i)
            QVERIFY(loader.readSome(1) && loader.isWaiting());
        given.reset(); // does not wait, either
        QCOMPARE(::fcntl(file.handle(), F_SETLEASE, F_UNLCK), 0);
        QTRY_VERIFY_WITH_TIMEOUT(!loader.readSome(1), longTime);
        QCOMPARE(loader.recordCount(), 3);
    }

    // A file that is longer than what is read ahead: its size after a while, as a journal's or another's.
    void changedMeanwhile()
    {
        const std::tuple<qint64, bool, bool> cases[] = {{-1, false, true}, {1000, false, false},
            {1000, true, false}, {9000000, false, false}, {9000000, true, true}};
        for (const auto &[newSize, isJournal, loads] : cases) {
            QTemporaryDir folder;
            QFile file(folder.filePath(acp));
            const QByteArray bytes = (recordLine(1) + '\n').repeated(20000);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) > 3000000 && file.flush());
            QVERIFY(makeOld(file.fileName(), 1));
            QVERIFY(!isJournal || ::flock(file.handle(), LOCK_EX) == 0);
            const DataFileLoader givenUp(file.fileName());
            DataFileLoader loader(file.fileName());
            while (loader.progress() <= 0)
                QVERIFY(loader.readSome(0));
            QVERIFY(loader.progress() < 1.0);
            QVERIFY(newSize < 0 || file.resize(newSize));
            while (loader.readSome(0))
                QVERIFY(loader.progress() <= 1.0);
            QCOMPARE(loader.reason().isEmpty(), loads);
        }
    }

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

    void endMarksAndWhatCanNotBeRead()
    {
        QTemporaryDir folder;
        const QString name = pathOf(folder, "a.acp");
        RecordList records = recording(3);
        Varnel3Data last = records.last();
        last.mode = Varnel3Data::Test;
        records.replaceLast(last);
        DataFilePieces lines(records, 1);
        QVERIFY(writeWholeFile(name, lines).written && lines.unreadable() == 1 && lines.progress() == 1.0);
        QCOMPARE(contents(name).count('\n'), 3);
        const RecordList one = recording(1);
        QVERIFY(DataFilePieces(one).progress() == 0.0 && DataFilePieces(RecordList()).progress() == 1.0);
        const RecordList back = loaded(name);
        QVERIFY(back.size() == 2 && back[0].flag4 == records[0].flag4 && back[1].flag4 == 'E');
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
        const auto numbered = [&folder](int links) { return folder.filePath(QString::number(links)); };
        for (int links = 1; links <= 41; ++links)
            QVERIFY(QFile::link(numbered(links - 1), numbered(links)));
        QVERIFY(save(numbered(40), recording(2)).written && QFile::remove(numbered(0)));
        QVERIFY(!save(numbered(41), recording(2)).written);
    }

    void devicesAreWrittenInPlace()
    {
        QTemporaryDir folder;
        const QString link = pathOf(folder, "null");
        QVERIFY(QFile::link(QStringLiteral("/dev/null"), link));
        QVERIFY(save(link, recording(10)).written);
        QVERIFY(QFileInfo(link).isSymLink() && S_ISCHR(modeOf(QStringLiteral("/dev/null")))); // no file
        QCOMPARE(save(link, recording(1), WholeFile::Kind::Regular).reason, "not a regular file");
    }

private:
    uint m_open = 0;
};

QTEST_GUILESS_MAIN(TestDataFiles)
#include "tst_datafiles.moc"
