#include "app/userguide.h"
#include "app/viewswitchboard.h"
#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/voltagecomparison.h"
#include "graph/mdigraphchild.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/lines.h"
#include "support/settle.h"
#include "support/shellrig.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QLabel>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <functional>

using Id = ActionId;
using Ids = QVector<ActionId>;
Q_DECLARE_METATYPE(Ids)

/// What each action says and where it stands; which view switch enables, unchecks and renames which, and what
/// is shown and sent again.
class TestActions : public ShellRig {
    Q_OBJECT

private slots:
    void init() override
    {
        ShellRig::init();
        window = std::make_unique<MainWindow>();
    }

    /// Text|tip|keys|flags, with one graph window; icon, checkable, Checked, disabled, bold.
    void actions()
    {
        window->createMdiChild();
        QStringList all;
        QStringList keysSeen;
        for (int id = 0; id < int(Id::Count); ++id) {
            const QAction *a = action(Id(id));
            const bool bold = a->font() == QFont("Arial", 10, QFont::Bold);
            const std::pair<bool, char> flags[] = {{!a->icon().isNull(), 'i'}, {a->isCheckable(), 'c'},
                {a->isChecked(), 'C'}, {!a->isEnabled(), 'd'}, {bold, 'b'}};
            QString set;
            for (const auto &[on, letter] : flags)
                set += on ? QString(letter) : QString();
            const QString tip = a->isCheckable() ? a->toolTip() : a->statusTip();
            all << a->text() + '|' + tip + '|' + a->shortcut().toString() + '|' + set;
            for (const QKeySequence &key : constant(a->shortcuts()))
                keysSeen << key.toString();
        }
        const auto keysOf
            = [](QKeySequence::StandardKey key) { return QKeySequence(key).toString(); }; // by desktop
        const QStringList expected = {"Open file|Read data from file.|Ctrl+O|i",
            "Save as|Save data to file.|Ctrl+S|i",
            "Save sesion|Save all data as one session|" + keysOf(QKeySequence::SaveAs) + "|i",
            "Preferences|Aplications preferences.|" + keysOf(QKeySequence::Preferences) + "|i",
            "E&xit|Exit the application.|" + keysOf(QKeySequence::Quit) + "|i",
            "Black|Background color black.||", "White|Background color white.||",
            "Cl&ose|Close the active window||", "Close &All|Close all the windows||",
            "&Tile|Tile the windows||i", "&Cascade|Cascade the windows||i",
            "Ne&xt|Move the focus to the next window|Ctrl+Tab|",
            "Pre&vious|Move the focus to the previous window|" + keysOf(QKeySequence::PreviousChild) + "|",
            "Recording|Recording data from com port.||i", "Capacity comparison|Print capacity comparison.||",
            "Voltage comparison|Print voltage comparison.||", "Bar display|Print bar display.||",
            "Active plot|Print active plot.||", "|||", "&About|Show the application's About box||",
            "About &Qt|Show the Qt library's About box||", "Set time|Set time.||i",
            " DATA |Show/hide display|D|ic", "Graph|Show/hide graph|G|ic",
            "Bar Graph|Show/hide bar graph|Shift+G|ic", " T |Show/hide themparature|T|cCb",
            "  dV |Show/hide dV|V|cCb", " Rw |Show/hide cells internal resistance|R|cCb",
            " B |Balancer/Charger plot|B|cb", " Avg |Cells/MinMax plot|A|cb", " S |Select cells|S|cdb",
            " P% |Show/hide power balancer|P|cdb", " Vc |Cells energy/voltage/internal cel resistance|C|cdb",
            "Stop process|Stop process.||i", "Hold view|Graph windows keep zoom and cursor|H|c",
            "Distinct lines|Lines differ in dashes and lightness, not in hue alone; bars carry letters|L|c",
            "Explanations...|Tells what the status bar and the title of the current graph show.|Shift+F1|",
            "Open recordings...|Open what was recorded from the devices, saved or not.||i",
            "Logbook|What every pack has been through: its recordings, and how it fares.|Ctrl+L|",
            "Reopen closed recording|No window of an unsaved recording has been closed yet.|Ctrl+Shift+T|d",
            "Overlay...|Lay the curves of recordings over each other.|Ctrl+Shift+L|i",
            "Export as CSV...|Write the records of the current graph as a table for other programs.||i",
            "Save picture...|Write the current graph as its window shows it to a picture file.||i",
            "Remote control...|No port is listened on: choose one in the preferences.||id",
            "User guide|Open the manual in your browser.|F1|"};
        QCOMPARE(all, expected);
        QCOMPARE(keysSeen.removeDuplicates(), 0);
    }

