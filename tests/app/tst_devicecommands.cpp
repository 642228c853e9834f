#include "app/devicecommands.h"

#include "support/columns.h"
#include "support/targets.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTimer>
#include <QtTest>

class TestDeviceCommands : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void stopGoesToOneDevice_data();
    void stopGoesToOneDevice();
    void clockOfEveryPortIsSetInTurn();
    void clockOfActiveDeviceOnly();
    void portsAreReadDuringTheWait();

private:
    TestTargets targets;
    DeviceCommands commands{&targets};
};

void TestDeviceCommands::cleanup()
{
    targets.active = nullptr;
    targets.clear();
}

void TestDeviceCommands::stopGoesToOneDevice_data()
{
    columns<int, int, QList<QByteArray>>({"ports", "active", "heard"});
    const QByteArray stop = "#STOP\r\n";
    QTest::newRow("none") << 0 << -1 << QList<QByteArray>();
    QTest::newRow("the only one") << 1 << -1 << QList<QByteArray>{stop};
    QTest::newRow("active of two") << 2 << 1 << QList<QByteArray>{"", stop};
    QTest::newRow("no guess between two") << 2 << -1 << QList<QByteArray>{"", ""};
}

void TestDeviceCommands::stopGoesToOneDevice()
{
    QFETCH(int, ports);
    QFETCH(int, active);
    QFETCH(QList<QByteArray>, heard);
    for (int i = 0; i < ports; ++i)
        targets.add();
    targets.active = active < 0 ? nullptr : targets.reader(size_t(active));
    QCOMPARE(commands.stopProcess(), heard.contains("#STOP\r\n"));
    QTest::qWait(20);
    for (int i = 0; i < ports; ++i)
        QCOMPARE(targets.heard(size_t(i)), heard.at(i));
}

void TestDeviceCommands::clockOfEveryPortIsSetInTurn()
{
    struct Heard {
        size_t port;
        QByteArray command;
        qint64 time;
    };
    QVector<Heard> heard;
    QElapsedTimer clock;
    QTimer listener;
    connect(&listener, &QTimer::timeout, this, [&] {
        for (size_t port = 0; port < 2; ++port) {
            const QByteArray bytes = targets.heard(port);
            if (!bytes.isEmpty())
                heard.append({port, bytes.left(5), clock.elapsed()});
        }
    });
    targets.add();
    targets.add();
    clock.start();
    listener.start(5);
    commands.setTime();
    QTest::qWait(30);
    QCOMPARE(heard.size(), 4);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(heard[i].port, size_t(i / 2));
        QCOMPARE(heard[i].command, QByteArray(i % 2 ? "#BIB_" : "#TIME"));
    }
    for (int i : {0, 2}) {
        const qint64 pause = heard[i + 1].time - heard[i].time;
        QVERIFY2(pause >= 485 && pause < 700, qPrintable(QString::number(pause)));
    }
}

void TestDeviceCommands::clockOfActiveDeviceOnly()
{
    targets.add();
    targets.add();
    targets.active = targets.reader(1);
    const QDateTime before = QDateTime::currentDateTime();
    commands.setTime();
    QTest::qWait(20);
    QCOMPARE(targets.heard(0), QByteArray());
    const QString heard = QString::fromLatin1(targets.heard(1));
    const auto match
        = QRegularExpression(QStringLiteral("^#TIME!([0-9:]{17})\r\n#BIB_!200\r\n$")).match(heard);
    QVERIFY2(match.hasMatch(), qPrintable(heard));
    QDateTime sent
        = QDateTime::fromString(match.captured(1), QStringLiteral("ss:mm:HH:dd:MM:yy")).addYears(100);
    QVERIFY(before.secsTo(sent) >= -1 && before.secsTo(sent) <= 1);
}

// More than the system keeps for a port comes in while the commands wait; none of it waits for their end.
void TestDeviceCommands::portsAreReadDuringTheWait()
{
    constexpr int linesAtOnce = 20;
    targets.add();
    int said = 0;
    QTimer device;
    connect(&device, &QTimer::timeout, this, [&] {
        targets.say(0, QByteArray("#c0605 00123,25200+02000,025,01234\n").repeated(linesAtOnce));
        said += linesAtOnce;
    });
    device.start(20);
    commands.setTime();
    QVERIFY(said * 35 > 4096);
    QVERIFY(targets.host.sink.records >= said - linesAtOnce);
}

QTEST_MAIN(TestDeviceCommands)
#include "tst_devicecommands.moc"
