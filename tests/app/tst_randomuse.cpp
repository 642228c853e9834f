#include "app/actionset.h"
#include "app/mainwindow.h"
#include "devices/listenedports.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"
#include "simulator/rack.h"
#include "support/shellfixture.h"
#include "support/warningcollector.h"

#include <QAbstractButton>
#include <QAction>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest>

#include <cstdio>
#include <functional>

namespace {

// Sanitized programs take several times as long for everything.
#ifdef __SANITIZE_ADDRESS__
constexpr int slowness = 8;
#else
constexpr int slowness = 1;
#endif
constexpr int longestWait = 4000 * slowness; // ms; a command may wait half a second for a full line
constexpr int pace = 4; // ms between steps
constexpr int mostGraphs = 10; // then some are closed

// What these say is a mistake of the program, whatever the user does.
constexpr char mistakes[]
    = "QObject::|QMetaObject::|QPainter|QWidget::|QLayout|QTimer|QSocketNotifier|QAction::|QMutex|"
      "QCoreApplication::|QPixmap|QFont::|QString::arg|QIODevice|QFile";

int numberFrom(const char *variable, int usual)
{
    bool good = false;
    const int number = qEnvironmentVariableIntValue(variable, &good);
    return good ? number : usual;
}

// Runs `work` from the event loop, so that a dialog opened by it holds up nothing, if `object` is still
// there.
template <typename Object, typename Work>
void later(Object *object, Work work)
{
    if (object)
        QMetaObject::invokeMethod(
            object, [object, work] { work(object); }, Qt::QueuedConnection);
}

} // namespace

/// The whole program, six devices, and somebody who does anything at any moment: clicks, drags, types, opens,
/// closes, resizes, changes what is listened on, pulls adapters. Steps come from a timer, so that they go on
/// while a box or a dialog waits in an event loop of its own. VARNEL_SEED and VARNEL_SECONDS choose the
/// course and its length, VARNEL_STEPS prints each step. The same seed gives the same choices; what they meet
/// depends on time.
class TestRandomUse : public QObject {
    Q_OBJECT

public slots:

    // What always holds, whatever has just been done.
    void look()
    {
        if (!shown)
            return;
        const auto children = shown->mdiChildren();
        const auto windows = shown->findChild<QMdiArea *>()->subWindowList();
        for (const MdiGraphChild *child : children) {
            records = qMax(records, child->store().size());
            const auto holds = [child](const QMdiSubWindow *window) { return window->widget() == child; };
            if (std::none_of(windows.begin(), windows.end(), holds))
                broken.append(QStringLiteral("a graph window that stands nowhere"));
        }
        if (shown->activeMdiChild() && !children.contains(shown->activeMdiChild()))
            broken.append(QStringLiteral("a current window that is closed"));
        QStringList ports = shown->listenedPorts().portNames();
        if (ports.removeDuplicates() > 0)
            broken.append(QStringLiteral("a port that is listened on twice"));
    }

    void step()
    {
        if (!shown || !shown->isVisible())
            return;
        longest = qMax(longest, sinceStep.restart());
        ++steps;
        const QWidgetList all = QApplication::topLevelWidgets();
        for (QWidget *one : all) { // dialogs that could print or lose files are not left to chance
            const bool delicate = qobject_cast<QFileDialog *>(one) || qobject_cast<QPrintDialog *>(one);
            if (delicate && one->isVisible())
                return answer(qobject_cast<QDialog *>(one));
        }
        if (below(700) == 0) { // as the session does when the user logs out
            note(QStringLiteral("close the program"));
            return later(qApp, [](QApplication *) { QApplication::closeAllWindows(); });
        }
        static const QVector<QPair<int, void (TestRandomUse::*)()>> choices // the share of each
            = {{40, &TestRandomUse::useMouse}, {12, &TestRandomUse::type}, {16, &TestRandomUse::command},
                {11, &TestRandomUse::reshape}, {8, &TestRandomUse::closeWindow}, {12, &TestRandomUse::device},
                {1, &TestRandomUse::choosePorts}};
        int left = below(100);
        for (const auto &choice : choices) {
            left -= choice.first;
            if (left < 0)
                return (this->*choice.second)();
        }
    }
    /// Nobody is to open a browser.
    void ignore(const QUrl &) { }

private slots:

