#include "dialogs/about.h"
#include "dialogs/dialogpreferences.h"
#include "dialogs/dialogremotecontrol.h"
#include "graph/mdigraphchild.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookreader.h"
#include "logbook/window/logbookwindow.h"
#include "overlay/overlaywindow.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/lines.h"
#include "support/shellrig.h"
#include "widgets/mnemonics.h"

#include <QAccessible>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStackedWidget>
#include <QToolBar>

/// Nothing needs a mouse, and nothing needs to be seen to be known.
class TestKeyboard : public ShellRig {
    Q_OBJECT

private slots:
    void lettersDiffer()
    {
        const std::pair<QString, QString> rows[] = {{"Open file,Open more", "&Open file,Open &more"},
            {"Save as,E&xit,Set time", "&Save as,E&xit,Set &time"},
            {"xx,E&xit,Lux", "xx,E&xit,&Lux"}, // nothing is left for the first
            {"a,a", "&a,a"},
            {"cd,ab,ac,b", "c&d,&ab,a&c,&b"}, // one gives way to the next, and that to the third
            {"Bar, B ,A", "Ba&r, &B ,&A"}, // the one gives way that has another letter
            {" T , dV , Vc ", " &T , &dV , &Vc "}, {"Öffnen,Über,öl", "&Öffnen,&Über,ö&l"},
            {"...,1", "...,&1"}};
        for (const auto &[texts, given] : rows)
            QCOMPARE(withMnemonics(texts.split(QLatin1Char(','))).join(QLatin1Char(',')), given);
    }

    /// While a menu is open; afterwards its entries are called as before.
    void everyEntryHasItsLetter()
    {
        window = std::make_unique<MainWindow>();
        window->createMdiChild();
        int seen = 0;
        trigger(ActionId::Logbook);
        QVector<QMenu *> menus = window->menuBar()->findChildren<QMenu *>().toVector();
        for (const QWidget *top : constant(QApplication::topLevelWidgets()))
            if (const auto *logbook = qobject_cast<const LogbookWindow *>(top))
                menus += logbook->menuBar()->findChildren<QMenu *>().toVector();
        for (int i = 0; i < menus.size(); ++i) {
            QMetaObject::invokeMethod(menus[i], "aboutToShow");
            QStringList letters;
            QStringList texts;
            for (const QAction *entry : constant(menus[i]->actions())) {
                texts.append(entry->text());
                if (!entry->isSeparator())
                    letters.append(QKeySequence::mnemonic(entry->text()).toString());
                if (entry->menu() && !menus.contains(entry->menu()))
                    menus.append(entry->menu());
            }
            QVERIFY2(!letters.contains(QString()) && letters.removeDuplicates() == 0,
                qPrintable(texts.join(QLatin1Char(','))));
            seen += letters.size();
            QMetaObject::invokeMethod(menus[i], "aboutToHide");
        }
        QVERIFY(seen > 95);
        QCOMPARE(window->actionSet()[ActionId::Open]->text(), "Open file");
    }

    void everyControlIsReachedAndNamed_data()
    {
        const auto row = columns<QString, QString>({"dialog", "order"});
        row("preferences", "P", "COM1,COM2,Set varnel3's time while starting,OK,Cancel,Refresh,Reset,System");
        row("about", "A", "M,D,OK");
        row("setup", "0", "Battery,Memory 1,Power suply,Close");
        row("memory", "1", "Memory before,Memory 1,Next memory,Close");
        row("cells", "2", "One cell less,Cells 1,One cell more,START,Close");
        row("process", "3", "STOP,Close");
        row("disconnect", "4", "Bip Off,Close");
        row("overlay", "O",
            "Pack voltage,Time,Line up at the start of current,No recording is shown: add files, or take "
            "the open "
            "graph windows.,Add files...,Open windows");
        row("logbook", "L",
            "Filter,Any chemistry,Any process,From,To,Capacity,by date,All packs: Capacity\nNo "
            "recordings yet. They come from your devices, from files that you open, and from the folders of "
            "Edit > Folders.");
    }

