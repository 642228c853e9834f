#include "desk/datatoolbar.h"
#include "desk/windowfiles.h"
#include "devices/portretries.h"
#include "dialogs/checkboxcomport.h"
#include "dialogs/dialogpreferences.h"
#include "graph/mdigraphchild.h"
#include "link/serialreader.h"
#include "ports/portinfo.h"
#include "support/columns.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QFileInfo>
#include <QLabel>
#include <QLoggingCategory>
#include <QPushButton>
#include <QSerialPort>

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
    void portsAtTheStart();
    void recordsInWindows();
    void pauseAndResume();
    void failingPort();
    void newPort();
    void questionsQueue();
    void questionsWaitForDialog();
    void busyOnArrival_data();
    void busyOnArrival();

private:
    /// Ticks `ports`, and only them, in the preferences.
    void choose(const QStringList &ports);
    ListenedPorts *parts() const { return window->findChild<ListenedPorts *>(); }
    PortRetries *retries() const { return window->findChild<PortRetries *>(); }
    /// Answers the question whether to remember a port, and waits for its end.
    void answerQuestion(QMessageBox::StandardButton button)
    {
        QTRY_VERIFY(box("portQuestion"));
        const QPointer<QMessageBox> question = box("portQuestion");
        question->button(button)->click();
        QTRY_VERIFY(!question);
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
    listen(0);
    QCOMPARE(message(), QStringLiteral("No port has been selected."));
    QVERIFY(!window->listenedPorts().isListening());
    QCOMPARE(fact(StatusFacts::Listening), QStringLiteral("Listening: no port"));
    for (ActionId id : {ActionId::SetTime, ActionId::StopProcess, ActionId::Recording}) {
        window->statusBar()->clearMessage();
        trigger(id);
        QCOMPARE(message(), QStringLiteral("No port is listened on: choose one in the preferences."));
    }
    plug(QStringLiteral("COM3"));
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM3")));
    answerQuestion(QMessageBox::No);
    plug(QStringLiteral("COM4"));
    QTRY_COMPARE(listened().size(), 2);
    answerQuestion(QMessageBox::Yes);
    choose({QStringLiteral("COM4")});
    QCOMPARE(listened(), QStringList(QStringLiteral("COM4")));
    QCOMPARE(message(), QStringLiteral("Stop listening on port COM3."));
    choose({QStringLiteral("COM3")});
    QCOMPARE(listened(), QStringList(QStringLiteral("COM3")));
    QCOMPARE(message(), QStringLiteral("Start listening on port COM3."));
    QCOMPARE(fact(StatusFacts::Lost), QString());
}

// Those that are there at the start are never new.
void TestListening::portsAtTheStart()
{
    for (const char *port : {"COM3", "COM4", "COM5", "USB9"})
        plug(QLatin1String(port));
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
    timesAsked = 0;
    const auto previous = qInstallMessageHandler(countAsking);
    const QStringList present{QStringLiteral("COM4"), QStringLiteral("COM5")};
    open(QStringList{QStringLiteral("COM2")} + present
        + QStringList{QStringLiteral("COM4"), QStringLiteral("USB9")});
    qInstallMessageHandler(previous);
    QCOMPARE(timesAsked, 1);
    QCOMPARE(message(), QStringLiteral("Start listening on port(s): COM4,COM5"));
    QCOMPARE(listened(), present);
    QVERIFY(window->listenedPorts().isListening());
    QCOMPARE(fact(StatusFacts::Listening), QStringLiteral("Listening: COM4, COM5"));
    QVERIFY(window->cursor().shape() != Qt::WaitCursor);
    trigger(ActionId::Recording);
    QCOMPARE(message(), QStringLiteral("No graph window is open: there is nothing to pause."));
    parts()->arrive({QStringLiteral("COM3"), QString(), QString()});
    parts()->arrive({QStringLiteral("USB8"), QString(), QString()});
    QVERIFY(!box("portQuestion"));
    QCOMPARE(listened(), present);
    parts()->leave({present[1], QString(), QString()});
    QCOMPARE(message(), QStringLiteral("Stop listening on port COM5. Port is removed."));
    QCOMPARE(fact(StatusFacts::Lost), QStringLiteral("Lost: COM5"));
    window->startRecording(); // of what is not open
    QCOMPARE(message(), QStringLiteral("Start listening on port(s): COM5"));
    QCOMPARE(listened(), present);
    QCOMPARE(fact(StatusFacts::Lost), QString());
    window->stopRecording();
    QCOMPARE(message(), QStringLiteral("Stop listen on port(s)."));
    QVERIFY(!window->listenedPorts().isListening());
    QCOMPARE(fact(StatusFacts::Listening), QStringLiteral("Listening: no port"));
    window->stopRecording();
    const QSignalSpy changes(parts(), SIGNAL(changed()));
    plugged[0]->hangUp(); // and it is new when it comes back
    QTRY_VERIFY(!changes.isEmpty());
    plug(QStringLiteral("COM3"));
    QTRY_COMPARE(message(), QStringLiteral("Start listening on new port COM3."));
    QVERIFY(box("portQuestion"));
}

