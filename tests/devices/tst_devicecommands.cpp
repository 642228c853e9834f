#include "devices/devicecommands.h"

#include "graph/mdigraphchild.h"
#include "settings/settingskeys.h"
#include "support/columns.h"
#include "support/lines.h"
#include "support/shellrig.h"

#include <QApplication>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

/// "Stop process" and "Set time" in the program's window, the test at the far ends of the lines.
class TestDeviceCommands : public QObject, private ShellRig {
    Q_OBJECT
private slots:
    void init()
    {
        setUp();
        allHeard.clear();
    }
    void cleanup() { tearDown(); }
    void stopGoesToOneDevice_data();
    void stopGoesToOneDevice();
    void clocksAreSetInTurn();
    void clockOfCurrentDeviceOnly();
    void clocksAreSetByThemselves();

private:
    /// The process of the `port`th device is recorded in the current window.
    void record(int port)
    {
        plugged[size_t(port)]->send(Lines::charger(1));
        QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->isLive());
    }
    /// By the `port`th device, so far.
    QByteArray heard(int port) { return allHeard[port] += plugged[size_t(port)]->received(); }

    QMap<int, QByteArray> allHeard;
};

void TestDeviceCommands::stopGoesToOneDevice_data()
{
    columns<int, int, QString, int, int, QString>({"ports", "recorded", "then", "answer", "stopped", "told"});
    const QString toldStop = QStringLiteral("The device on COM%1 was told to stop its process.");
    const int unasked = QMessageBox::NoButton;
    QTest::newRow("the only one") << 1 << -1 << "" << unasked << 0 << toldStop.arg(1);
    QTest::newRow("its recording is over") << 1 << 0 << "resumed" << unasked << 0 << toldStop.arg(1);
    QTest::newRow("the current of two") << 2 << 1 << "" << unasked << 1 << toldStop.arg(2);
    QTest::newRow("no guess between two")
        << 2 << -1 << "" << unasked << -1
        << "Choose the window of the device whose process is to be stopped.";
    QTest::newRow("another one, meant")
        << 2 << 1 << "unplugged" << int(QMessageBox::Yes) << 0 << toldStop.arg(1);
    QTest::newRow("another one, not meant") << 2 << 1 << "unplugged" << int(QMessageBox::No) << -1 << "";
    QTest::newRow("another one, gone meanwhile")
        << 2 << 1 << "both unplugged" << int(QMessageBox::Yes) << -1
        << "COM1 is no longer listened on: its device was not told to stop.";
}

void TestDeviceCommands::stopGoesToOneDevice()
{
    QFETCH(int, ports);
    QFETCH(int, recorded);
    QFETCH(QString, then);
    QFETCH(int, answer);
    QFETCH(int, stopped);
    QFETCH(QString, told);
    listen(ports);
    if (recorded >= 0)
        record(recorded);
    if (then == QLatin1String("resumed")) {
        trigger(ActionId::Recording);
        trigger(ActionId::Recording);
    } else if (!then.isEmpty()) {
        plugged[1]->hangUp();
        QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM1")));
    }
    window->statusBar()->clearMessage();
    trigger(ActionId::StopProcess);
    QCOMPARE(box("stopQuestion") != nullptr, answer != QMessageBox::NoButton);
    if (box("stopQuestion")) {
        trigger(ActionId::StopProcess); // it is asked once
        QCOMPARE(window->findChildren<QMessageBox *>().size(), 1);
        QCOMPARE(box("stopQuestion")->text(),
            QStringLiteral("The current window was fed by COM2, which is not listened on.\n"
                           "Stop the process of the device on COM1?"));
        QCOMPARE(box("stopQuestion")->textFormat(), Qt::PlainText);
        QVERIFY(box("stopQuestion")->button(QMessageBox::No) == box("stopQuestion")->defaultButton());
        QCOMPARE(heard(0), QByteArray());
        if (then == QLatin1String("both unplugged")) {
            plugged[0]->hangUp();
            QTRY_COMPARE(listened(), QStringList());
        }
        window->statusBar()->clearMessage();
        box("stopQuestion")->button(QMessageBox::StandardButton(answer))->click();
    }
    for (int port = 0; port < ports; ++port) {
        const QByteArray expected = port == stopped ? "#STOP\r\n" : "";
        QTRY_COMPARE(heard(port), expected);
    }
    QCOMPARE(message(), told);
}

