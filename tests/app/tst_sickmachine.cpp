#include "app/process/singleinstance.h"
#include "journal/journalfolder.h"
#include "settings/settingskeeper.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/lines.h"
#include "support/programprocess.h"
#include "support/ptypair.h"
#include "support/seed.h"
#include "support/shellfixture.h"

#include <array>

namespace {

constexpr int lineLength = 160; // as sent, with its line end; the test asks whether it is
constexpr int linesUnderWay = 1; // between its reading and its writing when the program is killed
constexpr int fewLines = 4;
constexpr int manyLines = 50;
constexpr int smallDisk = 100 * 1024; // bytes that a file may have where the disk is said to be full
constexpr int longestWait = 60000; // ms

} // namespace

/// The program itself, on a machine that is ill or ends it. Killed while devices send at full speed its
/// journals hold what it has read: one kill in each way, or as many as VARNEL_TEST_KILLS says.
class TestSickMachine : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The program has an organisation of its own, and takes all folders from the environment.
        QCoreApplication::setOrganizationName("VarnelGraph");
        qputenv("XDG_CONFIG_HOME", fixture.path("settings").toLocal8Bit());
        QCOMPARE(Lines::charger(1).size(), lineLength);
        VarnelSettings().setPorts({"COM1", "COM2"});
        QVERIFY(SettingsKeeper::waitForWritten(std::chrono::milliseconds(longestWait)));
        random.seed(randomSeed());
    }
    void init()
    {
        QVERIFY(QDir(JournalFolder::defaultPath()).removeRecursively());
        for (size_t i = 0; i < devices.size(); ++i) {
            devices[i].line.reset(); // takes its name away
            devices[i] = {std::make_unique<PtyPair>(fixture.portFolder(), QString("COM%1").arg(i + 1)), 0, 0};
        }
    }

    void killed_data()
    {
        columns<int, int, bool>(
            {"disk", "lines", "oneByOne"}); // bytes; from the first line to the kill, at most
        QTest::newRow("burst") << 0 << 2000 << false;
        QTest::newRow("line by line") << 0 << 2 * manyLines << true;
        QTest::newRow("full disk") << smallDisk << 2000 << false;
    }

    void killed()
    {
        QFETCH(int, disk);
        QFETCH(int, lines);
        QFETCH(bool, oneByOne);
        const int kills = std::max(1, qEnvironmentVariableIntValue("VARNEL_TEST_KILLS"));
        for (int kill = 0; kill < kills; ++kill) {
            init();
            ProgramProcess program;
            program.limitFiles(disk);
            QVERIFY(program.listens(int(devices.size())));
            for (Device &device : devices)
                record(program, &device, 1);
            const int most = random.bounded(lines / 2, lines);
            while (devices[0].sent < most) {
                for (Device &device : devices) {
                    device.line->send(Lines::charger(++device.sent));
                    if (oneByOne)
                        QVERIFY(QTest::qWaitFor(
                            [&] { return linesKept(device) >= device.sent - device.first; }, longestWait));
                }
            }
            QCOMPARE(program.state(), QProcess::Running);
            program.kill(); // SIGKILL
            QVERIFY(program.waitForFinished(longestWait));
            for (const Device &device : devices)
                checkJournal(device, disk / (lineLength - 1));
            if (QTest::currentTestFailed())
                return;
        }
    }

    void told_data()
    {
        columns<int, bool>({"number", "journal"});
        QTest::newRow("terminate") << SIGTERM << true;
        QTest::newRow("interrupt") << SIGINT << true;
        QTest::newRow("hang up") << SIGHUP << true;
        QTest::newRow("no journal") << SIGTERM << false;
    }

    // Told to end while lines arrive, the program has asked nothing, and what was sent until then stands in
    // files.
    void told()
    {
        QFETCH(int, number);
        QFETCH(bool, journal);
        ProgramProcess program;
        QVERIFY(program.listens(int(devices.size())));
        record(program, &devices[0], fewLines);
        VarnelSettings().setValue(SettingsKey::journalEnabled, journal); // for the other device
        QVERIFY(SettingsKeeper::waitForWritten(std::chrono::milliseconds(longestWait)));
        const auto sendToBoth = [this] {
            for (Device &device : devices)
                device.line->send(Lines::charger(++device.sent));
        };
        for (int i = 0; i < manyLines; ++i)
            sendToBoth();
        devices[1].first = 1; // its port was opened with the other one
        const std::array<int, 2> least = {devices[0].sent, devices[1].sent};
        ::kill(pid_t(program.processId()), number);
        const auto hasEnded = [&] {
            if (devices[0].line->waiting() + devices[1].line->waiting()
                < lineLength) // a dead one's would fill up
                sendToBoth();
            return program.waitForFinished(1) || program.state() != QProcess::Running;
        };
        QVERIFY(QTest::qWaitFor(hasEnded, longestWait));
        VarnelSettings().remove(SettingsKey::journalEnabled);
        QVERIFY(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0);
        for (size_t i = 0; i < devices.size(); ++i) {
            const RecordList records = loaded(journalOf(devices[i]));
            QVERIFY2(
                records.size() > least[i] - devices[i].first, qPrintable(QString::number(records.size())));
            for (int record = 0; record < records.size(); ++record)
                QCOMPARE(records[record].time, devices[i].first + record);
        }
    }

    void nobodyReadsTheLog()
    {
        for (const auto log : {ProgramProcess::Log::ReaderGone, ProgramProcess::Log::Full}) {
            init();
            ProgramProcess program;
            program.setLog(log);
            program.start(VARNELGRAPH_PROGRAM, QStringList());
            record(program, &devices[0], fewLines);
            QCOMPARE(program.state(), QProcess::Running);
        }
    }

    // Each start names its file as its folder does.
    void laterStartHandsOverItsFile()
    {
        ProgramProcess first;
        QProcess second;
        QByteArray said;
        for (QProcess *program : {static_cast<QProcess *>(&first), &second}) {
            const QString name = program == &first ? "one.acp" : "two.acp";
            QVERIFY(writeFile(fixture.path(name), Lines::charger(1)));
            program->setWorkingDirectory(fixture.path({}));
            program->start(VARNELGRAPH_PROGRAM, {name});
            QTRY_VERIFY_WITH_TIMEOUT(
                (said += first.readAll()).contains(fixture.path(name).toLocal8Bit()), longestWait);
        }
        QTRY_COMPARE_WITH_TIMEOUT(second.state(), QProcess::NotRunning, longestWait);
        QCOMPARE(second.exitCode(), 0);
    }

    // Nothing that the program waits for is the window's, and the place is free before the disk is well.
    void diskHangsAtTheEnd()
    {
        const QString sick = fixture.path("sick");
        QVERIFY(QDir().mkpath(sick));
        ProgramProcess program;
        program.setVariable("LD_PRELOAD", SICK_MACHINE);
        program.setVariable("ASAN_OPTIONS", "verify_asan_link_order=0");
        program.setVariable("VARNEL_TEST_SICK", sick);
        QVERIFY(program.listens(int(devices.size())));
        QVERIFY(writeFile(sick + "/hang", ""));
        record(program, &devices[0], fewLines);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(sick + "/hung"), longestWait);
        program.terminate();
        SingleInstance next(VarnelSettings().fileName());
        SingleInstance::Role role = SingleInstance::Role::HandedOver;
        while (role == SingleInstance::Role::HandedOver) // until it has heard that it is to close
            role = next.settle({});
        QCOMPARE(role, SingleInstance::Role::First);
        QVERIFY(program.waitForFinished(longestWait));
        QVERIFY(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0);
        QVERIFY(!contents(sick + "/hung").contains("window"));
        QVERIFY(linesKept(devices[0]) >= fewLines);
    }