    void switching_data()
    {
        const auto row = columns<Ids, QString, QString>(
            {"clicks", "texts", "modes"}); // cells shown, cell value, right axis
        const Id b = Id::Balancer, d = Id::Delta, v = Id::Energy, s = Id::SelectedCells, a = Id::Average;
        row("start", {}, "  dV * Rw * B  Avg  S - P% - Vc -", "001");
        row("mAh", {d}, " mAh * Rw * B  Avg  S - P% - Vc -", "002");
        row("neither", {d, d}, "  dV  Rw * B  Avg  S - P% - Vc -", "000");
        row("dV again", {d, d, d}, "  dV * Rw * B  Avg  S - P% - Vc -", "001");
        row("balancer", {b}, "  dV * Rw * B * Avg  S  P%  Vc ", "001");
        row("balancer has no mAh", {d, b}, "  dV * Rw * B * Avg  S  P%  Vc ", "001");
        row("balancer leaves neither", {d, d, b}, "  dV  Rw * B * Avg  S  P%  Vc ", "000");
        row("dV is on or off in balancer", {b, d}, "  dV  Rw * B * Avg  S  P%  Vc ", "000");
        row("dV on again in balancer", {b, d, d}, "  dV * Rw * B * Avg  S  P%  Vc ", "001");
        row("average takes balancer along", {a}, "  dV * Rw * B * Avg * S - P%  Vc ", "001");
        row("but not what that does", {d, a}, " mAh * Rw * B * Avg * S - P%  Vc ", "002");
        row("average off", {a, a}, "  dV * Rw * B * Avg  S  P%  Vc ", "001");
        row("balancer off takes all along", {a, Id::Power, b}, "  dV * Rw * B  Avg  S - P% - Vc -", "001");
        row("plus", {b, s}, "  dV * Rw * B * Avg  + * P%  Vc ", "101");
        row("minus", {b, s, s}, "  dV * Rw * B * Avg  -  P%  Vc ", "201");
        row("all cells", {b, s, s, s}, "  dV * Rw * B * Avg  S * P%  Vc ", "001");
        row("Ah", {b, v}, "  dV * Rw * B * Avg  S  P%  Ah ", "011");
        row("Ri", {b, v, v}, "  dV * Rw * B * Avg  S  P%  Ri ", "021");
        row("Vc", {b, v, v, v}, "  dV * Rw * B * Avg  S  P%  Vc ", "001");
        row("each for itself", {b, s, v, v, d}, "  dV  Rw * B * Avg  + * P%  Ri ", "120");
        row("curves", {Id::Temperature, Id::Resistance}, "  dV * Rw  B  Avg  S - P% - Vc -", "001");
        row("held", {Id::HoldView}, "  dV * Rw * B  Avg  S - P% - Vc -", "001");
        row("reopened", {b, Id::CloseAll}, "  dV * Rw * B * Avg  S  P%  Vc ", "001");
        row("reopened, average", {a, Id::CloseAll}, "  dV * Rw * B * Avg * S - P%  Vc ", "001");
    }

    /// Text, '*' when checked, '-' when disabled, of "  dV " to " Vc ".
    void switching()
    {
        QFETCH(Ids, clicks);
        window->createMdiChild();
        click(clicks);
        if (clicks.endsWith(Id::CloseAll)) {
            QTRY_VERIFY(!action(Id::Energy)->isEnabled());
            window->createMdiChild();
        }
        QString texts;
        for (int id = int(Id::Delta); id <= int(Id::Energy); ++id)
            texts += action(Id(id))->text() + (action(Id(id))->isChecked() ? "*" : "")
                + (action(Id(id))->isEnabled() ? "" : "-");
        QTEST(texts, "texts");
        const ViewSwitches &on = window->viewState().switches();
        QTEST(
            QString("%1%2%3").arg(int(on.cellsShown)).arg(int(on.cellValue)).arg(int(on.rightAxis)), "modes");
        QCOMPARE(on.holdView, action(Id::HoldView)->isChecked());
        const QVector<bool> switches{on.temperature, on.delta, on.resistance, on.balancer, on.average};
        for (int i = 0; i < switches.size(); ++i)
            QCOMPARE(switches[i], action(Id(int(Id::Temperature) + i))->isChecked());
    }

