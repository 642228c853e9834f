#include "app/sessionend.h"
#include "displays/datadisplay.h"
#include "journal/journalfolder.h"
#include "graph/mdigraphchild.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <functional>

using Answer = std::function<void(QDialog *)>;

/// What is asked when several windows would take records with them, and when none
/// does, with lines arriving meanwhile.
class TestUnsavedWindows : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }
    void programEndsWithTwoRecordings_data();
    void programEndsWithTwoRecordings();
    void twoRecordingsNeedTwoNames();
    void loneRecordIsNotAskedAbout();
    void sessionEndsWhileAsked_data();
    void sessionEndsWhileAsked();

private:
    void startRecording();
    /// Sends `count` lines with the times from `from` on over one of the two ports and waits for them.
    void send(size_t port, int from, int count);
    /// Gives `answers` to the modal dialogs that open from now on, one each.
    void answer(const QList<Answer> &answers);
    static Answer press(QMessageBox::StandardButton button);
    Answer saveAs(const char *name);
    int linesIn(const char *name) const { return contents(fixture->path(QLatin1String(name))).count('\n'); }
};

void TestUnsavedWindows::init()
{
    setUp();
    plug(QStringLiteral("COM3"));
    plug(QStringLiteral("COM4"));
}

/// Two recordings that no journal keeps.
void TestUnsavedWindows::startRecording()
{
    VarnelSettings().setValue(QStringLiteral("journal/enabled"), false);
    open({plugged[0]->portName(), plugged[1]->portName()});
    send(0, 1, 10);
    send(1, 1, 5);
}

void TestUnsavedWindows::send(size_t port, int from, int count)
{
    for (int i = 0; i < count; ++i)
        plugged[port]->send(Lines::charger(from + i));
    const auto arrived = [&] {
        const auto children = window->mdiChildren();
        return std::any_of(children.begin(), children.end(), [&](const MdiGraphChild *child) {
            return child->portName() == plugged[port]->portName()
                && child->store().records().last().time == from + count - 1;
        });
    };
    QTRY_VERIFY(arrived());
}

void TestUnsavedWindows::answer(const QList<Answer> &answers)
{
    if (answers.isEmpty())
        return;
    whenModal<QDialog>(window.get(), [this, answers](QDialog *dialog) {
        answers.first()(dialog);
        answer(answers.mid(1)); // once the first is gone
    });
}

Answer TestUnsavedWindows::press(QMessageBox::StandardButton button)
{
    return [button](QDialog *dialog) {
        auto *question = qobject_cast<QMessageBox *>(dialog);
        QVERIFY(question && question->objectName() == QLatin1String("unsavedRecording"));
        question->button(button)->click();
    };
}

Answer TestUnsavedWindows::saveAs(const char *name)
{
    const QString path = fixture->path(QLatin1String(name));
    return [path](QDialog *dialog) { enterName(qobject_cast<QFileDialog *>(dialog), path); };
}

void TestUnsavedWindows::programEndsWithTwoRecordings_data()
{
    // second: answer for the second window
    columns<int, bool>({"second", "closes"});
    QTest::newRow("save both") << int(QMessageBox::Save) << true;
    QTest::newRow("save one") << int(QMessageBox::Discard) << true;
    QTest::newRow("cancelled") << int(QMessageBox::Cancel) << false;
}

/// While the user thinks about the second window, the first one goes on
/// recording: its file has those lines too.
void TestUnsavedWindows::programEndsWithTwoRecordings()
{
    QFETCH(int, second);
    QFETCH(bool, closes);
    startRecording();
    const Answer secondAnswer = press(QMessageBox::StandardButton(second));
    QList<Answer> answers = {press(QMessageBox::Save), saveAs("first.acp"), [&](QDialog *dialog) {
                                 send(0, 11, 10);
                                 secondAnswer(dialog);
                             }};
    if (second == QMessageBox::Save)
        answers.append(saveAs("second.acp"));
    answer(answers);
    trigger(ActionId::Data);
    trigger(ActionId::Exit);
    QTRY_COMPARE(window->isVisible(), !closes);
    QCOMPARE(linesIn("first.acp"), closes ? 20 : 0);
    QCOMPARE(linesIn("second.acp"), second == QMessageBox::Save ? 5 : 0);
    if (closes)
        return;
    QCOMPARE(window->mdiChildren().size(), 2);
    QVERIFY(window->mdiChildren().first()->hasUnsavedData()); // nothing was done
    QVERIFY(window->findChild<DataDisplay *>()->isVisible());
    send(0, 21, 1);
}

void TestUnsavedWindows::twoRecordingsNeedTwoNames()
{
    startRecording();
    answer({press(QMessageBox::Save), saveAs("first.acp"), press(QMessageBox::Save), saveAs("first.acp"),
        [](QDialog *warning) { warning->reject(); }, saveAs("second.acp")});
    window->close();
    QTRY_VERIFY(!window->isVisible());
    QCOMPARE(linesIn("first.acp"), 10);
    QCOMPARE(linesIn("second.acp"), 5);
}

/// A file of one record holds no data, be it a journal or saved: there is nothing to be kept.
void TestUnsavedWindows::loneRecordIsNotAskedAbout()
{
    open({plugged[0]->portName()});
    send(0, 7, 1);
    plugged[0]->hangUp();
    QTRY_VERIFY(!window->activeMdiChild()->isLive());
    QVERIFY(JournalFolder(JournalFolder::defaultPath()).files().isEmpty());
    bool asked = false;
    answer({[&](QDialog *dialog) {
        asked = true;
        dialog->reject();
    }});
    QVERIFY(window->close());
    QVERIFY(!asked);
}

void TestUnsavedWindows::sessionEndsWhileAsked_data()
{
    columns<bool>({"blocked"}); // there is no folder for recordings
    QTest::newRow("beside the journals") << false;
    QTest::newRow("at home") << true;
}

/// Nobody answers any more: both recordings go to files, and the shell closes under its own question.
void TestUnsavedWindows::sessionEndsWhileAsked()
{
    QFETCH(bool, blocked);
    const QString folder = JournalFolder::defaultPath();
    qputenv("HOME", fixture->path(QString()).toLocal8Bit());
    if (blocked)
        QVERIFY(QDir().mkpath(QFileInfo(folder).path()) && writeFile(folder, QByteArray()));
    startRecording();
    answer({[this](QDialog *) { window->findChild<SessionEnd *>()->closeShell(); }});
    window->close();
    QVERIFY(!window->isVisible());
    const QStringList files = JournalFolder(blocked ? QDir::homePath() : folder).files();
    QCOMPARE(files.size(), 2);
    QCOMPARE(loaded(files.filter(QStringLiteral("COM3")).value(0)).size(), 10);
    QCOMPARE(loaded(files.filter(QStringLiteral("COM4")).value(0)).size(), 5);
}

QTEST_MAIN(TestUnsavedWindows)
#include "tst_unsavedwindows.moc"
