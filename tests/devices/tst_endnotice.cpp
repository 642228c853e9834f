#include "devices/endnotice.h"

#include "graph/mdigraphchild.h"
#include "machine/soundplayer.h"
#include "resources/resources.h"
#include "support/columns.h"
#include "support/lines.h"
#include "support/shellrig.h"

#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRegularExpression>
#include <QTimer>

namespace {

/// Notes what would be heard.
class NotingPlayer : public SoundPlayer {
public:
    bool hasOutput() const override { return output; }
    void play(const QString &file) override
    {
        played.append(QFileInfo(file).fileName());
        playing = true;
    }
    void stop() override { playing = false; }

    bool output = true;
    bool playing = false;
    QStringList played;
};

QMessageBox *openBox()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

} // namespace

/// The box that tells the end of a process, above the program's window; what it sounds like is noted.
class TestEndNotice : public QObject, private ShellRig {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup() { tearDown(); }
    void boxSaysHowItEnded_data();
    void boxSaysHowItEnded();
    void soundsFollow_data();
    void soundsFollow();
    void deviceIsFreed_data();
    void deviceIsFreed();
    void onlyMinimisedIsLifted_data();
    void onlyMinimisedIsLifted();
    void windowMayGoUnderTheBox();
    void factsAreWhatTheDeviceTells();
    void everyEndIsTold();

private:
    /// As the rig does, and has a notice of its own above the window.
    void listen(int ports);
    static void closeBox()
    {
        QVERIFY(openBox());
        openBox()->close();
    }
    QTimer *soundTimer() const { return notice->findChild<QTimer *>(); }

    std::unique_ptr<NotingPlayer> player;
    QPointer<EndNotice> notice;
};

void TestEndNotice::init()
{
    setUp();
    player = std::make_unique<NotingPlayer>();
}

void TestEndNotice::listen(int ports)
{
    ShellRig::listen(ports);
    notice = new EndNotice(window.get(), &window->listenedPorts(), player.get(), fixture->path(QString()));
}

void TestEndNotice::boxSaysHowItEnded_data()
{
    columns<int, QStringList>({"kind", "words"});
    QTest::newRow("error") << 0
                           << QStringList{"Error", "Error in process !", ":/Icons/error.png", "error.wav"};
    QTest::newRow("aborted") << 1
                             << QStringList{"Aborted", "Process aborted by user.", ":/Icons/cancel.png",
                                    "aborted.wav"};
    QTest::newRow("completed") << 2
                               << QStringList{"End", "Process completed.", ":/Icons/finish.png", "end.wav"};
    QTest::newRow("unknown") << 3 << QStringList{"", "", "", ""};
    QTest::newRow("negative") << -1 << QStringList{"", "", "", ""};
}

void TestEndNotice::boxSaysHowItEnded()
{
    QFETCH(int, kind);
    QFETCH(QStringList, words);
    listen(0);
    notice->show(kind);
    notice->show(Varnel3Data::Aborted); // one at a time
    QMessageBox *box = openBox();
    QVERIFY(box && notice->isOpen());
    QCOMPARE(box->windowTitle(), words[0]);
    QCOMPARE(box->text(), words[1]);
    QCOMPARE(box->iconPixmap().toImage(), QPixmap(words[2]).toImage());
    QVERIFY(box->windowFlags() & Qt::WindowStaysOnTopHint);
    QCOMPARE(box->windowModality(), Qt::ApplicationModal);
    QCOMPARE(box->standardButtons(), QMessageBox::Close);
    QVERIFY(player->played.isEmpty()); // the box never waits for it
    QCoreApplication::processEvents();
    QCOMPARE(player->played, words[3].isEmpty() ? QStringList() : QStringList(words[3]));
    closeBox();
    QVERIFY(!openBox() && !notice->isOpen());
}

void TestEndNotice::soundsFollow_data()
{
    columns<bool, bool, bool>({"output", "wanted", "both"});
    QTest::newRow("both") << true << true << true;
    QTest::newRow("switched off") << true << false << false;
    QTest::newRow("no device") << false << true << false;
}

void TestEndNotice::soundsFollow()
{
    QFETCH(bool, output);
    QFETCH(bool, wanted);
    QFETCH(bool, both);
    listen(0);
    VarnelSettings().setValue(QStringLiteral("/mp3/user_wave"), wanted);
    player->output = output;
    player->playing = true; // of an earlier box
    notice->show(Varnel3Data::Completed);
    QCoreApplication::processEvents();
    const QStringList first = output ? QStringList(QStringLiteral("end.wav")) : QStringList();
    QCOMPARE(player->played, first);
    QCOMPARE(soundTimer()->isActive(), both);
    if (both) {
        QVERIFY(soundTimer()->isSingleShot());
        QCOMPARE(soundTimer()->interval(), 3500);
        soundTimer()->start(1);
        QTRY_COMPARE(player->played, first + QStringList(QStringLiteral("v3_mp3.wav")));
        soundTimer()->start();
    }
    closeBox();
    QVERIFY(!player->playing && !soundTimer()->isActive());
    const int heard = player->played.size();
    notice->playUserSound();
    QCOMPARE(player->played.size(), heard);
    notice->show(Varnel3Data::Aborted);
    notice->dismiss();
    QVERIFY(!openBox() && !player->playing);
    QCoreApplication::processEvents();
    QVERIFY(player->played.size() == heard && !soundTimer()->isActive());
}

void TestEndNotice::deviceIsFreed_data()
{
    columns<int, bool, bool, QByteArray>({"ports", "recording", "dismissed", "heard"});
    QTest::newRow("only device, waiting") << 1 << false << false << QByteArray("#STOP\r\n");
    QTest::newRow("only device, in its next process") << 1 << true << false << QByteArray();
    QTest::newRow("only device, which takes the box away") << 1 << false << true << QByteArray();
    QTest::newRow("one of two devices") << 2 << false << false << QByteArray();
}

