#include "files/disk/lockedfile.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookreader.h"
#include "logbook/window/course/coursecanvas.h"
#include "logbook/window/logbookwindow.h"
#include "logbook/window/dialogs/notedialog.h"
#include "logbook/window/dialogs/packchoice.h"
#include "logbook/window/dialogs/packdialog.h"
#include "logbook/window/table/columnsmenu.h"
#include "logbook/window/table/recordingcolumns.h"
#include "logbook/window/table/recordingview.h"
#include "logbook/window/table/tablepages.h"
#include "printing/printrequest.h"
#include "resources/resources.h"
#include "sample.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/layoutfault.h"
#include "support/modaldialog.h"
#include "support/paintlog.h"
#include "support/shellfixture.h"

#include <QAction>
#include <QComboBox>
#include <QDesktopServices>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeView>

#include <sys/syscall.h>
#include <unistd.h>

using Varnel = Varnel3Data;
using Columns = RecordingColumns;

namespace {

bool windowAskedDisk = false; // whether a file is locked

} // namespace

// In the place of the system's.
extern "C" int flock(int descriptor, int operation)
{
    windowAskedDisk |= ::gettid() == ::getpid();
    return int(::syscall(SYS_flock, descriptor, operation));
}

/// The logbook's window, as its user goes about it.
class TestLogbookWindow : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initResources();
        QLocale::setDefault(QLocale::c());
    }

    void init()
    {
        fixture = std::make_unique<ShellFixture>();
        logbook = std::make_unique<Logbook>();
        editor = std::make_unique<LogbookEditor>(logbook.get());
        reader = std::make_unique<LogbookReader>(logbook.get(), fixture->path("own"));
        for (int day = 0; day < 4; ++day)
            ids.append(add(logbook.get(), sampleRecording(10 * day, Varnel::Discharge, 4800 - 100 * day)));
    }

    void cleanup()
    {
        window.reset();
        reader.reset();
        editor.reset();
        logbook.reset();
        ids.clear();
    }

    void figuresOfARow_data()
    {
        columns<int, QString>({"column", "text"});
        const auto row = [](int column, const char *text) {
            QTest::newRow(qPrintable(Columns::title(column))) << column << QString::fromUtf8(text);
        };
        row(Columns::Start, "≈ 01 Jan 2026 12:00");
        row(Columns::Device, "Varnel 3");
        row(Columns::Process, "Discharge");
        row(Columns::Cells, "6");
        row(Columns::Duration, "01:00:00");
        row(Columns::Charge, "4800");
        row(Columns::Energy, "106.56");
        row(Columns::StartVoltage, "25.00");
        row(Columns::EndVoltage, "19.80");
        row(Columns::Temperature, "");
        row(Columns::Resistance, "20");
        row(Columns::CellResistances, "1.5  2.5  0.0  0.0  0.0  0.0");
        row(Columns::Spread, "12");
        row(Columns::Ended, "Completed");
        row(Columns::Note, "two lines");
        row(Columns::File, "2026-0_1.acp (gone)");
    }

    void figuresOfARow()
    {
        LogbookRecording recording = sampleRecording(0, Varnel::Discharge, 4800);
        recording.isStartApproximate = recording.isGone = true;
        recording.note = "two\nlines";
        recording.figures.cellResistances[0] = 1.5;
        recording.figures.cellResistances[1] = 2.5;
        QFETCH(int, column);
        QString text = Columns::text(*logbook, recording, column);
        if (column == Columns::Start)
            text.replace(" 1 Jan", " 01 Jan");
        QTEST(text, "text");
    }

    /// What is not known comes last, either way; what is chosen stays.
    void sorting()
    {
        LogbookRecording unread;
        unread.file = "/r/unread.acp";
        const qint64 last = add(logbook.get(), unread);
        open();
        view()->choose(ids[1]);
        QSignalSpy selected(view(), SIGNAL(selected()));
        for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            for (const int column : {Columns::Charge, Columns::Device, Columns::Start}) {
                view()->QTableView::sortByColumn(column, order);
                QCOMPARE(window->shownIds().last(), last);
                QCOMPARE(view()->selectedIds(), QVector<qint64>{ids[1]});
            }
            QCOMPARE(window->shownIds().first(), order == Qt::AscendingOrder ? ids[0] : ids[3]);
        }
        view()->selectAll();
        type("discharge");
        QCOMPARE(view()->selectedIds().size(), 4);
        type("nothing like that");
        QCOMPARE(view()->selectedIds().size(), 0);
        QCOMPARE(window->findChild<QLabel *>("logbookCount")->text(), "0 of 5 recording(s)");
        QTest::keyClick(window->findChild<QLineEdit *>("filterText"), Qt::Key_Escape);
        QCOMPARE(window->shownIds().size(), 5);
        QVERIFY(window->isVisible());
        window->findChild<QComboBox *>("filterProcess")->setCurrentIndex(1); // charge
        QCOMPARE(window->shownIds().size(), 0);
        trigger("Clear filter");
        QCOMPARE(window->shownIds().size(), 5);
    }

    /// By dialogs: a new pack, the one that is offered, another name, merged, taken apart; and all back.
    void packsByDialogs()
    {
        open();
        QVERIFY(!action("Assign to pack...")->isEnabled() && !action("Undo")->isEnabled());
        view()->choose(ids[0]);
        whenModal<PackDialog>(window.get(), [](PackDialog *dialog) {
            QCOMPARE(dialog->pack().cells, 6);
            QCOMPARE(dialog->pack().cellType, 5);
            QVERIFY(!dialog->findChild<QPushButton *>()->isEnabled()); // OK
            dialog->findChild<QLineEdit *>("packName")->setText(" A ");
            dialog->findChild<QSpinBox *>("packCapacity")->setValue(5000);
            dialog->accept();
        });
        trigger("Assign to pack...");
        const qint64 a = logbook->recording(ids[0])->pack;
        QCOMPARE(logbook->pack(a)->name, "A");
        QCOMPARE(logbook->recording(ids[1])->pack, LogbookPack::none); // nothing assigns itself
        view()->choose(ids[1]);
        QCOMPARE(view()->currentIndex().siblingAtColumn(Columns::Pack).data().toString(), "A ?");
        trigger("Assign to A");
        QCOMPARE(logbook->recording(ids[1])->pack, a);
        view()->choose(ids[2]);
        whenModal<PackChoice>(window.get(), [this](PackChoice *choice) {
            QVERIFY(choice->chosen() != PackChoice::newPack); // the one that is offered
            whenModal<PackDialog>(window.get(), [](PackDialog *dialog) {
                dialog->findChild<QLineEdit *>("packName")->setText("B");
                dialog->accept();
            });
            QTest::keyClick(choice->findChild<QWidget *>("packs"), Qt::Key_End);
            choice->accept();
        });
        trigger("Assign to pack...");
        const qint64 b = logbook->recording(ids[2])->pack;
        QCOMPARE(logbook->packName(b), "B");
        QTRY_COMPARE(packs()->model()->rowCount(), 4);
        choosePack(2);
        QCOMPARE(window->shownIds(), (QVector<qint64>{ids[1], ids[0]}));
        whenModal<PackChoice>(window.get(), [b](PackChoice *choice) {
            QCOMPARE(choice->chosen(), b);
            choice->accept();
        });
        trigger("Merge packs...");
        QCOMPARE(logbook->recording(ids[2])->pack, a);
        QTRY_COMPARE(window->shownIds().size(), 3);
        view()->choose(ids[0]);
        whenModal<PackDialog>(window.get(), [](PackDialog *dialog) { dialog->accept(); });
        trigger("Take apart...");
        QCOMPARE(logbook->packName(logbook->recording(ids[0])->pack), "A (2)");
        QCOMPARE(window->shownIds(), QVector<qint64>{ids[0]}); // the new pack is shown
        while (action("Undo")->isEnabled())
            action("Undo")->trigger();
        QCOMPARE(logbook->packs().size(), 0);
        QTRY_COMPARE(window->shownIds().size(), 4);
        while (action("Redo")->isEnabled())
            action("Redo")->trigger();
        QCOMPARE(logbook->packName(logbook->recording(ids[0])->pack), "A (2)");
    }

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
        const auto why = [this](const char *text) { return action(text)->toolTip(); };
        logbook->setGone(logbook->recording(ids[0])->file, true);
        open();
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
        LogbookPack pack;
        pack.name = "A";
        editor->assign({ids[0]}, editor->addPack(pack));
        QTRY_COMPARE(packs()->model()->rowCount(), 3);
        view()->choose(ids[1]);
        QCOMPARE(can(), "abcdefgio");
        view()->selectAll(); // of which one has it
        QCOMPARE(can(), "abcdfghi");
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
        QTRY_VERIFY(window->findChild<QLabel *>("logbookTrouble")->isVisible());
        QCOMPARE(window->findChild<QLabel *>("logbookTrouble")->text(), logbook->trouble());
        QTRY_COMPARE(can(), "");
        QCOMPARE(why("New pack..."), "The logbook can't be kept: nothing can be changed.");
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
        view()->selectAll();
        whenModal<QMessageBox>(window.get(), [](QMessageBox *box) {
            QVERIFY(box->text().startsWith("Move 4 file(s)")
                && box->detailedText().contains("/r/2026-30_1.acp\n"));
            box->reject();
        });
        trigger("Delete file...");
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
        add(logbook.get(), sampleRecording(50, Varnel::Charge, 1));
        QCOMPARE(window->shownIds().size(), 4);
        window->show();
        QCOMPARE(window->shownIds().size(), 5);
        const std::pair<QWidget *, const char *> menus[] = {{view(), "Open"}, {packs(), "New pack..."},
            {window->findChild<CourseCanvas *>()->parentWidget(), "Save picture..."},
            {view()->horizontalHeader(), "Explain row"}};
        for (const auto &[on, first] : menus) {
            emit on->customContextMenuRequested({5, 5});
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QVERIFY2(menu && menu->actions().constFirst()->text().remove('&') == first, first);
            menu->close();
        }
        auto *columnsMenu = window->findChild<ColumnsMenu *>();
        view()->setColumnShown(Columns::Port, false);
        columnsMenu->popup({0, 0});
        QCOMPARE(columnsMenu->actions()[Columns::Port]->isChecked(), false);
        QCOMPARE(columnsMenu->actions()[Columns::Pack]->isChecked(), true);
        columnsMenu->actions()[Columns::Port]->trigger();
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
        open();
        type("2026-10");
        const auto printed = [this](const char *command) {
            trigger(command);
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            const PrintJob job = dialog->findChild<PrintRequest *>()->job();
            dialog->reject();
            return job;
        };
        const PrintJob table = printed("Print table...");
        QCOMPARE(table.title + ' ' + table.details.section(',', 0, -2), "Varnel - logbook ");
        QCOMPARE(table.pages, 1);
        PaintLog log(table.size.toSize());
        QPainter painter(&log);
        table.paintPage(painter, 0);
        painter.end();
        const QString texts = log.lines().join('\n');
        QVERIFY2(texts.contains("'4700'") && !texts.contains("'4800'"), qPrintable(texts));
        const PrintJob chart = printed("Print chart...");
        QCOMPARE(chart.title, "All packs: Capacity");
        const QSize size = window->findChild<CourseCanvas *>()->size();
        QCOMPARE(chart.size.toSize(), size);
        const QString ground = QString("rect 0,0 %1x%2 #ffffff").arg(size.width()).arg(size.height());
        VERIFY_PAINTS(size, chart.paint, ground);
    }

    void files()
    {
        LogbookRecording found = sampleRecording(100, Varnel::Charge, 4000);
        found.file = fixture->path("data/x.acp");
        QDir().mkpath(fixture->path("data"));
        QFile file(found.file);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
        file.close();
        const qint64 id = add(logbook.get(), found);
        logbook->setGone(logbook->recording(ids[0])->file, true);
        open();
        QSignalSpy opened(window.get(), SIGNAL(openWanted(QStringList)));
        QSignalSpy overlaid(window.get(), SIGNAL(overlayWanted(QStringList,QStringList)));
        view()->choose(ids[0]);
        QVERIFY(!action("Open")->isEnabled() && action("Remove from logbook")->isEnabled());
        view()->choose(id);
        QVERIFY(!action("Remove from logbook")->isEnabled());
        QTest::keyClick(view(), Qt::Key_Return);
        QCOMPARE(opened.takeFirst().value(0).toStringList(), QStringList{found.file});
        trigger("Overlay");
        QCOMPARE(overlaid.first().at(0).toStringList(), QStringList{found.file});
        QVERIFY(overlaid.first().at(1).toStringList().first().startsWith("x, "));
        const auto answer = [this](const char *name, QMessageBox::ButtonRole role) {
            whenModal<QMessageBox>(window.get(), [name, role](QMessageBox *box) {
                QVERIFY(box->informativeText().contains(name));
                const auto buttons = box->buttons();
                for (QAbstractButton *button : buttons)
                    if (box->buttonRole(button) == role)
                        return button->click();
            });
            trigger("Delete file...");
        };
        answer("x.acp", QMessageBox::RejectRole);
        QVERIFY(QFile::exists(found.file));
        answer("x.acp", QMessageBox::AcceptRole);
        QTRY_VERIFY(logbook->recording(id)->isGone); // in the waste bin
        QVERIFY(!QFile::exists(found.file));
        QTRY_VERIFY(action("Remove from logbook")->isEnabled());
        trigger("Remove from logbook");
        QTRY_COMPARE(window->shownIds().size(), 4);
        QVERIFY(!logbook->recording(id));
        // One that is being recorded stays, which is told.
        found.file = fixture->path("data/y.acp");
        const CreatedFile live = createLockedFile(found.file);
        const qint64 locked = add(logbook.get(), found);
        QTRY_COMPARE(window->shownIds().size(), 5);
        view()->choose(locked);
        windowAskedDisk = false;
        answer("y.acp", QMessageBox::AcceptRole);
        QTRY_VERIFY(window->findChild<QMessageBox *>("notDeleted"));
        const auto *told = window->findChild<QMessageBox *>("notDeleted");
        QVERIFY(told->text().startsWith("1 file") && told->detailedText().endsWith("y.acp"));
        QVERIFY(QFile::exists(found.file) && !windowAskedDisk);
        closeFile(live.descriptor);
    }

    /// A click on a point shows its row, whatever is filtered; the keyboard goes along the points.
    void course()
    {
        LogbookPack pack;
        pack.name = "A";
        pack.capacity = 5000;
        editor->assign(ids, editor->addPack(pack));
        open();
        choosePack(2);
        QCOMPARE(window->findChild<QLabel *>("courseHeadline")->text(),
            "A, 5000 mAh, state of health 90 %, 4 cycle(s)");
        auto *canvas = window->findChild<CourseCanvas *>();
        type("nothing like that");
        const CourseLine &line = canvas->chart().lines[0];
        const QPointF place = canvas->chart().mapping(canvas->size()).place(line.points[1]);
        QTest::mouseClick(canvas, Qt::LeftButton, {}, place.toPoint());
        QCOMPARE(view()->selectedIds(), QVector<qint64>{ids[1]});
        QCOMPARE(canvas->chart().marked, ids[1]);
        QTest::keyClick(canvas, Qt::Key_Right);
        QCOMPARE(view()->selectedIds(), QVector<qint64>{ids[2]});
        QVERIFY2(
            canvas->spokenText().contains("Discharge: 4.60 Ah (92 %)"), qPrintable(canvas->spokenText()));
        window->findChild<QComboBox *>("courseAxis")->setCurrentIndex(1);
        QCOMPARE(canvas->chart().lines[0].points[3].at, 4.0);
        window->findChild<QComboBox *>("courseQuantity")->setCurrentIndex(2);
        QCOMPARE(canvas->chart().lines[0].points[3].value, 50.0);
    }

    /// Columns, and what the chart shows, are as they were left.
    void keepsItsLooks()
    {
        open();
        view()->choose(ids[0]);
        view()->setCurrentIndex(view()->model()->index(0, Columns::Port));
        trigger("Hide column");
        view()->setCurrentIndex(view()->model()->index(0, Columns::Charge));
        for (int i = 0; i < 3; ++i)
            trigger("Move column left");
        trigger("Sort by column");
        window->findChild<QComboBox *>("courseQuantity")->setCurrentIndex(3);
        VarnelSettings settings;
        window->writeState(&settings);
        open();
        QVERIFY(view()->horizontalHeader()->sectionsMovable());
        QVERIFY(view()->isColumnHidden(Columns::Port) && !view()->isColumnHidden(Columns::Device));
        QCOMPARE(view()->horizontalHeader()->visualIndex(Columns::Charge), int(Columns::Charge) - 3);
        QCOMPARE(window->shownIds().first(), ids[3]); // the least charge
        QCOMPARE(window->findChild<QComboBox *>("courseQuantity")->currentIndex(), 3);
        const TablePages pages(*view()->model(), *view()->horizontalHeader());
        QCOMPARE(pages.count(), 1);
        PaintLog log(TablePages::size().toSize());
        QPainter painter(&log);
        pages.paint(painter, 0);
        painter.end();
        const QString painted = log.lines().join('\n');
        QVERIFY2(painted.contains("'4500'") && !painted.contains("'COM3'"), qPrintable(painted));
        for (int i = 0; i < Columns::count + 3; ++i)
            trigger("Hide column"); // one stays
        QVERIFY(view()->horizontalHeader()->hiddenSectionCount() < Columns::count);
        trigger("Show all columns");
        QCOMPARE(view()->horizontalHeader()->hiddenSectionCount(), 0);
    }

