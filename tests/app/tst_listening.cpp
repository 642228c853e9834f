#include "app/datatoolbar.h"
#include "graph/mdigraphchild.h"
#include "support/lines.h"
#include "support/shellrig.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QSerialPort>
#include <QPushButton>
#include <QTimer>

/// The program's window listening on real pseudo-terminals: ports that work, fail, go, return and arrive.
class TestListening : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void nothingChosen();
    void onePortPresent();
    void recordsInWindows();
    void figuresOfCurrentWindow();
    void pauseAndResume();
    void failingPort();
    void newPort();
    void questionsQueue();
    void busyOnArrival();
    void closedLiveWindow();
    void preferencesChanged();

private:
    QString figure(const char *name) const
    {
        return window->findChild<DataToolBar *>()->findChild<QLabel *>(QLatin1String(name))->text();
    }
};

void TestListening::nothingChosen()
{
    open({});
    QCOMPARE(message(), QStringLiteral("No port has been selected."));
    QVERIFY(!window->listenedPorts().isListening());
    for (ActionId id : {ActionId::SetTime, ActionId::StopProcess}) { // a command that can't be sent says so
        window->statusBar()->clearMessage();
        trigger(id);
        QVERIFY2(message().startsWith(QStringLiteral("No port is listened on")), qPrintable(message()));
    }
}

void TestListening::onePortPresent()
{
    plug(QStringLiteral("COM4"));
    open({QStringLiteral("COM3"), QStringLiteral("COM4"), QStringLiteral("COM4")});
    QCOMPARE(message(), QStringLiteral("Start listening on port(s): COM4"));
    QCOMPARE(listened(), QStringList(QStringLiteral("COM4")));
    QVERIFY(window->listenedPorts().isListening());
    window->stopRecording();
    QCOMPARE(message(), QStringLiteral("Stop listen on port(s)."));
    QVERIFY(!window->listenedPorts().isListening());
}

void TestListening::recordsInWindows()
{
    PtyPair *device = plug(QStringLiteral("COM3"));
    open({QStringLiteral("COM3")});
    device->send(Lines::charger(1) + Lines::charger(2));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    MdiGraphChild *first = window->activeMdiChild();
    QTRY_COMPARE(first->store().size(), 2);
    QCOMPARE(first->windowTitle(), QStringLiteral("No file name COM3*"));
    QVERIFY(first->isLive());
    // A second process: time starts over. The line that shows it still belongs to the first.
    device->send(Lines::charger(1) + Lines::charger(2) + Lines::charger(3));
    QTRY_COMPARE(window->mdiChildren().size(), 2);
    QVERIFY(!first->isLive());
    QCOMPARE(first->store().size(), 3);
    QCOMPARE(window->activeWindowNumber(), 2);
    QTRY_COMPARE(window->activeMdiChild()->store().size(), 2);
    first->parentWidget()->close();
    QTRY_COMPARE(window->activeWindowNumber(), 1);
}

void TestListening::figuresOfCurrentWindow()
{
    PtyPair *charger = plug(QStringLiteral("COM3"));
    PtyPair *discharger = plug(QStringLiteral("COM4"));
    open({QStringLiteral("COM3"), QStringLiteral("COM4")});
    charger->send(Lines::charger(1));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    discharger->send(Lines::discharger(5));
    QTRY_COMPARE(window->mdiChildren().size(), 2);
    QTRY_COMPARE(figure("timeLabel"), QStringLiteral("00:00:05"));
    charger->send(Lines::charger(2));
    QTRY_COMPARE(window->mdiChildren().first()->store().size(), 2);
    QCOMPARE(figure("timeLabel"), QStringLiteral("00:00:05"));
    trigger(ActionId::Next);
    QCOMPARE(figure("timeLabel"), QStringLiteral("00:00:02"));
    window->showMinimized();
    charger->send(Lines::charger(3));
    QTRY_COMPARE(figure("timeLabel"), QStringLiteral("00:00:03"));
    trigger(ActionId::CloseAll);
    QTRY_COMPARE(window->mdiChildren().size(), 0);
    QTRY_COMPARE(figure("timeLabel"), QString());
}

void TestListening::pauseAndResume()
{
    PtyPair *device = plug(QStringLiteral("COM3"));
    open({QStringLiteral("COM3")});
    device->send(Lines::charger(1));
    QTRY_VERIFY(window->activeMdiChild());
    trigger(ActionId::Recording);
    QCOMPARE(listened(), QStringList());
    QCOMPARE(window->listenedPorts().paused(), QStringLiteral("COM3"));
    QCOMPARE(fact(StatusFacts::Paused), QStringLiteral("Paused: COM3"));
    QVERIFY(!window->activeMdiChild()->isLive());
    const QAction *button = window->actionSet()[ActionId::Recording];
    QVERIFY(button->isChecked());
    trigger(ActionId::Recording);
    QVERIFY(!button->isChecked());
    QCOMPARE(listened(), QStringList(QStringLiteral("COM3")));
    QCOMPARE(fact(StatusFacts::Paused), QString());
    device->send(Lines::charger(10));
    QTRY_COMPARE(window->mdiChildren().size(), 2);
}

