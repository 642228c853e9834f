#include "app/randomuser.h"

#include "app/actionset.h"
#include "app/mainwindow.h"
#include "settings/varnelsettings.h"
#include "simulator/rack.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest>

#include <cstdio>

namespace {

constexpr int pace = 4; // ms between steps
constexpr int stepsKept = 40;
constexpr int mostGraphs = 10; // then some are closed

// Runs `work` from the event loop, so that a dialog opened by it holds up
// nothing, if `object` is still there then.
template <typename Object, typename Work>
void later(Object *object, Work work)
{
    if (object)
        QMetaObject::invokeMethod(
            object, [object, work] { work(object); }, Qt::QueuedConnection);
}

void sendMouse(QWindow *window, QEvent::Type type, const QPoint &place, Qt::MouseButtons state,
    Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {})
{
    static int time = 0; // ms; far enough apart for no double click unless one is meant
    time += type == QEvent::MouseButtonPress ? 100 : 10;
    qt_handleMouseEvent(window, place, window->mapToGlobal(place), state, button, type, modifiers, time);
}

const Qt::KeyboardModifiers modifierSets[]
    = {Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier};

constexpr int keys[]
    = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
        Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_0, Qt::Key_1, Qt::Key_9,
        Qt::Key_A, Qt::Key_S, Qt::Key_Delete, Qt::Key_F4, Qt::Key_PageUp, Qt::Key_PageDown};

} // namespace

struct RandomUser::Choice {
    int weight;
    void (RandomUser::*act)();
};

const QVector<RandomUser::Choice> &RandomUser::choices()
{
    static const QVector<Choice> all = {
        {30, &RandomUser::click},
        {8, &RandomUser::drag},
        {6, &RandomUser::turnWheel},
        {12, &RandomUser::type},
        {14, &RandomUser::command},
        {11, &RandomUser::reshape},
        {8, &RandomUser::closeWindow},
        {12, &RandomUser::device},
        {1, &RandomUser::choosePorts},
    };
    return all;
}

RandomUser::RandomUser(quint32 seed, sim::Rack *rack, const QString &folder)
    : m_random(seed)
    , m_rack(rack)
    , m_folder(folder)
{
    m_timer.setInterval(pace);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(step()));
}

void RandomUser::use(MainWindow *window)
{
    m_window = window;
    m_sinceStep.start();
    if (window)
        m_timer.start();
    else
        m_timer.stop();
}

void RandomUser::note(const QString &text)
{
    static const bool loud = qEnvironmentVariableIsSet("VARNEL_STEPS");
    if (loud)
        std::fprintf(stderr, "step %d: %s\n", m_steps, qPrintable(text));
    m_newest.append(text);
    if (m_newest.size() > stepsKept)
        m_newest.removeFirst();
}

void RandomUser::step()
{
    m_longestWait = qMax(m_longestWait, m_sinceStep.restart());
    if (!m_window || !m_window->isVisible())
        return;
    ++m_steps;
    if (delicateDialog())
        return answerDelicate();
    if (below(700) == 0)
        return closeProgram();
    int sum = 0;
    for (const Choice &choice : choices())
        sum += choice.weight;
    int left = below(sum);
    for (const Choice &choice : choices()) {
        left -= choice.weight;
        if (left < 0)
            return (this->*choice.act)();
    }
}

QWidget *RandomUser::delicateDialog() const
{
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *one : all) {
        const bool delicate = qobject_cast<QFileDialog *>(one) || qobject_cast<QPrintDialog *>(one);
        if (delicate && one->isVisible())
            return one;
    }
    return nullptr;
}

void RandomUser::answerDelicate()
{
    if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
        note(QStringLiteral("answer box '%1'").arg(box->text()));
        later(anyOf(box->buttons()), [](QAbstractButton *button) { button->click(); });
        return;
    }
    auto *dialog = qobject_cast<QDialog *>(delicateDialog());
    auto *files = qobject_cast<QFileDialog *>(dialog);
    const bool accepted = files && below(2) == 0;
    note(QStringLiteral("%1 %2").arg(
        QLatin1String(accepted ? "accept" : "reject"), QLatin1String(dialog->metaObject()->className())));
    if (!accepted)
        return later(dialog, [](QDialog *one) { one->reject(); });
    const QString name = QStringLiteral("use%1").arg(below(3));
    const QString folder = m_folder;
    later(files, [name, folder](QFileDialog *one) {
        one->setDirectory(folder);
        const QStringList there = QDir(folder).entryList(QDir::Files);
        one->selectFile(one->acceptMode() == QFileDialog::AcceptSave ? name : there.value(0));
        // its own slot checks the name and asks before it overwrites
        QMetaObject::invokeMethod(one, "accept");
    });
}