    /// The newest record goes to the data display again, which from then on knows its resistances.
    void shownAgain()
    {
        const Id b = Id::Balancer, v = Id::Energy;
        const std::pair<Ids, Id> cases[]
            = {{{b, v, v, b}, b}, {{b, v, v, b}, Id::Average}, {{b, v}, v}}; // before, and again
        for (const auto &[before, again] : cases) {
            cleanup();
            init();
            MdiGraphChild *child = window->createMdiChild();
            click(Ids{Id::Data} + before);
            for (int time = 0; time < 3; ++time)
                child->addRecord(Lines::record(time));
            child->applyResistanceLine("!20" + QByteArray(",20").repeated(15));
            click({again});
            child->addRecord(Lines::record(3));
            const auto *display = part<DataDisplay>();
            settle(*display);
            const QString shown = display->findChild<QLabel *>("cellValue1")->text();
            QCOMPARE(shown.trimmed().replace(',', '.'), QString("2.0"));
        }
    }

    /// Each as its switch says; the bar display goes with the balancer view. Each hears the keys of the
    /// switches, closes itself by Escape, and says its name to those who can't see it.
    void displaysFollowTheirSwitches()
    {
        window->createMdiChild();
        trigger(Id::Balancer);
        const auto displays = [this] {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return QVector<QWidget *>{part<DataDisplay>(), part<VoltageComparison>(), part<CapacityDisplay>(),
                part<PowerDisplay>()};
        };
        const auto shown = [&] {
            const ViewSwitches &on = window->viewState().switches();
            const bool switches[]
                = {on.dataDisplay, on.voltageComparison, on.capacityComparison, on.barDisplay};
            const auto all = displays();
            QString seen;
            for (int i = 0; i < all.size(); ++i)
                if ((all[i] && all[i]->isVisible()) != switches[i])
                    seen += '?';
                else if (switches[i])
                    seen += QString::number(i);
            return seen;
        };
        const Ids ids{Id::Data, Id::Graph, Id::BarGraph, Id::Power};
        for (int i = 0; i < ids.size(); ++i) {
            for (const QString &expected : {QString::number(i), QString(), QString::number(i)}) {
                trigger(ids[i]);
                QCOMPARE(shown(), expected);
            }
            QWidget *display = displays().at(i);
            QApplication::setActiveWindow(display);
            for (const bool distinct : {true, false}) {
                QTest::keyClick(display, Qt::Key_L);
                QCOMPARE(window->viewState().switches().distinctLines, distinct);
            }
            QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(display);
            QVERIFY(spoken->text(QAccessible::Name).startsWith(display->windowTitle())
                && spoken->text(QAccessible::Value).isEmpty());
            QTest::keyClick(display, Qt::Key_Escape);
            QCOMPARE(shown(), QString());
            QVERIFY(!action(ids[i])->isChecked());
        }
        click({Id::Power, Id::Balancer});
        QCOMPARE(shown(), QString());
    }

    void signalsPerSwitch()
    {
        window->createMdiChild();
        trigger(Id::Balancer);
        for (int id = int(Id::Data); id <= int(Id::Energy); ++id) {
            const QSignalSpy changes(window.get(), SIGNAL(toolBarChanged()));
            const QSignalSpy repaints(part<ViewSwitchboard>(), SIGNAL(repaintNeeded()));
            trigger(Id(id));
            QCOMPARE(changes.count(), id == int(Id::Average) ? 2 : 1); // which goes with the balancer view
            QCOMPARE(repaints.count(), id == int(Id::Power) || id == int(Id::Energy) ? 0 : 1);
            if (id == int(Id::Balancer) || id == int(Id::Average))
                trigger(Id(id)); // what follows needs the balancer and all cells
        }
    }

    void withoutWindows()
    {
        const auto check = [this](bool any) {
            for (const Id id : {Id::SaveAs, Id::SaveSession, Id::Close, Id::CloseAll, Id::Tile, Id::Cascade,
                     Id::Next, Id::Previous, Id::ExportCsv, Id::SavePicture, Id::Data, Id::Average})
                QCOMPARE(action(id)->isEnabled(), any);
            QCOMPARE(action(Id::Separator)->isVisible(), any);
            window->updateWindowMenu();
            const auto entries = window->menuBar()->actions().at(1)->menu()->actions();
            QCOMPARE(entries.last()->isEnabled(), any); // what can be done to the frame
            QCOMPARE(action(Id::SavePicture)->toolTip() == "There is no graph window.", !any);
        };
        check(false);
        QMetaObject::invokeMethod(window.get(), "saveFile"); // nothing to save: no dialog
        trigger(Id::PrintPlot);
        QCOMPARE(message(), QString("There is no graph window to print."));
        const QPointer<MdiGraphChild> child = window->createMdiChild();
        check(true);
        trigger(Id::Close);
        QTRY_VERIFY(!child);
        check(false);
    }

