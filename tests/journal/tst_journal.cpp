#include "files/disk/disksyncer.h"
#include "files/disk/lockedfile.h"
#include "journal/journalkeeper.h"
#include "journal/journallines.h"

#include "link/recordinglog.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/lines.h"

#include <QtTest>

#include <atomic>
#include <fcntl.h>
#include <future>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds period(20); // not a second, as the program's
constexpr int longTime = 60000; // ms
const QString port = QStringLiteral("COM7");

QString chargerLine(int time, const char *mode = "C")
{
    return Lines::recordLine(QByteArray("#06") + mode + "05%____0", time, QByteArray(",4100,1").repeated(7));
}

const QString balancerLine
    = QStringLiteral("#t0306D4000,1,4001,2,4002,3,4003,4") + QStringLiteral(",0000,0").repeated(8);
const QString plusLine = QStringLiteral("#D0606 00123,25200,-2000,251,00150");
const QString resistances = QStringLiteral("!1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16");
const QString ownBalancerLine = QStringLiteral("#03B05____B3,%1,16006,00000,000,00000,00000"
                                               ",4000,1,4001,2,4002,3,4003,4")
    + QStringLiteral(",0000,0").repeated(12);

void send(RecordingLog &log, int first, int count)
{
    for (int time = first; time < first + count; ++time) {
        Varnel3Data record;
        if (record.parseLine(chargerLine(time)))
            log.addRecord(chargerLine(time).toLatin1(), record);
    }
}

// The file holds records from 0 s on, a second apart: how many. -1 where it does not.
int secondsIn(const QString &fileName)
{
    const RecordList records = loaded(fileName);
    for (int i = 0; i < records.size(); ++i) {
        if (records[i].time != i)
            return -1;
    }
    return records.size();
}

std::atomic<bool> diskFails{false};

bool writeOld(const QString &name, const QByteArray &bytes, int daysAgo)
{
    return writeFile(name, bytes) && makeOld(name, daysAgo);
}

} // namespace

extern "C" int fsync(int descriptor)
{
    errno = EIO;
    return diskFails ? -1 : int(::syscall(SYS_fsync, descriptor));
}

/// The journal says what was recorded, and keeps it through crashes and full disks.
class TestJournal : public QObject {
    Q_OBJECT

private slots:
    // In: lines as devices send them, into a record that goes on. Out: what the journal says of them.
    void lines()
    {
        // Longer than any device's, so that it is written anew; in a mode that has no letter then.
        const QString usual = chargerLine(1, "T");
        const QString endless
            = QString(usual).replace(",00001", ',' + QString(4101 - usual.size(), ' ') + '1');
        const QString longest = QString(endless).remove(20, 1);
        QCOMPARE(longest.size(), 4096);
        const QString broken
            = chargerLine(3).replace('%', '\n'); // what a file can't hold is written anew, too
        const std::pair<QStringList, QStringList> cases[] = {
            {{chargerLine(0, "T"), resistances, chargerLine(7)},
                {chargerLine(0, "T"), resistances, chargerLine(7)}},
            // What the line alone does not say: the charger's resistance, flags and cells.
            {{plusLine, chargerLine(5), plusLine}, {plusLine, chargerLine(5), chargerLine(123, "D")}},
            {{balancerLine, balancerLine, balancerLine}, // get a clock
                {ownBalancerLine.arg("00000"), ownBalancerLine.arg("00005"), ownBalancerLine.arg("00010")}},
            // Resistances of what can't be read go to no other record.
            {{chargerLine(0), endless, resistances + "\r\n", chargerLine(2), resistances},
                {chargerLine(0), chargerLine(1, " "), '~' + resistances, chargerLine(2), resistances}},
            {{broken}, {broken}}, {{longest}, {longest}}};
        for (const auto &expected : cases) {
            JournalLines lines;
            Varnel3Data record;
            QStringList out;
            int records = 0;
            for (const QString &line : expected.first) {
                const bool measures = record.parseLine(line);
                records += measures;
                const QByteArray bytes = line.toLatin1();
                const QByteArray said = measures ? lines.ofRecord(bytes, record) : lines.ofResistances(bytes);
                out += QLatin1String(said.constData(), said.size());
                QCOMPARE(lines.areWorthKeeping(), records >= 2);
            }
            QCOMPARE(out, expected.second);
        }
    }