    void anythingAtAnyMoment()
    {
        const int seconds = numberFrom("VARNEL_SECONDS", 5);
        const auto seed
            = quint32(numberFrom("VARNEL_SEED", int(QDateTime::currentMSecsSinceEpoch() % 1000000)));
        std::fprintf(stderr, "VARNEL_SEED=%u VARNEL_SECONDS=%d\n", seed, seconds);
        random.seed(seed);
        initResources();
        for (const char *scheme : {"http", "https", "mailto"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "ignore");
        sim::RunSettings run;
        run.folder = fixture.portFolder();
        run.speed = 100;
        run.seed = seed;
        rack = std::make_unique<sim::Rack>(run);
        QString error;
        for (const char *description : {"COM1:varnel3,cells=6,balance,processes=0,pause=2,noise=0.01",
                 "COM2:varnel2plus,processes=0,pause=2,cut=0.01",
                 "COM3:varnel3,cells=16,balance,duration=500,processes=0,endlines=3,join=0.01",
                 "COM4:tandor,fields=0.01", "COM5:varnel2,processes=0,duration=300",
                 "COM6:varnel3,start=remote,cells=4,detect=1"})
            QVERIFY2(rack->add(QLatin1String(description), &error), qPrintable(error));
        VarnelSettings().setPorts({"COM1", "COM2", "COM3", "COM4", "COM6"});
        VarnelSettings().setSendTime(true);

        const WarningCollector collector;
        QTimer looking;
        connect(&looking, SIGNAL(timeout()), this, SLOT(look()));
        looking.start(50);
        QTimer stepping;
        connect(&stepping, SIGNAL(timeout()), this, SLOT(step()));
        stepping.start(pace);
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < seconds * 1000 && broken.isEmpty())
            liveOnce(seconds - int(clock.elapsed() / 1000));
        broken += collector.warnings().filter(QRegularExpression(QLatin1String(mistakes)));
        broken.removeDuplicates();
        std::fprintf(stderr, "%d steps, up to %d records, longest wait %lld ms\n", steps, records,
            static_cast<long long>(longest));
        if (!broken.isEmpty() || longest > longestWait)
            std::fprintf(
                stderr, "the newest steps:\n  %s\n", qPrintable(noted.mid(noted.size() - 40).join("\n  ")));
        QCOMPARE(broken, QStringList());
        QVERIFY2(longest <= longestWait, "the event loop answered nobody for too long");
        QVERIFY(steps > 0 && records > 0);
    }

private:
    // From start to quit, as main() does it; the user may end it sooner.
    void liveOnce(int seconds)
    {
        auto window = std::make_unique<MainWindow>();
        shown = window.get();
        window->show();
        sinceStep.start();
        QTimer end;
        connect(&end, SIGNAL(timeout()), qApp, SLOT(quit()));
        end.start(seconds * 1000);
        QApplication::exec();
        shown = nullptr;
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QWidgetList left = QApplication::topLevelWidgets();
        for (const QWidget *one : left) {
            if (one->isVisible())
                broken.append(QStringLiteral("left over: ") + QLatin1String(one->metaObject()->className()));
        }
    }
    int below(int end) { return random.bounded(end); }
    template <typename List>
    auto anyOf(const List &list)
    {
        return list.isEmpty() ? typename List::value_type() : list[below(list.size())];
    }

    void note(const QString &what, const QObject *whom = nullptr)
    {
        static const bool loud = qEnvironmentVariableIsSet("VARNEL_STEPS");
        noted.append(what + QLatin1Char(' ') + QLatin1String(whom ? whom->metaObject()->className() : ""));
        if (loud)
            std::fprintf(stderr, "step %d: %s\n", steps, qPrintable(noted.last()));
    }