QWidget *RandomUser::reachableWindow()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    QWidget *modal = QApplication::activeModalWidget();
    if (modal && below(10) > 0)
        return modal;
    QWidgetList windows;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *one : all) {
        if (one->isVisible() && one->windowHandle())
            windows.append(one);
    }
    return anyOf(windows);
}

QMdiSubWindow *RandomUser::subWindow()
{
    auto *area = m_window->findChild<QMdiArea *>();
    return area && !QApplication::activeModalWidget() ? anyOf(area->subWindowList()) : nullptr;
}

void RandomUser::click()
{
    QWidget *window = reachableWindow();
    if (!window || !window->windowHandle())
        return;
    const QPoint place(below(window->width()), below(window->height()));
    const Qt::MouseButton button = below(5) == 0 ? Qt::RightButton : Qt::LeftButton;
    const Qt::KeyboardModifiers modifiers = modifierSets[below(std::size(modifierSets))];
    const int times = below(6) == 0 ? 2 : 1;
    note(QStringLiteral("click %1 at %2,%3")
             .arg(QLatin1String(window->metaObject()->className()))
             .arg(place.x())
             .arg(place.y()));
    later(window->windowHandle(), [=](QWindow *target) {
        const QPointer<QWindow> there(target);
        for (int i = 0; i < times && there; ++i) {
            sendMouse(target, QEvent::MouseButtonPress, place, button, button, modifiers);
            // cppcheck-suppress identicalInnerCondition ; the window may go with the press
            if (there)
                sendMouse(target, QEvent::MouseButtonRelease, place, Qt::NoButton, button, modifiers);
        }
    });
}

void RandomUser::drag()
{
    QWidget *window = reachableWindow();
    if (!window || !window->windowHandle())
        return;
    note(QStringLiteral("drag in %1").arg(QLatin1String(window->metaObject()->className())));
    const Qt::KeyboardModifiers modifiers = modifierSets[below(std::size(modifierSets))];
    QVector<QPoint> path;
    for (int i = 0; i < 4; ++i)
        path.append({below(window->width() + 40) - 20, below(window->height() + 40) - 20});
    path.first() = QPoint(below(window->width()), below(window->height()));
    later(window->windowHandle(), [=](QWindow *target) {
        const QPointer<QWindow> there(target);
        sendMouse(target, QEvent::MouseButtonPress, path.first(), Qt::LeftButton, Qt::LeftButton, modifiers);
        for (const QPoint &place : path) {
            if (there)
                sendMouse(target, QEvent::MouseMove, place, Qt::LeftButton, Qt::NoButton, modifiers);
        }
        if (there)
            sendMouse(
                target, QEvent::MouseButtonRelease, path.last(), Qt::NoButton, Qt::LeftButton, modifiers);
    });
}

void RandomUser::turnWheel()
{
    QWidget *window = reachableWindow();
    if (!window || (QApplication::activeModalWidget() && window != QApplication::activeModalWidget()))
        return;
    const QPoint place(below(window->width()), below(window->height()));
    QWidget *under = window->childAt(place);
    QWidget *target = under ? under : window;
    const QPointF local = target->mapFrom(window, place);
    const int turn = below(2) == 0 ? 120 : -120;
    note(QStringLiteral("wheel over %1").arg(QLatin1String(target->metaObject()->className())));
    QCoreApplication::postEvent(target,
        new QWheelEvent(local, target->mapToGlobal(local.toPoint()), QPoint(), QPoint(0, turn), Qt::NoButton,
            modifierSets[below(std::size(modifierSets))], Qt::NoScrollPhase, false));
}

void RandomUser::type()
{
    QWidget *window = reachableWindow();
    if (!window || !window->windowHandle())
        return;
    const int key = keys[below(std::size(keys))];
    const Qt::KeyboardModifiers modifiers = modifierSets[below(std::size(modifierSets))];
    if (key == Qt::Key_F4 && modifiers == Qt::AltModifier)
        return;
    note(QStringLiteral("key %1").arg(QKeySequence(int(modifiers) | key).toString()));
    later(window->windowHandle(), [=](QWindow *target) {
        const QPointer<QWindow> there(target);
        const QString text = key < 0x80 ? QString(QChar(key)) : QString();
        qt_handleKeyEvent(target, QEvent::KeyPress, key, modifiers, text);
        if (there)
            qt_handleKeyEvent(target, QEvent::KeyRelease, key, modifiers, text);
    });
}

