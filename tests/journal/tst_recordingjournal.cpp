#include "files/disksyncer.h"
#include "files/lockedfile.h"
#include "journal/journalkeeper.h"

#include "link/recordinglog.h"
#include "support/files.h"
#include "support/limits.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

#include <fcntl.h>
#include <map>
#include <unistd.h>

namespace {

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

void addLine(RecordingLog &log, const QString &line, Varnel3Data *record)
{
    if (record->parseLine(line))
        log.addRecord(line.toLatin1(), *record);
}

} // namespace

/// The journal keeps every line through crashes and full disks.
class TestRecordingJournal : public QObject {
    Q_OBJECT

private slots:
    void keepsLinesAsTheyCame();
    void writesWhatTheLineAloneDoesNotSay();
    void balancerGetsAClock();
    void resistancesStayWithTheirRecord();
    void emptyRecordingLeavesNothing();
    void recordingsDoNotMeet();
    void fullDiskIsToldOnceAndCaughtUp();
    void endedRecordingIsCaughtUp();
    void folderThatCanNotBeMade();
    void lostFilesAreWrittenAgain();
    void failedSyncIsTriedAgain();
};

void TestRecordingJournal::keepsLinesAsTheyCame()
{
    QTemporaryDir folder;
    JournalKeeper keeper(folder.filePath(QStringLiteral("new/recordings")));
    std::unique_ptr<RecordingLog> log = keeper.create(port);
    Varnel3Data record;
    addLine(*log, chargerLine(0, 'T'), &record); // a mode that record lines have no letter for
    log->addResistanceLine(resistances.toLatin1());
    record = {};
    addLine(*log, plusLine, &record);
    const QByteArray expected
        = (chargerLine(0, 'T') + '\n' + resistances + '\n' + plusLine + '\n').toLatin1();
    QCOMPARE(contents(keeper.currentFile(port)), expected); // with the system before the next event
    log.reset();
    const RecordList records = loaded(keeper.currentFile(port));
    QCOMPARE(records.size(), 2);
    QCOMPARE(records[0].mode, int(Varnel3Data::Test));
    QCOMPARE(records[0].cells[15].resistance, 1.6);
    QCOMPARE(records[1].device, int(Varnel3Data::Varnel2Plus));
}

// Fields that a dialect does not send carry over in the reader's record.
void TestRecordingJournal::writesWhatTheLineAloneDoesNotSay()
{
    QTemporaryDir folder;
    JournalKeeper keeper(folder.path());
    const std::unique_ptr<RecordingLog> log = keeper.create(port);
    Varnel3Data record;
    record.internalResistance = 77;
    addLine(*log, plusLine, &record);
    addLine(*log, plusLine, &record);
    QCOMPARE(contents(keeper.currentFile(port)), (record.toRecordLine() + '\n').repeated(2).toLatin1());
    QCOMPARE(loaded(keeper.currentFile(port)).last().internalResistance, 77);
}

void TestRecordingJournal::balancerGetsAClock()
{
    QTemporaryDir folder;
    JournalKeeper keeper(folder.path());
    const std::unique_ptr<RecordingLog> log = keeper.create(port);
    Varnel3Data record;
    for (int i = 0; i < 3; ++i)
        addLine(*log, balancerLine, &record);
    const RecordList records = loaded(keeper.currentFile(port));
    QCOMPARE(records.size(), 3);
    QCOMPARE(records[2].time, 10);
    QCOMPARE(records[2].cells[2].voltage, 4002);
    QCOMPARE(records[2].mode, int(Varnel3Data::Balancing));
}