    /// By Tab, in the order in which they are read; each has a name and a tip.
    void everyControlIsReachedAndNamed()
    {
        QFETCH(QString, dialog);
        plug("COM1");
        plug("COM2");
        const ViewState state;
        Logbook logbook;
        LogbookEditor editor(&logbook);
        LogbookReader reader(&logbook, fixture->path("recordings"));
        std::unique_ptr<QWidget> shown;
        if (dialog == QLatin1String("P"))
            shown = std::make_unique<DialogPreferences>(nullptr);
        else if (dialog == QLatin1String("O"))
            shown = std::make_unique<OverlayWindow>(&state);
        else if (dialog == QLatin1String("L"))
            shown = std::make_unique<LogbookWindow>(
                LogbookCommands::Parts{&logbook, &editor, &reader}, &state, QString());
        else if (dialog == QLatin1String("A"))
            shown = std::make_unique<About>();
        else
            shown = std::make_unique<DialogRemoteControl>(
                nullptr, nullptr, DialogRemoteControl::Times{1000000, 1000000, 1000000});
        if (auto *pages = shown->findChild<QStackedWidget *>("pages"))
            pages->setCurrentIndex(dialog.toInt());
        shown->show();
        QApplication::setActiveWindow(shown.get());
        QStringList reached;
        QSet<QWidget *> seen;
        for (QWidget *at = shown->focusWidget(); at && !seen.contains(at); at = shown->focusWidget()) {
            seen.insert(at);
            const bool isControl = !at->inherits("QAbstractScrollArea");
            if (isControl && at->inherits("QLabel"))
                reached.append(static_cast<QLabel *>(at)->text().at(0));
            else if (isControl)
                reached.append(nameOf(at));
            QVERIFY2(!isControl || !at->toolTip().isEmpty(), qPrintable(nameOf(at)));
            for (int links = 0; links < 2 && shown->focusWidget() == at; ++links)
                QTest::keyClick(at, Qt::Key_Tab);
        }
        QFETCH(QString, order);
        const int first = std::max(0, reached.indexOf(order.section(QLatin1Char(','), 0, 0)));
        reached = reached.mid(first) + reached.mid(0, first); // entered at the default button
        QCOMPARE(reached.join(QLatin1Char(',')), order);
    }

    void graphFramesByMenu()
    {
        open({});
        window->createMdiChild();
        QMdiSubWindow *frame = part<QMdiArea>()->currentSubWindow();
        window->updateWindowMenu();
        const QMenu *menu = window->menuBar()->actions()[1]->menu()->actions().last()->menu();
        const auto entries = menu->actions(); // restore, move, size, minimise, maximise
        entries[4]->trigger();
        QVERIFY(frame->isMaximized());
        entries[0]->trigger();
        QVERIFY(!frame->isMaximized());
        const QSize size = frame->size();
        entries[2]->trigger();
        QTest::keyClick(frame, Qt::Key_Right);
        QTest::keyClick(frame, Qt::Key_Return);
        QVERIFY(frame->width() > size.width());
    }

    /// What tool tips of status bar and title tell; what a screen reader says of a graph.
    void toldWithoutMouse()
    {
        open({});
        MdiGraphChild *child = window->createMdiChild();
        window->renumerateWindows();
        QCOMPARE(nameOf(child), "Graph 1, no data");
        Varnel3Data record = Lines::record(0);
        child->setPortName("COM3");
        record.voltage = 23400;
        record.cellCount = 6;
        record.cellType = 5;
        record.mode = Varnel3Data::Charge;
        record.flag3 = 'E';
        child->addRecord(record);
        QCOMPARE(nameOf(child), "Graph 1, COM3, charge, 6 x LiPo, 23.4 volts");
        trigger(ActionId::Explain);
        const QString text = box("explanations")->text();
        QVERIFY2(text.startsWith(nameOf(child) + QLatin1Char('\n') + child->toolTip())
                && !child->toolTip().isEmpty()
                && text.contains(QLatin1String("The ports are chosen in File > Preferences.")),
            qPrintable(text));
        QVERIFY(box("explanations")->isVisible() && box("explanations")->textFormat() == Qt::PlainText);
        box("explanations")->close();
        const auto *voltage
            = window->findChild<QToolBar *>("dataToolBar")->findChild<QLabel *>("voltageLabel");
        QCOMPARE(nameOf(voltage), "Voltage 23.40 V");
    }

private:
    static QString nameOf(const QWidget *widget)
    {
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget));
        return spoken->text(QAccessible::Name).trimmed();
    }
};

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