// The figures are those of the current window, whatever the other device sends.
void TestListening::recordsInWindows()
{
    listen(2);
    plugged[0]->send(Lines::charger(1));
    QTRY_VERIFY(window->activeMdiChild());
    MdiGraphChild *first = window->activeMdiChild();
    QTRY_COMPARE(first->windowTitle(), QStringLiteral("No file name COM1*"));
    QVERIFY(first->isLive() && window->listenedPorts().isRecording());
    const QString journal = window->filesOfWindows().fileOf(first);
    QVERIFY(QFileInfo(journal).isFile());
    QCOMPARE(first->parentWidget()->toolTip(), QStringLiteral("Journal: ") + journal);
    plugged[1]->send(Lines::discharger(5));
    QTRY_COMPARE(figure("timeLabel"), QStringLiteral("00:00:05"));
    plugged[0]->send(Lines::charger(2));
    QTRY_COMPARE(first->store().size(), 2);
    QCOMPARE(figure("timeLabel"), QStringLiteral("00:00:05"));
    trigger(ActionId::Next);
    QCOMPARE(figure("timeLabel"), QStringLiteral("00:00:02"));
    window->showMinimized();
    plugged[0]->send(Lines::charger(3));
    QTRY_COMPARE(figure("timeLabel"), QStringLiteral("00:00:03"));
    // The recording goes on without its window; the next one has its own again.
    trigger(ActionId::CloseAll);
    QTRY_VERIFY(!window->findChild<MdiGraphChild *>());
    QTRY_COMPARE(figure("timeLabel"), QString());
    plugged[0]->send(Lines::charger(4));
    QTRY_COMPARE(fact(StatusFacts::Unwatched), QStringLiteral("Window closed: COM1"));
    QVERIFY(window->mdiChildren().isEmpty() && window->listenedPorts().isRecording());
    plugged[0]->send(Lines::charger(0));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    QCOMPARE(fact(StatusFacts::Unwatched), QString());
    window->stopRecording();
    QVERIFY(!window->listenedPorts().isRecording());
}