void RandomUser::command()
{
    if (QApplication::activeModalWidget())
        return;
    // mostly the program's own; the frames of the graph windows have many more
    const QObject *owner = m_window->findChild<ActionSet *>();
    if (below(4) == 0)
        owner = m_window;
    QAction *action = anyOf(owner->findChildren<QAction *>());
    if (!action || !action->isEnabled() || action->isSeparator() || action->menu())
        return;
    if (action->shortcut() == QKeySequence(QKeySequence::Quit) && below(10) > 0)
        return;
    note(QStringLiteral("command '%1'").arg(action->text()));
    later(action, [](QAction *one) { one->trigger(); });
}

void RandomUser::reshape()
{
    QMdiSubWindow *graph = below(2) == 0 ? subWindow() : nullptr;
    QWidget *window = graph ? graph : reachableWindow();
    const int choice = below(8);
    const QRect place(below(900) - 50, below(600) - 20, 50 + below(1500), 30 + below(1000));
    if (!window || (choice < 3 && window != m_window && !graph))
        return;
    note(QStringLiteral("reshape %1, %2").arg(QLatin1String(window->metaObject()->className())).arg(choice));
    if (choice == 3 && graph)
        graph->mdiArea()->setActiveSubWindow(graph);
    later(window, [=](QWidget *one) {
        if (choice == 0)
            one->showMinimized();
        else if (choice == 1)
            one->showMaximized();
        else if (choice == 2)
            one->showNormal();
        else
            one->setGeometry(place);
    });
}

void RandomUser::closeWindow()
{
    QMdiSubWindow *graph
        = m_window->mdiChildren().size() >= mostGraphs || below(8) == 0 ? subWindow() : nullptr;
    QWidget *window = graph ? graph : reachableWindow();
    if (!window || window == m_window)
        return;
    note(QStringLiteral("close %1").arg(QLatin1String(window->metaObject()->className())));
    later(window, [](QWidget *one) { one->close(); });
}

// As the session does when the user logs out: whatever stands in front is closed first.
void RandomUser::closeProgram()
{
    note(QStringLiteral("close the program"));
    later(qApp, [](QApplication *) { QApplication::closeAllWindows(); });
}

void RandomUser::choosePorts()
{
    QStringList ports;
    for (const auto &one : m_rack->devices()) {
        if (below(4) > 0)
            ports.append(one->port());
    }
    note(QStringLiteral("choose %1").arg(ports.join(QLatin1Char(' '))));
    VarnelSettings().setPorts(ports);
    if (!QApplication::activeModalWidget())
        QMetaObject::invokeMethod(m_window, "startRecording", Qt::QueuedConnection);
}

void RandomUser::device()
{
    sim::SimDevice *one = m_rack->devices()[size_t(below(int(m_rack->devices().size())))].get();
    QString error;
    const int choice = below(12);
    note(QStringLiteral("device %1, %2").arg(one->port()).arg(choice));
    if (choice == 0)
        one->endProcess("EMS"[below(3)]);
    else if (choice == 1)
        one->hangUp(1);
    else if (choice == 2)
        one->isPlugged() ? one->unplug() : void(one->plug(&error));
    else if (choice == 3)
        below(2) == 0 ? one->connectPack() : one->disconnectPack();
    else if (choice == 4)
        one->setSpeed(1 + below(400));
    else if (choice < 8 && !one->isPlugged())
        one->plug(&error);
    else if (choice < 10)
        one->startProcess();
    else
        deviceSays(one);
}

void RandomUser::deviceSays(sim::SimDevice *one)
{
    static const char *const lines[] = {"#TRYB03\r\n", "#MEM07\r\n", "#NRC\x06\r\n", "!0012,0034\r\n", "#\n",
        "#E05C", "#99Z99__E_B9,99999,99999,-9999,-99,-9999,-9999\r\n"};
    QByteArray bytes(lines[below(std::size(lines))]);
    if (below(3) == 0) {
        bytes.resize(below(200));
        m_random.generate(bytes.begin(), bytes.end());
    }
    one->sendRaw(bytes);
}
