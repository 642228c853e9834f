#include "dialogs/dialogremotecontrol.h"
#include "graph/mdigraphchild.h"
#include "support/simrig.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

/// The remote control of simulated devices from the program's window, a hundred times as fast.
class TestRemoteControls : public QObject, private SimRig {
    Q_OBJECT
private slots:
    void init();
    void cleanup() { tearDown(); }
    void runsAProcess();
    void isForOneDevice();

private:
    QAction *command() const { return window->findChild<QAction *>(QStringLiteral("remoteControlAction")); }
    DialogRemoteControl *dialog() const { return window->findChild<DialogRemoteControl *>(); }
    /// The page that the dialog shows, -1 without a dialog.
    int page() const
    {
        return dialog() ? dialog()->findChild<QStackedWidget *>(QStringLiteral("pages"))->currentIndex() : -1;
    }
    void choose(const char *comboBox, int index) const
    {
        dialog()->findChild<QComboBox *>(QLatin1String(comboBox))->setCurrentIndex(index);
    }
    void press(const char *button) const
    {
        QTest::mouseClick(dialog()->findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
    }
    /// Closes the box titled `title` once it is there.
    void closeBoxLater(const QString &title);

    QStringList closed; // titles of the boxes that were closed
};

void TestRemoteControls::init()
{
    setUp(120);
    closed.clear();
}

// Nobody is quicker than half a second, in which a device may say several times that it has ended.
void TestRemoteControls::closeBoxLater(const QString &title)
{
    auto *timer = new QTimer(window.get());
    connect(timer, &QTimer::timeout, this, [this, timer, title] {
        if (!modalBox() || modalBox()->windowTitle() != title)
            return;
        if (timer->interval() == 20)
            return timer->start(500);
        timer->deleteLater();
        closed.append(title);
        modalBox()->close();
    });
    timer->start(20);
}

void TestRemoteControls::runsAProcess()
{
    start({QStringLiteral("COM1:varnel3,cells=4,balance,start=remote,detect=1")});
    QVERIFY(!command()->menu());
    QCOMPARE(command()->text(), QStringLiteral("Remote control..."));
    QCOMPARE(command()->toolTip(), QStringLiteral("Operate the front panel of the charger."));
    QCOMPARE(command()->statusTip(), command()->toolTip());
    command()->trigger();
    QVERIFY(dialog() && !dialog()->isModal());
    QTRY_COMPARE(page(), 0);
    choose("cbTryb0_nc", 6);
    QTRY_COMPARE(device("COM1")->panel().memory(), 7);
    QTRY_COMPARE(page(), 2);
    QTRY_COMPARE(dialog()->findChild<QComboBox *>(QStringLiteral("cbTryb2_nr"))->currentIndex(), 3);
    choose("cbTryb2_nr", 5);
    press("pbTryb2_start");
    QTRY_COMPARE(page(), 3);
    QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->store().size() > 100);
    closeBoxLater(QStringLiteral("Aborted"));
    press("pbTryb3_stop");
    QTRY_COMPARE(closed, QStringList(QStringLiteral("Aborted")));
    QTRY_COMPARE(page(), 4);
    command()->trigger(); // the same dialog, which asks anew
    QCOMPARE(window->findChildren<DialogRemoteControl *>().size(), 1);
    closeBoxLater(QStringLiteral("Information"));
    device("COM1")->unplug();
    QTRY_VERIFY_WITH_TIMEOUT(closed.contains(QStringLiteral("Information")), 20000);
    QTRY_VERIFY(!dialog());
    QVERIFY(!command()->isEnabled());
    QCOMPARE(command()->toolTip(), QStringLiteral("No port is listened on: choose one in the preferences."));
}

void TestRemoteControls::isForOneDevice()
{
    start({QStringLiteral("COM1:varnel3,start=remote"), QStringLiteral("COM2:varnel3,start=remote")});
    const auto offered = [this] {
        QStringList texts;
        const QList<QAction *> choices = command()->menu()->actions();
        for (const QAction *choice : choices)
            texts.append(choice->text());
        return texts;
    };
    // Neither has sent a line yet.
    QVERIFY(command()->isEnabled() && command()->menu());
    QCOMPARE(command()->text(), QStringLiteral("Remote control"));
    QCOMPARE(offered(), (QStringList{QStringLiteral("COM1..."), QStringLiteral("COM2...")}));
    for (const char *port : {"COM1", "COM2"}) {
        QAction *choice = command()->menu()->actions()[port[3] - '1'];
        choice->trigger();
        QVERIFY(dialog() && dialog()->isVisible());
        dialog()->close(); // with its question on the way
        QTRY_VERIFY(!dialog());
        choice->trigger();
        QTRY_COMPARE(page(), 0);
        choose("cbTryb0_nc", 6);
        QTRY_COMPARE(device(port)->panel().memory(), 7);
        dialog()->close();
        QTRY_VERIFY(!dialog());
    }
    device("COM2")->startProcess();
    QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->isLive());
    QTRY_COMPARE(
        offered(), (QStringList{QStringLiteral("COM1..."), QStringLiteral("COM2 (current window)...")}));
    command()->trigger();
    QTRY_COMPARE(page(), 3);
    QVERIFY(!window->findChild<QMessageBox *>());
    trigger(ActionId::StopProcess);
    QTRY_VERIFY(told.contains(QStringLiteral("COM2 told #STOP")));
    QVERIFY(!told.contains(QStringLiteral("COM1 told #STOP")));
    closeBoxLater(QStringLiteral("Aborted"));
    QTRY_COMPARE(closed.size(), 1);
}

QTEST_MAIN(TestRemoteControls)
#include "tst_remotecontrols.moc"
