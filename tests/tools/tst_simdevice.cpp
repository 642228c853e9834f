// Simulated devices in their event loop, heard at the other end of their lines.
#include "simulator/rack.h"

#include <QProcess>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

/// Opens a port as a program would and keeps every line with the time of its arrival.
class Listener : public QObject {
    Q_OBJECT

public:
    struct Line {
        double ms;
        QByteArray text;
    };

    explicit Listener(const QString &port)
        : m_port(open(QFile::encodeName(port).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        m_clock.start();
        if (m_port < 0)
            return;
        m_notifier = new QSocketNotifier(m_port, QSocketNotifier::Read, this);
        connect(m_notifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), SLOT(onReadable()));
    }
    ~Listener() override { close(m_port); }

    void send(const QByteArray &command)
    {
        QCOMPARE(write(m_port, command, size_t(command.size())), command.size());
    }
    /// Lines that begin with `start`.
    QVector<Line> lines(const QByteArray &start = "#") const
    {
        QVector<Line> found;
        for (const Line &line : m_lines)
            if (line.text.startsWith(start))
                found << line;
        return found;
    }
    QByteArray first() const { return m_lines.first().text; }

private slots:
    void onReadable()
    {
        char buffer[65536];
        const ssize_t size = read(m_port, buffer, sizeof buffer);
        if (size <= 0)
            return m_notifier->setEnabled(false);
        m_rest.append(buffer, int(size));
        for (int end = m_rest.indexOf("\r\n"); end >= 0; end = m_rest.indexOf("\r\n")) {
            m_lines.append({double(m_clock.nsecsElapsed()) * 1e-6, m_rest.left(end)});
            m_rest.remove(0, end + 2);
        }
    }

private:
    int m_port;
    QSocketNotifier *m_notifier = nullptr;
    QElapsedTimer m_clock;
    QVector<Line> m_lines;
    QByteArray m_rest;
};

class TestSimDevice : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void endIsQuickAndThenQuiet();
    void onlyLongSilencesAreReal();
    void unheardLinesAreGone();
    void linesHandedOverAreCounted();
    void programLeavesNothingBehind();

private:
    sim::SimDevice *add(const QString &description);
    QString link(const QString &port) const { return folder->filePath(port); }

    QScopedPointer<QTemporaryDir> folder;
    QScopedPointer<sim::Rack> rack;
    sim::RunSettings run;
};

void TestSimDevice::init()
{
    folder.reset(new QTemporaryDir);
    run = sim::RunSettings();
    run.folder = folder->path();
    run.speed = 200;
}

void TestSimDevice::cleanup()
{
    rack.reset();
    QVERIFY2(QDir(folder->path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).isEmpty(),
        "a link is left over");
}

sim::SimDevice *TestSimDevice::add(const QString &description)
{
    if (!rack)
        rack.reset(new sim::Rack(run));
    QString error;
    sim::SimDevice *device = rack->add(description, &error);
    if (!device)
        qFatal("%s", qPrintable(error));
    return device;
}

void TestSimDevice::endIsQuickAndThenQuiet()
{
    sim::SimDevice *device = add(
        QStringLiteral("COM3:varnel3,balance,ri=20,start=open,duration=100,endlines=5,processes=2,pause=5"));
    Listener listener(link(QStringLiteral("COM3")));
    QSignalSpy ended(device, SIGNAL(processEnded(char)));
    device->setSpeed(1000);
    QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 2, 20000);
    QCOMPARE(ended.first().first().value<char>(), 'E');
    QTRY_COMPARE(listener.lines().size(), 210);
    QCOMPARE(listener.lines("!").size(), 10);
    const auto lines = listener.lines();
    for (int i = 0; i < 105; ++i)
        QCOMPARE(lines.at(i).text.at(8), i < 100 ? '_' : 'E');
    QVERIFY2(lines.at(104).ms - lines.at(99).ms < 250, "all end letters come within 250 ms");
    QVERIFY2(lines.at(105).ms - lines.at(104).ms >= 990, "a second of silence at any speed");
    QCOMPARE(lines.at(105).text.mid(13, 5), QByteArray("00001"));
    QVERIFY(device->isIdle());
}

