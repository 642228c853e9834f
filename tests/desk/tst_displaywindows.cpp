#include "desk/datatoolbar.h"
#include "desk/stalewatch.h"
#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/voltagecomparison.h"
#include "desk/windowplace.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "support/fakelink.h"
#include "support/lines.h"
#include "support/settle.h"
#include "support/shellrig.h"

#include <QGuiApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QWindow>

/// For the window manager.
bool isOnTop(const QWidget *window)
{
    return window->windowHandle() && window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
}

/// Hears which window comes up above all others.
class WindowLog : public QObject {
    Q_OBJECT

public:
    WindowLog() { qApp->installEventFilter(this); }
    QWidget *last() const { return m_last; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *widget = qobject_cast<QWidget *>(watched);
        const bool comesUp = event->type() == QEvent::Show || event->type() == QEvent::ZOrderChange;
        if (comesUp && widget && widget->isWindow() && isOnTop(widget))
            m_last = widget;
        return false;
    }

private:
    QWidget *m_last = nullptr;
};

/// The display windows among the others: where they stand, which window
/// they follow, what is shown above them.
class TestDisplayWindows : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init()
    {
        setUp();
        open({});
    }
    void cleanup() { tearDown(); }

    void firstPlacesAreOnTheScreen();
    void movedDisplaysCoverNothing();
    void comparisonKeepsItsPlace();
    void displaysKeepTheirState();
    void displaysNameTheWindow();
    void keptResistancesStayWithTheirWindow();
    void staleFiguresSaySince();
    void questionsStandAboveDisplays();
    void displaysComeUpBelowQuestions();

private:
    FakeLink link;
};

/// The bar display's place is made for a taller screen than this one.
void TestDisplayWindows::firstPlacesAreOnTheScreen()
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    window->createMdiChild();
    for (const ActionId id : {ActionId::Graph, ActionId::BarGraph, ActionId::Balancer, ActionId::Power})
        trigger(id);
    for (const QWidget *display : {static_cast<QWidget *>(window->findChild<DataDisplay *>()),
             static_cast<QWidget *>(window->findChild<CapacityDisplay *>()),
             static_cast<QWidget *>(window->findChild<PowerDisplay *>()),
             static_cast<QWidget *>(window->findChild<VoltageComparison *>())})
        QVERIFY2(area.contains(display->geometry()), qPrintable(display->windowTitle()));
}

/// A display that a small screen moves goes where it covers neither others nor menus; one in its own place
/// stays.
void TestDisplayWindows::movedDisplaysCoverNothing()
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint own = area.topLeft() + QPoint(30, 40);
    for (const QPoint &place : {own, area.bottomLeft() + QPoint(2, 500)}) {
        QWidget display;
        WindowPlace::restore(&display, QStringLiteral("nothing"), VarnelSettings(), QSize(200, 150), place);
        const QRect menus(area.topLeft(), QSize(area.width(), 90));
        const QRect other = WindowPlace::frameOf(display);
        WindowPlace::settle(&display, {menus, other});
        const QRect frame = WindowPlace::frameOf(display);
        if (place == own)
            QCOMPARE(display.pos(), own);
        else
            QVERIFY(area.contains(frame) && !frame.intersects(menus) && !frame.intersects(other));
        WindowPlace::settle(&display, {frame}); // from now on it stands where the user wants it
        QCOMPARE(display.pos(), frame.topLeft());
    }
}

/// Neither a dialog that hides it nor the end of the program makes it forget where it was.
void TestDisplayWindows::comparisonKeepsItsPlace()
{
    window->createMdiChild();
    trigger(ActionId::Graph);
    auto *comparison = window->findChild<VoltageComparison *>();
    QCOMPARE(comparison->size(), QSize(640, 360));
    comparison->setGeometry(31, 47, 700, 410);
    comparison->hide();
    window->renumerateWindows(); // makes it anew
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    comparison = window->findChild<VoltageComparison *>();
    QCOMPARE(comparison->geometry(), QRect(31, 47, 700, 410));
    comparison->move(52, 63);
    window->close();
    QCOMPARE(VarnelSettings().value(QStringLiteral("voltagecomp/pos")).toPoint(), QPoint(52, 63));
}

void TestDisplayWindows::displaysKeepTheirState()
{
    window->createMdiChild();
    trigger(ActionId::BarGraph);
    auto *display = window->findChild<CapacityDisplay *>();
    const QRect usual(display->pos(), display->size());
    display->showMaximized();
    trigger(ActionId::BarGraph);
    QVERIFY(!display->isVisible());
    trigger(ActionId::BarGraph);
    QVERIFY(display->isVisible() && display->isMaximized());
    display->showMinimized();
    trigger(ActionId::BarGraph);
    trigger(ActionId::BarGraph);
    QVERIFY(!display->isMinimized());

    // Another run finds it maximised, and the run after that still knows how it was before.
    for (int run = 0; run < 2; ++run) {
        window->close();
        open({});
        display = window->findChild<CapacityDisplay *>();
        QVERIFY(display->isMaximized() && !display->isVisible());
        QCOMPARE(display->normalGeometry(), usual);
        window->createMdiChild();
        trigger(ActionId::BarGraph);
    }
}

/// Closing a window renumbers the others; the figures of the current one
/// follow, even if no further record comes.
void TestDisplayWindows::displaysNameTheWindow()
{
    MdiGraphChild *first = window->createMdiChild();
    window->createMdiChild()->addRecord(Lines::record(5));
    trigger(ActionId::Data);
    const auto *number
        = window->findChild<DataDisplay *>()->findChild<QLabel *>(QStringLiteral("windowNumberLabel"));
    QTRY_COMPARE(number->text(), QStringLiteral("2"));
    first->close();
    QTRY_COMPARE(number->text(), QStringLiteral("1"));
}

