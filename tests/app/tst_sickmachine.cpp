#include "app/singleinstance.h"
#include "journal/journalfolder.h"
#include "settings/settingskeeper.h"
#include "settings/varnelsettings.h"
#include "support/files.h"
#include "support/lines.h"
#include "support/programprocess.h"
#include "support/ptypair.h"
#include "support/shellfixture.h"

#include <QTest>

namespace {

constexpr int fewLines = 4;

} // namespace

/// The program itself on a machine that is ill.
class TestSickMachine : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void nobodyReadsTheLog();
    void diskHangsAtTheEnd();

private:
    void record(const ProgramProcess &program);
    static QByteArray journal();

    ShellFixture fixture;
    std::unique_ptr<PtyPair> line;
    int sent = 0;
};

void TestSickMachine::initTestCase()
{
    // The program has an organisation of its own, and takes all folders from the environment.
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    qputenv("XDG_CONFIG_HOME", fixture.path(QStringLiteral("settings")).toLocal8Bit());
    VarnelSettings().setPorts({QStringLiteral("COM1")});
    QVERIFY(SettingsKeeper::waitForWritten(std::chrono::seconds(60)));
    line = std::make_unique<PtyPair>(fixture.portFolder(), QStringLiteral("COM1"));
}

void TestSickMachine::init()
{
    sent = 0;
    QVERIFY(QDir(JournalFolder::defaultPath()).removeRecursively());
}

/// The newest one; empty before there is one.
QByteArray TestSickMachine::journal()
{
    const QStringList files = JournalFolder(JournalFolder::defaultPath()).files();
    return files.isEmpty() ? QByteArray() : contents(files.first());
}

/// Sends line after line until the journal has a few of them: the first may come while the port is opened.
void TestSickMachine::record(const ProgramProcess &program)
{
    const auto sendAndCount = [&] {
        if (program.state() == QProcess::Running) // else nobody empties the line
            line->send(Lines::charger(++sent));
        return journal().count('\n');
    };
    QTRY_VERIFY_WITH_TIMEOUT(sendAndCount() >= fewLines, 20000);
}

void TestSickMachine::nobodyReadsTheLog()
{
    ProgramProcess program;
    program.leaveLogUnread();
    program.start(QStringLiteral(VARNELGRAPH_PROGRAM), QStringList());
    record(program);
    QCOMPARE(program.state(), QProcess::Running);
}

// Nothing that the program waits for is the window's, and the place is free before the disk is well.
void TestSickMachine::diskHangsAtTheEnd()
{
    const QString sick = fixture.path(QStringLiteral("sick"));
    QVERIFY(QDir().mkpath(sick));
    ProgramProcess program;
    program.setVariable("LD_PRELOAD", QStringLiteral(SICK_MACHINE));
    program.setVariable("ASAN_OPTIONS", QStringLiteral("verify_asan_link_order=0"));
    program.setVariable("VARNEL_TEST_SICK", sick);
    QVERIFY(program.listens(1));
    QVERIFY(writeFile(sick + QStringLiteral("/hang"), QByteArray()));
    record(program);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(sick + QStringLiteral("/hung")), 20000);
    QVERIFY(writeFile(sick + QStringLiteral("/close"), QByteArray()));
    SingleInstance next(VarnelSettings().fileName());
    SingleInstance::Role role = SingleInstance::Role::HandedOver;
    while (role == SingleInstance::Role::HandedOver) // until it has heard that it is to close
        role = next.settle({});
    QCOMPARE(role, SingleInstance::Role::First);
    QVERIFY(program.waitForFinished(60000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(!contents(sick + QStringLiteral("/hung")).contains("window"));
    QVERIFY(journal().count('\n') >= fewLines);
}

QTEST_GUILESS_MAIN(TestSickMachine)
#include "tst_sickmachine.moc"
