#include "soak/randomuser.h"

#include "app/actionset.h"
#include "app/mainwindow.h"
#include "devices/listenedports.h"
#include "graph/mdigraphchild.h"
#include "simulator/rack.h"
#include "soak/program.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPointer>
#include <QPrintDialog>
#include <QRegularExpression>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <functional>

// Input as from the system. Of the toolkit's library, which declares them where it tests itself.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, const QPointF &local, const QPointF &global,
    Qt::MouseButtons down, Qt::MouseButton by, QEvent::Type type, Qt::KeyboardModifiers keys, int time);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *window, QEvent::Type type, int key, Qt::KeyboardModifiers keys,
    const QString &text = QString(), bool repeats = false, ushort count = 1);

namespace soak {

namespace {

constexpr int pace = 4; // ms between steps
constexpr int mostGraphs = 10; // then some are closed
constexpr int stepsTold = 40; // where something did not hold

// What these say is a mistake of the program, whatever the user does.
constexpr char mistakes[]
    = "^(QObject::|QMetaObject::|QPainter|QWidget::|QLayout|QTimer|QSocketNotifier|QAction::|QMutex|"
      "QCoreApplication::|QPixmap|QFont::|QString::arg|QIODevice|QFile)";

QStringList &complaints()
{
    static QStringList all;
    return all;
}

void takeDown(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg && QRegularExpression(QLatin1String(mistakes)).match(text).hasMatch())
        complaints().append(text);
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

QWidgetList shownWindows()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    const auto isHidden = [](const QWidget *one) { return !one->isVisible(); };
    windows.erase(std::remove_if(windows.begin(), windows.end(), isHidden), windows.end());
    return windows;
}

} // namespace

RandomUser::RandomUser(Program *program, sim::Rack *rack, quint32 seed)
    : m_program(program)
    , m_rack(rack)
    , m_random(seed)
{
}

bool RandomUser::run(int steps)
{
    m_steps = steps;
    qInstallMessageHandler(takeDown);
    QTimer stepping;
    connect(&stepping, SIGNAL(timeout()), this, SLOT(step()));
    stepping.start(pace);
    while (m_steps > 0 && m_broken.isEmpty()) { // from start to quit; the user may end it sooner
        m_program->open(int(m_rack->devices().size()) - 1);
        QApplication::exec();
        m_program->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QWidgetList left = shownWindows();
        for (const QWidget *one : left)
            m_broken.append(QStringLiteral("left over: ") + QLatin1String(one->metaObject()->className()));
    }
    qInstallMessageHandler(nullptr);
    m_broken += complaints();
    std::printf("%d records at most in a window\n", m_records);
    if (!m_broken.isEmpty())
        std::printf("did not hold:\n  %s\nthe newest steps:\n  %s\n", qPrintable(m_broken.join("\n  ")),
            qPrintable(m_noted.mid(m_noted.size() - stepsTold).join("\n  ")));
    return m_broken.isEmpty() && m_records > 0;
}

void RandomUser::step()
{
    if (!window() || !window()->isVisible())
        return;
    look();
    if (--m_steps <= 0 || !m_broken.isEmpty())
        return QApplication::quit();
    QWidget *modal = QApplication::activeModalWidget();
    QWidget *popup = QApplication::activePopupWidget();
    QWidget *target = popup ? popup : modal && below(10) > 0 ? modal : anyOf(shownWindows());
    const int choice = below(100); // the share of each
    m_noted.append(
        QString::number(choice) + QLatin1Char(' ') + QLatin1String(target->metaObject()->className()));
    if (qobject_cast<QFileDialog *>(modal) || qobject_cast<QPrintDialog *>(modal))
        later(static_cast<QDialog *>(modal), [this](QDialog *dialog) { answer(dialog); });
    else if (choice < 12)
        useDevice();
    else if (choice < 28 && !modal)
        command();
    else if (choice < 40)
        arrange(modal || choice < 34 ? target : anyOf(graphs()));
    else if (choice < 50)
        later(target->windowHandle(), [this](QWindow *one) { type(one); });
    else
        later(target->windowHandle(), [this](QWindow *one) { useMouse(one); });
}

Qt::KeyboardModifiers RandomUser::heldKeys()
{
    return {below(4) == 0 ? Qt::ShiftModifier << below(3) : 0};
}

MainWindow *RandomUser::window() const
{
    return m_program->window();
}

QList<QMdiSubWindow *> RandomUser::graphs() const
{
    return window()->findChild<QMdiArea *>()->subWindowList();
}

// What always holds, whatever has just been done.
void RandomUser::look()
{
    const auto children = window()->mdiChildren();
    for (const MdiGraphChild *child : children) {
        m_records = qMax(m_records, child->store().size());
        if (!graphs().contains(qobject_cast<QMdiSubWindow *>(child->parentWidget())))
            m_broken.append(QStringLiteral("a graph window that stands nowhere"));
    }
    if (window()->activeMdiChild() && !children.contains(window()->activeMdiChild()))
        m_broken.append(QStringLiteral("a current window that is closed"));
    if (window()->listenedPorts().portNames().removeDuplicates() > 0)
        m_broken.append(QStringLiteral("a port that is listened on twice"));
}