void TestListening::failingPort()
{
    const QString broken = fixture->portFolder() + QStringLiteral("/COM3");
    QVERIFY(QFile::link(QStringLiteral("/dev/null"), broken));
    PtyPair *device = plug(QStringLiteral("COM4"));
    open({QStringLiteral("COM3"), QStringLiteral("COM4")});
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM4")));
    QCOMPARE(message(), QStringLiteral("Start listening on port(s): COM4"));
    QCOMPARE(fact(StatusFacts::Failing), QStringLiteral("Can't open: COM3"));
    QVERIFY(box("portFailed") && !box("portFailed")->isModal());
    device->send(Lines::charger(1));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    window->startRecording();
    QCOMPARE(window->findChildren<QMessageBox *>(QStringLiteral("portFailed")).size(), 1);
    QVERIFY(QFile::remove(broken));
    QTRY_COMPARE(fact(StatusFacts::Failing), QString());
    QTRY_VERIFY(!box("portFailed"));
}

void TestListening::newPort()
{
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        open({});
        plug(QStringLiteral("COM7"));
        QTRY_VERIFY(box("portQuestion"));
        QCOMPARE(box("portQuestion")->textFormat(), Qt::PlainText); // the description is the adapter's own
        QCOMPARE(listened(), QStringList());
        box("portQuestion")->button(answer)->click();
        QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM7")));
        QCOMPARE(message(), QStringLiteral("Start listening on new port COM7."));
        QCOMPARE(VarnelSettings().ports().contains(QStringLiteral("COM7")), answer == QMessageBox::Yes);
        window.reset();
        plugged.clear();
    }
}

void TestListening::questionsQueue()
{
    open({});
    PtyPair *first = plug(QStringLiteral("COM7"));
    plug(QStringLiteral("COM8"));
    QTRY_VERIFY(box("portQuestion"));
    const QString text = box("portQuestion")->text();
    first->hangUp(); // its question goes with it
    QTRY_VERIFY(box("portQuestion") && box("portQuestion")->text() != text);
    QCOMPARE(
        box("portQuestion")->text(), QStringLiteral("Do you want to add a port COM8 to the preferences ?"));
    box("portQuestion")->button(QMessageBox::No)->click();
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM8")));
}

void TestListening::busyOnArrival()
{
    open({QStringLiteral("COM3")});
    plug(QStringLiteral("COM3"));
    const QString device = QFile::symLinkTarget(fixture->portFolder() + QStringLiteral("/COM3"));
    QSerialPort other(device); // as a modem probe holds a port that has just arrived
    QVERIFY(other.open(QIODevice::ReadWrite));
    QTest::qWait(3000); // noticed after at most two seconds
    QCOMPARE(listened(), QStringList());
    QVERIFY(!box("portFailed"));
    other.close();
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM3")));
    QVERIFY(!box("portFailed"));
}

void TestListening::closedLiveWindow()
{
    PtyPair *device = plug(QStringLiteral("COM3"));
    open({QStringLiteral("COM3")});
    device->send(Lines::charger(1));
    QTRY_VERIFY(window->activeMdiChild());
    trigger(ActionId::Close);
    QTRY_VERIFY(!window->activeMdiChild());
    device->send(Lines::charger(2));
    QTRY_COMPARE(fact(StatusFacts::Unwatched), QStringLiteral("Window closed: COM3"));
    QCOMPARE(window->mdiChildren().size(), 0);
    device->send(Lines::charger(0));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    QCOMPARE(fact(StatusFacts::Unwatched), QString());
}

void TestListening::preferencesChanged()
{
    plug(QStringLiteral("COM3"));
    plug(QStringLiteral("COM4"));
    open({QStringLiteral("COM3")});
    QTimer::singleShot(200, this, [] {
        auto *dialog = QApplication::activeModalWidget();
        const auto boxes = dialog->findChildren<QCheckBox *>();
        for (auto *box : boxes)
            box->setChecked(!box->isChecked());
        static_cast<QDialog *>(dialog)->accept();
    });
    trigger(ActionId::Preferences);
    QCOMPARE(listened(), QStringList(QStringLiteral("COM4")));
    QCOMPARE(message(), QStringLiteral("Start listening on port COM4."));
}

QTEST_MAIN(TestListening)
#include "tst_listening.moc"