// Each device needs its time before it takes the next command, in which the program goes on. COM2 is
// unplugged in its own pause, COM3 before its turn.
void TestDeviceCommands::clocksAreSetInTurn()
{
    listen(4);
    trigger(ActionId::SetTime);
    QVERIFY(QApplication::overrideCursor());
    trigger(ActionId::SetTime); // ignored while one is under way
    QCOMPARE(message(), QStringLiteral("Setting the clock of the device on COM1..."));
    auto *pause = window->findChild<DeviceCommands *>()->findChild<QTimer *>();
    QVERIFY(pause && pause->isActive() && pause->isSingleShot());
    QCOMPARE(pause->interval(), 500);
    QCOMPARE(pause->timerType(), Qt::PreciseTimer);
    plugged[2]->hangUp();
    window->endProcess(Varnel3Data::Completed); // tells at once
    QVERIFY(QApplication::activeModalWidget());
    QApplication::activeModalWidget()->close();
    record(0); // nothing that comes waits for the end of the commands
    QVERIFY(QApplication::overrideCursor());
    QTRY_VERIFY(!listened().contains(QStringLiteral("COM3")));
    pause->setInterval(50);
    QTRY_COMPARE(message(), QStringLiteral("Setting the clock of the device on COM2..."));
    plugged[1]->hangUp();
    QTRY_VERIFY(!QApplication::overrideCursor());
    const QRegularExpression both(QStringLiteral("^#TIME![0-9:]{17}\r\n#BIB_!200\r\n$"));
    for (int port : {0, 3}) {
        const QString commands = QString::fromLatin1(heard(port));
        QVERIFY2(both.match(commands).hasMatch(), qPrintable(commands));
    }
}

void TestDeviceCommands::clockOfCurrentDeviceOnly()
{
    listen(2);
    record(1);
    trigger(ActionId::SetTime);
    QCOMPARE(heard(1).left(6), QByteArray("#TIME!"));
    QCOMPARE(message(), QStringLiteral("Setting the clock of the device on COM2..."));
    QTRY_VERIFY(heard(1).endsWith("#BIB_!200\r\n"));
    QTRY_VERIFY(!QApplication::overrideCursor());
    QCOMPARE(heard(0), QByteArray());
    trigger(ActionId::SetTime);
    window.reset(); // under way
    QVERIFY(!QApplication::overrideCursor());
}

// Once a port and run of the program at the start of a process, once at the end.
void TestDeviceCommands::clocksAreSetByThemselves()
{
    VarnelSettings().setValue(SettingsKey::sendTime, true);
    listen(2);
    const auto times = [this](int port) { return heard(port).count("#TIME!"); };
    record(0);
    QTRY_COMPARE(times(0), 1);
    for (int process : {1, 2}) {
        plugged[0]->send(Lines::charger(2, 'E'));
        QTRY_COMPARE(times(0), 2);
        QTRY_VERIFY(QApplication::activeModalWidget());
        QApplication::activeModalWidget()->close();
        plugged[0]->send(Lines::charger(1));
        QTRY_COMPARE(window->mdiChildren().size(), process + 1);
    }
    QCOMPARE(times(0), 2);
    plugged[1]->send(Lines::charger(1));
    QTRY_COMPARE(times(1), 1);
}

QTEST_MAIN(TestDeviceCommands)
#include "tst_devicecommands.moc"