    // One after the other, beside those of another program, which tidies up meanwhile.
    void isThereAtOnceWhereWorthIt()
    {
        QTemporaryDir folder;
        JournalKeeper keeper(folder.filePath(QStringLiteral("new/recordings")));
        JournalKeeper otherProgram(keeper.folder().path());
        const std::unique_ptr<RecordingLog> other = otherProgram.create(port);
        QString begun;
        connect(&keeper, &JournalKeeper::began, this, [&begun](const QString &name) { begun += name; });
        for (int records = 0; records < 3; ++records) {
            begun.clear();
            std::unique_ptr<RecordingLog> log = keeper.create(port);
            const QString name = keeper.currentFile(port);
            QVERIFY(name != otherProgram.currentFile(port));
            otherProgram.tidy(1);
            QCOMPARE(keeper.folder().files().size(), 2); // empty, and being written
            send(*log, 0, records);
            QCOMPARE(secondsIn(name), records); // with the system before the next event
            QCOMPARE(begun, records > 0 ? name : QString());
            log->addResistanceLine(resistances.toLatin1());
            QVERIFY(contents(name).endsWith('\n' + resistances.toLatin1() + '\n') || records == 0);
            QVERIFY(isBeingWritten(name) && keeper.holdsAll(name));
            log.reset();
            QCOMPARE(QFile::exists(name), records >= 2);
            QTRY_VERIFY_WITH_TIMEOUT(!isBeingWritten(name), longTime); // by the thread that closes it
        }
        std::unique_ptr<RecordingLog> replaced = keeper.create(port);
        const QString name = keeper.currentFile(port);
        QVERIFY(QFile::remove(name) && writeFile(name, "precious\n"));
        replaced.reset();
        QCOMPARE(contents(name), QByteArray("precious\n")); // not the journal's
        QMetaObject::invokeMethod(&keeper, "lookAfterFiles"); // of which there are none any more
        const auto *round = keeper.findChild<QTimer *>();
        QVERIFY(!round->isActive() && round->interval() == 1000);
    }

    // One goes on, one ends meanwhile: its window may be closed, and nothing else holds what waits.
    void diskThatFailsIsToldOnceAndCaughtUp()
    {
        QTemporaryDir folder;
        JournalKeeper keeper(folder.path(), nullptr, period);
        QSignalSpy stalled(&keeper, SIGNAL(stalled(QString)));
        QSignalSpy resumed(&keeper, SIGNAL(resumed()));
        const std::unique_ptr<RecordingLog> log = keeper.create(port);
        std::unique_ptr<RecordingLog> ending = keeper.create(QStringLiteral("COM8"));
        const QStringList names{keeper.currentFile(port), keeper.currentFile(QStringLiteral("COM8"))};
        const int length = chargerLine(0).size() + 1;
        for (const int bytes : {1000, 13 * length - 1, 15 * length}) { // in a line, before its end, behind it
            const FileSizeLimit limit{rlim_t(bytes)};
            if (ending) {
                send(*log, 0, 50);
                send(*ending, 0, 50);
                ending.reset();
            }
            for (int round = 0; round < 3; ++round) // in vain but for the first
                QVERIFY(QMetaObject::invokeMethod(&keeper, "lookAfterFiles"));
            for (const QString &name : names) {
                QVERIFY(contents(name).endsWith('\n'));
                QCOMPARE(secondsIn(name), bytes / length);
                QVERIFY(isBeingWritten(name) && !keeper.holdsAll(name));
            }
        }
        QCOMPARE(stalled, QList<QVariantList>({{QStringLiteral("the disk is full")}}));
        QCOMPARE(resumed.size(), 0);
        send(*log, 50, 1); // waits for its turn
        QTRY_COMPARE_WITH_TIMEOUT(resumed.size(), 1, longTime);
        QVERIFY(secondsIn(names[0]) == 51 && secondsIn(names[1]) == 50);
        QVERIFY(keeper.holdsAll(names[0]) && keeper.holdsAll(names[1]));
        QTRY_VERIFY_WITH_TIMEOUT(!isBeingWritten(names[1]), longTime);
        QVERIFY(isBeingWritten(names[0]));
        // What it reports though it takes the lines: nobody knows which of them are there once it is well.
        diskFails = true;
        QTRY_VERIFY_WITH_TIMEOUT((send(*log, 51, 1), stalled.size() == 2), longTime);
        QCOMPARE(stalled[1], QVariantList({QStringLiteral("the disk reports an error")}));
        diskFails = false;
        QTRY_COMPARE_WITH_TIMEOUT(resumed.size(), 2, longTime);
        QVERIFY(!keeper.holdsAll(names[0]));
    }