void TestListening::pauseAndResume()
{
    listen(1);
    plugged[0]->send(Lines::charger(1));
    QTRY_VERIFY(window->activeMdiChild());
    trigger(ActionId::Recording);
    QCOMPARE(listened(), QStringList());
    QCOMPARE(window->listenedPorts().paused(), QStringLiteral("COM1"));
    QCOMPARE(fact(StatusFacts::Paused), QStringLiteral("Paused: COM1"));
    QVERIFY(!window->activeMdiChild()->isLive());
    const QAction *button = window->actionSet()[ActionId::Recording];
    QVERIFY(button->isChecked());
    trigger(ActionId::Recording);
    QVERIFY(!button->isChecked());
    QCOMPARE(listened(), QStringList(QStringLiteral("COM1")));
    QCOMPARE(fact(StatusFacts::Paused), QString());
    trigger(ActionId::Recording);
    QCOMPARE(message(), QStringLiteral("The current window receives no data: there is nothing to pause."));
    // What else ends a pause: another wish, or the going of the port.
    for (const char *way : {"ticked", "unticked", "gone"}) {
        plugged[0]->send(Lines::charger(10));
        QTRY_VERIFY(window->activeMdiChild()->isLive());
        trigger(ActionId::Recording);
        QCOMPARE(fact(StatusFacts::Paused), QStringLiteral("Paused: COM1"));
        if (*way == 'g')
            plugged[0]->hangUp();
        else
            choose(*way == 't' ? QStringList(QStringLiteral("COM1")) : QStringList());
        QTRY_COMPARE(window->listenedPorts().paused(), QString());
        QCOMPARE(listened().size(), *way == 't' ? 1 : 0);
        QCOMPARE(fact(StatusFacts::Paused), QString());
        if (*way == 'u')
            choose({QStringLiteral("COM1")});
    }
}

void TestListening::failingPort()
{
    PtyPair *busy = plug(QStringLiteral("COM3"));
    QSerialPort other(QFile::symLinkTarget(fixture->portFolder() + QStringLiteral("/COM3")));
    QVERIFY(other.open(QIODevice::ReadWrite));
    PtyPair *device = plug(QStringLiteral("COM4"));
    const QStringList both{QStringLiteral("COM3"), QStringLiteral("COM4")};
    open(both);
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM4")));
    QCOMPARE(message(), QStringLiteral("Start listening on port(s): COM4"));
    QCOMPARE(fact(StatusFacts::Failing), QStringLiteral("Can't open: COM3"));
    QVERIFY(box("portFailed") && !box("portFailed")->isModal());
    QVERIFY(box("portFailed")->text().startsWith(QLatin1String("Device COM3 failed to open: ")));
    QCOMPARE(box("portFailed")->textFormat(), Qt::PlainText);
    device->send(Lines::charger(1));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    retries()->setPace({20, 20, 20});
    choose(both); // which tries again, and has nothing new to say
    QCOMPARE(window->findChildren<QMessageBox *>(QStringLiteral("portFailed")).size(), 1);
    QVERIFY(window->activeMdiChild()->isLive());
    other.close();
    QTRY_COMPARE(listened().size(), 2);
    QCOMPARE(message(), QStringLiteral("Start listening on port COM3.")); // it is no new one
    QCOMPARE(fact(StatusFacts::Failing), QString());
    QTRY_VERIFY(!box("portFailed"));
    busy->hangUp();
    QTRY_COMPARE(fact(StatusFacts::Lost), QStringLiteral("Lost: COM3"));
    choose({QStringLiteral("COM4")}); // who doesn't want it any more needs no word of it
    QCOMPARE(fact(StatusFacts::Lost), QString());
}

void TestListening::newPort()
{
    open({});
    for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
        PtyPair *device = plug(QStringLiteral("COM7"));
        QTRY_VERIFY(box("portQuestion"));
        QCOMPARE(box("portQuestion")->windowTitle(), QStringLiteral("Question"));
        QCOMPARE(box("portQuestion")->textFormat(), Qt::PlainText); // the description is the adapter's own
        QCOMPARE(message(), QStringLiteral("Start listening on new port COM7."));
        QCOMPARE(listened(), QStringList(QStringLiteral("COM7")));
        device->send(Lines::charger(1)); // nothing waits for the answer
        QTRY_VERIFY(window->activeMdiChild());
        QTRY_COMPARE(QApplication::activeWindow(), box("portQuestion")); // and it keeps the keys
        answerQuestion(button);
        QCOMPARE(listened(), QStringList(QStringLiteral("COM7")));
        QVERIFY(window->activeMdiChild()->isLive());
        QCOMPARE(VarnelSettings().ports(), button == QMessageBox::Yes ? listened() : QStringList());
        device->hangUp();
        QTRY_COMPARE(listened(), QStringList());
        QCOMPARE(message(), QStringLiteral("Stop listening on port COM7. Port is removed."));
        QCOMPARE(fact(StatusFacts::Lost), QStringLiteral("Lost: COM7"));
        trigger(ActionId::CloseAll);
        QTRY_VERIFY(window->mdiChildren().isEmpty());
    }
    plug(QStringLiteral("COM7")); // it is remembered
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM7")));
    QVERIFY(!box("portQuestion"));
    QCOMPARE(fact(StatusFacts::Lost), QString());
}

