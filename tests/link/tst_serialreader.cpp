#include "link/serialreader.h"

#include "link/clockcommand.h"
#include "settings/varnelsettings.h"
#include "support/fakeshell.h"
#include "support/ptypair.h"
#include "support/shellfixture.h"
#include "support/warningcollector.h"

#include <QSignalSpy>
#include <QSocketNotifier>
#include <QtTest>

#include <cstdio>
#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const auto port = QStringLiteral("COM7");

QByteArray sent(const QByteArray &line)
{
    return line + "\r\n";
}

// More than a line takes at once while nobody reads at its far end.
QString bigCommand()
{
    return QString(200000, QLatin1Char('x'));
}

} // namespace

/// A device at the far end of a pseudo-terminal, and a reader at the near one.
class SerialReaderTest : public QObject {
    Q_OBJECT

public slots:
    void stopReader() { reader->stop(); }
    void restartReader();
    void deleteReader() { reader.release()->deleteLater(); }
    void sendBig(int notified);
    void commandAndNote(const QString &reply);

private slots:
    void init();
    void cleanup();
    void speaksAsTheDevicesDo();
    void beginsWithWhatIsNew();
    void keepsEveryLine();
    void repliesGoToTheRemoteControl();
    void endOfProcess();
    void idleTimeIsCounted();
    void commandsDoNotWaitOnAQuietPort();
    void fullLineIsGivenUpAfterHalfASecond();
    void linesDuringAWriteKeepTheirOrder();
    void bytesReadByAWriteAreNoLoss();
    void commandsToAFullLineAreNoLoss();
    void endIsToldBeforeTheShot_data();
    void endIsToldBeforeTheShot();
    void hangUp_data();
    void hangUp();
    void surgeryInsideASignal_data();
    void surgeryInsideASignal();
    void portHeldByAnother();
    void lockThatIsNoFile();

private:
    QVector<Recording> recordings() const { return shell->windowRecordings(); }

    ShellFixture fixture;
    std::unique_ptr<PtyPair> device;
    std::unique_ptr<FakeShell> shell;
    std::unique_ptr<SerialReader> reader;
    QStringList notes;
    int depth = 0;
};

void SerialReaderTest::init()
{
    notes.clear();
    device = std::make_unique<PtyPair>(fixture.portFolder(), port);
    shell = std::make_unique<FakeShell>();
    reader = std::make_unique<SerialReader>(nullptr, port, shell.get());
    QVERIFY(reader->start());
}

void SerialReaderTest::cleanup()
{
    reader.reset();
    device.reset();
}

void SerialReaderTest::restartReader()
{
    reader->stop();
    reader->start();
}

void SerialReaderTest::sendBig(int notified)
{
    char byte;
    QCOMPARE(read(notified, &byte, 1), ssize_t(1));
    reader->sendCommand(bigCommand());
}

void SerialReaderTest::commandAndNote(const QString &reply)
{
    ++depth;
    notes.append(QStringLiteral("%1 %2").arg(QString::number(depth), reply));
    if (notes.size() == 1) {
        device->send("#BBB\r\n#CCC\r\n");
        reader->sendCommand(bigCommand());
        notes.append(QStringLiteral("%1 done").arg(depth));
    }
    --depth;
}

// All that a pseudo-terminal keeps of it.
void SerialReaderTest::speaksAsTheDevicesDo()
{
    const termios settings = device->settings();
    QCOMPARE(cfgetispeed(&settings), speed_t(B19200));
    QCOMPARE(cfgetospeed(&settings), speed_t(B19200));
    QCOMPARE(settings.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), tcflag_t(CS8));
    QCOMPARE(settings.c_iflag & (IXON | IXOFF | IXANY), tcflag_t(0));
}

// Lines wait in the system, and half a line at their end.
void SerialReaderTest::beginsWithWhatIsNew()
{
    reader->stop();
    const QByteArray old = sent(varnel3Line(1)).repeated(25) + "#06C05";
    device->send(old);
    QTRY_COMPARE(device->waiting(), old.size());
    QVERIFY(reader->start());
    device->send(sent(varnel3Line(5)));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5"}}));
}

void SerialReaderTest::keepsEveryLine()
{
    Recording expected;
    for (int time = 1; time <= 3000; ++time) {
        device->send(sent(varnel3Line(time)));
        expected.append(QString::number(time));
        if (time % 7 == 0)
            QCoreApplication::processEvents();
    }
    device->send(sent(resistanceLine()));
    expected.append(QStringLiteral("!"));
    QTRY_COMPARE(recordings(), QVector<Recording>({expected}));
    QCOMPARE(shell->windows[0]->portName, port);
    reader->stop();
    QCOMPARE(shell->windows[0]->link, nullptr);
    QVERIFY(!reader->isOpen());
    QCOMPARE(shell->calls, QStringList("started"));
}