// The second record is in a mode that neither its line, which says something else, nor a record line tells.
void TestRecordingJournal::resistancesStayWithTheirRecord()
{
    QTemporaryDir folder;
    JournalKeeper keeper(folder.path());
    std::unique_ptr<RecordingLog> log = keeper.create(port);
    Varnel3Data record;
    addLine(*log, chargerLine(0), &record);
    QVERIFY(record.parseLine(chargerLine(1, 'T')));
    ++record.voltage;
    log->addRecord(chargerLine(1, 'T').toLatin1(), record);
    log->addResistanceLine(resistances.toLatin1());
    QVERIFY(contents(keeper.currentFile(port)).contains(resistances.toLatin1()));
    log.reset();
    const RecordList records = loaded(keeper.currentFile(port));
    QCOMPARE(records.size(), 1);
    QVERIFY(!records[0].resistanceValid);
}

void TestRecordingJournal::emptyRecordingLeavesNothing()
{
    QTemporaryDir folder;
    JournalKeeper keeper(folder.path());
    for (int records = 0; records < 3; ++records) {
        std::unique_ptr<RecordingLog> log = keeper.create(port);
        Varnel3Data record;
        for (int i = 0; i < records; ++i)
            addLine(*log, chargerLine(i), &record);
        QVERIFY(QFile::exists(keeper.currentFile(port)));
        log.reset();
        QCOMPARE(QFile::exists(keeper.currentFile(port)), records >= 2);
    }
}

void TestRecordingJournal::recordingsDoNotMeet()
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

void TestRecordingJournal::fullDiskIsToldOnceAndCaughtUp()
{
    QTemporaryDir folder;
    JournalKeeper keeper(folder.path());
    QSignalSpy stalled(&keeper, SIGNAL(stalled(QString)));
    QSignalSpy resumed(&keeper, SIGNAL(resumed()));
    const std::unique_ptr<RecordingLog> log = keeper.create(port);
    const std::unique_ptr<RecordingLog> other = keeper.create(QStringLiteral("COM8"));
    const QString name = keeper.currentFile(port);
    Varnel3Data record;
    int sent = 0;
    {
        const FileSizeLimit limit(1000); // in the middle of a line
        for (; sent < 50; ++sent) {
            addLine(*log, chargerLine(sent), &record);
            addLine(*other, chargerLine(sent), &record);
        }
        QVERIFY(contents(name).endsWith('\n'));
        QCOMPARE(loaded(name).size(), 1000 / (chargerLine(0).size() + 1));
    }
    QCOMPARE(stalled.size(), 1);
    QVERIFY(!stalled.first().first().toString().isEmpty());
    QCOMPARE(resumed.size(), 0);
    addLine(*log, chargerLine(sent), &record); // waits for its turn
    QTRY_COMPARE(resumed.size(), 1);
    const RecordList records = loaded(name);
    QCOMPARE(records.size(), sent + 1);
    for (int i = 0; i < records.size(); ++i)
        QCOMPARE(records[i].time, i);
}

// Its window may be closed by then, and nothing else holds what the disk has not taken.
void TestRecordingJournal::endedRecordingIsCaughtUp()
{
    QTemporaryDir folder;
    JournalKeeper keeper(folder.path());
    QSignalSpy resumed(&keeper, SIGNAL(resumed()));
    std::unique_ptr<RecordingLog> log = keeper.create(port);
    const QString name = keeper.currentFile(port);
    Varnel3Data record;
    {
        const FileSizeLimit limit(1000);
        for (int i = 0; i < 50; ++i)
            addLine(*log, chargerLine(i), &record);
        log.reset();
        QTest::qWait(1500); // a try in vain
        QVERIFY(isBeingWritten(name));
    }
    QCOMPARE(resumed.size(), 0);
    QTRY_COMPARE(resumed.size(), 1);
    QCOMPARE(loaded(name).size(), 50);
    QTRY_VERIFY(!isBeingWritten(name)); // by the thread that closes it
}

