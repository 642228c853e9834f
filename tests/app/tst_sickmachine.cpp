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
#include "support/shellfixture.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QThread>

#include <array>

namespace {

constexpr int lineLength = 160; // as sent, with its line end; the test asks whether it is
constexpr int longestRun = 300; // ms from the first line to the kill
constexpr int linesUnderWay = 1; // between its reading and its writing when the program is killed
constexpr int fewLines = 4;
constexpr int leastLines = 50; // before the kill
constexpr int mostLines = 99999; // their times have five digits
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
        QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
        qputenv("XDG_CONFIG_HOME", fixture.path(QStringLiteral("settings")).toLocal8Bit());
        QCOMPARE(Lines::charger(1).size(), lineLength);
        VarnelSettings().setPorts({QStringLiteral("COM1"), QStringLiteral("COM2")});
        QVERIFY(SettingsKeeper::waitForWritten(std::chrono::milliseconds(longestWait)));
    }

    void init()
    {
        QVERIFY(QDir(JournalFolder::defaultPath()).removeRecursively());
        plug();
    }

    void killed_data()
    {
        columns<bool, bool>({"diskFull", "oneByOne"});
        QTest::newRow("burst") << false << false;
        QTest::newRow("line by line") << false << true;
        QTest::newRow("full disk") << true << false;
    }

    void killed()
    {
        QFETCH(bool, diskFull);
        QFETCH(bool, oneByOne);
        const int kills = std::max(1, qEnvironmentVariableIntValue("VARNEL_TEST_KILLS"));
        for (int kill = 0; kill < kills; ++kill) {
            plug();
            ProgramProcess program;
            program.limitFiles(diskFull ? smallDisk : 0);
            QVERIFY(program.listens(int(devices.size())));
            for (Device &device : devices)
                record(program, &device, 1);
            sendUntilKilled(&program, oneByOne);
            for (Device &device : devices) {
                checkJournal(device, diskFull);
                if (QTest::currentTestFailed())
                    return;
            }
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

    // Told to end while lines arrive, the program has asked nothing, and what was sent until then stands in files.
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
        for (int i = 0; i < leastLines; ++i)
            sendToBoth();
        devices[1].first = 1; // its port was opened with the other one
        const std::array<int, 2> least = {devices[0].sent, devices[1].sent};
        ::kill(pid_t(program.processId()), number);
        QElapsedTimer clock;
        clock.start();
        while (!program.waitForFinished(1) && program.state() == QProcess::Running
            && clock.elapsed() < longestWait) {
            if (devices[0].line->waiting() + devices[1].line->waiting()
                < lineLength) // else a dead one's would fill up
                sendToBoth();
        }
        VarnelSettings().remove(SettingsKey::journalEnabled);
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
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
        ProgramProcess program;
        program.leaveLogUnread();
        program.start(QStringLiteral(VARNELGRAPH_PROGRAM), QStringList());
        record(program, &devices[0], fewLines);
        QCOMPARE(program.state(), QProcess::Running);
    }

    // Nothing that the program waits for is the window's, and the place is free before the disk is well.
    void diskHangsAtTheEnd()
    {
        const QString sick = fixture.path(QStringLiteral("sick"));
        QVERIFY(QDir().mkpath(sick));
        ProgramProcess program;
        program.setVariable("LD_PRELOAD", QStringLiteral(SICK_MACHINE));
        program.setVariable("ASAN_OPTIONS", QStringLiteral("verify_asan_link_order=0"));
        program.setVariable("VARNEL_TEST_SICK", sick);
        QVERIFY(program.listens(int(devices.size())));
        QVERIFY(writeFile(sick + QStringLiteral("/hang"), QByteArray()));
        record(program, &devices[0], fewLines);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(sick + QStringLiteral("/hung")), longestWait);
        program.terminate();
        SingleInstance next(VarnelSettings().fileName());
        SingleInstance::Role role = SingleInstance::Role::HandedOver;
        while (role == SingleInstance::Role::HandedOver) // until it has heard that it is to close
            role = next.settle({});
        QCOMPARE(role, SingleInstance::Role::First);
        QVERIFY(program.waitForFinished(longestWait));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QVERIFY(!contents(sick + QStringLiteral("/hung")).contains("window"));
        QVERIFY(linesKept(devices[0]) >= fewLines);
    }

private:
    struct Device {
        std::unique_ptr<PtyPair> line;
        int sent = 0; // lines, complete
        int first = 0; // that was not thrown away while the port was opened
    };

    void plug()
    {
        for (size_t i = 0; i < devices.size(); ++i) {
            devices[i].line.reset(); // takes its name away
            devices[i]
                = {std::make_unique<PtyPair>(fixture.portFolder(), QStringLiteral("COM%1").arg(i + 1)), 0, 0};
        }
    }

    /// What is still on its way through the terminal no count of unread bytes shows: the journal itself
    /// tells.
    void sendUntilKilled(ProgramProcess *program, bool oneByOne)
    {
        const int milliseconds = 100 + QRandomGenerator::global()->bounded(longestRun);
        QElapsedTimer clock;
        clock.start();
        while (
            (clock.elapsed() < milliseconds || devices[0].sent < leastLines) && devices[0].sent < mostLines) {
            for (Device &device : devices) {
                device.line->send(Lines::charger(++device.sent));
                while (oneByOne && linesKept(device) < device.sent - device.first
                    && clock.elapsed() < longestWait)
                    QThread::usleep(20);
            }
        }
        QCOMPARE(program->state(), QProcess::Running);
        program->kill(); // SIGKILL
        program->waitForFinished();
    }

    void checkJournal(Device &device, bool diskFull)
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
        const int room = smallDisk / (lineLength - 1);
        qInfo("%d lines sent, %d read, %d in the journal", device.sent, read, lines);
        QVERIFY2(lines >= (diskFull ? std::min(handled, room) : handled),
            qPrintable(QStringLiteral("%1 of %2 lines").arg(lines).arg(read)));
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
        const QString ending = device.line->portName() + QStringLiteral(".acp");
        return JournalFolder(JournalFolder::defaultPath()).files().filter(ending).value(0);
    }
    static qint64 linesKept(const Device &device)
    {
        return QFileInfo(journalOf(device)).size() / (lineLength - 1); // one byte ends a line there
    }

    ShellFixture fixture;
    std::array<Device, 2> devices;
};

QTEST_GUILESS_MAIN(TestSickMachine)
#include "tst_sickmachine.moc"