    // What waits for the folder takes memory, and no more than 64 MB of that.
    void folderThatCanNotBeMade()
    {
        constexpr int megabyte = 1 << 20;
        QTemporaryDir folder;
        const QString inTheWay = folder.filePath(QStringLiteral("recordings"));
        QVERIFY(writeFile(inTheWay, "x"));
        JournalKeeper keeper(inTheWay);
        QSignalSpy stalled(&keeper, SIGNAL(stalled(QString)));
        QSignalSpy resumed(&keeper, SIGNAL(resumed()));
        send(*keeper.create(port), 0, 1); // what waited is not missed in a file that is not kept
        QVERIFY(stalled.size() == 1 && resumed.size() == 1);
        const QString lone = keeper.currentFile(port);
        QVERIFY(QFile::remove(inTheWay) && QDir().mkpath(inTheWay) && writeFile(lone, ""));
        QVERIFY(keeper.holdsAll(lone) && QDir(inTheWay).removeRecursively() && writeFile(inTheWay, "x"));
        stalled.clear();
        resumed.clear();
        for (const int tooMuch : {0, 65}) {
            std::unique_ptr<RecordingLog> log = keeper.create(port);
            send(*log, 0, 2);
            for (int i = 0; i < tooMuch; ++i)
                log->addResistanceLine('!' + QByteArray(megabyte, '1'));
            QCOMPARE(stalled, QList<QVariantList>({{qt_error_string(ENOTDIR)}}));
            stalled.clear();
            QVERIFY(QFile::remove(inTheWay));
            log.reset(); // the last try
            const QString name = keeper.currentFile(port);
            const qint64 size = QFileInfo(name).size();
            QVERIFY(secondsIn(name) == 2 && size > tooMuch * megabyte - megabyte && size < 65 * megabyte);
            QCOMPARE(keeper.holdsAll(name), tooMuch == 0);
            QVERIFY(resumed.size() == 1 && QDir(inTheWay).removeRecursively() && writeFile(inTheWay, "x"));
            resumed.clear();
        }
    }

    void lostFilesAreWrittenAgain()
    {
        const auto openFiles
            = [] { return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size(); };
        for (const char *harm :
            {"removed", "replaced", "moved", "cut", "cut behind a line", "folder moved"}) {
            QTemporaryDir place;
            const int openBefore = openFiles();
            auto keeper = std::make_unique<JournalKeeper>(
                place.filePath(QStringLiteral("recordings")), nullptr, period);
            QSignalSpy replaced(keeper.get(), SIGNAL(replaced(QString,QString)));
            std::unique_ptr<RecordingLog> log = keeper->create(port);
            const QString name = keeper->currentFile(port);
            send(*log, 0, 20);
            const bool ends = *harm == 'f'; // while it is written again
            for (int i = 0; i < (ends ? 14000 : 5000); ++i) // more than is copied in one go
                log->addResistanceLine('!' + QByteArray(4000, '1'));
            log->addResistanceLine('!' + QByteArray(3 << 20, '1')); // more than is copied at once
            QByteArray all = contents(name);
            const QString mine = place.filePath(QStringLiteral("mine.acp"));
            if (*harm == 'm' || *harm == 'c')
                QVERIFY(QFile::rename(name, mine) && writeFile(mine, contents(mine) + "more\n"));
            else if (ends)
                QVERIFY(QDir().rename(QFileInfo(name).path(), place.filePath(QStringLiteral("old"))));
            else
                QVERIFY(
                    QFile::remove(name) && (harm != QByteArray("replaced") || writeFile(name, "precious\n")));
            if (*harm == 'c') {
                all.truncate(all.indexOf('\n', 9999) + 1);
                QVERIFY(QFile::resize(mine, all.size() + (harm == QByteArray("cut") ? 100 : 0)));
            }
            const bool full = harm == QByteArray("removed"); // for so many, and what comes later has room
            if (full) {
                const FileSizeLimit limit(40000);
                QTRY_VERIFY_WITH_TIMEOUT(!replaced.isEmpty(), longTime);
                QVERIFY(QMetaObject::invokeMethod(keeper.get(), "lookAfterFiles"));
                QVERIFY(!keeper->holdsAll(keeper->currentFile(port)));
                send(*log, 20, 1);
                QVERIFY(QMetaObject::invokeMethod(keeper.get(), "lookAfterFiles"));
                all += chargerLine(20).toLatin1() + '\n';
            }
            while (ends && replaced.isEmpty()) // and no time to write more
                QVERIFY(QMetaObject::invokeMethod(keeper.get(), "lookAfterFiles"));
            QTRY_VERIFY_WITH_TIMEOUT(!replaced.isEmpty(), longTime); // though no line comes
            const QString newName = keeper->currentFile(port);
            QCOMPARE(replaced, QList<QVariantList>({{name, newName}}));
            QVERIFY2(newName == name || contents(name) == "precious\n", harm);
            if (!ends) {
                QTRY_VERIFY_WITH_TIMEOUT(contents(newName) == all, longTime);
                QTRY_VERIFY_WITH_TIMEOUT(keeper->holdsAll(newName) == (*harm != 'c'), longTime);
                QTRY_VERIFY_WITH_TIMEOUT(!isBeingWritten(mine), longTime); // and is let go
                send(*log, 20, full ? 0 : 1);
            }
            log.reset();
            keeper.reset();
            QVERIFY(contents(newName).startsWith(all) && secondsIn(newName) == (ends ? 20 : 21));
            QTRY_VERIFY_WITH_TIMEOUT(openFiles() <= openBefore, longTime);
        }
    }

