#include "desk/datatoolbar.h"
#include "desk/windowfiles.h"
#include "devices/deskreaderhost.h"
#include "devices/devicecommands.h"
#include "devices/portretries.h"
#include "dialogs/checkboxcomport.h"
#include "dialogs/dialogpreferences.h"
#include "dialogs/dialogremotecontrol.h"
#include "graph/mdigraphchild.h"
#include "ports/portinfo.h"
#include "support/columns.h"
#include "support/lines.h"
#include "support/literal.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSerialPort>
#include <QtTest>

namespace {

// These ports and no other, and OK.
void tick(DialogPreferences *dialog, const QStringList &ports)
{
    for (CheckBoxComPort *box : constant(dialog->findChildren<CheckBoxComPort *>()))
        box->setChecked(ports.contains(box->portName()));
    dialog->accept();
}

} // namespace

/// The program's window listening on real pseudo-terminals: ports that work, fail, go, return and arrive, and
/// what the user has their devices told.
class TestListening : public ShellRig {
    Q_OBJECT

private slots:
    void init() override
    {
        ShellRig::init();
        allHeard.clear();
    }

    // Those that are there at the start are never new.
    void portsAtTheStart()
    {
        for (const char *port : {"COM3", "COM4", "COM5", "USB9"})
            plug(QLatin1String(port));
        open({"COM2", "COM4", "COM5", "COM4", "USB9"});
        QCOMPARE(bar(), "Start listening on port(s): COM4,COM5 | Listening: COM4, COM5"_s);
        QVERIFY(window->listenedPorts().isListening() && window->cursor().shape() != Qt::WaitCursor);
        trigger(ActionId::Recording);
        QCOMPARE(message(), "No graph window is open: there is nothing to pause."_s);
        parts()->arrive({"COM3"_s, QString(), QString()});
        parts()->arrive({"USB8"_s, QString(), QString()});
        QCOMPARE(question(), QString());
        QCOMPARE(listened(), QStringList({"COM4", "COM5"}));
        parts()->leave({"COM5"_s, QString(), QString()});
        QCOMPARE(bar(), "Stop listening on port COM5. Port is removed. | Lost: COM5 | Listening: COM4"_s);
        window->startRecording(); // of what is not open
        QCOMPARE(bar(), "Start listening on port(s): COM5 | Listening: COM4, COM5"_s);
        window->stopRecording();
        QCOMPARE(bar(), "Stop listen on port(s). | Listening: no port"_s);
        QVERIFY(!window->listenedPorts().isListening());
        for (ActionId id : {ActionId::SetTime, ActionId::StopProcess, ActionId::Recording}) {
            window->statusBar()->clearMessage();
            trigger(id);
            QCOMPARE(message(), "No port is listened on: choose one in the preferences."_s);
        }
        VarnelSettings().setPorts({});
        window->startRecording();
        QVERIFY(!window->listenedPorts().isListening());
        window->stopRecording(); // of nothing
        QCOMPARE(bar(), "No port has been selected. | Listening: no port"_s);
        const QSignalSpy changes(parts(), SIGNAL(changed()));
        plugged[0]->hangUp(); // and it is new when it comes back
        QTRY_VERIFY(!changes.isEmpty());
        plug("COM3"_s);
        QTRY_COMPARE(bar(), "Start listening on new port COM3. | Listening: COM3"_s);
        QVERIFY(!question().isEmpty());
    }

