#include "files/disk/disksyncer.h"
#include "files/disk/lockedfile.h"
#include "journal/journalkeeper.h"
#include "journal/journallines.h"

#include "link/recordinglog.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds period(20); // not a second, as the program's
const QString port = QStringLiteral("COM7");

QString chargerLine(int time, char mode = 'C')
{
    return QStringLiteral("#06") + QLatin1Char(mode) + QStringLiteral("05%____0,")
        + QString::number(time).rightJustified(5, QLatin1Char('0'))
        + QStringLiteral(",25200,02000,025,01234,00045") + QStringLiteral(",4100,1").repeated(7)
        + QStringLiteral(",0000,0").repeated(9);
}

const QString balancerLine
    = QStringLiteral("#t0306D4000,1,4001,2,4002,3,4003,4") + QStringLiteral(",0000,0").repeated(8);
const QString plusLine = QStringLiteral("#D0606 00123,25200,-2000,025,01234");
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

QList<int> timesIn(const QString &fileName)
{
    QList<int> times;
    const RecordList records = loaded(fileName);
    for (int i = 0; i < records.size(); ++i)
        times += records[i].time;
    return times;
}

QList<int> timesTo(int count)
{
    QList<int> times;
    for (int i = 0; i < count; ++i)
        times += i;
    return times;
}

} // namespace

/// The journal says what was recorded, and keeps it through crashes and full disks.
class TestJournal : public QObject {
    Q_OBJECT

private slots:
    // In: lines as devices send them, into a record that goes on. Out: what the journal says of them.
    void lines_data()
    {
        columns<QStringList, QStringList>({"in", "out"});
        const QStringList plain{chargerLine(0, 'T'), resistances, chargerLine(7)};
        QTest::newRow("as they came, in modes without a letter, too") << plain << plain;
        QTest::newRow("what the line alone does not say: the charger's resistance, flags and cells")
            << QStringList{plusLine, chargerLine(5), plusLine}
            << QStringList{plusLine, chargerLine(5), chargerLine(123, 'D')};
        QTest::newRow("a balancer gets a clock")
            << QStringList{balancerLine, balancerLine, balancerLine}
            << QStringList{
                   ownBalancerLine.arg("00000"), ownBalancerLine.arg("00005"), ownBalancerLine.arg("00010")};
        // Longer than any device's, so that it is written anew; in a mode that has no letter then.
        const QString endless
            = chargerLine(1, 'T').replace(QLatin1String(",00001"), QString(4096, ' ').prepend(',') + '1');
        QTest::newRow("resistances of what can't be read go to no other record")
            << QStringList{chargerLine(0), endless, resistances + QStringLiteral("\r\n"), chargerLine(2),
                   resistances}
            << QStringList{
                   chargerLine(0), chargerLine(1, ' '), '~' + resistances, chargerLine(2), resistances};
        const QString broken = chargerLine(3).replace('%', '\n');
        QTest::newRow("a line end inside, which a file can't hold")
            << QStringList{broken} << QStringList{broken};
    }

    void lines()
    {
        QFETCH(QStringList, in);
        JournalLines lines;
        Varnel3Data record;
        QStringList out;
        int records = 0;
        for (const QString &line : qAsConst(in)) {
            const bool measures = record.parseLine(line);
            records += measures;
            const QByteArray bytes = line.toLatin1();
            const QByteArray said = measures ? lines.ofRecord(bytes, record) : lines.ofResistances(bytes);
            out += QLatin1String(said.constData(), said.size());
            QCOMPARE(lines.areWorthKeeping(), records >= 2);
        }
        QTEST(out, "out");
    }

    // Where the record says anything else than its line.
    void anyOtherValueIsWritten()
    {
        const auto isOwn = [](const auto &alter) {
            Varnel3Data record;
            record.parseLine(chargerLine(5));
            alter(record);
            const QByteArray said = JournalLines().ofRecord(chargerLine(5).toLatin1(), record);
            return said == record.toRecordLine().toLatin1() && said != chargerLine(5).toLatin1();
        };
        for (int Varnel3Data::*field : {&Varnel3Data::mode, &Varnel3Data::cellType, &Varnel3Data::cellCount,
                 &Varnel3Data::time, &Varnel3Data::voltage, &Varnel3Data::current, &Varnel3Data::temperature,
                 &Varnel3Data::energy, &Varnel3Data::internalResistance})
            QVERIFY(isOwn([field](Varnel3Data &record) { ++(record.*field); }));
        for (char Varnel3Data::*flag : {&Varnel3Data::flag1, &Varnel3Data::flag2, &Varnel3Data::flag3,
                 &Varnel3Data::flag4, &Varnel3Data::flag5})
            QVERIFY(isOwn([flag](Varnel3Data &record) { ++(record.*flag); }));
        QVERIFY(isOwn([](Varnel3Data &record) { record.ballansingCurrent = 250; }));
        QVERIFY(isOwn([](Varnel3Data &record) { record.cells[6].voltage = 1; })); // lines say one more
        QVERIFY(isOwn([](Varnel3Data &record) { record.cells[0].balance = 20; }));
        QVERIFY(!isOwn([](Varnel3Data &record) { record.cells[7].voltage = 1; }));
    }

