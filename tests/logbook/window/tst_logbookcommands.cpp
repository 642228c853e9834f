#include "logbook/window/dialogs/foldersdialog.h"
#include "logbook/window/dialogs/notedialog.h"
#include "logbook/window/table/columnsmenu.h"
#include "printing/printrequest.h"
#include "support/layoutfault.h"
#include "support/paintlog.h"
#include "windowrig.h"

#include <QDesktopServices>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>

/// Every command of the logbook's window: when it can be given, and what comes of it.
class TestLogbookCommands : public QObject, private WindowRig {
    Q_OBJECT

public slots:
    void takeUrl(const QUrl &url) { shownFolder = url; }

private slots:
    void init() { setUp(); }

    /// What can be done with what is chosen; what can't says why.
    void whatCanBeDone()
    {
        static const char *const commands[]
            = {"Open", "Overlay", "Show in folder", "Delete file...", "Note...", "Assign to pack...",
                "Assign to none", "Remove from logbook", "New pack...", "Rename or change pack...",
                "Remove pack", "Merge packs...", "Take apart...", "Assign to offered pack", "Assign to A"};
        const auto can = [this] {
            QString letters;
            for (size_t i = 0; i < std::size(commands); ++i)
                if (const QAction *found = action(commands[i]); found && found->isEnabled())
                    letters += char('a' + i);
            return letters;
        };
        const auto why = [this](const char *text) {
            const QAction *asked = action(text);
            return asked->statusTip() == asked->toolTip() ? asked->toolTip() : "another";
        };
        logbook->setGone(logbook->recording(ids[0])->file, true);
        open();
        QVERIFY(!window->findChild<QLabel *>("logbookTrouble")->isVisible());
        QCOMPARE(why("Filter"), "Takes the keyboard to the filter.");
        QCOMPARE(can(), "i");
        QCOMPARE(why("Open") + why("Note..."), QString("No recording is chosen.").repeated(2));
        QCOMPARE(why("Remove pack"), "No pack is chosen on the left.");
        view()->choose(ids[0]);
        QCOMPARE(can(), "efghi");
        QCOMPARE(why("Open"), "The files of the chosen recordings have gone.");
        QCOMPARE(why("Assign to offered pack"), "No pack is offered for the chosen recordings.");
        view()->choose(ids[1]);
        QCOMPARE(can(), "abcdefgi");
        QCOMPARE(why("Open"), "Opens the chosen recordings, each in a graph window.");
        QCOMPARE(why("Remove from logbook"), "The files of the chosen recordings are there.");
        view()->selectAll();
        QCOMPARE(can(), "abcdfghi");
        QCOMPARE(why("Note..."), "More than one recording is chosen.");
        const LogbookPack pack{0, "A", 5, 6, 5000, ""};
        editor->assign({ids[0]}, editor->addPack(pack));
        QTRY_COMPARE(packs()->model()->rowCount(), 3);
        view()->choose(ids[1]);
        QCOMPARE(can(), "abcdefgio");
        view()->selectAll(); // of which one has it
        QCOMPARE(can(), "abcdfghio");
        view()->clearSelection();
        choosePack(2);
        QCOMPARE(can(), "ijk");
        QCOMPARE(why("Merge packs..."), "There is no other pack.");
        QCOMPARE(why("Take apart..."), "No recording of the pack is chosen.");
        view()->choose(ids[0]);
        QCOMPARE(can(), "efghijkm");
        editor->addPack(pack);
        QCOMPARE(can(), "efghijklm");
        QCOMPARE(why("Undo"), "Takes back the last change.");
        QCOMPARE(why("Redo"), "Nothing has been taken back.");
        QVERIFY(writeFile(fixture->path("taken"), "x"));
        logbook->open(fixture->path("taken")); // where no folder can be
        const auto *trouble = window->centralWidget()->findChild<QLabel *>("logbookTrouble");
        QTRY_VERIFY(trouble->isVisible());
        QCOMPARE(trouble->text(), logbook->trouble());
        QTRY_COMPARE(can(), "");
        QCOMPARE(why("New pack..."), "The logbook can't be kept: nothing can be changed.");
        open();
        QVERIFY(window->findChild<QLabel *>("logbookTrouble")->isVisible());
    }