private:
    struct Device {
        std::unique_ptr<PtyPair> line;
        int sent = 0; // lines, complete
        int first = 0; // that was not thrown away while the port was opened
    };

    /// What is still on its way through the terminal no count of unread bytes shows: the journal itself
    /// tells. `room`: for so many lines on the disk, or 0.
    static void checkJournal(const Device &device, int room)
    {
        const QString fileName = journalOf(device);
        const QByteArray journal = contents(fileName);
        const int lines = journal.count('\n');
        QByteArray expected;
        for (int i = 0; i < lines; ++i)
            expected += Lines::charger(device.first + i).chopped(2) + '\n';
        QVERIFY2(journal == expected, qPrintable(fileName)); // no line is missing, spoilt or cut
        const int read = (device.sent * lineLength - device.line->takeUnread().size()) / lineLength;
        const int handled = read - (device.first - 1) - linesUnderWay;
        qInfo("%d lines sent, %d read, %d in the journal", device.sent, read, lines);
        QVERIFY(lines >= (room > 0 ? std::min(handled, room) : handled));
        QCOMPARE(loaded(fileName).size(), lines);
        QVERIFY(QFile::remove(fileName));
    }

    /// Sends line after line until the journal has some of them: the first may come while the port is opened.
    static void record(const ProgramProcess &program, Device *device, int lines)
    {
        const auto sendAndCount = [&] {
            if (program.state() == QProcess::Running) // else nobody empties the line
                device->line->send(Lines::charger(++device->sent));
            return linesKept(*device);
        };
        QTRY_VERIFY_WITH_TIMEOUT(sendAndCount() >= lines, longestWait);
        device->first
            = contents(journalOf(*device)).split(',').value(1).toInt(); // the time of its first line
    }

    /// The newest one; empty before there is one.
    static QString journalOf(const Device &device)
    {
        return JournalFolder(JournalFolder::defaultPath())
            .files()
            .filter(device.line->portName() + ".acp")
            .value(0);
    }
    static qint64 linesKept(const Device &device)
    {
        return QFileInfo(journalOf(device)).size() / (lineLength - 1); // one byte ends a line there
    }

    ShellFixture fixture;
    std::array<Device, 2> devices;
    QRandomGenerator random;
};

QTEST_GUILESS_MAIN(TestSickMachine)
#include "tst_sickmachine.moc"