void TestRecordingJournal::folderThatCanNotBeMade()
{
    QTemporaryDir folder;
    QFile inTheWay(folder.filePath(QStringLiteral("recordings")));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    JournalKeeper keeper(inTheWay.fileName());
    QSignalSpy stalled(&keeper, SIGNAL(stalled(QString)));
    QSignalSpy resumed(&keeper, SIGNAL(resumed()));
    std::unique_ptr<RecordingLog> log = keeper.create(port);
    Varnel3Data record;
    addLine(*log, chargerLine(0), &record);
    addLine(*log, chargerLine(1), &record);
    QCOMPARE(stalled.size(), 1);
    QVERIFY(inTheWay.remove());
    log.reset(); // the last try
    QCOMPARE(resumed.size(), 1);
    QCOMPARE(loaded(keeper.currentFile(port)).size(), 2);
}

// Four recordings at once, each of which loses its file in another way.
void TestRecordingJournal::lostFilesAreWrittenAgain()
{
    const QStringList harms{QStringLiteral("removed"), QStringLiteral("replaced"), QStringLiteral("moved"),
        QStringLiteral("folder moved")};
    constexpr int many = 20;
    QTemporaryDir place;
    std::map<QString, JournalKeeper> keepers;
    std::map<QString, std::unique_ptr<QSignalSpy>> spies;
    std::map<QString, std::unique_ptr<RecordingLog>> logs;
    QMap<QString, QString> names;
    Varnel3Data record;
    for (const QString &harm : harms) {
        const QString path = place.filePath(harm + QStringLiteral("/recordings"));
        JournalKeeper &keeper = keepers.try_emplace(harm, path).first->second;
        spies[harm] = std::make_unique<QSignalSpy>(&keeper, SIGNAL(replaced(QString,QString)));
        logs[harm] = keeper.create(port);
        names[harm] = keeper.currentFile(port);
        for (int i = 0; i < many; ++i)
            addLine(*logs[harm], chargerLine(i), &record);
    }
    QFile other(place.filePath(QStringLiteral("other")));
    QVERIFY(other.open(QIODevice::WriteOnly) && other.write("precious\n") > 0 && other.flush());
    QVERIFY(QFile::remove(names[harms[0]]));
    QVERIFY(QFile::remove(names[harms[1]]) && other.rename(names[harms[1]]));
    QVERIFY(QFile::rename(names[harms[2]], place.filePath(QStringLiteral("mine.acp"))));
    QVERIFY(QDir().rename(place.filePath(harms[3]), place.filePath(QStringLiteral("old"))));
    for (const QString &harm : harms) {
        JournalKeeper &keeper = keepers.at(harm);
        const QSignalSpy &replaced = *spies[harm];
        QTRY_VERIFY2(!replaced.isEmpty(), qPrintable(harm)); // though no line comes
        const QString newName = keeper.currentFile(port);
        QCOMPARE(replaced.last(), QVariantList({names[harm], newName}));
        QCOMPARE(newName != names[harm], harm == QLatin1String("replaced"));
        QTRY_VERIFY2(keeper.holdsAll(newName), qPrintable(harm));
        QCOMPARE(loaded(newName).size(), many);
        addLine(*logs[harm], chargerLine(many), &record);
        logs[harm].reset();
        QCOMPARE(loaded(newName).size(), many + 1);
    }
    QCOMPARE(contents(names[QStringLiteral("replaced")]), QByteArray("precious\n"));
}

void TestRecordingJournal::failedSyncIsTriedAgain()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    constexpr int descriptor = 900; // stands for no file at first
    DiskSyncer syncer;
    QVERIFY(!syncer.isFailing(descriptor));
    syncer.mark(descriptor);
    QTRY_VERIFY(syncer.isFailing(descriptor));
    QCOMPARE(::dup2(file.handle(), descriptor), descriptor);
    QTRY_VERIFY(!syncer.isFailing(descriptor));
    syncer.finish(descriptor);
    QTRY_COMPARE(::fcntl(descriptor, F_GETFD), -1);
}

QTEST_GUILESS_MAIN(TestRecordingJournal)
#include "tst_recordingjournal.moc"