    void isThereAtOnceWhereWorthIt()
    {
        QTemporaryDir folder;
        JournalKeeper keeper(folder.filePath(QStringLiteral("new/recordings")));
        for (int records = 0; records < 3; ++records) {
            std::unique_ptr<RecordingLog> log = keeper.create(port);
            const QString name = keeper.currentFile(port);
            send(*log, 0, records);
            QCOMPARE(timesIn(name), timesTo(records)); // with the system before the next event
            log->addResistanceLine(resistances.toLatin1());
            QVERIFY(contents(name).endsWith('\n' + resistances.toLatin1() + '\n') || records == 0);
            QVERIFY(isBeingWritten(name) && keeper.holdsAll(name));
            log.reset();
            QCOMPARE(QFile::exists(name), records >= 2);
            QTRY_VERIFY(!isBeingWritten(name)); // by the thread that closes it
        }
    }

    void recordingsDoNotMeet()
    {
        QTemporaryDir folder;
        JournalKeeper keeper(folder.path());
        JournalKeeper otherProgram(folder.path());
        QStringList names;
        std::vector<std::unique_ptr<RecordingLog>> logs;
        for (JournalKeeper *each : {&keeper, &otherProgram, &keeper}) {
            logs.push_back(each->create(port));
            names += each->currentFile(port);
        }
        otherProgram.tidy(1); // all three are empty, and all three are being written
        names.removeDuplicates();
        QCOMPARE(names.size(), 3);
        QCOMPARE(keeper.folder().files().size(), 3);
    }

    // One goes on, one ends meanwhile: its window may be closed, and nothing else holds what waits.
    void fullDiskIsToldOnceAndCaughtUp()
    {
        QTemporaryDir folder;
        JournalKeeper keeper(folder.path(), nullptr, period);
        QSignalSpy stalled(&keeper, SIGNAL(stalled(QString)));
        QSignalSpy resumed(&keeper, SIGNAL(resumed()));
        const std::unique_ptr<RecordingLog> log = keeper.create(port);
        std::unique_ptr<RecordingLog> ending = keeper.create(QStringLiteral("COM8"));
        const QStringList names{keeper.currentFile(port), keeper.currentFile(QStringLiteral("COM8"))};
        {
            const FileSizeLimit limit(1000); // in the middle of a line
            send(*log, 0, 50);
            send(*ending, 0, 50);
            ending.reset();
            for (const QString &name : names) {
                QVERIFY(contents(name).endsWith('\n'));
                QCOMPARE(timesIn(name), timesTo(1000 / (chargerLine(0).size() + 1)));
                QVERIFY(isBeingWritten(name) && !keeper.holdsAll(name));
            }
            int rounds = 0;
            QTimer timer;
            connect(&timer, &QTimer::timeout, this, [&rounds] { ++rounds; });
            timer.start(period);
            QTRY_VERIFY(rounds > 3); // tries in vain
        }
        QCOMPARE(stalled.size(), 1);
        QCOMPARE(stalled.first().first().toString(), QStringLiteral("the disk is full"));
        QCOMPARE(resumed.size(), 0);
        send(*log, 50, 1); // waits for its turn
        QTRY_COMPARE(resumed.size(), 1);
        QCOMPARE(timesIn(names[0]), timesTo(51));
        QCOMPARE(timesIn(names[1]), timesTo(50));
        QVERIFY(keeper.holdsAll(names[0]) && keeper.holdsAll(names[1]));
        QTRY_VERIFY(!isBeingWritten(names[1]));
        QVERIFY(isBeingWritten(names[0]));
    }

