#include "dialogs/dialogremotecontrol.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "support/lines.h"
#include "support/simrig.h"

#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTimer>
#include <QtTest>

/// The whole program and simulated devices: what a person does in an evening, a hundred times as fast.
class TestDeviceStory : public QObject, private SimRig {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup() { tearDown(); }
    void remoteControlRunsAProcess();
    void processEndsInAnyWay_data();
    void processEndsInAnyWay();
    void nextProcessTakesTheBoxAway();
    void everyEndIsTold();
    void remoteControlIsForOneDevice();
    void clocksAreSet();

private:
    QAction *remoteAction() const
    {
        return window->findChild<QAction *>(QStringLiteral("remoteControlAction"));
    }
    /// Closes the box titled `title` once it is there.
    void closeBoxLater(const QString &title);

    QStringList closed; // titles of the boxes that were closed
};

void TestDeviceStory::init()
{
    setUp(120);
    closed.clear();
}

// Nobody is quicker than half a second, in which a device may say several times that it has ended.
void TestDeviceStory::closeBoxLater(const QString &title)
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

void TestDeviceStory::remoteControlRunsAProcess()
{
    start({QStringLiteral("COM1:varnel3,cells=4,balance,start=remote,detect=1")});
    remoteAction()->trigger();
    QPointer<DialogRemoteControl> dialog = window->findChild<DialogRemoteControl *>();
    QVERIFY(dialog);
    QVERIFY(!dialog->isModal());
    auto *pages = dialog->findChild<QStackedWidget *>(QStringLiteral("pages"));
    QTRY_COMPARE(pages->currentIndex(), 0);
    dialog->findChild<QComboBox *>(QStringLiteral("cbTryb0_nc"))->setCurrentIndex(6);
    QTRY_COMPARE(device("COM1")->panel().memory(), 7);
    QTRY_COMPARE(pages->currentIndex(), 2);
    auto *cells = dialog->findChild<QComboBox *>(QStringLiteral("cbTryb2_nr"));
    QTRY_COMPARE(cells->currentIndex(), 3);
    cells->setCurrentIndex(5);
    QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("pbTryb2_start")), Qt::LeftButton);
    QTRY_COMPARE(pages->currentIndex(), 3);
    QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->store().size() > 100);
    closeBoxLater(QStringLiteral("Aborted"));
    QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("pbTryb3_stop")), Qt::LeftButton);
    QTRY_COMPARE(closed, QStringList(QStringLiteral("Aborted")));
    QCOMPARE(pages->currentIndex(), 4);
    remoteAction()->trigger(); // the same dialog, which asks anew
    QCOMPARE(window->findChildren<DialogRemoteControl *>().size(), 1);
    closeBoxLater(QStringLiteral("Information"));
    device("COM1")->unplug();
    QTRY_VERIFY_WITH_TIMEOUT(closed.contains(QStringLiteral("Information")), 8000);
    QTRY_VERIFY(!dialog);
    QVERIFY(!remoteAction()->isEnabled());
    QVERIFY(!remoteAction()->toolTip().isEmpty());
}

void TestDeviceStory::processEndsInAnyWay_data()
{
    QTest::addColumn<char>("letter");
    QTest::addColumn<QString>("title");
    QTest::newRow("completed") << 'E' << "End";
    QTest::newRow("stopped at the device") << 'M' << "Aborted";
    QTest::newRow("pack taken off") << 'S' << "Error";
}

void TestDeviceStory::processEndsInAnyWay()
{
    QFETCH(char, letter);
    QFETCH(QString, title);
    start({QStringLiteral("COM1:varnel3,start=open,endlines=3")});
    QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->store().size() > 20);
    closeBoxLater(title);
    if (letter == 'S')
        device("COM1")->disconnectPack();
    else
        device("COM1")->endProcess(letter);
    QTRY_COMPARE(closed, QStringList(title));
    QTRY_VERIFY(told.contains(QStringLiteral("COM1 told #STOP"))); // the buzzer falls silent
    QTest::qWait(700);
    QCOMPARE(told.count(QStringLiteral("COM1 told #STOP")), 1);
    QVERIFY(!modalBox());
}

void TestDeviceStory::nextProcessTakesTheBoxAway()
{
    start({QStringLiteral("COM1:varnel3,start=open,processes=0,pause=3")});
    QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->store().size() > 20);
    bool seen = false;
    int recordsUnderBox = 0;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        seen = seen || modalBox();
        if (!modalBox() && seen && window->mdiChildren().size() == 2)
            recordsUnderBox = window->mdiChildren().last()->store().size();
    });
    watch.start(10);
    device("COM1")->endProcess('E');
    QTRY_COMPARE(window->mdiChildren().size(), 2);
    QTRY_VERIFY(recordsUnderBox > 10);
    QVERIFY(seen);
    QVERIFY(!modalBox());
    QVERIFY(!told.contains(QStringLiteral("COM1 told #STOP")));
}

