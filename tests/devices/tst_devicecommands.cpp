#include "devices/devicecommands.h"

#include "support/columns.h"
#include "support/targets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDateTime>
#include <QMessageBox>
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
    targets.port.clear();
    targets.clear();
}

void TestDeviceCommands::stopGoesToOneDevice_data()
{
    columns<int, int, QString, int, QList<QByteArray>, QString>(
        {"ports", "active", "port", "answer", "heard", "told"});
    const QByteArray stop = "#STOP\r\n";
    const auto row
        = [](const char *name, int ports, int active, const char *port, int answer) -> QTestData & {
        return QTest::newRow(name) << ports << active << QString::fromLatin1(port) << answer;
    };
    const int none = QMessageBox::NoButton; // nothing is asked
    const QString chosen = QStringLiteral("The device on %1 was told to stop its process.");
    row("none", 0, -1, "", none) << QList<QByteArray>()
                                 << "No port is listened on: choose one in the preferences.";
    row("the only one", 1, -1, "", none) << QList<QByteArray>{stop} << chosen.arg("COM1");
    row("its recording is over", 1, -1, "COM1", none) << QList<QByteArray>{stop} << chosen.arg("COM1");
    row("active of two", 2, 1, "COM2", none) << QList<QByteArray>{"", stop} << chosen.arg("COM2");
    row("no guess between two", 2, -1, "", none)
        << QList<QByteArray>{"", ""} << "Choose the window of the device whose process is to be stopped.";
    row("another one", 1, -1, "COM2", QMessageBox::Yes) << QList<QByteArray>{stop} << chosen.arg("COM1");
    row("another one, not meant", 1, -1, "COM2", QMessageBox::No) << QList<QByteArray>{""} << "";
}

void TestDeviceCommands::stopGoesToOneDevice()
{
    QFETCH(int, ports);
    QFETCH(int, active);
    QFETCH(QString, port);
    QFETCH(int, answer);
    QFETCH(QList<QByteArray>, heard);
    QFETCH(QString, told);
    for (int i = 0; i < ports; ++i)
        targets.add();
    targets.active = active < 0 ? nullptr : targets.reader(size_t(active));
    targets.port = port;
    QSignalSpy messages(&commands, SIGNAL(message(QString,int)));
    const bool asks = answer != QMessageBox::NoButton;
    QCOMPARE(commands.stopProcess(), !asks && heard.contains("#STOP\r\n"));
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    QCOMPARE(box != nullptr, asks);
    if (asks) {
        QVERIFY(box->text().contains(QStringLiteral("device on COM1")));
        QCOMPARE(targets.heard(0), QByteArray());
        box->button(QMessageBox::StandardButton(answer))->click();
    }
    QList<QByteArray> commandsOf;
    for (int i = 0; i < ports; ++i)
        commandsOf.append(QByteArray());
    const auto hear = [&] {
        for (int i = 0; i < ports; ++i)
            commandsOf[i] += targets.heard(size_t(i));
        return commandsOf;
    };
    QTRY_COMPARE(hear(), heard);
    QCOMPARE(messages.isEmpty() ? QString() : messages.last()[0].toString(), told);
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
    QVERIFY(QApplication::overrideCursor());
    QTRY_COMPARE(heard.size(), 4);
    QVERIFY(!QApplication::overrideCursor());
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
    QString heard;
    QTRY_VERIFY((heard += QString::fromLatin1(targets.heard(1))).endsWith(QStringLiteral("200\r\n")));
    QCOMPARE(targets.heard(0), QByteArray());
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
    QTRY_VERIFY(!QApplication::overrideCursor());
    QVERIFY(said * 35 > 4096);
    QVERIFY(targets.host.windows[0]->recording.size() >= said - linesAtOnce);
}

QTEST_MAIN(TestDeviceCommands)
#include "tst_devicecommands.moc"
