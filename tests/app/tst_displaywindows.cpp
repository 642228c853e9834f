#include "app/actionset.h"
#include "app/mainwindow.h"
#include "app/stalewatch.h"
#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/refreshgate.h"
#include "displays/voltagecomparison.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"
#include "support/fakelink.h"
#include "support/lines.h"
#include "support/shellfixture.h"

#include <QAction>
#include <QGuiApplication>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QWindow>

/// The display windows among the others: where they stand, which window they follow, what is shown above them.
class TestDisplayWindows : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void cleanup() { VarnelSettings().clear(); }

    void firstPlacesAreOnTheScreen();
    void comparisonKeepsItsPlace();
    void displaysKeepTheirState();
    void displaysNameTheWindow();
    void staleFiguresSaySince();
    void questionsStandAboveDisplays();

private:
    static Varnel3Data record(int time)
    {
        Varnel3Data record;
        record.parseLine(QString::fromLatin1(Lines::charger(time)).trimmed());
        return record;
    }

    ShellFixture fixture;
};

/// The bar display's place is made for a taller screen than this one.
void TestDisplayWindows::firstPlacesAreOnTheScreen()
{
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    MainWindow window;
    window.createMdiChild();
    for (const ActionId id : {ActionId::Graph, ActionId::BarGraph, ActionId::Balancer, ActionId::Power})
        window.actionSet()[id]->trigger();
    for (const QWidget *display : {static_cast<QWidget *>(window.findChild<DataDisplay *>()),
             static_cast<QWidget *>(window.findChild<CapacityDisplay *>()),
             static_cast<QWidget *>(window.findChild<PowerDisplay *>()),
             static_cast<QWidget *>(window.findChild<VoltageComparison *>())})
        QVERIFY2(area.contains(display->geometry()), qPrintable(display->windowTitle()));
}

/// Neither a dialog that hides it nor the end of the program makes it forget where it was.
void TestDisplayWindows::comparisonKeepsItsPlace()
{
    MainWindow window;
    window.show();
    window.createMdiChild();
    window.actionSet()[ActionId::Graph]->trigger();
    auto *comparison = window.findChild<VoltageComparison *>();
    comparison->move(31, 47);
    comparison->hide();
    window.renumerateWindows(); // makes it anew
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    comparison = window.findChild<VoltageComparison *>();
    QCOMPARE(comparison->pos(), QPoint(31, 47));
    comparison->move(52, 63);
    window.close();
    QCOMPARE(VarnelSettings().value(QStringLiteral("voltagecomp/pos")).toPoint(), QPoint(52, 63));
}

void TestDisplayWindows::displaysKeepTheirState()
{
    MainWindow window;
    window.show();
    window.createMdiChild();
    QAction *bars = window.actionSet()[ActionId::BarGraph];
    bars->trigger();
    auto *display = window.findChild<CapacityDisplay *>();
    display->showMaximized();
    bars->trigger();
    QVERIFY(!display->isVisible());
    bars->trigger();
    QVERIFY(display->isVisible() && display->isMaximized());
    display->showMinimized();
    bars->trigger();
    bars->trigger();
    QVERIFY(!display->isMinimized());
}

/// Closing a window renumbers the others; the figures of the current one follow, even if no further record comes.
void TestDisplayWindows::displaysNameTheWindow()
{
    MainWindow window;
    window.show();
    MdiGraphChild *first = window.createMdiChild();
    window.createMdiChild()->addRecord(record(5));
    window.actionSet()[ActionId::Data]->trigger();
    const auto *number
        = window.findChild<DataDisplay *>()->findChild<QLabel *>(QStringLiteral("windowNumberLabel"));
    QTRY_COMPARE(number->text(), QStringLiteral("2"));
    first->close();
    QTRY_COMPARE(number->text(), QStringLiteral("1"));
}

void TestDisplayWindows::staleFiguresSaySince()
{
    FakeLink link;
    MainWindow window;
    window.show();
    window.actionSet()[ActionId::Data]->trigger();
    MdiGraphChild *child = window.createMdiChild();
    child->attachReader(&link);
    child->addRecord(record(5));
    const auto *display = window.findChild<DataDisplay *>();
    auto *watch = window.findChild<StaleWatch *>();
    const QDateTime now = QDateTime::currentDateTime();
    watch->lookAt(now);
    const auto saysSince = [&] {
        QTest::qWait(RefreshGate::interval + 20);
        return display->toolTip().contains(now.toString(QStringLiteral("HH:mm:ss")))
            && child->picture({400, 300}).note.contains(now.toString(QStringLiteral("HH:mm:ss")));
    };
    watch->lookAt(now.addSecs(StaleWatch::patience - 1));
    QVERIFY(!saysSince());
    // The program's own watch, which knows the time, looks once a second.
    QTRY_VERIFY((watch->lookAt(now.addSecs(StaleWatch::patience)), saysSince()));

    watch->lookAt(now.addSecs(StaleWatch::patience));
    QVERIFY(watch->staleSince(child).isValid());
    child->addRecord(record(6));
    QVERIFY(!watch->staleSince(child).isValid());
    QVERIFY(!saysSince());

    child->finishRecording(); // nothing is waited for any more
    watch->lookAt(now.addSecs(10 * StaleWatch::patience));
    QVERIFY(!watch->staleSince(child).isValid());
}

void TestDisplayWindows::questionsStandAboveDisplays()
{
    MainWindow window;
    window.show();
    window.createMdiChild();
    const auto opensOnTop = [&window] {
        QMessageBox box(&window);
        box.open();
        return box.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    };
    QVERIFY(!opensOnTop());
    window.actionSet()[ActionId::Data]->trigger();
    QVERIFY(opensOnTop());
    window.actionSet()[ActionId::Data]->trigger();
    QVERIFY(!opensOnTop());
}

QTEST_MAIN(TestDisplayWindows)
#include "tst_displaywindows.moc"