    void tooMuchIsGivenUp()
    {
        QTemporaryDir folder;
        JournalKeeper keeper(folder.path(), nullptr, period);
        QSignalSpy resumed(&keeper, SIGNAL(resumed()));
        const std::unique_ptr<RecordingLog> log = keeper.create(port);
        constexpr int megabyte = 1 << 20;
        {
            const FileSizeLimit limit(1000);
            send(*log, 0, 50);
            for (int i = 0; i < 65; ++i)
                log->addResistanceLine('!' + QByteArray(megabyte, '1'));
        }
        QTRY_COMPARE(resumed.size(), 1);
        const qint64 size = QFileInfo(keeper.currentFile(port)).size();
        QVERIFY(size > 64 * megabyte && size < 65 * megabyte);
        QVERIFY(!keeper.holdsAll(keeper.currentFile(port)));
    }

    void folderThatCanNotBeMade()
    {
        QTemporaryDir folder;
        QFile inTheWay(folder.filePath(QStringLiteral("recordings")));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        JournalKeeper keeper(inTheWay.fileName());
        QSignalSpy stalled(&keeper, SIGNAL(stalled(QString)));
        QSignalSpy resumed(&keeper, SIGNAL(resumed()));
        std::unique_ptr<RecordingLog> log = keeper.create(port);
        send(*log, 0, 2);
        QCOMPARE(stalled.size(), 1);
        QCOMPARE(stalled.first().first().toString(), qt_error_string(ENOTDIR));
        QVERIFY(inTheWay.remove());
        log.reset(); // the last try
        QCOMPARE(resumed.size(), 1);
        QCOMPARE(timesIn(keeper.currentFile(port)), timesTo(2));
    }

    void lostFilesAreWrittenAgain_data()
    {
        QTest::addColumn<QString>("harm");
        for (const char *harm : {"removed", "replaced", "moved", "folder moved"})
            QTest::newRow(harm) << QString::fromLatin1(harm);
    }

    void lostFilesAreWrittenAgain()
    {
        QFETCH(QString, harm);
        QTemporaryDir place;
        JournalKeeper keeper(place.filePath(QStringLiteral("recordings")), nullptr, period);
        QSignalSpy replaced(&keeper, SIGNAL(replaced(QString,QString)));
        std::unique_ptr<RecordingLog> log = keeper.create(port);
        const QString name = keeper.currentFile(port);
        send(*log, 0, 20);
        for (int i = 0; i < 5000; ++i) // more than is copied in one go
            log->addResistanceLine('!' + QByteArray(4000, '1'));
        log->addResistanceLine('!' + QByteArray(3 << 20, '1')); // more than is copied at once
        if (harm == QLatin1String("removed"))
            QVERIFY(QFile::remove(name));
        else if (harm == QLatin1String("replaced"))
            QVERIFY(QFile::remove(name) && writeFile(name, "precious\n"));
        else if (harm == QLatin1String("moved"))
            QVERIFY(QFile::rename(name, place.filePath(QStringLiteral("mine.acp"))));
        else
            QVERIFY(QDir().rename(QFileInfo(name).path(), place.filePath(QStringLiteral("old"))));
        QTRY_VERIFY(!replaced.isEmpty()); // though no line comes
        const QString newName = keeper.currentFile(port);
        QCOMPARE(replaced.last(), QVariantList({name, newName}));
        QCOMPARE(newName != name, harm == QLatin1String("replaced"));
        QTRY_VERIFY(keeper.holdsAll(newName));
        QCOMPARE(timesIn(newName), timesTo(20));
        QCOMPARE(contents(newName).count('!'), 5001);
        send(*log, 20, 1);
        log.reset();
        QCOMPARE(timesIn(newName), timesTo(21));
        QVERIFY(newName == name || contents(name) == "precious\n");
    }

    void failedSyncIsTriedAgain()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        constexpr int descriptor = 900; // stands for no file at first
        DiskSyncer syncer(period);
        QVERIFY(!syncer.isFailing(descriptor) && !syncer.isGone(descriptor));
        syncer.mark(descriptor);
        QTRY_VERIFY(syncer.isFailing(descriptor));
        QCOMPARE(::dup2(file.handle(), descriptor), descriptor);
        QTRY_VERIFY(!syncer.isFailing(descriptor));
        syncer.watch(descriptor, file.fileName());
        QVERIFY(QFile::remove(file.fileName()));
        QTRY_VERIFY(syncer.isGone(descriptor));
        QVERIFY(syncer.finishNow(descriptor).get());
        QCOMPARE(::fcntl(descriptor, F_GETFD), -1);
        QVERIFY(!syncer.finishNow(descriptor).get());
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
};

QTEST_GUILESS_MAIN(TestJournal)
#include "tst_journal.moc"
