#include "link/serialreader.h"

#include "link/clockcommand.h"
#include "link/hangup.h"
#include "settings/varnelsettings.h"
#include "support/columns.h"
#include "support/fakeshell.h"
#include "support/literal.h"
#include "support/ptypair.h"
#include "support/shellfixture.h"
#include "support/warningcollector.h"

#include <QtTest>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

const auto port = QStringLiteral("COM7");

/// As the device sends it.
QByteArray charging(int time, char flag = '_')
{
    return varnel3Line(time, "#06C05", flag) + "\r\n";
}

// More than a line takes at once while nobody reads at its far end.
QString bigCommand()
{
    return QString(100000, QLatin1Char('x'));
}

/// How often this thread has waited for something.
long timesAsleep()
{
    rusage usage = {};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

constexpr int ready = TIOCM_DTR | TIOCM_RTS; // as devices want it that take their power from there
std::atomic<int> controlLines{0};

} // namespace

// A pseudo-terminal has none.
extern "C" int ioctl(int file, unsigned long request, ...) noexcept
{
    va_list rest;
    va_start(rest, request);
    auto *const lines = va_arg(rest, int *);
    va_end(rest);
    if (request == TIOCMGET)
        *lines = controlLines;
    else if (request == TIOCMBIS)
        controlLines |= *lines;
    else if (request == TIOCMBIC)
        controlLines &= ~*lines;
    else
        return int(::syscall(SYS_ioctl, file, request, lines));
    return 0;
}