// The box is about the first; the second ends under it; the third begins and takes it away.
void TestDeviceStory::everyEndIsTold()
{
    PtyPair *lines[]
        = {plug(QStringLiteral("COM1")), plug(QStringLiteral("COM2")), plug(QStringLiteral("COM3"))};
    open({QStringLiteral("COM1"), QStringLiteral("COM2"), QStringLiteral("COM3")});
    QTRY_COMPARE(listened().size(), 3);
    for (PtyPair *line : {lines[0], lines[1]}) {
        line->send(Lines::charger(3423));
        QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->portName() == line->portName());
    }
    lines[0]->send(Lines::charger(3424, 'E').repeated(2));
    QTRY_VERIFY(modalBox());
    QCOMPARE(modalBox()->text(), QStringLiteral("Process completed."));
    QCOMPARE(modalBox()->informativeText(), QStringLiteral("COM1, 6 x LiPo, 0.150 Ah in 00:57:04"));
    lines[1]->send(Lines::charger(3424, 'S'));
    QTRY_VERIFY(fact(StatusFacts::Failed)
                    .contains(QRegularExpression(QStringLiteral("^Error: COM2 \\d\\d:\\d\\d$"))));
    QVERIFY(modalBox()->informativeText().startsWith(QLatin1String("COM1")));
    lines[2]->send(Lines::charger(1));
    QTRY_VERIFY(fact(StatusFacts::Completed).startsWith(QLatin1String("Completed: COM1 ")));
    QVERIFY(!modalBox());
    const QList<MdiGraphChild *> children = window->mdiChildren();
    children[0]->parentWidget()->close();
    QTRY_COMPARE(fact(StatusFacts::Completed), QString());
    QVERIFY(!fact(StatusFacts::Failed).isEmpty());
    window->findChild<QMdiArea *>()->setActiveSubWindow(
        qobject_cast<QMdiSubWindow *>(children[1]->parentWidget()));
    QCOMPARE(fact(StatusFacts::Failed), QString());
}

void TestDeviceStory::remoteControlIsForOneDevice()
{
    start({QStringLiteral("COM1:varnel3,start=remote"), QStringLiteral("COM2:varnel3,start=remote")});
    // Neither has sent a line yet.
    const QStringList ports{QStringLiteral("COM1..."), QStringLiteral("COM2...")};
    for (int port : {0, 1}) {
        QVERIFY(remoteAction()->isEnabled() && remoteAction()->menu());
        const QList<QAction *> choices = remoteAction()->menu()->actions();
        QCOMPARE(choices[port]->text(), ports[port]);
        choices[port]->trigger();
        QPointer<DialogRemoteControl> dialog = window->findChild<DialogRemoteControl *>();
        QVERIFY(dialog);
        dialog->findChild<QComboBox *>(QStringLiteral("cbTryb0_nc"))->setCurrentIndex(6);
        QTRY_COMPARE(device(qPrintable(ports[port].left(4)))->panel().memory(), 7);
        dialog->close();
        QTRY_VERIFY(!dialog);
    }
    device("COM2")->startProcess();
    QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->isLive());
    QTRY_COMPARE(
        remoteAction()->menu()->actions().constLast()->text(), QStringLiteral("COM2 (current window)..."));
    remoteAction()->trigger();
    auto *pages
        = window->findChild<DialogRemoteControl *>()->findChild<QStackedWidget *>(QStringLiteral("pages"));
    QTest::qWait(200);
    QCOMPARE(pages->currentIndex(), 3);
    QVERIFY(!window->findChild<QMessageBox *>());
    trigger(ActionId::StopProcess);
    QTRY_VERIFY(told.contains(QStringLiteral("COM2 told #STOP")));
    QVERIFY(!told.contains(QStringLiteral("COM1 told #STOP")));
    closeBoxLater(QStringLiteral("Aborted"));
    QTRY_COMPARE(closed.size(), 1);
}

void TestDeviceStory::clocksAreSet()
{
    start({QStringLiteral("COM1:varnel3,start=remote"), QStringLiteral("COM2:varnel3,start=open")});
    QTRY_VERIFY(window->activeMdiChild());
    trigger(ActionId::SetTime);
    window->endProcess(Varnel3Data::Completed); // tells at once, though the clocks are under way
    QVERIFY(modalBox() && QApplication::overrideCursor());
    modalBox()->close();
    QTRY_COMPARE(device("COM2")->panel().beeps(), 1);
    QCOMPARE(device("COM1")->panel().beeps(), 0);
    window->activeMdiChild()->parentWidget()->close();
    QTRY_VERIFY(!window->activeMdiChild());
    trigger(ActionId::SetTime);
    QTRY_COMPARE(device("COM2")->panel().beeps(), 2);
    QCOMPARE(device("COM1")->panel().beeps(), 1);
    QCOMPARE(device("COM1")->panel().clock().size(), 17);
}

QTEST_MAIN(TestDeviceStory)
#include "tst_devicestory.moc"
