#include "app/actionset.h"
#include "desk/graphwindows.h"
#include "app/mainwindow.h"
#include "graph/mdigraphchild.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/shellfixture.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

using Ids = QVector<ActionId>;
Q_DECLARE_METATYPE(Ids)

/// Which switch enables, unchecks and renames which; the menus and the tool bar that hold them.
class TestViewSwitches : public QObject {
    Q_OBJECT

private slots:
    void init();
    void switching_data();
    void switching();
    void holdView();
    void signalsPerSwitch();
    void withoutWindows();
    void reopenedInBalancerView();
    void menus();
    void shortcuts();
    void keyboardReachesAll();

private:
    QAction *action(ActionId id) const { return window->actionSet()[id]; }
    QString switchTexts() const;
    QString modes() const;

    ShellFixture fixture;
    std::unique_ptr<MainWindow> window;
};

/// Text, '*' when checked, '-' when disabled, of " T " to " Vc ".
QString TestViewSwitches::switchTexts() const
{
    QStringList texts;
    for (int id = int(ActionId::Delta); id <= int(ActionId::Energy); ++id) {
        const QAction *a = action(ActionId(id));
        texts << a->text().trimmed() + (a->isChecked() ? "*" : "") + (a->isEnabled() ? "" : "-");
    }
    return texts.join(' ');
}

/// Cell selection, per-cell quantity and right axis, as drawing and displays see them.
QString TestViewSwitches::modes() const
{
    const ViewSwitches &switches = window->viewState().switches();
    return QStringLiteral("%1%2%3")
        .arg(int(switches.cellsShown))
        .arg(int(switches.cellValue))
        .arg(int(switches.rightAxis));
}

void TestViewSwitches::init()
{
    window = std::make_unique<MainWindow>();
}

void TestViewSwitches::switching_data()
{
    using Id = ActionId;
    columns<Ids, QString, QString>({"clicks", "texts", "expectedModes"});
    const auto row = [](const char *name, const Ids &clicks, const char *texts, const char *expectedModes) {
        QTest::newRow(name) << clicks << texts << expectedModes;
    };
    row("start", {}, "dV* Rw* B Avg S- P%- Vc-", "001");
    row("mAh", {Id::Delta}, "mAh* Rw* B Avg S- P%- Vc-", "002");
    row("neither", {Id::Delta, Id::Delta}, "dV Rw* B Avg S- P%- Vc-", "000");
    row("dV again", {Id::Delta, Id::Delta, Id::Delta}, "dV* Rw* B Avg S- P%- Vc-", "001");
    row("balancer", {Id::Balancer}, "dV* Rw* B* Avg S P% Vc", "001");
    row("balancer has no mAh", {Id::Delta, Id::Balancer}, "dV* Rw* B* Avg S P% Vc", "001");
    row("dV is on or off in balancer", {Id::Balancer, Id::Delta}, "dV Rw* B* Avg S P% Vc", "000");
    row("dV on again in balancer", {Id::Balancer, Id::Delta, Id::Delta}, "dV* Rw* B* Avg S P% Vc", "001");
    row("average takes balancer along", {Id::Average}, "dV* Rw* B* Avg* S- P% Vc", "001");
    row("average off", {Id::Average, Id::Average}, "dV* Rw* B* Avg S P% Vc", "001");
    row("balancer off takes average along", {Id::Average, Id::Balancer}, "dV* Rw* B Avg S- P%- Vc-", "001");
    row("plus", {Id::Balancer, Id::SelectedCells}, "dV* Rw* B* Avg +* P% Vc", "101");
    row("minus", {Id::Balancer, Id::SelectedCells, Id::SelectedCells}, "dV* Rw* B* Avg - P% Vc", "201");
    row("Ah", {Id::Balancer, Id::Energy}, "dV* Rw* B* Avg S P% Ah", "011");
    row("Ri", {Id::Balancer, Id::Energy, Id::Energy}, "dV* Rw* B* Avg S P% Ri", "021");
    row("Vc", {Id::Balancer, Id::Energy, Id::Energy, Id::Energy}, "dV* Rw* B* Avg S P% Vc", "001");
}

void TestViewSwitches::switching()
{
    QFETCH(Ids, clicks);
    window->createMdiChild();
    for (ActionId id : qAsConst(clicks)) {
        QVERIFY(action(id)->isEnabled());
        action(id)->trigger();
    }
    QTEST(switchTexts(), "texts");
    QTEST(modes(), "expectedModes");
    const ViewSwitches &switches = window->viewState().switches();
    QCOMPARE(switches.balancer, action(ActionId::Balancer)->isChecked());
    QCOMPARE(switches.average, action(ActionId::Average)->isChecked());
    QCOMPARE(switches.delta, action(ActionId::Delta)->isChecked());
}