    /// The commands of rows and packs that no other story uses.
    void smallCommands()
    {
        open();
        view()->choose(ids[0]);
        whenModal<NoteDialog>(window.get(), [](NoteDialog *dialog) {
            QVERIFY(dialog->findChild<QLabel *>()->text().startsWith("2026-0_1, "));
            dialog->findChild<QWidget *>("note")->setProperty("plainText", "of mine");
            dialog->accept();
        });
        trigger("Note...");
        QCOMPARE(logbook->recording(ids[0])->note, "of mine");
        const auto name = [this](const char *text) {
            whenModal<PackDialog>(window.get(), [text](PackDialog *dialog) {
                dialog->findChild<QLineEdit *>("packName")->setText(text);
                dialog->accept();
            });
        };
        name("A");
        trigger("New pack...");
        QTRY_COMPARE(packs()->currentIndex().row(), 2); // is shown
        QCOMPARE(logbook->packs()[0].cellType, 5);
        const qint64 a = logbook->packs()[0].id;
        name("B");
        trigger("Rename or change pack...");
        QCOMPARE(logbook->packName(a), "B");
        LogbookPack other = *logbook->pack(a);
        other.cells = 5;
        other.name = "A of 5";
        editor->addPack(other);
        choosePack(0);
        view()->choose(ids[3]);
        whenModal<PackChoice>(window.get(), [](PackChoice *choice) {
            const auto *list = choice->findChild<QListWidget *>("packs");
            QCOMPARE(list->item(0)->text() + '|' + list->item(1)->text() + '|' + list->item(2)->text(),
                "B, 6 x LiPo|A of 5, 5 x LiPo|New pack..."); // what fits comes first
            choice->reject();
        });
        trigger("Assign to pack...");
        QCOMPARE(logbook->recording(ids[3])->pack, LogbookPack::none);
        editor->assign({ids[3], ids[2]}, a);
        QTRY_COMPARE(packs()->model()->rowCount(), 4);
        view()->choose(ids[3]);
        trigger("Assign to none");
        QCOMPARE(logbook->recording(ids[3])->pack, LogbookPack::none);
        choosePack(3);
        trigger("Remove pack");
        QCOMPARE(logbook->recording(ids[2])->pack, LogbookPack::none);
        QTRY_COMPARE(packs()->currentIndex().row(), 0);
        QDesktopServices::setUrlHandler("file", this, "takeUrl");
        view()->choose(ids[1]);
        trigger("Show in folder");
        QDesktopServices::unsetUrlHandler("file");
        QCOMPARE(shownFolder, QUrl("file:///r"));
        QVERIFY(!window->findChild<QMessageBox *>("noFolder"));
        for (int day = 100; day < 117; ++day)
            add(sampleRecording(day, Varnel::Charge, 100));
        QTRY_COMPARE(window->shownIds().size(), 21);
        QSignalSpy opened(window.get(), SIGNAL(openWanted(QStringList)));
        view()->selectAll();
        whenModal<QMessageBox>(window.get(), [](QMessageBox *box) { box->reject(); });
        trigger("Open");
        QCOMPARE(opened.size(), 0);
        view()->selectionModel()->select(
            view()->model()->index(0, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
        trigger("Open"); // of twenty without a question
        QCOMPARE(opened.size(), 1);
        whenModal<FoldersDialog>(window.get(), [](FoldersDialog *dialog) {
            dialog->add("/r");
            dialog->accept();
        });
        trigger("Folders...");
        QCOMPARE(logbook->folders(), QStringList{"/r"});
    }

    /// What has changed while it was closed is shown when it opens again; Escape and menus.
    void closedAndOpened()
    {
        open();
        QSignalSpy closed(window.get(), SIGNAL(closed()));
        type("nothing like that");
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QCOMPARE(window->shownIds().size(), 4);
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(!window->isVisible() && closed.size() == 1);
        add(sampleRecording(50, Varnel::Charge, 1));
        QVERIFY(window->shownIds().size() == 4 && !later()->isActive());
        window->show();
        QCOMPARE(window->shownIds().size(), 5);
        QCOMPARE(action("Note...")->shortcut(), QKeySequence("F2"));
        const std::pair<QWidget *, const char *> menus[] = {
            {view(),
                "Open,Overlay,Show in folder,,Assign to pack...,Assign to offered pack,Assign to none,Note..."
                ",,Delete file...,Remove from logbook,,Export as CSV...,Print table...,,Close"},
            {packs(), "New pack...,Rename or change pack...,Merge packs...,Take apart...,,Remove pack"},
            {window->findChild<CourseCanvas *>()->parentWidget(), "Save picture...,Print chart..."},
            {view()->horizontalHeader(),
                "Explain row,,Sort by column,Move column left,Move column right,Hide column,Show all columns,"
                "Columns"}};
        const auto textsOf = [](const QMenu *menu) {
            QStringList found;
            const auto actions = menu->actions();
            for (const QAction *one : actions)
                found += one->text().remove('&');
            return found.join(',');
        };
        QCOMPARE(textsOf(window->menuBar()->actions().at(1)->menu()),
            "Undo,Redo,,Filter,Clear filter,,Folders...,Read again");
        for (const auto &[on, texts] : menus) {
            auto *area = qobject_cast<QAbstractScrollArea *>(on);
            QWidget *under = area ? area->viewport() : on;
            QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5}, under->mapToGlobal({5, 5}));
            QCoreApplication::sendEvent(under, &asked);
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QCOMPARE(textsOf(menu), texts);
            QVERIFY(menu->toolTipsVisible());
            menu->close();
        }
        QCOMPARE(view()->currentIndex().column(), view()->horizontalHeader()->logicalIndexAt(5));
        auto *columnsMenu = window->findChild<ColumnsMenu *>();
        view()->setColumnShown(Columns::Port, false);
        columnsMenu->popup({0, 0});
        QCOMPARE(columnsMenu->actions().size(), int(Columns::count));
        QVERIFY(!columnsMenu->actions().at(Columns::Port)->isChecked());
        QVERIFY(columnsMenu->actions().at(Columns::Pack)->isChecked() && columnsMenu->toolTipsVisible());
        QCOMPARE(columnsMenu->actions().at(Columns::Port)->toolTip(), Columns::tip(Columns::Port));
        columnsMenu->actions().at(Columns::Port)->trigger();
        columnsMenu->close();
        QVERIFY(!view()->isColumnHidden(Columns::Port));
        QCOMPARE(layoutFault(*window), QByteArray());
        ViewSwitches white;
        white.blackBackground = false;
        state.setSwitches(white);
        QVERIFY(!window->findChild<CourseCanvas *>()->chart().blackGround);
    }