    // The figures are those of the current window, whatever the other device sends.
    void recordsInWindows()
    {
        listen(2);
        record(1);
        MdiGraphChild *first = window->activeMdiChild();
        QTRY_COMPARE(first->windowTitle(), "No file name COM1*"_s);
        QVERIFY(first->isLive() && window->listenedPorts().isRecording());
        const QString journal = window->filesOfWindows().fileOf(first);
        QVERIFY(QFileInfo(journal).isFile());
        QCOMPARE(first->parentWidget()->toolTip(), "Journal: " + journal);
        plugged[1]->send(Lines::discharger(5));
        QTRY_COMPARE(timeShown(), "00:00:05"_s);
        plugged[0]->send(Lines::charger(2));
        QTRY_COMPARE(first->store().size(), 2);
        QCOMPARE(timeShown(), "00:00:05"_s);
        trigger(ActionId::Next);
        QCOMPARE(timeShown(), "00:00:02"_s);
        window->showMinimized();
        plugged[0]->send(Lines::charger(3));
        QTRY_COMPARE(timeShown(), "00:00:03"_s);
        // The recording goes on without its window; the next one has its own again.
        trigger(ActionId::CloseAll);
        QTRY_VERIFY(!part<MdiGraphChild>());
        QTRY_COMPARE(timeShown(), QString());
        plugged[0]->send(Lines::charger(4));
        QTRY_COMPARE(fact(StatusFacts::Unwatched), "Window closed: COM1"_s);
        QVERIFY(window->mdiChildren().isEmpty() && window->listenedPorts().isRecording());
        plugged[0]->send(Lines::charger(0));
        QTRY_COMPARE(window->mdiChildren().size(), 1);
        QCOMPARE(fact(StatusFacts::Unwatched), QString());
        plugged[0]->send(Lines::charger(1));
        QTRY_COMPARE(window->mdiChildren().size(), 2);
        trigger(ActionId::CloseAll);
        QTRY_VERIFY(!part<MdiGraphChild>());
        plugged[0]->send(Lines::charger(2));
        QTRY_COMPARE(fact(StatusFacts::Unwatched), "Window closed: COM1"_s);
        window->stopRecording();
        QCOMPARE(fact(StatusFacts::Unwatched), QString());
        QVERIFY(!window->listenedPorts().isRecording());
    }

    void pauseAndResume()
    {
        listen(2);
        record(1);
        trigger(ActionId::Recording);
        QCOMPARE(facts(), "Paused: COM1 | Listening: COM2"_s);
        QCOMPARE(window->listenedPorts().paused(), "COM1"_s);
        QVERIFY(!window->activeMdiChild()->isLive());
        const QAction *button = window->actionSet()[ActionId::Recording];
        QVERIFY(button->isChecked());
        plugged[1]->send(Lines::charger(1)); // in a window of its own, which is current then
        QTRY_COMPARE(window->mdiChildren().size(), 2);
        trigger(ActionId::Recording);
        QVERIFY(!button->isChecked());
        QCOMPARE(facts(), "Listening: COM1, COM2"_s);
        trigger(ActionId::Next);
        trigger(ActionId::Recording);
        QCOMPARE(message(), "The current window receives no data: there is nothing to pause."_s);
        // What else ends a pause: another wish, or the going of the port.
        for (const char *way : {"ticked", "unticked", "gone"}) {
            const int windows = window->mdiChildren().size();
            plugged[0]->send(Lines::charger(10));
            QTRY_COMPARE(window->mdiChildren().size(), windows + 1);
            trigger(ActionId::Recording);
            QCOMPARE(fact(StatusFacts::Paused), "Paused: COM1"_s);
            if (*way == 'g')
                plugged[0]->hangUp();
            else
                choose(*way == 't' ? QStringList{"COM1"} : QStringList());
            QTRY_COMPARE(window->listenedPorts().paused(), QString());
            QCOMPARE(facts(), *way == 't' ? "Listening: COM1"_s : "Listening: no port"_s);
            if (*way == 'u')
                choose({"COM1"});
        }
    }