void TestViewSwitches::holdView()
{
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    for (bool held : {true, false}) {
        QTest::keyClick(window.get(), Qt::Key_H);
        QCOMPARE(window->viewState().switches().holdView, held);
        QCOMPARE(action(ActionId::HoldView)->isChecked(), held);
    }
}

void TestViewSwitches::signalsPerSwitch()
{
    for (int id = int(ActionId::Data); id <= int(ActionId::Energy); ++id) {
        window = std::make_unique<MainWindow>();
        window->createMdiChild();
        action(ActionId::Balancer)->trigger();
        QSignalSpy spy(window.get(), SIGNAL(toolBarChanged()));
        action(ActionId(id))->trigger();
        QCOMPARE(spy.count(), id == int(ActionId::Average) ? 2 : 1); // which goes with the balancer view
    }
}

void TestViewSwitches::withoutWindows()
{
    const auto check = [this](bool any) {
        for (ActionId id :
            {ActionId::SaveAs, ActionId::SaveSession, ActionId::Close, ActionId::CloseAll, ActionId::Tile,
                ActionId::Cascade, ActionId::Next, ActionId::Previous, ActionId::Data, ActionId::Average})
            QCOMPARE(action(id)->isEnabled(), any);
        QCOMPARE(action(ActionId::Separator)->isVisible(), any);
    };
    check(false);
    QPointer<MdiGraphChild> child = window->createMdiChild();
    check(true);
    action(ActionId::Close)->trigger();
    QTRY_VERIFY(!child);
    check(false);
}

void TestViewSwitches::reopenedInBalancerView()
{
    window->createMdiChild();
    action(ActionId::Balancer)->trigger();
    action(ActionId::CloseAll)->trigger();
    QTRY_VERIFY(!action(ActionId::Energy)->isEnabled());
    window->createMdiChild();
    QCOMPARE(switchTexts(), QStringLiteral("dV* Rw* B* Avg S P% Vc"));
}

void TestViewSwitches::menus()
{
    window->updateWindowMenu(); // as often as it is shown
    const auto textsOf = [](const QWidget *widget) {
        QStringList texts;
        const auto actions = widget->actions();
        for (const QAction *entry : actions)
            texts << (entry->isSeparator() ? QStringLiteral("|") : entry->text().trimmed());
        return texts.join(',');
    };
    QStringList menus(textsOf(window->menuBar()));
    const auto titles = window->menuBar()->actions();
    for (const QAction *title : titles) {
        if (title->menu() && title->text() != QLatin1String("&Tools"))
            menus << textsOf(title->menu());
    }
    QCOMPARE(menus,
        QStringList({"&File,&Window,&Print,&Tools,|,&Help", "Open file,Save as,Preferences,Set time,|,E&xit",
            "Recording,Background color,|,Cl&ose,Close &All,|,&Tile,&Cascade,|,Ne&xt,Pre&vious,|",
            "Capacity comparison,Voltage comparison,Bar display,Active plot", "&About"}));
    QCOMPARE(textsOf(window->findChild<QToolBar *>(QStringLiteral("mainToolBar"))),
        QStringLiteral("Open file,Save as,&Cascade,&Tile,|,Recording,Stop process,|,DATA,Graph,Bar Graph,|,"
                       "T,dV,Rw,|,B,Avg,S,P%,"));
}

void TestViewSwitches::shortcuts()
{
    QCOMPARE(action(ActionId::Open)->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));
    QMap<QString, QString> owners;
    for (int id = 0; id < int(ActionId::Count); ++id) {
        const auto keys = action(ActionId(id))->shortcuts();
        for (const QKeySequence &key : keys) {
            QVERIFY2(!owners.contains(key.toString()), qPrintable(key.toString()));
            owners.insert(key.toString(), action(ActionId(id))->text());
        }
    }
}

/// The buttons of a tool bar take no focus, so that a menu must hold what they do.
void TestViewSwitches::keyboardReachesAll()
{
    QList<QAction *> inMenus = window->menuBar()->actions();
    for (int i = 0; i < inMenus.size(); ++i) {
        if (const QMenu *menu = inMenus[i]->menu())
            inMenus += menu->actions();
    }
    QStringList unreachable;
    for (int id = 0; id < int(ActionId::Count); ++id) {
        QAction *a = action(ActionId(id));
        if (!inMenus.contains(a))
            unreachable << a->text();
    }
    QCOMPARE(unreachable, QStringList({QStringLiteral("Save sesion"), QStringLiteral("About &Qt")}));
}

QTEST_MAIN(TestViewSwitches)
#include "tst_viewswitches.moc"
