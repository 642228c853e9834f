#include "devices/endnotice.h"

#include "devices/unseenends.h"
#include "graph/mdigraphchild.h"
#include "machine/soundplayer.h"
#include "support/lines.h"
#include "support/literal.h"
#include "support/shellrig.h"

#include <QLabel>
#include <QtTest>

namespace {

/// Notes what would be heard.
class NotingPlayer : public SoundPlayer {
public:
    bool hasOutput() const override { return output; }
    void play(const QString &file) override
    {
        played.append((playing ? "over another: " : "") + QFileInfo(file).fileName());
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
class TestEndNotice : public ShellRig {
    Q_OBJECT
private slots:
    void init() override
    {
        ShellRig::init();
        player = std::make_unique<NotingPlayer>();
    }

    void boxSaysHowItEnded()
    {
        // whether sounds are heard and the user's is wanted; title, text and icon, and what is heard
        const std::tuple<int, bool, bool, QString> rows[]
            = {{0, true, false, "Error|Error in process !|error|error.wav"},
                {1, true, false, "Aborted|Process aborted by user.|cancel|aborted.wav"},
                {2, true, true, "End|Process completed.|finish|end.wav|v3_mp3.wav"},
                {2, false, true, "End|Process completed.|finish"}, {3, true, false, "||"}};
        for (const auto &[kind, output, wanted, words] : rows) {
            init();
            const QStringList said = words.split('|');
            listen(0);
            if (!wanted) // it is usual
                VarnelSettings().setValue("/mp3/user_wave"_s, wanted);
            player->output = output;
            player->playing = true; // of an earlier box
            notice->show(kind);
            notice->show(Varnel3Data::Aborted); // one at a time
            const QPointer<QMessageBox> box = openBox();
            QVERIFY(box && notice->isOpen());
            QCOMPARE(QStringList({box->windowTitle(), box->text()}), said.mid(0, 2));
            QCOMPARE(box->iconPixmap().toImage(), QPixmap(":/Icons/%1.png"_s.arg(said[2])).toImage());
            QVERIFY(box->windowFlags() & Qt::WindowStaysOnTopHint);
            QCOMPARE(box->windowModality(), Qt::ApplicationModal);
            QCOMPARE(box->standardButtons(), QMessageBox::Close);
            QVERIFY(player->played.isEmpty()); // the box never waits for it
            QCoreApplication::processEvents();
            QCOMPARE(player->played, said.mid(3, 1));
            auto *second = notice->findChild<QTimer *>();
            QCOMPARE(second->isActive(), said.size() > 4);
            QVERIFY(second->isSingleShot() && second->interval() == 3500);
            if (second->isActive()) {
                second->start(1);
                QTRY_COMPARE(player->played, said.mid(3));
                second->start();
            }
            closeBox();
            QVERIFY(!openBox() && !notice->isOpen() && !player->playing && !second->isActive());
            QTRY_VERIFY(!box);
            notice->playUserSound();
            notice->show(Varnel3Data::Aborted);
            player->playing = true;
            notice->dismiss();
            QCoreApplication::processEvents();
            QVERIFY(!openBox() && !player->playing && !second->isActive());
            QCOMPARE(player->played, said.mid(3));
            cleanup();
        }
    }

    // The only one, by the user who closes the box; neither by itself nor in its next process.
    void deviceIsFreed()
    {
        QByteArray heard;
        listen(1);
        notice->show(Varnel3Data::Completed);
        notice->dismiss();
        notice->show(Varnel3Data::Completed);
        closeBox();
        QTRY_COMPARE(heard += plugged[0]->received(), QByteArray("#STOP\r\n"));
        plugged[0]->send(Lines::charger(1));
        QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->isLive());
        notice->show(Varnel3Data::Completed);
        closeBox();
        window->stopRecording(); // delivers what was to be sent
        QCOMPARE(plugged[0]->received(), QByteArray());
    }

    // Only what is minimised is lifted, and nothing once the program ends.
    void windowIsBroughtToSight()
    {
        listen(0);
        for (int state : {0, int(Qt::WindowMaximized)}) {
            for (int minimised : {0, int(Qt::WindowMinimized)}) {
                window->setWindowState(Qt::WindowStates(state | minimised));
                notice->show(Varnel3Data::Completed);
                QCOMPARE(int(window->windowState()), state);
                closeBox();
            }
        }
        window->close();
        notice->show(Varnel3Data::Completed);
        QVERIFY(!openBox() && !window->isVisible());
        window->show();
        notice->show(Varnel3Data::Completed);
        window.reset(); // under the box
        QVERIFY(notice.isNull() && !openBox());
        QWidget fresh; // which was never shown
        auto *early = new EndNotice(&fresh, nullptr, player.get(), QString());
        early->show(Varnel3Data::Completed);
        QVERIFY(early->isOpen() && fresh.isVisible());
        early->dismiss();
    }

    void factsAreWhatTheDeviceTells()
    {
        EndedProcess process;
        process.last.setTime(1);
        QCOMPARE(process.facts(), QString());
        process.portName = "COM2"_s;
        QCOMPARE(process.facts(), "COM2, 0.000 Ah in 00:00:01"_s);
        process.last.cellCount = 1;
        process.last.cellType = 1;
        process.last.setTime(0);
        QCOMPARE(process.facts(), "COM2, 1 x NiMh"_s);
        listen(0);
        process.at = QDateTime({2026, 1, 2}, {3, 4, 5});
        for (const char *port : {"COM1", "COM2", "COM2", ""}) { // none of which has a window
            for (const int end : {int(Varnel3Data::Completed), -1, 3}) {
                process.portName = QLatin1String(port);
                process.end = end;
                part<UnseenEnds>()->add(process);
            }
        }
        QCOMPARE(fact(StatusFacts::Completed), "Completed: COM1 03:04, COM2 03:04"_s);
    }

    // The box is about the first; the second ends under it; the third begins and takes it away.
    void everyEndIsTold()
    {
        const auto unseen = [this] {
            QStringList texts;
            for (const auto kind : {StatusFacts::Failed, StatusFacts::Aborted, StatusFacts::Completed})
                texts.append(fact(kind));
            texts.removeAll(QString());
            return texts.join(" | "_s).replace(QRegularExpression("\\d\\d:\\d\\d"_s), "hh:mm"_s);
        };
        listen(3);
        for (size_t port : {0, 1}) {
            plugged[port]->send(Lines::charger(3423));
            QTRY_COMPARE(window->mdiChildren().size(), int(port) + 1);
        }
        plugged[0]->send(Lines::charger(3424, 'E').repeated(2)); // which is one end
        QTRY_VERIFY(openBox());
        QCOMPARE(openBox()->text(), "Process completed."_s);
        QCOMPARE(openBox()->informativeText(), "COM1, 6 x LiPo, 0.150 Ah in 00:57:04"_s);
        const auto *facts = openBox()->findChild<QLabel *>("qt_msgbox_informativelabel"_s);
        QVERIFY(facts && facts->textFormat() == Qt::PlainText && !facts->wordWrap());
        plugged[1]->send(Lines::charger(3424, 'S'));
        QTRY_COMPARE(unseen(), "Error: COM2 hh:mm"_s);
        QVERIFY(openBox()->informativeText().startsWith("COM1"_s));
        plugged[2]->send(Lines::charger(1));
        QTRY_COMPARE(unseen(), "Error: COM2 hh:mm | Completed: COM1 hh:mm"_s);
        QVERIFY(!openBox());
        const QList<MdiGraphChild *> children = window->mdiChildren();
        children[0]->parentWidget()->close();
        QTRY_COMPARE(unseen(), "Error: COM2 hh:mm"_s);
        QWidget *second = children[1]->parentWidget();
        QVERIFY(QMetaObject::invokeMethod(
            window.get(), "setActiveSubWindow", QGenericArgument("QWidget*", &second)));
        QCOMPARE(unseen(), QString());
        // One without a window is named until the next process of its port.
        children[2]->parentWidget()->close();
        QTRY_COMPARE(window->mdiChildren().size(), 1);
        plugged[1]->send(Lines::charger(1) + Lines::charger(2, 'M'));
        QTRY_VERIFY(openBox());
        plugged[2]->send(Lines::charger(2, 'E'));
        QTRY_COMPARE(unseen(), "Completed: COM3 hh:mm"_s);
        closeBox();
        QCOMPARE(unseen(), "Completed: COM3 hh:mm"_s); // that of the box was seen
        plugged[2]->send(Lines::charger(1));
        QTRY_COMPARE(unseen(), QString());
        // Its own next process takes a box away, and nothing is left to tell.
        plugged[2]->send(Lines::charger(2, 'E'));
        QTRY_VERIFY(openBox());
        plugged[2]->send(Lines::charger(1));
        QTRY_VERIFY(!openBox());
        QCOMPARE(unseen(), QString());
        // What ends under a box in the current window is seen once that is closed.
        plugged[1]->send(Lines::charger(1));
        QTRY_COMPARE(window->activeMdiChild()->portName(), "COM2"_s);
        plugged[2]->send(Lines::charger(2, 'E'));
        QTRY_VERIFY(openBox());
        plugged[1]->send(Lines::charger(2, 'S'));
        QTRY_COMPARE(unseen(), "Error: COM2 hh:mm"_s);
        closeBox();
        QCOMPARE(unseen(), QString());
        for (const auto &line : plugged)
            QCOMPARE(line->received(), QByteArray());
    }

private:
    /// As the rig does, and has a notice of its own above the window.
    void listen(int ports)
    {
        ShellRig::listen(ports);
        notice
            = new EndNotice(window.get(), &window->listenedPorts(), player.get(), fixture->path(QString()));
    }
    static void closeBox()
    {
        QVERIFY(openBox());
        openBox()->close();
    }

    std::unique_ptr<NotingPlayer> player;
    QPointer<EndNotice> notice;
};

QTEST_MAIN(TestEndNotice)
#include "tst_endnotice.moc"
