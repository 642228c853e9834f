#include "app/sessionend.h"
#include "desk/windowfiles.h"
#include "displays/datadisplay.h"
#include "support/columns.h"
#include "support/documentrig.h"

#include <QPushButton>

/// What is asked when windows would take records with them, and when none does, with lines arriving
/// meanwhile.
class TestUnsavedWindows : public DocumentRig {
    Q_OBJECT

private slots:
    void initTestCase() override { qApp->installEventFilter(this); }

    void recordsThatNoJournalKeeps_data()
    {
        const auto row
            = columns<QString, bool, QString>({"answers", "closes", "written"}); // records in a.acp and b.acp
        row("window saved", "Save a.acp", true, "10 0");
        row("window, no name", "Save -", false, "0 0");
        row("window discarded", "Discard", true, "0 0");
        row("window, cancelled", "Cancel", false, "0 0");
        row("all saved", "Save a.acp +Save b.acp", true, "20 5");
        row("the first saved", "Save a.acp +Discard", true, "20 0");
        row("all discarded", "Discard +Discard", true, "0 0");
        row("all, cancelled", "Save a.acp +Cancel", false, "0 0");
        row("one name for both", "Save a.acp +Save A.acp ok b.acp", true, "20 5");
    }

    /// '+' is the question about the second window of two, which the program takes with it. While the user
    /// thinks about it, the first one goes on recording: its file has those lines too.
    void recordsThatNoJournalKeeps()
    {
        QFETCH(QString, answers);
        QFETCH(bool, closes);
        const bool program = answers.contains('+');
        VarnelSettings().setValue("journal/enabled", false);
        listen(program ? 2 : 1);
        send(1, 10);
        if (program)
            send(1, 5, 1);
        QVERIFY(journals().isEmpty());
        Answers given;
        for (const QString &word : constant(answers.split(' ')))
            given << answerOf(word);
        trigger(ActionId::Data);
        perform(program ? ActionId::Exit : ActionId::Close, given);
        QTRY_COMPARE(program ? !window->isVisible() : window->mdiChildren().isEmpty(), closes);
        QCOMPARE(unanswered, 0);
        const auto records = [this](const char *name) { return loaded(fixture->path(name)).size(); };
        QTEST(QString("%1 %2").arg(records("a.acp")).arg(records("b.acp")), "written");
        if (closes && !program) { // and each window is asked about
            send(1, 10);
            perform(ActionId::Close, {press(QMessageBox::Cancel)});
            QCOMPARE(unanswered, 0);
        }
        if (closes)
            return;
        QCOMPARE(window->mdiChildren().size(), program ? 2 : 1); // nothing was done
        QVERIFY(window->mdiChildren().first()->hasUnsavedData());
        QVERIFY(part<DataDisplay>()->isVisible());
        send(21, 5);
    }

    /// A file of one record holds no data, be it a journal or saved: there is nothing to be kept.
    void loneRecordIsNotAskedAbout()
    {
        listen(2);
        send(7, 1);
        closeWindow(window->activeMdiChild());
        QVERIFY(!window->actionSet()[ActionId::ReopenClosed]->isEnabled());
        send(7, 1, 1);
        for (const auto &device : plugged)
            device->hangUp();
        QTRY_VERIFY(!window->activeMdiChild()->isLive());
        QTRY_VERIFY(journals().isEmpty());
        answer({reject()});
        QVERIFY(window->close());
        QCOMPARE(unanswered, 1);
    }

    /// A file in the place of the folder: no journal can be made until it goes.
    void asksWhileNotWritten()
    {
        const QString folder = JournalFolder::defaultPath();
        QDir().mkpath(QFileInfo(folder).path());
        QVERIFY(writeFile(folder, ""));
        listen(1);
        send(1, 2); // as few as make a file
        QVERIFY(!fact(StatusFacts::NotWritten).isEmpty());
        answer({press(QMessageBox::Cancel)});
        closeWindow(window->activeMdiChild());
        QCOMPARE(unanswered, 0);
        QVERIFY(QFile::remove(folder));
        QTRY_VERIFY(fact(StatusFacts::NotWritten).isEmpty());
        closeWindow(window->activeMdiChild());
        QVERIFY(window->mdiChildren().isEmpty() && message().startsWith("The recording is kept as "));
        QCOMPARE(loaded(journals().value(0)).size(), 2);
        plugged[0]->send(Lines::charger(3)); // no window is needed, nor time to read it
        QVERIFY(window->close());
        QCOMPARE(loaded(journals().value(0)).size(), 3);
    }