void SerialReaderTest::repliesGoToTheRemoteControl()
{
    QSignalSpy replies(reader.get(), SIGNAL(control_data(QString)));
    device->send(QByteArray("#TRYB0\x02\r\n#12345678\r\n#123456789\r\n#NRC\x06\r\n"));
    QTRY_COMPARE(replies.size(), 3);
    QCOMPARE(replies[0][0].toString(), QStringLiteral("#TRYB0"));
    QCOMPARE(replies[1][0].toString(), QStringLiteral("#12345678"));
    QCOMPARE(replies[2][0].toString(), QStringLiteral("#NRC"));
    QVERIFY(recordings().isEmpty());
}

void SerialReaderTest::endOfProcess()
{
    VarnelSettings().setSendTime(true);
    shell->claimClock(port, ReaderHost::ProcessStart);
    QElapsedTimer clock;
    clock.start();
    for (int time = 5; time < 8; ++time)
        device->send(sent(varnel3Line(time, "#06C05", 'E')));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5", "6", "7"}}));
    QTRY_COMPARE(shell->calls.count(QStringLiteral("ended 2")), 3);
    QVERIFY2(clock.elapsed() >= 245, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(recordings(), QVector<Recording>({{"5", "6", "7", "end"}}));
    QVERIFY(reader->isNewProcess());
    QCOMPARE(device->received().size(), clockCommand().size());
    VarnelSettings().setSendTime(false);
}

void SerialReaderTest::idleTimeIsCounted()
{
    device->send(sent(varnel3Line(5)));
    QTRY_COMPARE(recordings().size(), 1);
    auto *seconds = reader->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(seconds->isActive());
    QCOMPARE(seconds->interval(), 1000);
    for (int second = 0; reader->isRecording(); ++second) {
        QVERIFY(second <= 20);
        QMetaObject::invokeMethod(seconds, "timeout");
    }
    device->send(sent(varnel3Line(6)));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5", "end"}, {"6"}}));
    reader->stop();
    QVERIFY(!seconds->isActive());
}

void SerialReaderTest::commandsDoNotWaitOnAQuietPort()
{
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 10; ++i)
        reader->sendCommand(QStringLiteral("#STOP\u00B0\r\n"));
    QVERIFY2(clock.elapsed() < 2500, qPrintable(QString::number(clock.elapsed())));
    reader->stop();
    QCOMPARE(device->received(), QByteArray("#STOP\xB0\r\n").repeated(10));
    const WarningCollector collector;
    reader->sendCommand(QStringLiteral("#STOP\r\n"));
    QCOMPARE(device->received(), QByteArray());
    QCOMPARE(collector.warnings(), QStringList());
}

void SerialReaderTest::fullLineIsGivenUpAfterHalfASecond()
{
    device->send(sent(varnel3Line(5)));
    QElapsedTimer clock;
    clock.start();
    reader->sendCommand(bigCommand());
    QVERIFY2(clock.elapsed() >= 480 && clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(recordings().isEmpty()); // who sends a command is not told of lines before it returns
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5"}}));
}

void SerialReaderTest::linesDuringAWriteKeepTheirOrder()
{
    connect(reader.get(), SIGNAL(control_data(QString)), this, SLOT(commandAndNote(QString)));
    device->send("#AAA\r\n");
    QTRY_COMPARE(notes, QStringList({"1 #AAA", "1 done", "1 #BBB", "1 #CCC"}));
}

// The system may have announced bytes that a command's wait has read when the announcement is looked at.
void SerialReaderTest::bytesReadByAWriteAreNoLoss()
{
    int ends[2];
    QCOMPARE(pipe(ends), 0);
    reader->stop();
    QSocketNotifier notifier(ends[0], QSocketNotifier::Read); // is looked at before the port's own
    connect(&notifier, SIGNAL(activated(int)), this, SLOT(sendBig(int)));
    QVERIFY(reader->start());
    for (int time = 5; time < 8; ++time) {
        device->send(sent(varnel3Line(time)));
        QCOMPARE(write(ends[1], "x", 1), ssize_t(1));
        QCoreApplication::processEvents();
        device->received();
    }
    device->send(sent(varnel3Line(8)));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5", "6", "7", "8"}}));
    QCOMPARE(shell->calls, QStringList("started"));
    close(ends[0]);
    close(ends[1]);
}

void SerialReaderTest::commandsToAFullLineAreNoLoss()
{
    reader->sendCommand(bigCommand());
    reader->sendCommand(bigCommand());
    device->send(sent(varnel3Line(5)));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5"}}));
    int arrived = 0;
    QTRY_COMPARE(arrived += device->received().size(), 2 * bigCommand().size());
    QCOMPARE(shell->calls, QStringList("started"));
}

void SerialReaderTest::endIsToldBeforeTheShot_data()
{
    QTest::addColumn<bool>("lost");
    QTest::newRow("port lost") << true;
    QTest::newRow("port closed") << false;
}

// The shell deletes the reader of a lost port, and that of a port that is no longer wanted.
void SerialReaderTest::endIsToldBeforeTheShot()
{
    QFETCH(bool, lost);
    device->send(sent(varnel3Line(5)) + sent(varnel3Line(6, "#06C05", 'M')));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5", "6"}}));
    if (lost)
        device->hangUp();
    else
        reader->stop();
    QTRY_VERIFY(!reader->isOpen());
    reader.reset();
    QTRY_COMPARE(shell->calls.count(QStringLiteral("ended 1")), 1);
    QVERIFY(shell->calls.contains(QStringLiteral("announced 6 0")));
    QCOMPARE(recordings(), QVector<Recording>({{"5", "6", "end"}}));
}

void SerialReaderTest::hangUp_data()
{
    QTest::addColumn<bool>("commanding");
    QTest::newRow("while listening") << false;
    QTest::newRow("before a command") << true;
}

void SerialReaderTest::hangUp()
{
    QFETCH(bool, commanding);
    WarningCollector collector;
    device->send(sent(varnel3Line(5)));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5"}}));
    device->send(sent(varnel3Line(6)) + "#06C05");
    device->hangUp();
    QElapsedTimer clock;
    clock.start();
    if (commanding)
        reader->sendCommand(bigCommand());
    QTRY_VERIFY(!reader->isOpen());
    QVERIFY2(clock.elapsed() < 480, qPrintable(QString::number(clock.elapsed())));
    const clock_t begin = std::clock();
    QTest::qWait(200);
    QVERIFY((std::clock() - begin) * 10 < CLOCKS_PER_SEC); // no loop that never rests
    QCOMPARE(recordings().at(0).last(), QStringLiteral("end"));
    QCOMPARE(shell->logs, recordings());
    QCOMPARE(shell->calls, QStringList({"started", "lost COM7"}));
    QCOMPARE(collector.warnings(), QStringList());
}

void SerialReaderTest::surgeryInsideASignal_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("listensOn");
    QTest::newRow("stopped") << QByteArray(SLOT(stopReader())) << false;
    QTest::newRow("restarted") << QByteArray(SLOT(restartReader())) << true;
    QTest::newRow("deleted later") << QByteArray(SLOT(deleteReader())) << true;
}