void TestSimDevice::onlyLongSilencesAreReal()
{
    sim::SimDevice *device = add(QStringLiteral("COM3:varnel3"));
    sim::SimDevice *clock = add(QStringLiteral("COM4:varnel3"));
    const auto said = [](const sim::SimDevice *by) {
        return int(by->handedOver(sim::LineKind::Measurement) + by->lost());
    };
    const auto waitForLines = [&](int count) {
        const int end = said(clock) + count;
        QTRY_VERIFY_WITH_TIMEOUT(said(clock) >= end, 60000);
    };
    device->silence(20);
    const int before = said(device);
    waitForLines(60);
    QVERIFY(said(device) > before);
    device->silence(21);
    const int quiet = said(device);
    waitForLines(60);
    QCOMPARE(said(device), quiet);
}

void TestSimDevice::unheardLinesAreGone()
{
    sim::SimDevice *device = add(QStringLiteral("COM3:varnel3"));
    QTRY_VERIFY(device->lost() > 40);
    QCOMPARE(device->handedOver(sim::LineKind::Measurement), 0);
    for (int opening = 0; opening < 2; ++opening) {
        const int now = device->process()->reading().seconds;
        Listener listener(link(QStringLiteral("COM3")));
        QTRY_VERIFY(!listener.lines().isEmpty());
        QVERIFY(listener.first().mid(13, 5).toInt() > now - 2);
        QTRY_VERIFY(listener.lines().size() > 20);
    }
}

void TestSimDevice::linesHandedOverAreCounted()
{
    const QString logName = folder->path() + QLatin1String(".log");
    QString error;
    rack.reset(new sim::Rack(run));
    QVERIFY2(rack->openLog(logName, &error), qPrintable(error));
    sim::SimDevice *device = add(
        QStringLiteral("COM3:varnel3,balance,ri=5,start=open,duration=300,cut=0.1,join=0.05,fields=0.1"));
    Listener listener(link(QStringLiteral("COM3")));
    QSignalSpy ended(device, SIGNAL(processEnded(char)));
    device->setSpeed(1000);
    QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, 10000);
    QCOMPARE(device->lost(), 0);
    const auto count = [device](sim::LineKind kind) { return int(device->handedOver(kind)); };
    QTRY_VERIFY(
        listener.lines("#06").size() >= count(sim::LineKind::Measurement) + count(sim::LineKind::End));
    int whole = 0;
    const auto lines = listener.lines("#06");
    for (const auto &line : lines)
        whole += line.text.count(',') == 38 && line.text.count('#') == 1 && line.text.size() == 158 ? 1 : 0;
    QCOMPARE(whole, count(sim::LineKind::Measurement) + count(sim::LineKind::End));
    QVERIFY(count(sim::LineKind::Spoiled) > 40);
    rack->flushLog();
    QFile log(logName);
    QVERIFY(log.open(QIODevice::ReadOnly));
    QCOMPARE(log.readAll().count("\tCOM3\tline\t#06C05"), count(sim::LineKind::Measurement));
    log.remove();
}

void TestSimDevice::programLeavesNothingBehind()
{
    QProcess program;
    program.start(QStringLiteral(VARNELSIM),
        {QStringLiteral("--dir"), folder->path(), QStringLiteral("--device"), QStringLiteral("COM3:varnel3"),
            QStringLiteral("--device"), QStringLiteral("COM4:tandor")});
    QTRY_VERIFY(QFileInfo(link(QStringLiteral("COM4"))).isSymLink());
    program.write("unplug COM3\nstatus COM4\n");
    QTRY_VERIFY(!QFileInfo(link(QStringLiteral("COM3"))).isSymLink());
    QByteArray said;
    QTRY_VERIFY((said += program.readAllStandardOutput()).contains("COM4 tandor measuring"));
    program.terminate();
    QVERIFY(program.waitForFinished(5000));
    QCOMPARE(program.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestSimDevice)
#include "tst_simdevice.moc"