    void sessionEndsWhileAsked_data()
    {
        columns<bool, bool>({"blocked", "atOnce"}); // there is no folder for recordings; the screen dies
        QTest::newRow("beside the journals") << false << false;
        QTest::newRow("at home") << true << false;
        QTest::newRow("at once") << false << true;
        QTest::newRow("at once, at home") << true << true;
    }

    /// Nobody answers any more: both recordings go to files, and the shell closes under its own question. The
    /// end was asked about before.
    void sessionEndsWhileAsked()
    {
        QFETCH(bool, blocked);
        QFETCH(bool, atOnce);
        const QString folder = JournalFolder::defaultPath();
        qputenv("HOME", fixture->path("").toLocal8Bit());
        if (blocked)
            QVERIFY(QDir().mkpath(QFileInfo(folder).path()) && writeFile(folder, ""));
        VarnelSettings().setValue("journal/enabled", false);
        listen(2);
        send(1, 10);
        const QString own
            = QDir::homePath() + '/' + window->filesOfWindows().nameFor(window->activeMdiChild());
        const int number = atOnce ? 2 : 3; // of the first name that is free
        QVERIFY(writeFile(own + ".acp", "") && (atOnce || writeFile(own + "_2.acp", "")));
        const QString rescued = own + QString("_%1.acp").arg(number);
        auto *end = part<SessionEnd>();
        QVERIFY(!QGuiApplication::isFallbackSessionManagementEnabled()); // which closes all unasked
        QVERIFY(QMetaObject::invokeMethod(end, "onCommitData"));
        QCOMPARE(loaded(blocked ? rescued : journals().value(0)).size(), 10);
        send(11, 2);
        send(1, 5, 1);
        perform(ActionId::Exit, {[=](QDialog *dialog) {
            QMessageBox stubborn(QMessageBox::NoIcon, "", "", QMessageBox::Yes | QMessageBox::YesToAll);
            stubborn.setModal(true);
            stubborn.show();
            QEvent quit(QEvent::Quit);
            if (atOnce)
                end->rescueAtOnce();
            else
                blocked ? QMetaObject::invokeMethod(end, "onAboutToQuit")
                        : QCoreApplication::sendEvent(qApp, &quit);
            QVERIFY(stubborn.isVisible() == atOnce && dialog->isVisible() == atOnce);
            dialog->reject();
        }});
        QCOMPARE(std::exchange(quits, 0), blocked || atOnce ? 0 : 1);
        QCOMPARE(window->isVisible(), atOnce);
        const QStringList files = JournalFolder(blocked ? QDir::homePath() : folder).files();
        QCOMPARE(files.size(), blocked ? number + 1 : 2);
        QCOMPARE(loaded(blocked ? rescued : files.filter("COM1").value(0)).size(), 12);
        QCOMPARE(loaded(files.filter("COM2").value(0)).size(), 5);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override // behind the program's own; the test goes on
    {
        quits += event->type() == QEvent::Quit;
        return event->type() == QEvent::Quit;
    }

private:
    int quits = 0;

    Answer answerOf(const QString &word)
    {
        static const QHash<QString, QMessageBox::StandardButton> buttons{{"Save", QMessageBox::Save},
            {"Discard", QMessageBox::Discard}, {"Cancel", QMessageBox::Cancel}, {"ok", QMessageBox::Ok}};
        const bool second = word.startsWith('+');
        const QString plain = word.mid(second);
        if (plain == "-")
            return reject();
        if (!buttons.contains(plain))
            return enter(fixture->path(plain));
        return [=](QDialog *dialog) {
            if (dialog->objectName() == "unsavedRecording") {
                const auto *question = qobject_cast<QMessageBox *>(dialog);
                QVERIFY(question->text().contains(second ? "2 (COM2)" : "1 (COM1)"));
                QVERIFY(question->textFormat() == Qt::PlainText
                    && question->button(QMessageBox::Save) == question->defaultButton());
            }
            if (second)
                send(11, 10);
            press(buttons[plain])(dialog);
        };
    }
};

QTEST_MAIN(TestUnsavedWindows)
#include "tst_unsavedwindows.moc"