    void failingPort()
    {
        PtyPair *busy = plug("COM3"_s);
        QSerialPort other(QFile::symLinkTarget(fixture->portFolder() + "/COM3"));
        QVERIFY(other.open(QIODevice::ReadWrite));
        PtyPair *device = plug("COM4"_s);
        open({"COM3", "COM4"});
        QCOMPARE(bar(), "Start listening on port(s): COM4 | Can't open: COM3 | Listening: COM4"_s);
        const QMessageBox *failure = box("portFailed");
        QVERIFY(failure && !failure->isModal() && failure->textFormat() == Qt::PlainText);
        QVERIFY(failure->text().startsWith("Device COM3 failed to open: "_s));
        device->send(Lines::charger(1));
        QTRY_COMPARE(window->mdiChildren().size(), 1);
        retries()->setPace({20, 20, 20});
        choose({"COM3", "COM4"}); // which tries again, and has nothing new to say
        QCOMPARE(window->findChildren<QMessageBox *>("portFailed"_s).size(), 1);
        QVERIFY(window->activeMdiChild()->isLive());
        part<DeskReaderHost>()->portFailed("COM3"_s, "why"_s);
        QCOMPARE(failure->text(), "why"_s);
        other.close();
        QTRY_COMPARE(bar(), "Start listening on port COM3. | Listening: COM3, COM4"_s); // it is no new one
        QTRY_VERIFY(!box("portFailed"));
        busy->hangUp();
        QTRY_COMPARE(bar(), "Stop listening on port COM3. Port is removed. | Lost: COM3 | Listening: COM4"_s);
        choose({"COM4"}); // who doesn't want it any more needs no word of it
        QCOMPARE(fact(StatusFacts::Lost), QString());
    }

