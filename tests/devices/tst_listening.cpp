#include "desk/datatoolbar.h"
#include "devices/portretries.h"
#include "desk/windowfiles.h"
#include "dialogs/checkboxcomport.h"
#include "dialogs/dialogpreferences.h"
#include "graph/mdigraphchild.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QFileInfo>
#include <QLabel>
#include <QLoggingCategory>
#include <QSerialPort>
#include <QPushButton>

namespace {

int timesAsked = 0; // the system for its ports

void countAsking(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (text.contains(QLatin1String("Asking the system for its ports")))
        ++timesAsked;
}

// These ports and no other, and OK.
void tick(DialogPreferences *dialog, const QStringList &ports)
{
    const auto boxes = dialog->findChildren<CheckBoxComPort *>();
    for (CheckBoxComPort *box : boxes)
        box->setChecked(ports.contains(box->portName()));
    dialog->accept();
}

} // namespace

/// The program's window listening on real pseudo-terminals: ports that work, fail, go, return and arrive.
class TestListening : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void nothingChosen();
    void onePortPresent();
    void listsPortsOnce();
    void recordsInWindows();
    void figuresOfCurrentWindow();
    void pauseAndResume();
    void failingPort();
    void newPort();
    void questionsQueue();
    void questionsWaitForDialog();
    void busyOnArrival();
    void unwantedStaysClosed_data();
    void unwantedStaysClosed();
    void closedLiveWindow();
    void preferencesChanged();

private:
    /// Ticks `ports`, and only them, in the preferences.
    void choose(const QStringList &ports);
    QStringList waitedFor() const { return window->findChild<PortRetries *>()->ports(); }
    /// The device of `port`, to be held as another program does.
    QString location(const QString &port) const
    {
        return QFile::symLinkTarget(fixture->portFolder() + QLatin1Char('/') + port);
    }
    QString figure(const char *name) const
    {
        return window->findChild<DataToolBar *>()->findChild<QLabel *>(QLatin1String(name))->text();
    }
};

void TestListening::choose(const QStringList &ports)
{
    whenModal<DialogPreferences>(this, [ports](DialogPreferences *dialog) { tick(dialog, ports); });
    trigger(ActionId::Preferences);
}

