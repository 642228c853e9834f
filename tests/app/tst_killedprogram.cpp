#include "files/datafileloader.h"
#include "journal/journalfolder.h"
#include "settings/settingskeeper.h"
#include "settings/varnelsettings.h"
#include "support/lines.h"
#include "support/programprocess.h"
#include "support/ptypair.h"
#include "support/shellfixture.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

#include <array>

namespace {

constexpr int lineLength = 160; // as sent, with its line end; the test asks whether it is
constexpr int longestRun = 600; // ms from the first line to the kill
constexpr int linesUnderWay = 1; // between its reading and its writing when the program is killed
constexpr int mostLines = 99999; // their times have five digits
constexpr int manyLines = 60000; // of each device; more than fit into little memory
constexpr rlim_t littleMemory = 48 << 20; // bytes beyond what the program takes at first
constexpr int smallDisk = 100 * 1024; // bytes that a file may have where the disk is said to be full

} // namespace

/// The program is killed while devices send at full speed: the journals hold what it has read. One kill in
/// each way, or as many as VARNEL_TEST_KILLS says.
class TestKilledProgram : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void journalHoldsAll_data();
    void journalHoldsAll();

private:
    struct Device {
        std::unique_ptr<PtyPair> line;
        int sent = 0; // lines, complete
    };

    void sendUntilKilled(ProgramProcess *program, int milliseconds, int least, bool oneByOne);
    void checkJournal(Device &device, bool diskFull);
    static bool keepsAllButOne(const Device &device);
    static QString newestJournal(const QString &portName);

    ShellFixture fixture;
    std::array<Device, 2> devices;
};

void TestKilledProgram::initTestCase()
{
    // The program has an organisation of its own, and takes all folders from the environment.
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    qputenv("XDG_CONFIG_HOME", fixture.path(QStringLiteral("settings")).toLocal8Bit());
    QCOMPARE(Lines::charger(1).size(), lineLength);
    VarnelSettings().setPorts({QStringLiteral("COM1"), QStringLiteral("COM2")});
    QVERIFY(SettingsKeeper::waitForWritten(std::chrono::seconds(60)));
}

void TestKilledProgram::journalHoldsAll_data()
{
    QTest::addColumn<bool>("diskFull");
    QTest::addColumn<bool>("oneByOne");
    QTest::addColumn<bool>("memoryFull");
    QTest::newRow("burst") << false << false << false;
    QTest::newRow("line by line") << false << true << false;
    QTest::newRow("full disk") << true << false << false;
#ifndef __SANITIZE_ADDRESS__ // which needs more of it than there is
    QTest::newRow("little memory") << false << false << true;
#endif
}

void TestKilledProgram::journalHoldsAll()
{
    QFETCH(bool, diskFull);
    QFETCH(bool, oneByOne);
    QFETCH(bool, memoryFull);
    const int kills = std::max(1, qEnvironmentVariableIntValue("VARNEL_TEST_KILLS"));
    for (int kill = 0; kill < kills; ++kill) {
        for (size_t i = 0; i < devices.size(); ++i) {
            const QString name = QStringLiteral("COM%1").arg(i + 1);
            devices[i].line.reset(); // takes its name away
            devices[i] = {std::make_unique<PtyPair>(fixture.portFolder(), name), 0};
        }
        ProgramProcess program;
        program.limitFiles(diskFull ? smallDisk : 0);
        QVERIFY(program.listens(int(devices.size())));
        QVERIFY(!memoryFull || program.limitMemory(littleMemory));
        const int milliseconds = 100 + QRandomGenerator::global()->bounded(longestRun);
        sendUntilKilled(&program, milliseconds, memoryFull ? manyLines : 50, oneByOne);
        QCOMPARE(program.readAll().contains("no memory for another record"), memoryFull);
        for (Device &device : devices) {
            checkJournal(device, diskFull);
            if (QTest::currentTestFailed())
                return;
        }
    }
}

/// What is still on its way through the terminal no count of unread bytes shows: the journal itself tells.
bool TestKilledProgram::keepsAllButOne(const Device &device)
{
    const QFileInfo journal(newestJournal(device.line->portName()));
    return journal.size() >= qint64(device.sent - 1) * (lineLength - 1); // one byte ends a line there
}

void TestKilledProgram::sendUntilKilled(ProgramProcess *program, int milliseconds, int least, bool oneByOne)
{
    QElapsedTimer clock;
    clock.start();
    while ((clock.elapsed() < milliseconds || devices[0].sent < least) && devices[0].sent < mostLines) {
        for (Device &device : devices) {
            device.line->send(Lines::charger(++device.sent));
            while (oneByOne && !keepsAllButOne(device) && clock.elapsed() < 60000)
                QThread::usleep(20);
        }
    }
    QCOMPARE(program->state(), QProcess::Running);
    program->kill(); // SIGKILL
    program->waitForFinished();
}

void TestKilledProgram::checkJournal(Device &device, bool diskFull)
{
    const QString fileName = newestJournal(device.line->portName());
    QFile file(fileName);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(fileName));
    const QByteArray journal = file.readAll();
    const int lines = journal.count('\n');
    QByteArray expected;
    for (int i = 1; i <= lines; ++i)
        expected += Lines::charger(i).chopped(2) + '\n';
    QVERIFY2(journal == expected, qPrintable(fileName)); // no line is missing, spoilt or cut
    const int read = (device.sent * lineLength - device.line->takeUnread().size()) / lineLength;
    const int handled = read - linesUnderWay;
    const int room = smallDisk / (lineLength - 1);
    qInfo("%d lines sent, %d read, %d in the journal", device.sent, read, lines);
    QVERIFY2(lines >= (diskFull ? std::min(handled, room) : handled),
        qPrintable(QStringLiteral("%1 of %2 lines").arg(lines).arg(read)));
    DataFileLoader loader(fileName);
    QVERIFY2(loader.readAll(), qPrintable(loader.reason()));
    QCOMPARE(loader.recordCount(), lines);
    QVERIFY(file.remove());
}

QString TestKilledProgram::newestJournal(const QString &portName)
{
    const QStringList files = JournalFolder(JournalFolder::defaultPath()).files();
    for (const QString &file : files) {
        if (file.endsWith(portName + QStringLiteral(".acp")))
            return file;
    }
    return QString();
}

QTEST_GUILESS_MAIN(TestKilledProgram)
#include "tst_killedprogram.moc"