    /// A window that takes the user's input now.
    QWidget *reachableWindow()
    {
        if (QWidget *popup = QApplication::activePopupWidget())
            return popup;
        QWidget *modal = QApplication::activeModalWidget();
        if (modal && below(10) > 0)
            return modal;
        QWidgetList windows = QApplication::topLevelWidgets();
        const auto isOut = [](const QWidget *one) { return !one->isVisible() || !one->windowHandle(); };
        windows.erase(std::remove_if(windows.begin(), windows.end(), isOut), windows.end());
        return anyOf(windows);
    }

    QMdiSubWindow *subWindow()
    {
        return QApplication::activeModalWidget() ? nullptr
                                                 : anyOf(shown->findChild<QMdiArea *>()->subWindowList());
    }

    void answer(QDialog *dialog)
    {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            note(QStringLiteral("answer"), box);
            return later(anyOf(box->buttons()), [](QAbstractButton *button) { button->click(); });
        }
        auto *files = qobject_cast<QFileDialog *>(dialog);
        const bool accepted = files && below(2) == 0;
        note(QLatin1String(accepted ? "accept" : "reject"), dialog);
        if (!accepted)
            return later(dialog, [](QDialog *one) { one->reject(); });
        later(files,
            [name = QStringLiteral("use%1").arg(below(3)), folder = fixture.path({})](QFileDialog *one) {
                one->setDirectory(folder);
                const QStringList there = QDir(folder).entryList(QDir::Files);
                one->selectFile(one->acceptMode() == QFileDialog::AcceptSave ? name : there.value(0));
                QMetaObject::invokeMethod(
                    one, "accept"); // its own slot checks the name and asks before it overwrites
            });
    }

    // A press, moves, a release, perhaps twice, or the wheel.
    void useMouse()
    {
        QWidget *window = reachableWindow();
        if (!window || !window->windowHandle())
            return;
        QVector<QPoint> path{{below(window->width()), below(window->height())}};
        while (below(3) == 0)
            path.append({below(window->width() + 40) - 20, below(window->height() + 40) - 20});
        const Qt::MouseButton button = below(5) == 0 ? Qt::RightButton : Qt::LeftButton;
        const auto held = Qt::KeyboardModifiers(below(3) == 0 ? Qt::ControlModifier << below(2) : 0);
        const int turn = below(8) == 0 ? 120 - 240 * below(2) : 0;
        const int times = below(6) == 0 ? 2 : 1;
        note(QStringLiteral("mouse at %1,%2 in").arg(path[0].x()).arg(path[0].y()), window);
        later(window->windowHandle(), [=](QWindow *target) {
            static int time = 0; // ms; far enough apart for no double click unless one is meant
            time += 1000;
            const QPointer<QWindow> there(target);
            const auto send
                = [&](QEvent::Type type, const QPoint &at, Qt::MouseButtons state, Qt::MouseButton by) {
                      if (there)
                          qt_handleMouseEvent(
                              target, at, target->mapToGlobal(at), state, by, type, held, time += 10);
                  };
            if (turn != 0) {
                QWheelEvent wheel(path[0], target->mapToGlobal(path[0]), {}, {0, turn}, Qt::NoButton, held,
                    Qt::NoScrollPhase, false);
                return void(QCoreApplication::sendEvent(target, &wheel));
            }
            for (int i = 0; i < times; ++i) {
                send(QEvent::MouseButtonPress, path.first(), button, button);
                for (const QPoint &place : path)
                    send(QEvent::MouseMove, place, button, Qt::NoButton);
                send(QEvent::MouseButtonRelease, path.last(), Qt::NoButton, button);
            }
        });
    }

    void type()
    {
        static const QVector<int> keys
            = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Left, Qt::Key_Right,
                Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_0,
                Qt::Key_1, Qt::Key_A, Qt::Key_H, Qt::Key_Delete, Qt::Key_PageUp, Qt::Key_PageDown};
        QWidget *window = reachableWindow();
        if (!window || !window->windowHandle())
            return;
        const int key = anyOf(keys);
        const auto held = Qt::KeyboardModifiers(below(2) * (Qt::ShiftModifier << below(3)));
        note(QKeySequence(int(held) | key).toString(), window);
        later(window->windowHandle(), [=](QWindow *target) {
            const QPointer<QWindow> there(target);
            for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
                if (there)
                    qt_handleKeyEvent(target, type, key, held, key < 0x80 ? QString(QChar(key)) : QString());
        });
    }

    void command()
    {
        // mostly the program's own; the frames of the graph windows have many more
        const QObject *owner = shown->findChild<ActionSet *>();
        QAction *action = anyOf((below(4) == 0 ? shown.data() : owner)->findChildren<QAction *>());
        const bool open = !QApplication::activeModalWidget() && action->isEnabled();
        if (!open || action->menu() || (action == shown->actionSet()[ActionId::Exit] && below(10) > 0))
            return;
        note(QStringLiteral("command '%1'").arg(action->text()));
        later(action, [](QAction *one) { one->trigger(); });
    }

    void reshape()
    {
        QMdiSubWindow *graph = below(2) == 0 ? subWindow() : nullptr;
        QWidget *window = graph ? graph : reachableWindow();
        const int choice = below(8);
        const QRect place(below(900) - 50, below(600) - 20, 50 + below(1500), 30 + below(1000));
        if (!window || (choice < 3 && window != shown && !graph))
            return;
        note(QStringLiteral("reshape %1").arg(choice), window);
        if (choice == 3 && graph)
            graph->mdiArea()->setActiveSubWindow(graph);
        const Qt::WindowState states[] = {Qt::WindowMinimized, Qt::WindowMaximized, Qt::WindowNoState};
        if (choice < 3)
            later(window, [state = states[choice]](QWidget *one) { one->setWindowState(state); });
        else
            later(window, [place](QWidget *one) { one->setGeometry(place); });
    }

    void closeWindow()
    {
        QMdiSubWindow *graph
            = shown->mdiChildren().size() >= mostGraphs || below(8) == 0 ? subWindow() : nullptr;
        QWidget *window = graph ? graph : reachableWindow();
        if (!window || window == shown)
            return;
        note(QStringLiteral("close"), window);
        later(window, [](QWidget *one) { one->close(); });
    }

    void choosePorts()
    {
        QStringList ports;
        for (const auto &one : rack->devices()) {
            if (below(4) > 0)
                ports.append(one->port());
        }
        note(QStringLiteral("choose ") + ports.join(QLatin1Char(' ')));
        VarnelSettings().setPorts(ports);
        if (!QApplication::activeModalWidget())
            QMetaObject::invokeMethod(shown, "startRecording", Qt::QueuedConnection);
    }

    void device()
    {
        static const QVector<QByteArray> said = {"#TRYB03\r\n", "#MEM07\r\n", "#NRC\x06\r\n",
            "!0012,0034\r\n", "#\n", "#E05C", "#99Z99__E_B9,99999,99999,-9999,-99,-9999,-9999\r\n"};
        sim::SimDevice *one = rack->devices()[size_t(below(int(rack->devices().size())))].get();
        QString error;
        QByteArray junk(below(200), '\0');
        random.generate(junk.begin(), junk.end());
        const std::function<void()> acts[] = {[&] { one->endProcess("EMS"[below(3)]); },
            [&] { one->hangUp(1); }, [&] { one->unplug(); }, [&] { one->connectPack(); },
            [&] { one->disconnectPack(); }, [&] { one->setSpeed(1 + below(400)); },
            [&] { one->plug(&error); }, [&] { one->startProcess(); }, [&] { one->sendRaw(anyOf(said)); },
            [&] { one->sendRaw(junk); }};
        const int choice = one->isPlugged() ? below(int(std::size(acts))) : 6;
        note(QStringLiteral("device %1, %2").arg(one->port()).arg(choice));
        if (choice != 6 || !one->isPlugged())
            acts[choice]();
    }

    const ShellFixture fixture;
    QRandomGenerator random;
    std::unique_ptr<sim::Rack> rack;
    QPointer<MainWindow> shown;
    QElapsedTimer sinceStep;
    qint64 longest = 0; // ms between two steps: for that long the event loop answered nobody
    int steps = 0;
    QStringList noted; // steps, the newest last
    QStringList broken; // what did not hold
    int records = 0; // most seen in one window
};

QTEST_MAIN(TestRandomUse)
#include "tst_randomuse.moc"