/// Of a window that comes to the front and whose newest record lacks resistances, nothing is known.
void TestDisplayWindows::keptResistancesStayWithTheirWindow()
{
    for (const ActionId id : {ActionId::Data, ActionId::Balancer, ActionId::Energy, ActionId::Energy})
        trigger(id);
    const auto *display = window->findChild<DataDisplay *>();
    const auto *value = display->findChild<QLabel *>(QStringLiteral("cellValue1"));
    const auto measure = [](MdiGraphChild *child, const QByteArray &tenths) {
        for (int i = 0; i < 2; ++i)
            child->addRecord(Lines::record(i));
        child->applyResistanceLine('!' + tenths + (',' + tenths).repeated(15));
    };
    MdiGraphChild *hidden = window->createMdiChild();
    MdiGraphChild *seen = window->createMdiChild();
    measure(hidden, "50");
    hidden->addRecord(Lines::record(2));
    measure(seen, "20");
    settle(*display);
    QCOMPARE(value->text().trimmed(), QStringLiteral("2.0"));
    seen->addRecord(Lines::record(2));
    settle(*display);
    QCOMPARE(value->text().trimmed(), QStringLiteral("2.0"));

    measure(seen, "20");
    window->findChild<QMdiArea *>()->setActiveSubWindow(
        qobject_cast<QMdiSubWindow *>(hidden->parentWidget()));
    settle(*display);
    QCOMPARE(value->text(), QStringLiteral("--.-"));
}

void TestDisplayWindows::staleFiguresSaySince()
{
    trigger(ActionId::Data);
    auto *capacities = window->findChild<CapacityDisplay *>();
    const auto *toolBarFigure = window->findChild<DataToolBar *>()->findChild<QLabel *>();
    MdiGraphChild *child = window->createMdiChild();
    child->attachReader(&link);
    child->addRecord(Lines::record(5));
    trigger(ActionId::BarGraph);
    const auto *display = window->findChild<DataDisplay *>();
    auto *watch = window->findChild<StaleWatch *>();
    const QDateTime now = QDateTime::currentDateTime();
    const qint64 begin = QDeadlineTimer::current().deadline();
    // The clock has been set back meanwhile.
    const auto lookAfter
        = [&](int seconds) { watch->lookAt(now.addSecs(seconds - 3600), begin + qint64(seconds) * 1000); };
    watch->lookAt(now, begin);
    const auto saysSince = [&] {
        settle(*display);
        return display->toolTip().contains(now.toString(QStringLiteral("HH:mm:ss")))
            && child->picture({400, 300}).note.contains(now.toString(QStringLiteral("HH:mm:ss")));
    };
    lookAfter(StaleWatch::patience - 1);
    QVERIFY(!saysSince());
    const QImage fresh = capacities->grab().toImage();
    QVERIFY(toolBarFigure->isEnabled());
    // The program's own watch, which knows the time, looks once a second.
    QTRY_VERIFY((lookAfter(StaleWatch::patience), saysSince()));

    lookAfter(StaleWatch::patience);
    QVERIFY(watch->staleSince(child).isValid());
    QVERIFY(!toolBarFigure->isEnabled()); // dim
    QVERIFY(capacities->grab().toImage() != fresh);
    child->addRecord(Lines::record(6));
    QVERIFY(toolBarFigure->isEnabled());
    QVERIFY(!watch->staleSince(child).isValid());
    QVERIFY(!saysSince());

    child->finishRecording(); // nothing is waited for any more
    lookAfter(10 * StaleWatch::patience);
    QVERIFY(!watch->staleSince(child).isValid());
}

/// Whatever opens, modal or not, comes up last and stays on top while a display is in sight; without one it
/// is left as it is.
void TestDisplayWindows::questionsStandAboveDisplays()
{
    window->createMdiChild();
    auto *display = window->findChild<DataDisplay *>();
    const auto standsAbove = [&](bool modal) {
        QMessageBox question(window.get());
        question.setModal(modal);
        question.move(display->pos());
        question.show();
        const WindowLog log;
        QCoreApplication::sendPostedEvents();
        return log.last() == &question && isOnTop(&question) && isOnTop(display) != modal;
    };
    for (const bool modal : {true, false}) {
        QVERIFY(!standsAbove(modal));
        trigger(ActionId::Data);
        display->activateWindow();
        QVERIFY(standsAbove(modal));
        QCoreApplication::sendPostedEvents();
        QVERIFY(isOnTop(display)); // again
        trigger(ActionId::Data);
    }
}

/// A recording that starts makes the voltage comparison anew: below what is open, the keyboard left where it
/// is.
void TestDisplayWindows::displaysComeUpBelowQuestions()
{
    window->createMdiChild();
    trigger(ActionId::Graph);
    window->findChild<VoltageComparison *>()->hide(); // as for the open dialog
    QMessageBox question(window.get());
    QMessageBox notice(window.get());
    question.move(window->findChild<VoltageComparison *>()->pos());
    question.open();
    notice.setModal(false);
    notice.show();
    const WindowLog log;
    window->createMdiChild();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(log.last(), static_cast<QWidget *>(&question)); // the one that takes input
    QVERIFY(isOnTop(&question));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto *comparison = window->findChild<VoltageComparison *>();
    QVERIFY(!isOnTop(comparison) && comparison->testAttribute(Qt::WA_ShowWithoutActivating));
}

QTEST_MAIN(TestDisplayWindows)
#include "tst_displaywindows.moc"