    void prints()
    {
        editor->assign(ids, editor->addPack({0, "A", 5, 6, 0, ""}));
        open();
        choosePack(2);
        for (int i = 0; i < 60; ++i)
            editor->assign({add(sampleRecording(i, Varnel::Charge, 1000))}, logbook->packs()[0].id);
        QTRY_COMPARE(window->shownIds().size(), 64);
        const auto printed = [this](const char *command) {
            trigger(command);
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            const PrintJob job = dialog->findChild<PrintRequest *>()->job();
            dialog->reject();
            return job;
        };
        const PrintJob table = printed("Print table...");
        QCOMPARE(table.title + ' ' + table.details.section(',', 0, 0), "Varnel - logbook A");
        QCOMPARE(table.pages, 2);
        PaintLog log(table.size.toSize());
        QPainter painter(&log);
        table.paintPage(painter, 0);
        painter.end();
        const QString texts = log.lines().join('\n');
        QVERIFY2(texts.contains("'1000'") && !texts.contains("'4800'"), qPrintable(texts));
        const PrintJob chart = printed("Print chart...");
        QCOMPARE(chart.title, "A, 6 x LiPo, 60 cycle(s): Capacity");
        VERIFY_PAINTS(chart.size.toSize(), chart.paint, "rect 0,0 900x590 #ffffff");
    }

private:
    QUrl shownFolder;
};

QTEST_MAIN(TestLogbookCommands)
#include "tst_logbookcommands.moc"
