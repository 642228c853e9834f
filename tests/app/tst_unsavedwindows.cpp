#include "app/mainwindow.h"
#include "files/journalfolder.h"
#include "graph/mdigraphchild.h"
#include "settings/varnelsettings.h"
#include "support/lines.h"
#include "support/ptypair.h"
#include "support/shellfixture.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>

using Answer = std::function<void(QDialog *)>;
Q_DECLARE_METATYPE(Answer)

/// What is asked when several windows would take records with them, and when none does, with lines arriving meanwhile.
class TestUnsavedWindows : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void programEndsWithTwoRecordings_data();
    void programEndsWithTwoRecordings();
    void twoRecordingsNeedTwoNames();
    void loneRecordIsNotAskedAbout();

private:
    void start();
    void send(const QString &port, int from, int count);
    /// Gives `answers` to the modal dialogs that open from now on, one each.
    void answer(const QList<Answer> &answers);
    Answer press(QMessageBox::StandardButton button);
    Answer saveAs(const QString &name);
    int linesIn(const QString &name) const;

    std::unique_ptr<ShellFixture> fixture;
    std::map<QString, std::unique_ptr<PtyPair>> devices;
    std::unique_ptr<MainWindow> window;
};

void TestUnsavedWindows::init()
{
    fixture = std::make_unique<ShellFixture>();
    const QStringList ports = {QStringLiteral("COM3"), QStringLiteral("COM4")};
    for (const QString &port : ports)
        devices[port] = std::make_unique<PtyPair>(fixture->portFolder(), port);
    VarnelSettings().setPorts(ports);
}

void TestUnsavedWindows::cleanup()
{
    window.reset();
    devices.clear();
    fixture.reset();
}

void TestUnsavedWindows::start()
{
    window = std::make_unique<MainWindow>();
    window->show();
    QTRY_VERIFY(
        window->statusBar()->currentMessage().startsWith(QStringLiteral("Start listening on port(s)")));
}

void TestUnsavedWindows::send(const QString &port, int from, int count)
{
    for (int i = 0; i < count; ++i)
        devices[port]->send(Lines::charger(from + i));
    const auto arrived = [&] {
        const auto children = window->mdiChildren();
        return std::any_of(children.begin(), children.end(), [&](const MdiGraphChild *child) {
            return child->fileName() == port && child->store().records().last().time == from + count - 1;
        });
    };
    QTRY_VERIFY(arrived());
}

void TestUnsavedWindows::answer(const QList<Answer> &answers)
{
    auto *timer = new QTimer(window.get());
    const auto left = std::make_shared<QList<Answer>>(answers);
    connect(timer, &QTimer::timeout, timer, [timer, left] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        timer->stop(); // an answer may take its time
        left->takeFirst()(dialog);
        if (!left->isEmpty())
            timer->start();
    });
    timer->start(30);
}

Answer TestUnsavedWindows::press(QMessageBox::StandardButton button)
{
    return [button](QDialog *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        QVERIFY(box && box->objectName() == QLatin1String("unsavedRecording"));
        box->button(button)->click();
    };
}

Answer TestUnsavedWindows::saveAs(const QString &name)
{
    const QString path = fixture->path(name);
    return [path](QDialog *dialog) {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        QVERIFY(edit);
        edit->setText(path);
        dialog->accept();
    };
}

int TestUnsavedWindows::linesIn(const QString &name) const
{
    QFile file(fixture->path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().count('\n') : 0;
}

void TestUnsavedWindows::programEndsWithTwoRecordings_data()
{
    QTest::addColumn<int>("second"); // answer for the second window
    QTest::addColumn<bool>("closes");
    QTest::newRow("save both") << int(QMessageBox::Save) << true;
    QTest::newRow("save one") << int(QMessageBox::Discard) << true;
    QTest::newRow("cancelled") << int(QMessageBox::Cancel) << false;
}

/// While the user thinks about the second window, the first one goes on recording: its file has those lines too.
void TestUnsavedWindows::programEndsWithTwoRecordings()
{
    QFETCH(int, second);
    QFETCH(bool, closes);
    VarnelSettings().setValue(QStringLiteral("journal/enabled"), false);
    start();
    send(QStringLiteral("COM3"), 1, 10);
    send(QStringLiteral("COM4"), 1, 5);
    const Answer secondAnswer = press(QMessageBox::StandardButton(second));
    QList<Answer> answers
        = {press(QMessageBox::Save), saveAs(QStringLiteral("first.acp")), [&](QDialog *dialog) {
               send(QStringLiteral("COM3"), 11, 10);
               secondAnswer(dialog);
           }};
    if (second == QMessageBox::Save)
        answers.append(saveAs(QStringLiteral("second.acp")));
    answer(answers);
    QCOMPARE(window->close(), closes);
    QCOMPARE(linesIn(QStringLiteral("first.acp")), closes ? 20 : 0);
    QCOMPARE(linesIn(QStringLiteral("second.acp")), second == QMessageBox::Save ? 5 : 0);
    if (closes)
        return;
    QCOMPARE(window->mdiChildren().size(), 2);
    QVERIFY(window->mdiChildren().first()->hasUnsavedData()); // nothing was done
    send(QStringLiteral("COM3"), 21, 1);
}

void TestUnsavedWindows::twoRecordingsNeedTwoNames()
{
    VarnelSettings().setValue(QStringLiteral("journal/enabled"), false);
    start();
    send(QStringLiteral("COM3"), 1, 10);
    send(QStringLiteral("COM4"), 1, 5);
    answer({press(QMessageBox::Save), saveAs(QStringLiteral("first.acp")), press(QMessageBox::Save),
        saveAs(QStringLiteral("first.acp")), [](QDialog *warning) { warning->reject(); },
        saveAs(QStringLiteral("second.acp"))});
    QVERIFY(window->close());
    QCOMPARE(linesIn(QStringLiteral("first.acp")), 10);
    QCOMPARE(linesIn(QStringLiteral("second.acp")), 5);
}

/// A file of one record holds no data, be it a journal or saved: there is nothing to be kept.
void TestUnsavedWindows::loneRecordIsNotAskedAbout()
{
    start();
    send(QStringLiteral("COM3"), 7, 1);
    devices[QStringLiteral("COM3")]->hangUp();
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

QTEST_MAIN(TestUnsavedWindows)
#include "tst_unsavedwindows.moc"