void TestListening::questionsQueue()
{
    open({});
    PtyPair *first = plug(QStringLiteral("COM7"));
    QTRY_VERIFY(box("portQuestion"));
    plug(QStringLiteral("COM8"));
    QTRY_COMPARE(listened().size(), 2);
    QCOMPARE(
        box("portQuestion")->text(), QStringLiteral("Do you want to add a port COM7 to the preferences ?"));
    first->hangUp(); // its question goes with it
    QTRY_VERIFY(box("portQuestion") && box("portQuestion")->text().contains(QLatin1String("COM8")));
    QTRY_COMPARE(listened(), QStringList(QStringLiteral("COM8")));
    for (int time : {1, 2}) // which is one question
        parts()->arrive({QStringLiteral("COM9"), QStringLiteral("Adapter %1").arg(time), QString()});
    parts()->arrive({QStringLiteral("COM10"), QString(), QString()});
    parts()->leave({QStringLiteral("COM10"), QString(), QString()}); // while it waits
    answerQuestion(QMessageBox::No);
    QTRY_VERIFY(box("portQuestion")
        && box("portQuestion")->text().contains(QLatin1String("add a port Adapter 1 to")));
    answerQuestion(QMessageBox::Yes);
    QVERIFY(!box("portQuestion"));
    QCOMPARE(VarnelSettings().ports(), QStringList(QStringLiteral("COM9")));
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

void TestListening::busyOnArrival_data()
{
    columns<QString>({"then"});
    for (const char *then :
        {"free soon", "free after a while", "unticked", "recording off", "window closed", "gone"})
        QTest::newRow(then) << then;
}

// As a modem probe holds a port that has arrived; or it is no longer wanted while it can't be opened yet.
void TestListening::busyOnArrival()
{
    QFETCH(QString, then);
    open({QStringLiteral("COM3")});
    const PortRetries::Pace usual;
    QVERIFY(usual.interval == 250 && usual.patience == 3000 && usual.slowInterval == 2000); // ms
    retries()->setPace({20, then == QLatin1String("free after a while") ? 60 : 60000, 40});
    const QStringList port(QStringLiteral("COM3"));
    PtyPair *device = plug(port[0]);
    QSerialPort other(QFile::symLinkTarget(fixture->portFolder() + QStringLiteral("/COM3")));
    QVERIFY(other.open(QIODevice::ReadWrite));
    QTRY_COMPARE(retries()->ports(), port);
    QVERIFY(!box("portFailed"));
    if (then == QLatin1String("unticked")) {
        choose({});
    } else if (then == QLatin1String("recording off")) {
        window->stopRecording();
    } else if (then == QLatin1String("window closed")) {
        window->close();
    } else if (then == QLatin1String("gone")) {
        device->hangUp();
    } else {
        if (then == QLatin1String("free after a while")) {
            QTRY_COMPARE(fact(StatusFacts::Failing), QStringLiteral("Can't open: COM3"));
            QVERIFY(box("portFailed"));
        }
        QCOMPARE(listened(), QStringList());
        other.close();
        QTRY_COMPARE(listened(), port);
        QCOMPARE(message(), QStringLiteral("Start listening on new port COM3."));
        QTRY_VERIFY(!box("portFailed"));
    }
    QTRY_COMPARE(retries()->ports(), QStringList());
    QVERIFY(!retries()->findChild<QTimer *>()->isActive());
    QCOMPARE(fact(StatusFacts::Failing), QString());
}

QTEST_MAIN(TestListening)
#include "tst_listening.moc"