// Lines of the same piece that follow belong to nobody.
void SerialReaderTest::surgeryInsideASignal()
{
    QFETCH(QByteArray, slot);
    QFETCH(bool, listensOn);
    const QPointer<SerialReader> watched = reader.get();
    connect(reader.get(), SIGNAL(control_data(QString)), this, slot.constData());
    const bool deletes = slot == SLOT(deleteReader());
    device->send(sent(varnel3Line(5)) + "#OK__\r\n" + (deletes ? QByteArray() : sent(varnel3Line(6))));
    QTRY_VERIFY(!recordings().isEmpty() && recordings().at(0).last() == QLatin1String("end"));
    QTRY_COMPARE(watched.isNull(), deletes);
    QCOMPARE(recordings(), QVector<Recording>({{"5", "end"}}));
    if (watched)
        QCOMPARE(watched->isOpen(), listensOn);
}

void SerialReaderTest::portHeldByAnother()
{
    SerialReader second(nullptr, port, shell.get());
    QVERIFY(!second.tryStart());
    QCOMPARE(shell->calls, QStringList());
    QVERIFY(!second.start());
    QCOMPARE(shell->calls.size(), 2);
    QVERIFY2(shell->calls[0].startsWith(QLatin1String("status 5000 Device COM7 failed to open: ")),
        qPrintable(shell->calls[0]));
    QCOMPARE(shell->calls[1],
        shell->calls[0].replace(QLatin1String("status 5000"), QLatin1String("failed COM7"))
            + QLatin1String("\nThis program listens on the port already."));
    device->send(sent(varnel3Line(5)));
    QTRY_COMPARE(recordings(), QVector<Recording>({{"5"}}));
    reader->stop();
    QVERIFY(second.start());
}

// Whoever opens the pipe waits for ever.
void SerialReaderTest::lockThatIsNoFile()
{
    if (!QFileInfo(QStringLiteral("/var/lock")).isWritable())
        QSKIP("this system keeps its locks elsewhere");
    reader->stop();
    const QByteArray lock = "/var/lock/LCK..pts_" + findPort(port).location.section('/', -1).toLatin1();
    std::remove(lock); // of a program that was killed
    QCOMPARE(mkfifo(lock, 0666), 0);
    const bool started = reader->start();
    std::remove(lock);
    QVERIFY(!started);
    QCOMPARE(
        shell->calls.first(), QStringLiteral("status 5000 Device COM7 failed to open: It can't be locked"));
    const QString told
        = QStringLiteral("failed COM7 Device COM7 failed to open: It can't be locked\n%1 should")
              .arg(QLatin1String(lock));
    QVERIFY2(shell->calls.last().startsWith(told), qPrintable(shell->calls.last()));
    QVERIFY(reader->start());
}

QTEST_GUILESS_MAIN(SerialReaderTest)
#include "tst_serialreader.moc"