// Dialogs that could print or lose files are not left to chance.
void RandomUser::answer(QDialog *dialog)
{
    auto *files = qobject_cast<QFileDialog *>(dialog);
    if (!files || below(2) == 0)
        return dialog->reject();
    const QDir folder(QDir::homePath()); // the program's own
    const bool saves = files->acceptMode() == QFileDialog::AcceptSave;
    files->setDirectory(folder);
    files->selectFile(saves ? QStringLiteral("use%1").arg(below(3)) : folder.entryList(QDir::Files).value(0));
    QMetaObject::invokeMethod(files, "accept"); // its own slot asks before it overwrites
}

void RandomUser::useMouse(QWindow *target)
{
    const QPointer<QWindow> there(target);
    const auto anywhere = [&] { return QPoint(below(target->width()), below(target->height())); };
    const Qt::MouseButton button = below(5) == 0 ? Qt::RightButton : Qt::LeftButton;
    const Qt::KeyboardModifiers keys = heldKeys();
    const QPoint begin = anywhere();
    const QPoint end = below(3) == 0 ? anywhere() : begin;
    const int turn = below(8) == 0 ? 120 - 240 * below(2) : 0;
    if (turn != 0) {
        QWheelEvent wheel(
            begin, target->mapToGlobal(begin), {}, {0, turn}, Qt::NoButton, keys, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &wheel);
        return;
    }
    const auto send = [&](QEvent::Type type, const QPoint &at, Qt::MouseButtons down, Qt::MouseButton by) {
        if (there)
            qt_handleMouseEvent(target, at, target->mapToGlobal(at), down, by, type, keys, m_time += 10);
    };
    m_time += 1000; // far enough from the click before for no double click
    for (int times = below(6) == 0 ? 2 : 1; times > 0; --times) {
        send(QEvent::MouseButtonPress, begin, button, button);
        send(QEvent::MouseMove, end, button, Qt::NoButton);
        send(QEvent::MouseButtonRelease, end, Qt::NoButton, button);
    }
}

void RandomUser::type(QWindow *target)
{
    constexpr Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Left,
        Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Plus, Qt::Key_Minus,
        Qt::Key_0, Qt::Key_1, Qt::Key_A, Qt::Key_H, Qt::Key_L, Qt::Key_Delete, Qt::Key_PageUp};
    const Qt::Key key = keys[below(int(std::size(keys)))];
    const QPointer<QWindow> there(target);
    const Qt::KeyboardModifiers held = heldKeys();
    const QString text = key < 0x80 ? QString(QChar(key)) : QString();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        if (there)
            qt_handleKeyEvent(target, type, key, held, text);
}

void RandomUser::command()
{
    // mostly the program's own; the frames of the graph windows have many more
    const QObject *owner = window()->findChild<ActionSet *>();
    QAction *action = anyOf((below(4) == 0 ? window() : owner)->findChildren<QAction *>());
    const bool ends = action == window()->actionSet()[ActionId::Exit];
    if (action->isEnabled() && !action->menu() && (!ends || below(10) == 0))
        later(action, [](QAction *one) { one->trigger(); });
}

// Closes, changes, moves.
void RandomUser::arrange(QWidget *one)
{
    const int choice = graphs().size() > mostGraphs ? 0 : below(9);
    const QRect place(below(900) - 50, below(600) - 20, 50 + below(1500), 30 + below(1000));
    if (choice < 3 && (one != window() || below(20) == 0))
        later(one, [](QWidget *closed) { closed->close(); });
    else if (choice < 6)
        later(one, [state = Qt::WindowState(choice % 3)](QWidget *shown) { shown->setWindowState(state); });
    else
        later(one, [place](QWidget *moved) { moved->setGeometry(place); });
}

void RandomUser::useDevice()
{
    const QVector<QByteArray> said = {"#TRYB03\r\n", "#MEM07\r\n", "#NRC\x06\r\n", "!0012,0034\r\n", "#\n",
        "#E05C", "#99Z99__E_B9,99999,99999,-9999,-99,-9999,-9999\r\n"};
    sim::SimDevice *one = m_rack->devices()[size_t(below(int(m_rack->devices().size())))].get();
    QString error;
    QByteArray junk(below(200), '\0');
    m_random.generate(junk.begin(), junk.end());
    const std::function<void()> acts[] = {[&] { one->plug(&error); }, [&] { one->hangUp(1); },
        [&] { one->unplug(); }, [&] { one->connectPack(); }, [&] { one->disconnectPack(); },
        [&] { one->setSpeed(1 + below(400)); }, [&] { one->endProcess("EMS"[below(3)]); },
        [&] { one->startProcess(); }, [&] { one->sendRaw(anyOf(said)); }, [&] { one->sendRaw(junk); }};
    acts[one->isPlugged() ? 1 + below(int(std::size(acts)) - 1) : 0]();
}

} // namespace soak