    void newPort()
    {
        open({});
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            PtyPair *device = plug("COM7"_s);
            QTRY_VERIFY(box("portQuestion"));
            QCOMPARE(box("portQuestion")->windowTitle(), "Question"_s);
            QCOMPARE(
                box("portQuestion")->textFormat(), Qt::PlainText); // the description is the adapter's own
            QCOMPARE(bar(), "Start listening on new port COM7. | Listening: COM7"_s);
            device->send(Lines::charger(1)); // nothing waits for the answer
            QTRY_VERIFY(window->activeMdiChild());
            answerQuestion(button);
            QVERIFY(window->activeMdiChild()->isLive());
            QCOMPARE(VarnelSettings().ports(), button == QMessageBox::Yes ? listened() : QStringList());
            device->hangUp();
            const QString lost
                = "Stop listening on port COM7. Port is removed. | Lost: COM7 | Listening: no port"_s;
            QTRY_COMPARE(bar(), lost);
            trigger(ActionId::CloseAll);
            QTRY_VERIFY(window->mdiChildren().isEmpty());
        }
        plug("COM7"_s); // it is remembered
        QTRY_COMPARE(bar(), "Start listening on new port COM7. | Listening: COM7"_s);
        QCOMPARE(question(), QString());
        plug("COM8"_s);
        answerQuestion(QMessageBox::No);
        choose({"COM8"});
        QCOMPARE(bar(), "Stop listening on port COM7. | Listening: COM8"_s);
        choose({"COM7"});
        QCOMPARE(bar(), "Start listening on port COM7. | Listening: COM7"_s);
    }

    // While the preferences are up, too: who is ticked there is not asked about.
    void questionsQueue()
    {
        const auto asked = [](const char *name) {
            return "Do you want to add a port %1 to the preferences ?"_s.arg(QLatin1String(name));
        };
        open({});
        whenModal<DialogPreferences>(this, [this](DialogPreferences *dialog) {
            for (const char *port : {"COM6", "COM7", "COM8"})
                plug(QLatin1String(port));
            QTRY_COMPARE(listened().size(), 3);
            QVERIFY(!box("portQuestion"));
            dialog->findChild<QPushButton *>("preferencesButtonRefresh"_s)->click();
            tick(dialog, {"COM6"});
        });
        trigger(ActionId::Preferences);
        QTRY_COMPARE(question(), asked("COM7"));
        QCOMPARE(listened().size(), 3);
        plugged[1]->hangUp(); // its question goes with it
        QTRY_COMPARE(question(), asked("COM8"));
        QTRY_COMPARE(listened(), QStringList({"COM6", "COM8"}));
        for (const char *adapter : {"Adapter 1", "Adapter 2"}) // which is one question
            parts()->arrive({"COM9"_s, QLatin1String(adapter), QString()});
        parts()->arrive({"COM10"_s, QString(), QString()});
        const auto *eighth = box("portQuestion");
        parts()->leave({"COM10"_s, QString(), QString()}); // while it waits
        QVERIFY(eighth->isVisible());
        QTRY_COMPARE(QApplication::activeWindow(), box("portQuestion"));
        QTest::keyClick(box("portQuestion"), Qt::Key_Escape);
        QTRY_COMPARE(question(), asked("Adapter 1"));
        answerQuestion(QMessageBox::Yes);
        QVERIFY(!box("portQuestion"));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM6", "COM9"}));
    }

    void busyOnArrival_data()
    {
        columns<QString>({"then"});
        for (const char *then :
            {"free soon", "free after a while", "unticked", "recording off", "window closed", "gone"})
            QTest::newRow(then) << QString(then);
    }

    // As a modem probe holds a port that has arrived; or it is no longer wanted while it can't be opened yet.
    void busyOnArrival()
    {
        QFETCH(QString, then);
        open({"COM3"});
        const PortRetries::Pace usual; // ms
        QVERIFY(usual.interval == 250 && usual.patience == 3000 && usual.slowInterval == 2000);
        retries()->setPace({20, then == "free after a while" ? 60 : 60000, 40});
        PtyPair *device = plug("COM3"_s);
        QSerialPort other(QFile::symLinkTarget(fixture->portFolder() + "/COM3"));
        QVERIFY(other.open(QIODevice::ReadWrite));
        QTRY_COMPARE(retries()->ports(), QStringList("COM3"));
        QVERIFY(!box("portFailed"));
        if (then == "unticked")
            choose({});
        if (then == "recording off")
            window->stopRecording();
        if (then == "window closed")
            window->close();
        if (then == "gone")
            device->hangUp();
        if (then.startsWith("free")) {
            if (then == "free after a while")
                QTRY_COMPARE(fact(StatusFacts::Failing), "Can't open: COM3"_s);
            QCOMPARE(box("portFailed") != nullptr, then == "free after a while");
            QCOMPARE(listened(), QStringList());
            QCOMPARE(retries()->findChild<QTimer *>()->interval(), then == "free after a while" ? 40 : 20);
            other.close();
            QTRY_COMPARE(bar(), "Start listening on new port COM3. | Listening: COM3"_s);
            QTRY_VERIFY(!box("portFailed"));
        }
        QTRY_COMPARE(retries()->ports(), QStringList());
        QVERIFY(!retries()->findChild<QTimer *>()->isActive());
        QCOMPARE(fact(StatusFacts::Failing), QString());
    }

    // The current one, else the only one; another than that of the current window only when it is meant.
    void stopGoesToOneDevice()
    {
        const auto told = [this] {
            window->statusBar()->clearMessage();
            trigger(ActionId::StopProcess);
            return message();
        };
        const auto stops
            = [](int com) { return "The device on COM%1 was told to stop its process."_s.arg(com); };
        for (const char *port : {"COM1", "COM2"})
            plug(QLatin1String(port));
        open({"COM1"});
        QCOMPARE(told(), stops(1));
        record(1);
        trigger(ActionId::Recording);
        trigger(ActionId::Recording);
        QCOMPARE(told(), stops(1)); // its recording is over
        choose({"COM1", "COM2"});
        QCOMPARE(told(), "Choose the window of the device whose process is to be stopped."_s);
        record(2);
        QCOMPARE(told(), stops(2));
        QTRY_COMPARE(heard(2), QByteArray("#STOP\r\n"));
        plugged[1]->hangUp();
        QTRY_COMPARE(listened(), QStringList("COM1"));
        for (const char *way : {"not meant", "meant", "gone meanwhile"}) {
            QCOMPARE(told() + told(), QString()); // it is asked once
            QCOMPARE(window->findChildren<QMessageBox *>("stopQuestion"_s).size(), 1);
            const QPointer<QMessageBox> asked = box("stopQuestion");
            QCOMPARE(asked->text(),
                "The current window was fed by COM2, which is not listened on.\n"
                "Stop the process of the device on COM1?"_s);
            QCOMPARE(asked->textFormat(), Qt::PlainText);
            QVERIFY(asked->button(QMessageBox::No) == asked->defaultButton());
            if (*way == 'g') {
                plugged[0]->hangUp();
                QTRY_COMPARE(listened(), QStringList());
            }
            window->statusBar()->clearMessage();
            asked->button(*way == 'n' ? QMessageBox::No : QMessageBox::Yes)->click();
            const QString late = "COM1 is no longer listened on: its device was not told to stop."_s;
            QCOMPARE(message(), *way == 'n' ? QString() : *way == 'm' ? stops(1) : late);
            QTRY_COMPARE(heard(1).count("#STOP\r\n"), *way == 'n' ? 2 : 3);
            QTRY_VERIFY(!asked);
        }
    }

    // Each device needs its time before it takes the next command, in which the program goes on. COM2 is
    // unplugged in its own pause, COM3 before its turn.
    void clocksAreSetInTurn()
    {
        listen(4);
        trigger(ActionId::SetTime);
        QVERIFY(QApplication::overrideCursor());
        trigger(ActionId::SetTime); // ignored while one is under way
        QCOMPARE(message(), "Setting the clock of the device on COM1..."_s);
        auto *pause = part<DeviceCommands>()->findChild<QTimer *>();
        QVERIFY(pause->isActive() && pause->isSingleShot() && pause->timerType() == Qt::PreciseTimer);
        QCOMPARE(pause->interval(), 500);
        plugged[2]->hangUp();
        window->endProcess(Varnel3Data::Completed); // tells at once
        QVERIFY(QApplication::activeModalWidget());
        QApplication::activeModalWidget()->close();
        record(1); // nothing that comes waits for the end of the commands
        QVERIFY(QApplication::overrideCursor());
        QTRY_VERIFY(!listened().contains("COM3"));
        pause->setInterval(50);
        QTRY_COMPARE(message(), "Setting the clock of the device on COM2..."_s);
        plugged[1]->hangUp();
        QTRY_VERIFY(!QApplication::overrideCursor());
        const QRegularExpression both("^#TIME![0-9:]{17}\r\n#BIB_!200\r\n$"_s);
        for (int com : {1, 4})
            QVERIFY2(both.match(QString::fromLatin1(heard(com))).hasMatch(), heard(com));
        allHeard.clear();
        trigger(ActionId::SetTime); // of the current device only
        QTRY_VERIFY(!QApplication::overrideCursor());
        QVERIFY(heard(1).startsWith("#TIME!") && heard(1).endsWith("#BIB_!200\r\n") && heard(4).isEmpty());
        // By itself once a port and run of the program at the start of a process, once at the end.
        auto *host = part<DeskReaderHost>();
        QString claims;
        for (const char *port : {"COM1", "COM2", "COM1"}) {
            for (auto moment : {ReaderHost::ProcessStart, ReaderHost::ProcessEnd, ReaderHost::ProcessStart})
                claims += host->claimClock(QLatin1String(port), moment) ? '+' : '-';
        }
        QCOMPARE(claims, "++-++----"_s);
        trigger(ActionId::SetTime);
        window.reset(); // under way
        QVERIFY(!QApplication::overrideCursor());
    }

    // Of the current window, else the only one, else the one that is chosen in a menu. There is one dialog
    // for each, which asks anew when it is wanted again.
    void remoteControlIsForOneDevice()
    {
        listen(2);
        QAction *command = window->actionSet()[ActionId::RemoteControl];
        const auto offered = [command] {
            QStringList texts{command->text(), command->toolTip(), command->statusTip()};
            texts.removeDuplicates();
            const auto choices = command->menu() ? command->menu()->actions() : QList<QAction *>();
            for (const QAction *choice : choices)
                texts << choice->text();
            return texts.join('|');
        };
        const auto dialogs = [this] { return window->findChildren<DialogRemoteControl *>(); };
        const auto asks = [&](int com, int times) { // that no answer comes is of no interest
            for (QTimer *timer : constant(dialogs().value(0)->findChildren<QTimer *>()))
                timer->stop();
            QTRY_COMPARE(heard(com), QByteArray("#TRYB?\r\n").repeated(times));
            QCOMPARE(dialogs().size(), 1);
        };
        const QString tip = "|Operate the front panel of the charger."_s;
        QCOMPARE(offered(), "Remote control" + tip + "|COM1...|COM2..."); // neither has sent a line yet
        for (const int com : {1, 2}) {
            command->menu()->actions()[com - 1]->trigger();
            asks(com, 1);
            QDialog *const dialog = dialogs().value(0);
            QVERIFY(dialog->isVisible() && !dialog->isModal());
            dialog->close();
            QTRY_VERIFY(dialogs().isEmpty());
        }
        record(2);
        QTRY_COMPARE(offered(), "Remote control" + tip + "|COM1...|COM2 (current window)...");
        for (const int times : {2, 3}) {
            command->trigger();
            asks(2, times);
        }
        choose({"COM1"});
        QCOMPARE(offered(), "Remote control..." + tip);
        QTRY_VERIFY(QApplication::activeModalWidget());
        QApplication::activeModalWidget()->close(); // says that the port is no longer listened on
        QTRY_VERIFY(dialogs().isEmpty());
        command->trigger();
        asks(1, 2);
        choose({});
        QCOMPARE(offered(), "Remote control...|No port is listened on: choose one in the preferences."_s);
        QVERIFY(!command->isEnabled());
    }