void TestEndNotice::deviceIsFreed()
{
    QFETCH(int, ports);
    QFETCH(bool, recording);
    QFETCH(bool, dismissed);
    QFETCH(QByteArray, heard);
    listen(ports);
    if (recording) {
        plugged[0]->send(Lines::charger(1));
        QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->isLive());
    }
    notice->show(Varnel3Data::Completed);
    dismissed ? notice->dismiss() : closeBox();
    QByteArray all;
    QTRY_COMPARE(all += plugged[0]->received(), heard);
}

void TestEndNotice::onlyMinimisedIsLifted_data()
{
    columns<int, int>({"before", "after"});
    const int maximised = Qt::WindowMaximized;
    QTest::newRow("normal") << int(Qt::WindowNoState) << int(Qt::WindowNoState);
    QTest::newRow("maximised") << maximised << maximised;
    QTest::newRow("minimised") << int(Qt::WindowMinimized) << int(Qt::WindowNoState);
    QTest::newRow("both") << (maximised | Qt::WindowMinimized) << maximised;
}

void TestEndNotice::onlyMinimisedIsLifted()
{
    QFETCH(int, before);
    listen(0);
    window->setWindowState(Qt::WindowStates(before));
    notice->show(Varnel3Data::Completed);
    QTEST(int(window->windowState()), "after");
    closeBox();
    window->close();
    notice->show(Varnel3Data::Completed); // the program ends
    QVERIFY(!openBox() && !window->isVisible());
}

void TestEndNotice::windowMayGoUnderTheBox()
{
    listen(0);
    notice->show(Varnel3Data::Completed);
    window.reset();
    QVERIFY(notice.isNull() && !openBox());
    QWidget fresh; // which it brings to sight
    auto *early = new EndNotice(&fresh, nullptr, player.get(), QString());
    early->show(Varnel3Data::Completed);
    QVERIFY(early->isOpen() && fresh.isVisible());
    early->dismiss();
}

void TestEndNotice::factsAreWhatTheDeviceTells()
{
    EndedProcess process;
    process.last.setTime(61);
    QCOMPARE(process.facts(), QString());
    process.portName = QStringLiteral("COM2");
    QCOMPARE(process.facts(), QStringLiteral("COM2, 0.000 Ah in 00:01:01"));
    process.last.cellCount = 1;
    process.last.cellType = 1;
    process.last.setTime(0);
    QCOMPARE(process.facts(), QStringLiteral("COM2, 1 x NiMh"));
}

// The box is about the first; the second ends under it; the third begins and takes it away.
void TestEndNotice::everyEndIsTold()
{
    listen(3);
    const auto completed = [this] { return fact(StatusFacts::Completed); };
    for (size_t port : {0, 1}) {
        plugged[port]->send(Lines::charger(3423));
        QTRY_VERIFY(
            window->activeMdiChild() && window->activeMdiChild()->portName() == plugged[port]->portName());
    }
    plugged[0]->send(Lines::charger(3424, 'E').repeated(2)); // which is one end
    QTRY_VERIFY(openBox());
    QCOMPARE(openBox()->text(), QStringLiteral("Process completed."));
    QCOMPARE(openBox()->informativeText(), QStringLiteral("COM1, 6 x LiPo, 0.150 Ah in 00:57:04"));
    const auto *facts = openBox()->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"));
    QVERIFY(facts && facts->textFormat() == Qt::PlainText && !facts->wordWrap());
    plugged[1]->send(Lines::charger(3424, 'S'));
    QTRY_VERIFY(fact(StatusFacts::Failed)
                    .contains(QRegularExpression(QStringLiteral("^Error: COM2 \\d\\d:\\d\\d$"))));
    QVERIFY(openBox()->informativeText().startsWith(QLatin1String("COM1")));
    QCOMPARE(completed(), QString());
    plugged[2]->send(Lines::charger(1));
    QTRY_VERIFY(completed().startsWith(QLatin1String("Completed: COM1 ")));
    QVERIFY(!openBox());
    const QList<MdiGraphChild *> children = window->mdiChildren();
    children[0]->parentWidget()->close();
    QTRY_COMPARE(completed(), QString());
    QVERIFY(!fact(StatusFacts::Failed).isEmpty());
    window->findChild<QMdiArea *>()->setActiveSubWindow(
        qobject_cast<QMdiSubWindow *>(children[1]->parentWidget()));
    QCOMPARE(fact(StatusFacts::Failed), QString());
    // One without a window is named until the next process of its port.
    children[2]->parentWidget()->close();
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    plugged[1]->send(Lines::charger(1) + Lines::charger(2, 'M'));
    QTRY_VERIFY(openBox());
    plugged[2]->send(Lines::charger(2, 'E'));
    QTRY_VERIFY(completed().startsWith(QLatin1String("Completed: COM3 ")));
    closeBox();
    QVERIFY(!completed().isEmpty());
    QCOMPARE(fact(StatusFacts::Aborted), QString()); // the user has closed its box
    plugged[2]->send(Lines::charger(1));
    QTRY_COMPARE(completed(), QString());
    // Its own next process takes a box away, and nothing is left to tell.
    plugged[2]->send(Lines::charger(2, 'E'));
    QTRY_VERIFY(openBox());
    plugged[2]->send(Lines::charger(1));
    QTRY_VERIFY(!openBox());
    QCOMPARE(completed(), QString());
    for (const auto &line : plugged)
        QCOMPARE(line->received(), QByteArray());
}

QTEST_MAIN(TestEndNotice)
#include "tst_endnotice.moc"