public slots:
    void takeUrl(const QUrl &url) { shownFolder = url; }

private:
    void open()
    {
        window = std::make_unique<LogbookWindow>(
            LogbookCommands::Parts{logbook.get(), editor.get(), reader.get()}, &state, fixture->path("own"));
        window->readState(VarnelSettings());
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    RecordingView *view() const { return window->findChild<RecordingView *>(); }
    QTreeView *packs() const { return window->findChild<QTreeView *>("packs"); }
    void choosePack(int row) const { packs()->setCurrentIndex(packs()->model()->index(row, 0)); }
    void type(const QString &text) const { window->findChild<QLineEdit *>("filterText")->setText(text); }
    QAction *action(const QString &text) const
    {
        const auto actions = window->findChildren<QAction *>();
        const auto found = std::find_if(actions.begin(), actions.end(),
            [&](const QAction *one) { return one->text() == text || one->text().startsWith(text + ": "); });
        return found == actions.end() ? nullptr : *found;
    }
    void trigger(const QString &text) const
    {
        QAction *found = action(text);
        QVERIFY2(found != nullptr && found->isEnabled(), qPrintable(text));
        if (found != nullptr)
            found->trigger();
    }

    std::unique_ptr<ShellFixture> fixture;
    std::unique_ptr<Logbook> logbook;
    std::unique_ptr<LogbookEditor> editor;
    std::unique_ptr<LogbookReader> reader;
    std::unique_ptr<LogbookWindow> window;
    ViewState state;
    QUrl shownFolder;
    QVector<qint64> ids; // a discharge every ten days
};

QTEST_MAIN(TestLogbookWindow)
#include "tst_logbookwindow.moc"