private:
    /// Ticks `ports`, and only them, in the preferences.
    void choose(const QStringList &ports)
    {
        whenModal<DialogPreferences>(this, [ports](DialogPreferences *dialog) { tick(dialog, ports); });
        trigger(ActionId::Preferences);
    }

    /// All that stands in the status bar for good, what is listened on last.
    QString facts() const
    {
        QStringList texts;
        for (int kind = 0; kind < StatusFacts::KindCount; ++kind)
            texts.append(fact(StatusFacts::Kind(kind)));
        texts.removeAll(QString());
        return texts.join(" | "_s);
    }

    /// With the message beside it.
    QString bar() const { return message() + " | " + facts(); }
    ListenedPorts *parts() const { return part<ListenedPorts>(); }
    PortRetries *retries() const { return part<PortRetries>(); }
    QString question() const { return box("portQuestion") ? box("portQuestion")->text() : QString(); }
    /// Answers the question whether to remember a port, and waits for its end.
    void answerQuestion(QMessageBox::StandardButton button)
    {
        // It keeps the keys.
        QTRY_VERIFY(box("portQuestion") && QApplication::activeWindow() == box("portQuestion"));
        const QPointer<QMessageBox> open = box("portQuestion");
        open->button(button)->click();
        QTRY_VERIFY(!open);
    }
    QString timeShown() const { return part<DataToolBar>()->findChild<QLabel *>("timeLabel"_s)->text(); }

    /// The process of the device on "COM1" or so is recorded in the current window.
    void record(int com)
    {
        plugged[size_t(com) - 1]->send(Lines::charger(1));
        QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->isLive());
    }

    /// By the device there, so far.
    QByteArray heard(int com) { return allHeard[com] += plugged[size_t(com) - 1]->received(); }

    QMap<int, QByteArray> allHeard;
};

QTEST_MAIN(TestListening)
#include "tst_listening.moc"