void TestListening::nothingChosen()
{
    open({});
    QCOMPARE(message(), QStringLiteral("No port has been selected."));
    QVERIFY(!window->listenedPorts().isListening());
    QCOMPARE(fact(StatusFacts::Listening), QStringLiteral("Listening: no port"));
    // a command that can't be carried out says so
    for (ActionId id : {ActionId::SetTime, ActionId::StopProcess, ActionId::Recording}) {
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
    QCOMPARE(fact(StatusFacts::Listening), QStringLiteral("Listening: COM4"));
    trigger(ActionId::Recording);
    QCOMPARE(message(), QStringLiteral("No graph window is open: there is nothing to pause."));
    window->stopRecording();
    QCOMPARE(message(), QStringLiteral("Stop listen on port(s)."));
    QVERIFY(!window->listenedPorts().isListening());
}

void TestListening::listsPortsOnce()
{
    const QStringList ports{QStringLiteral("COM3"), QStringLiteral("COM4"), QStringLiteral("COM5")};
    for (const QString &port : ports)
        plug(port);
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
    timesAsked = 0;
    const auto previous = qInstallMessageHandler(countAsking);
    open(ports);
    qInstallMessageHandler(previous);
    QCOMPARE(listened(), ports);
    QCOMPARE(timesAsked, 1);
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
    const QString journal = window->filesOfWindows().fileOf(first);
    QVERIFY(QFileInfo(journal).isFile());
    QCOMPARE(first->parentWidget()->toolTip(), QStringLiteral("Journal: ") + journal);
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
    trigger(ActionId::Recording);
    QCOMPARE(fact(StatusFacts::Paused), QStringLiteral("Paused: COM3"));
    choose({QStringLiteral("COM3")}); // which opens what is not open
    QCOMPARE(listened(), QStringList(QStringLiteral("COM3")));
    QCOMPARE(fact(StatusFacts::Paused), QString());
    QCOMPARE(window->listenedPorts().paused(), QString());
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
        PtyPair *device = plug(QStringLiteral("COM7"));
        QTRY_VERIFY(box("portQuestion"));
        QCOMPARE(box("portQuestion")->textFormat(), Qt::PlainText); // the description is the adapter's own
        QCOMPARE(message(), QStringLiteral("Start listening on new port COM7."));
        QCOMPARE(listened(), QStringList(QStringLiteral("COM7")));
        device->send(Lines::charger(1)); // nothing waits for the answer
        QTRY_COMPARE(window->mdiChildren().size(), 1);
        QTRY_COMPARE(QApplication::activeWindow(), box("portQuestion")); // and it keeps the keys
        box("portQuestion")->button(answer)->click();
        QTRY_VERIFY(!box("portQuestion"));
        QCOMPARE(listened(), QStringList(QStringLiteral("COM7")));
        QVERIFY(window->activeMdiChild()->isLive());
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
    QCOMPARE(listened(), QStringList(QStringLiteral("COM8")));
}

void TestListening::questionsWaitForDialog()
{
    open({});
    whenModal<DialogPreferences>(this, [this](DialogPreferences *dialog) {
        const QStringList arriving{QStringLiteral("COM7"), QStringLiteral("COM8"), QStringLiteral("COM9")};
        for (const QString &port : arriving)
            plug(port);
        QTRY_COMPARE(listened().size(), arriving.size());
        QVERIFY(!box("portQuestion"));
        dialog->findChild<QPushButton *>(QStringLiteral("preferencesButtonRefresh"))->click();
        tick(dialog, {QStringLiteral("COM7")});
    });
    trigger(ActionId::Preferences);
    // The one that was ticked is not asked about, the others stay open until they are.
    for (const char *port : {"COM8", "COM9"}) {
        QTRY_VERIFY(box("portQuestion") && box("portQuestion")->text().contains(QLatin1String(port)));
        QTRY_COMPARE(QApplication::activeWindow(), box("portQuestion"));
        QTest::keyClick(box("portQuestion"), Qt::Key_Escape);
    }
    QTRY_VERIFY(!box("portQuestion"));
    QCOMPARE(listened().size(), 3);
    QCOMPARE(VarnelSettings().ports(), QStringList(QStringLiteral("COM7")));
}

void TestListening::busyOnArrival()
{
    open({QStringLiteral("COM3")});
    for (const bool longer : {false, true}) {
        PtyPair *device = plug(QStringLiteral("COM3"));
        QSerialPort other(location(QStringLiteral("COM3"))); // as a modem probe holds a port that has arrived
        QVERIFY(other.open(QIODevice::ReadWrite));
        QTRY_COMPARE(waitedFor(), QStringList(QStringLiteral("COM3")));
        QVERIFY(!box("portFailed"));
        if (longer)
            QTRY_COMPARE(fact(StatusFacts::Failing), QStringLiteral("Can't open: COM3"));
        QCOMPARE(listened(), QStringList());
        other.close();
        QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM3")));
        QTRY_VERIFY(!box("portFailed"));
        QCOMPARE(fact(StatusFacts::Failing), QString());
        QCOMPARE(waitedFor(), QStringList());
        device->hangUp();
        QTRY_COMPARE(listened(), QStringList());
    }
}

void TestListening::unwantedStaysClosed_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"unticked", "recording off", "window closed", "gone"})
        QTest::newRow(way) << way;
}

// A port that is no longer wanted while it can't be opened yet.
void TestListening::unwantedStaysClosed()
{
    QFETCH(QString, way);
    open({QStringLiteral("COM3")});
    PtyPair *device = plug(QStringLiteral("COM3"));
    QSerialPort other(location(QStringLiteral("COM3")));
    QVERIFY(other.open(QIODevice::ReadWrite));
    QTRY_COMPARE(waitedFor(), QStringList(QStringLiteral("COM3")));
    if (way == QLatin1String("unticked"))
        choose({});
    else if (way == QLatin1String("recording off"))
        window->stopRecording();
    else if (way == QLatin1String("window closed"))
        window->close();
    else
        device->hangUp();
    QTRY_COMPARE(waitedFor(), QStringList());
    QCOMPARE(fact(StatusFacts::Failing), QString());
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
    choose({QStringLiteral("COM4")});
    QCOMPARE(listened(), QStringList(QStringLiteral("COM4")));
    QCOMPARE(message(), QStringLiteral("Start listening on port COM4."));
}

QTEST_MAIN(TestListening)
#include "tst_listening.moc"