    void failedSyncIsTriedAgain()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        constexpr int descriptor = 900; // stands for no file at first
        DiskSyncer syncer(period);
        QVERIFY(!syncer.isFailing(descriptor) && !syncer.isGone(descriptor));
        syncer.mark(descriptor);
        QTRY_VERIFY_WITH_TIMEOUT(syncer.isFailing(descriptor), longTime);
        QCOMPARE(::dup2(file.handle(), descriptor), descriptor);
        QTRY_VERIFY_WITH_TIMEOUT(!syncer.isFailing(descriptor), longTime);
        syncer.watch(descriptor, file.fileName());
        QVERIFY(QFile::remove(file.fileName()));
        QTRY_VERIFY_WITH_TIMEOUT(syncer.isGone(descriptor), longTime);

        // However long it is to the next round: at once, what else is to be finished with it, and at the end.
        QVERIFY(::dup2(descriptor, 901) == 901 && ::dup2(descriptor, 902) == 902);
        QCOMPARE(::dup2(descriptor, 903), 903);
        {
            DiskSyncer slow(std::chrono::hours(1));
            slow.mark(903);
            slow.finish(901);
            QVERIFY(slow.finishNow(descriptor).get() && ::fcntl(901, F_GETFD) == -1);
            ::close(903); // it is on the disk and is not brought there again
            QVERIFY(!slow.finishNow(descriptor).get() && !slow.isFailing(903));
            slow.finish(902);
        }
        QCOMPARE(::fcntl(902, F_GETFD), -1);
    }

    // A name is taken from nobody who writes to it, though another program tidies up all the time.
    void lockedFiles()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("a"));
        const CreatedFile file = createLockedFile(name);
        QVERIFY(writeFile(folder.filePath(QStringLiteral("other")), "") && isBeingWritten(name));
        QCOMPARE(QFile::permissions(name), QFile::permissions(folder.filePath("other")));
        QVERIFY(QFile::link(QStringLiteral("loop"), folder.filePath(QStringLiteral("loop"))));
        QString named; // what can't be looked at may still be there
        for (const char *path : {"a", "other", "none", "a/b", "loop"})
            named += isStillNamed(file.descriptor, folder.filePath(QLatin1String(path))) ? '1' : '0';
        QCOMPARE(named, QStringLiteral("10001"));
        QVERIFY(isStillNamed(-1, name) && !isBeingWritten(name + 'b') && !removeUnlessWritten(name + 'b'));
        closeFile(file.descriptor);
        QVERIFY(!isBeingWritten(name) && removeUnlessWritten(name) && !QFile::exists(name));
        std::atomic<bool> ended = false;
        const auto tidying = std::async(std::launch::async, [&] {
            while (!ended)
                removeUnlessWritten(name);
        });
        bool kept = true;
        for (int i = 0; i < 3000; ++i) {
            const CreatedFile created = createLockedFile(name);
            kept &= created.descriptor == -1 || isStillNamed(created.descriptor, name);
            QFile::remove(name);
            closeFile(created.descriptor);
        }
        ended = true;
        QVERIFY(kept);
    }

    void largeFolderIsToldOnce()
    {
        QTemporaryDir folder;
        JournalKeeper keeper(folder.path());
        QSignalSpy large(&keeper, SIGNAL(folderLarge(QString,qint64)));
        QFile sparse(keeper.folder().fileName(QDateTime::currentDateTime(), QStringLiteral("COM1"), 1));
        QVERIFY(sparse.open(QIODevice::WriteOnly));
        for (const int more : {0, 1, 2}) {
            QVERIFY(sparse.resize(JournalKeeper::largeFolder + more));
            keeper.create(port);
            QCoreApplication::sendPostedEvents(&keeper);
            QCOMPARE(large.size(), more > 0 ? 1 : 0);
        }
        QCOMPARE(large.first(), QVariantList({folder.path(), JournalKeeper::largeFolder + 1}));
    }

    void names()
    {
        const JournalFolder folder(QStringLiteral("/j"));
        const QDateTime time(QDate(2026, 11, 21), QTime(6, 4, 5));
        QCOMPARE(folder.fileName(time, "COM3", 1), QStringLiteral("/j/2026-11-21_06-04-05_COM3.acp"));
        QCOMPARE(folder.fileName(time, "COM3", 2), QStringLiteral("/j/2026-11-21_06-04-05_COM3_2.acp"));
        QCOMPARE(folder.fileName(time, QString::fromUtf8("../C-z 3%1:\u0142"), 1),
            QStringLiteral("/j/2026-11-21_06-04-05____C-z_3_1__.acp"));
        QCOMPARE(JournalFolder::startOf("/k/2026-11-21_06-04-05_COM3_2.acp"), time);
        for (const char *other : {"2026-11-21_06-04-05_COM3.abp", "2026-11-21_06-04-05-COM3.acp"})
            QVERIFY2(!JournalFolder::startOf(other).isValid(), other);
    }

    // What is removed from the folder, and what never is.
    void folderIsTidied()
    {
        const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
        QVERIFY(QDir().mkpath(data)); // the bin is on the disk of what it takes
        QTemporaryDir temporary(data + QStringLiteral("/XXXXXX"));
        const JournalFolder folder(temporary.path());
        const QDateTime time = QDateTime::currentDateTime();
        const auto nameOf = [&](const char *name) { return folder.fileName(time, QLatin1String(name), 1); };
        const QString mine = temporary.filePath(QStringLiteral("mine.acp"));
        const QByteArray line = "#c0605 00123,25200+02000,025,01234\n";
        QVERIFY(writeOld(nameOf("A-empty"), "", 99) && writeOld(mine, line, 99));
        QVERIFY(writeOld(nameOf("B-one"), line + "!1,2,3\n" + line.left(20), 1));
        QVERIFY(writeOld(nameOf("C-two"), line + line, 31));
        QVERIFY(writeOld(nameOf("D-large"), QByteArray(4097, 'x'), 29));
        QVERIFY(writeOld(nameOf("E-small"), QByteArray(4096, 'x'), 1));
        const CreatedFile live = createLockedFile(nameOf("F-live"));
        QVERIFY(live.descriptor >= 0 && isBeingWritten(nameOf("F-live")));
        QVERIFY(writeOld(nameOf("F-live"), "", 99) && createLockedFile(nameOf("F-live")).exists);
        QVERIFY(writeOld(nameOf("G-newest"), line + line, 1));
        const QStringList newer = {nameOf("G-newest"), nameOf("F-live"), nameOf("D-large")};

        QCOMPARE(folder.removeEmpty(), 3);
        QCOMPARE(folder.files(), newer + QStringList{nameOf("C-two")});
        QCOMPARE(folder.totalSize(), qint64(4097 + 4 * line.size()));
        QCOMPARE(JournalFolder(temporary.filePath(QStringLiteral("none"))).removeEmpty(), 0);
        QCOMPARE(folder.discardOlderThan(30, time.addDays(-9)), 0);
        QCOMPARE(
            folder.discardOlderThan(30, time.addYears(70)), 0); // the clock is wrong: G would be old, too
        QCOMPARE(folder.discardOlderThan(29, time.addYears(70)), 1);
        QCOMPARE(folder.files(), newer);
        QVERIFY(QDir(data + QStringLiteral("/Trash/files")).exists(QFileInfo(nameOf("C-two")).fileName()));
        closeFile(live.descriptor);
        QVERIFY(folder.removeEmpty() == 1 && QFile::exists(mine));
        QVERIFY(folder.discardOlderThan(0) == 0 && folder.discardOlderThan(1) == 1);
    }
};

QTEST_GUILESS_MAIN(TestJournal)
#include "tst_journal.moc"