/// A device at the far end of a pseudo-terminal, and a reader at the near one.
class SerialReaderTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        VarnelSettings().clear();
        notes.clear();
        device = std::make_unique<PtyPair>(fixture.portFolder(), port);
        shell = std::make_unique<FakeShell>();
        reader = std::make_unique<SerialReader>(nullptr, port, shell.get());
        QVERIFY(reader->start() && reader->start() && reader->isOpen() // the second has nothing to do
            && reader->isNewProcess() && !reader->isRecording());
    }

    void cleanup()
    {
        const bool wasOpen = reader && reader->isOpen();
        reader.reset();
        QVERIFY(!wasOpen || controlLines == 0);
        controlLines = 0;
        device.reset();
    }

    // Lines wait in the system, and half a line at their end. Of how devices speak, a pseudo-terminal keeps
    // this.
    void startsAfresh()
    {
        const termios settings = device->settings();
        QVERIFY(cfgetispeed(&settings) == B19200 && cfgetospeed(&settings) == B19200);
        QCOMPARE(settings.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), tcflag_t(CS8));
        QCOMPARE(settings.c_iflag & (IXON | IXOFF | IXANY), tcflag_t(0));
        QCOMPARE(controlLines, ready);
        reader->stop();
        QCOMPARE(controlLines, 0);
        device->send(charging(1).repeated(66) + "#06C05"); // of which the system shows a part
        QTRY_VERIFY(device->waiting() > 3900);
        QVERIFY(reader->start());
        device->send(charging(5));
        QTRY_COMPARE(recordings(), QVector<Recording>({{"5"}}));
        reader->stop();
        QSerialPort other(findPort(port).location);
        QVERIFY(other.open(QIODevice::ReadWrite) && !hasHungUp(other));
        device->hangUp();
        QVERIFY(hasHungUp(other));
    }

    void keepsEveryLine()
    {
        Recording expected;
        onReply([this] { notes.append(QString::number(device->waiting() > 0)); });
        for (const QString &command : {QString(), "#OK"_s}) {
            if (!command.isEmpty())
                reader->sendCommand(command);
            device->send("#OK\r\n" + charging(1).repeated(7));
            QTRY_COMPARE(recordings().value(0).size(), expected.size() + 7);
            for (int line = 0; line < 7; ++line)
                expected.append("1");
        }
        QCOMPARE(notes, QStringList({"1", "1"})); // a killed program loses little of what has arrived
        for (int time = 1; time <= 3000; ++time) {
            device->send(charging(time));
            expected.append(QString::number(time));
            if (time % 7 == 0)
                QCoreApplication::processEvents();
        }
        device->send(resistanceLine() + "\r\n");
        expected.append("!");
        QTRY_COMPARE(recordings(), QVector<Recording>({expected}));
        QCOMPARE(shell->windows[0]->portName, port);
        reader->detachGraphChild(shell->windows[0]); // the recording goes on without it
        device->send(charging(3001));
        QTRY_COMPARE(shell->logs[0].last(), "3001"_s);
        QCOMPARE(recordings(), QVector<Recording>({expected}));
        auto *seconds = reader->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(seconds->isActive() && seconds->interval() == 1000);
        for (int second = 0; second <= 20; ++second) {
            QVERIFY(reader->isRecording());
            QMetaObject::invokeMethod(seconds, "timeout");
        }
        QVERIFY(!reader->isRecording());
        device->send(charging(3022));
        QTRY_COMPARE(recordings(), QVector<Recording>({expected, {"3022"}}));
        QVERIFY(reader->isRecording() && !reader->isNewProcess());
        reader->stop();
        QVERIFY(!reader->isRecording() && reader->isNewProcess() && !seconds->isActive());
        QTRY_COMPARE(shell->calls, QStringList({"started", "unwatched COM7", "started"}));
    }

    void endOfProcess_data()
    {
        const auto row = columnsOf<QString, QString>({"way", "told"});
        row("a shot for each letter", "announced 6 0,announced 6 0,ended 1,ended 1,started");
        row("port closed", "announced 6 0,ended 1,started");
        row("port lost", "announced 6 0,ended 1,lost COM7,started");
    }

    // The shell deletes the reader of a lost port, and that of a port that is no longer wanted, at once: the
    // end is announced before.
    void endOfProcess()
    {
        QFETCH(QString, way);
        VarnelSettings().setSendTime(true);
        shell->claimClock(port, ReaderHost::ProcessStart);
        onReply([&] {
            const auto timers = reader->findChildren<QTimer *>();
            for (const QTimer *timer : timers) {
                if (timer->isSingleShot() && timer->isActive() && timer->timerType() == Qt::PreciseTimer)
                    notes.append(QString::number(timer->interval()));
            }
            for (int time = 0; time < 2 && way == "port closed"; ++time)
                reader->stop();
            if (way == "port lost")
                device->hangUp();
        });
        device->send(charging(5) + charging(6, 'M').repeated(2) + "#OK\r\n");
        QTRY_COMPARE(notes, QStringList({"250", "250"}));
        if (way.startsWith("port")) {
            QTRY_VERIFY(!reader->isOpen());
            reader.reset();
        }
        const auto calls = [this] { // the second shot may go off before the first end is told
            QStringList sorted = shell->calls;
            sorted.sort();
            return sorted.join(',');
        };
        QFETCH(QString, told);
        QTRY_COMPARE(calls(), told);
        QCOMPARE(recordings(), QVector<Recording>({{"5", "6", "6", "end"}}));
        QCOMPARE(device->received().size(), way.startsWith("port") ? 0 : clockCommand().size());
    }

    void commandsDoNotWaitOnAQuietPort()
    {
        const long before = timesAsleep();
        for (int i = 0; i < 20; ++i)
            reader->sendCommand("#STOP\u00B0\r\n"_s);
        QVERIFY2(timesAsleep() < before + 20, "each command has waited for something");
        reader->stop();
        QCOMPARE(device->received(), QByteArray("#STOP\xB0\r\n").repeated(20));
        const WarningCollector collector;
        reader->sendCommand("#STOP\r\n"_s);
        QCOMPARE(device->received(), QByteArray());
        QCOMPARE(collector.warnings(), QStringList());
    }

    // After half a second. Nothing is lost on either side, and who sends a command is told of no line before
    // it returns.
    void fullLineIsGivenUp()
    {
        device->send(charging(5));
        QTimer almost;
        almost.setSingleShot(true);
        almost.start(450);
        reader->sendCommand(bigCommand());
        QVERIFY(recordings().isEmpty());
        QCoreApplication::processEvents();
        QVERIFY(!almost.isActive());
        reader->sendCommand(bigCommand());
        device->send(charging(6));
        QTRY_COMPARE(recordings(), QVector<Recording>({{"5", "6"}}));
        int arrived = 0;
        QTRY_COMPARE(arrived += device->received().size(), 2 * bigCommand().size());
        QCOMPARE(shell->calls, QStringList("started"));
    }

    void repliesDuringAWriteKeepTheirOrder()
    {
        int depth = 0;
        onReply([&](const QString &reply) {
            notes.append("%1 %2"_s.arg(QString::number(++depth), reply));
            if (notes.size() == 1) {
                device->send("#NRC\x06\r\n#12345678\r\n#123456789\r\n#CCC\r\n");
                reader->sendCommand(bigCommand());
                QCoreApplication::processEvents(); // as of a box
                notes.append("done");
            }
            --depth;
        });
        device->send("#TRYB0\x02\r\n");
        QTRY_COMPARE(notes, QStringList({"1 #TRYB0", "done", "1 #NRC", "1 #12345678", "1 #CCC"}));
        QVERIFY(recordings().isEmpty());
    }

    // The system may have announced bytes that a command's wait has read when the announcement is looked at.
    void bytesReadByAWriteAreNoLoss()
    {
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        reader->stop();
        QSocketNotifier notifier(ends[0], QSocketNotifier::Read); // is looked at before the port's own
        connect(&notifier, &QSocketNotifier::activated, this, [&] {
            char byte = 0;
            QCOMPARE(read(ends[0], &byte, 1), ssize_t(1));
            reader->sendCommand(bigCommand());
        });
        QVERIFY(reader->start());
        for (int time = 5; time < 8; ++time) {
            device->send(charging(time));
            QCOMPARE(write(ends[1], "x", 1), ssize_t(1));
            QCoreApplication::processEvents();
            device->received();
        }
        device->send(charging(8));
        QTRY_COMPARE(recordings(), QVector<Recording>({{"5", "6", "7", "8"}}));
        QCOMPARE(shell->calls, QStringList("started"));
        close(ends[0]);
        close(ends[1]);
    }

    void commandAfterTheHangUp()
    {
        const WarningCollector collector;
        device->send(charging(5));
        QTRY_COMPARE(recordings(), QVector<Recording>({{"5"}}));
        device->send(charging(6) + "#06C05");
        device->hangUp();
        reader->sendCommand(bigCommand());
        QTRY_VERIFY(!reader->isOpen());
        // No loop that never rests.
        QTRY_VERIFY(!QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents));
        QCOMPARE(recordings().at(0).last(), "end"_s);
        QCOMPARE(shell->logs, recordings());
        QCOMPARE(shell->calls, QStringList({"started", "lost COM7"}));
        QCOMPARE(collector.warnings(), QStringList());
    }

    // More than 20 without a byte in between; what was closed before the loss is told is not lost. That
    // nothing comes in time is no failure.
    void failuresInARowAreALoss()
    {
        const auto fail = [this](int times) {
            using Port = QSerialPort;
            static const Port::SerialPortError failures[]
                = {Port::ReadError, Port::WriteError, Port::ResourceError};
            for (int i = 0; i < 2 * times; ++i)
                QMetaObject::invokeMethod(reader.get(), "onErrorOccurred",
                    Q_ARG(QSerialPort::SerialPortError, i % 2 ? failures[i % 3] : Port::TimeoutError));
        };
        for (int time = 5; time < 8; ++time) {
            device->send(charging(time));
            QTRY_COMPARE(recordings().value(0).value(time - 5), QString::number(time));
            fail(20);
            QCoreApplication::processEvents();
            QVERIFY(reader->isOpen());
        }
        for (const bool again : {false, true}) {
            fail(21);
            reader->stop();
            if (again)
                QVERIFY(reader->start());
            QCoreApplication::processEvents();
            QCOMPARE(reader->isOpen(), again);
            QVERIFY(reader->start());
        }
        fail(20); // counted anew
        QCoreApplication::processEvents();
        QVERIFY(reader->isOpen());
        const QByteArray rest = charging(8).repeated(3);
        const auto sendRest = [&] {
            device->send(rest);
            while (device->waiting() < rest.size()) // no event loop may read it
                QThread::yieldCurrentThread();
        };
        sendRest();
        reader->readRest();
        QCOMPARE(recordings(), QVector<Recording>({{"5", "6", "7", "end"}, {"8", "8", "8"}}));
        fail(20);
        QCoreApplication::processEvents();
        QVERIFY(reader->isOpen());
        sendRest(); // just before the loss
        fail(1);
        QTRY_VERIFY(!reader->isOpen());
        QCOMPARE(recordings().constLast(), Recording({"8", "8", "8", "8", "8", "8", "end"}));
        QCOMPARE(shell->calls, QStringList({"started", "started", "lost COM7"}));
    }

    // Lines of the same piece that follow belong to nobody.
    void surgeryInsideASignal()
    {
        const QPointer<SerialReader> watched = reader.get();
        onReply([this](const QString &reply) {
            reader->stop();
            if (reply == "#RESTART"_s)
                reader->start();
            else
                reader.release()->deleteLater();
        });
        device->send(charging(5) + "#RESTART\r\n" + charging(6));
        QTRY_COMPARE(recordings(), QVector<Recording>({{"5", "end"}}));
        QTRY_VERIFY(reader->isOpen() && device->waiting() == 0);
        device->send(charging(7) + "#DELETE\r\n");
        QTRY_VERIFY(!watched);
        QCOMPARE(recordings(), QVector<Recording>({{"5", "end"}, {"7", "end"}}));
    }

    void failuresAreTold()
    {
        SerialReader second(nullptr, port, shell.get());
        QVERIFY(!second.tryStart());
        QCOMPARE(shell->calls, QStringList());
        QVERIFY(!second.start());
        const QString cause = shell->calls.value(0).mid(7); // behind "status "
        QVERIFY2(cause.startsWith("5000 Device COM7 failed to open: "_s), qPrintable(cause));
        const QString advice = "\nThis program listens on the port already."_s;
        QCOMPARE(shell->calls, QStringList({"status " + cause, "failed COM7" + cause.mid(4) + advice}));
        reader->stop();
        if (QFileInfo("/var/lock"_s).isWritable()) { // else this system keeps its locks elsewhere
            const QByteArray lock
                = "/var/lock/LCK..pts_" + findPort(port).location.section('/', -1).toLatin1();
            std::remove(lock); // of a program that was killed
            QVERIFY(mkfifo(lock, 0666) == 0); // who opens it waits for ever
            QVERIFY(!second.start() && std::remove(lock) == 0);
            const QString text = "Device COM7 failed to open: It can't be locked"_s;
            QCOMPARE(shell->calls.value(2), "status 5000 " + text);
            QCOMPARE(shell->calls.value(3).section(" should"_s, 0, 0),
                "failed COM7 %1\n%2"_s.arg(text, QString::fromLatin1(lock)));
        }
        QVERIFY(second.start());
        SerialReader none(nullptr, "COM77"_s, shell.get());
        QVERIFY(!none.start() && !shell->calls.last().contains('\n')); // no advice against what is not there
    }

private:
    QVector<Recording> recordings() const { return shell->windowRecordings(); }
    template <typename Act>
    void onReply(Act act)
    {
        connect(reader.get(), &SerialReader::control_data, this, act);
    }

    ShellFixture fixture;
    std::unique_ptr<PtyPair> device;
    std::unique_ptr<FakeShell> shell;
    std::unique_ptr<SerialReader> reader;
    QStringList notes;
};

QTEST_GUILESS_MAIN(SerialReaderTest)
#include "tst_serialreader.moc"