    /// The buttons of a tool bar take no focus, so that the menus hold what they do.
    void menus()
    {
        QVERIFY(!action(Id::Next)->associatedWidgets().isEmpty()); // its key is heard at once
        window->createMdiChild();
        window->updateWindowMenu(); // as often as it is shown
        const std::function<QString(const QWidget *)> textsOf = [&](const QWidget *widget) {
            QStringList texts;
            for (const QAction *entry : constant(widget->actions())) {
                texts << (entry->isSeparator() ? "|" : entry->text().trimmed());
                if (entry->menu())
                    texts.last() += '[' + textsOf(entry->menu()) + ']';
            }
            return texts.join(',');
        };
        const QString tools
            = "&Tools[Open recordings...,Reopen closed recording,Logbook,Overlay...,|,Export as CSV...,"
              "Save picture...,|,Remote control...,Stop process,Explanations...,"
              "&View switches[DATA,Graph,Bar Graph,|,"
              "T,dV,Rw,|,B,Avg,S,P%,Vc,|,Hold view,Distinct lines]";
        QCOMPARE(textsOf(window->menuBar()).split("],"),
            QStringList({"&File[Open file,Save as,Preferences,Set time,|,E&xit",
                "&Window[Recording,Background color[White,Black",
                "|,Cl&ose,Close &All,|,&Tile,&Cascade,|,Ne&xt,Pre&vious,|,"
                    + QString("Graph window[&Restore,&Move,&Size,Mi&nimize,Ma&ximize]"),
                "&Print[Capacity comparison,Voltage comparison,Bar display,Active plot", tools,
                "|,&Help[User guide,|,&About]"}));
        QVERIFY(window->menuBar()->actions().at(3)->menu()->toolTipsVisible());
        QCOMPARE(action(Id::OpenRecordings)->toolTip(), action(Id::OpenRecordings)->statusTip());
        QCOMPARE(textsOf(window->findChild<QToolBar *>("mainToolBar")),
            QString("Open file,Save as,&Cascade,&Tile,|,Recording,Stop process,|,DATA,Graph,Bar Graph,|,"
                    "T,dV,Rw,|,B,Avg,S,P%,"));
        const auto *energy = window->findChild<QToolButton *>("energyAction");
        QVERIFY(energy->defaultAction() == action(Id::Energy));
        const QWidget *open = window->findChild<QToolBar *>("mainToolBar")->widgetForAction(action(Id::Open));
        QCOMPARE(open->accessibleName() + energy->accessibleName(),
            action(Id::Open)->statusTip() + action(Id::Energy)->statusTip());
    }

    /// In the order of how it is installed; what can't be opened is told.
    void userGuide()
    {
        const QString program = fixture->path("a/b/c");
        QVERIFY(QDir().mkpath(program + "/doc") && QDir().mkpath(fixture->path("a/share/doc/varnelgraph"))
            && QDir().mkpath(fixture->path("docs")));
        QCOMPARE(UserGuide::pageFor(program), QString());
        for (const char *page : {"docs/user-guide.md", "a/share/doc/varnelgraph/user-guide.md",
                 "a/share/doc/varnelgraph/user-guide.html", "a/b/c/doc/user-guide.html"}) {
            QVERIFY(writeFile(fixture->path(page), ""));
            QCOMPARE(UserGuide::pageFor(program), fixture->path(page));
        }
        QDir own(QCoreApplication::applicationDirPath() + "/doc");
        own.removeRecursively(); // of a run that was killed
        trigger(Id::UserGuide);
        QCOMPARE(box("noUserGuide")->text(), QString("The user guide is not installed."));
        delete box("noUserGuide");
        const QString page = own.filePath("user-guide.html");
        QVERIFY(own.mkpath(".") && writeFile(page, ""));
        for (const bool opens : {true, false}) {
            QDesktopServices::setUrlHandler("file", opens ? this : nullptr, "takeUrl");
            trigger(Id::UserGuide);
        }
        QCOMPARE(opened, QUrl::fromLocalFile(page));
        QCOMPARE(box("noUserGuide")->text(),
            "No program opens the user guide. It lies in:\n" + QDir::toNativeSeparators(page));
        QVERIFY(own.removeRecursively());
    }

public slots:
    void takeUrl(const QUrl &url) { opened = url; }

private:
    QUrl opened; // by the desktop, as it was told

    QAction *action(Id id) const { return window->actionSet()[id]; }
    void click(const Ids &ids) const
    {
        for (const Id id : ids) {
            QVERIFY(action(id)->isEnabled());
            trigger(id);
        }
    }
};

QTEST_MAIN(TestActions)
#include "tst_actions.moc"
