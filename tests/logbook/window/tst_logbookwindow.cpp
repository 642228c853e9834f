#include "files/disk/lockedfile.h"
#include "windowrig.h"

#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QToolTip>

#include <sys/syscall.h>
#include <unistd.h>

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
class TestLogbookWindow : public QObject, private WindowRig {
    Q_OBJECT

private slots:
    void init() { setUp(); }

    /// What is not known comes last, either way; what is chosen stays.
    void sorting()
    {
        LogbookRecording unread;
        unread.file = "/r/unread.acp";
        const qint64 last = add(unread);
        open();
        QVERIFY(window->focusWidget() == view() && !window->windowIcon().pixmap(16).isNull());
        QVERIFY(!window->testAttribute(Qt::WA_QuitOnClose));
        view()->setFixedHeight(60); // of about a row
        QTRY_COMPARE(view()->height(), 60);
        const auto isInSight = [this] {
            return view()->viewport()->rect().contains(view()->visualRect(view()->currentIndex()).center());
        };
        view()->choose(ids[1]);
        QCOMPARE(view()->currentIndex().column(), 0);
        view()->scrollToBottom();
        view()->choose(ids[1]);
        QVERIFY(isInSight());
        for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            for (const int column : {Columns::Charge, Columns::Device, Columns::Start}) {
                view()->QTableView::sortByColumn(column, order);
                QCOMPARE(window->shownIds().last(), last);
                QCOMPARE(view()->selectedIds(), QVector<qint64>{ids[1]});
                QVERIFY(isInSight());
            }
            QCOMPARE(window->shownIds().first(), order == Qt::AscendingOrder ? ids[0] : ids[3]);
        }
        view()->setCurrentIndex(view()->model()->index(2, Columns::Charge));
        for (const qint64 first : {ids[3], ids[0], ids[3]}) { // the second time the other way round
            trigger("Sort by column");
            QCOMPARE(window->shownIds().first(), first);
        }
        view()->clearSelection();
        for (const int row : {0, 1, 3}) // the three least and the most
            view()->selectionModel()->select(
                view()->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        trigger("Sort by column");
        QCOMPARE(view()->selectedIds(), (QVector<qint64>{ids[0], ids[2], ids[3]}));
        QCOMPARE(view()->selectionModel()->selectedRows().size(), 3); // whole ones
        QCOMPARE(view()->currentIndex().row(), 1);
        view()->setFocus();
        QTest::keyClick(view(), Qt::Key_Space);
        QVERIFY(QToolTip::text().contains("Charge [mAh]: 4700"));
        QToolTip::hideText();
        view()->selectAll();
        type("discharge");
        QCOMPARE(view()->selectedIds().size(), 4);
        type("nothing like that");
        QCOMPARE(view()->selectedIds().size(), 0);
        QCOMPARE(window->findChild<QLabel *>("logbookCount")->text(), "0 of 5 recording(s)");
        type("");
        window->findChild<QComboBox *>("filterProcess")->setCurrentIndex(1); // charge
        QCOMPARE(window->shownIds().size(), 0);
        trigger("Clear filter");
        QCOMPARE(window->shownIds().size(), 5);
        QTRY_VERIFY(view()->verticalScrollBar()->maximum() > 0);
        view()->scrollToBottom();
        editor->addPack({0, "A", 5, 6, 0, ""}); // which moves nothing
        QTRY_COMPARE(packs()->model()->rowCount(), 3);
        QVERIFY(view()->verticalScrollBar()->value() > 0);
        choosePack(1);
        QCOMPARE(view()->verticalScrollBar()->value(), 0);
        view()->scrollToBottom();
        type("LiPo");
        QCOMPARE(window->shownIds().size(), 4);
        QCOMPARE(view()->verticalScrollBar()->value(), 0);
    }

    /// By dialogs: a new pack, the one that is offered, another name, merged, taken apart; and all back.
    void packsByDialogs()
    {
        open();
        view()->choose(ids[0]);
        whenModal<PackDialog>(window.get(), [](PackDialog *dialog) {
            QVERIFY(dialog->pack().cells == 6 && dialog->pack().cellType == 5);
            QVERIFY(!dialog->findChild<QPushButton *>()->isEnabled()); // OK
            dialog->findChild<QLineEdit *>("packName")->setText(" A ");
            auto *figure = dialog->findChild<QSpinBox *>("packCapacity")->findChild<QLineEdit *>();
            QTest::mouseClick(figure, Qt::LeftButton, {}, QPoint(8, figure->height() / 2)); // "not said"
            QTRY_VERIFY(figure->hasSelectedText());
            QTest::keyClicks(figure, "5000", {}, 1); // other events come between
            dialog->accept();
        });
        trigger("Assign to pack...");
        const qint64 a = logbook->recording(ids[0])->pack;
        QVERIFY(logbook->pack(a)->name == "A" && logbook->pack(a)->capacity == 5000);
        QCOMPARE(logbook->recording(ids[1])->pack, LogbookPack::none); // nothing assigns itself
        view()->choose(ids[1]);
        QCOMPARE(view()->currentIndex().siblingAtColumn(Columns::Pack).data().toString(), "A ?");
        trigger("Assign to A");
        QCOMPARE(logbook->recording(ids[1])->pack, a);
        view()->choose(ids[2]);
        whenModal<PackChoice>(window.get(), [this](PackChoice *choice) {
            QVERIFY(choice->chosen() != PackChoice::newPack);
            QCOMPARE(choice->windowTitle() + ": " + choice->findChild<QLabel *>()->text(),
                "Assign to pack: Pack of the 1 chosen recording(s):");
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
        for (int row = 0; row < 3; ++row) // those that are no pack have a name alone
            QCOMPARE(packs()->isFirstColumnSpanned(row, {}), row < 2);
        QCOMPARE(window->shownIds(), (QVector<qint64>{ids[1], ids[0]}));
        whenModal<PackChoice>(window.get(), [](PackChoice *choice) { choice->reject(); });
        trigger("Merge packs...");
        QCOMPARE(logbook->recording(ids[2])->pack, b);
        whenModal<PackChoice>(window.get(), [b](PackChoice *choice) {
            QVERIFY(choice->chosen() == b && choice->windowTitle() == "Merge packs");
            choice->accept();
        });
        trigger("Merge packs...");
        QCOMPARE(logbook->recording(ids[2])->pack, a);
        QTRY_COMPARE(window->shownIds().size(), 3);
        view()->choose(ids[0]);
        whenModal<PackDialog>(window.get(), [](PackDialog *dialog) {
            QVERIFY(!dialog->findChild<QSpinBox *>()->isVisible()); // the name alone
            dialog->accept();
        });
        trigger("Take apart...");
        const LogbookPack *apart = logbook->pack(logbook->recording(ids[0])->pack);
        QVERIFY(apart->name == "A (2)" && apart->capacity == 5000);
        QCOMPARE(window->shownIds(), QVector<qint64>{ids[0]}); // the new pack is shown
        while (action("Undo")->isEnabled())
            action("Undo")->trigger();
        QCOMPARE(logbook->packs().size(), 0);
        QTRY_COMPARE(window->shownIds().size(), 4);
        while (action("Redo")->isEnabled())
            action("Redo")->trigger();
        QCOMPARE(logbook->packName(logbook->recording(ids[0])->pack), "A (2)");
    }

    void files()
    {
        LogbookRecording found = sampleRecording(100, Varnel::Charge, 4000);
        found.file = fixture->path("data/x.acp");
        QDir().mkpath(fixture->path("data"));
        QVERIFY(writeFile(found.file, "x"));
        const qint64 id = add(found);
        logbook->setGone(logbook->recording(ids[0])->file, true);
        open(0);
        QSignalSpy opened(window.get(), SIGNAL(openWanted(QStringList)));
        QSignalSpy overlaid(window.get(), SIGNAL(overlayWanted(QStringList,QStringList)));
        view()->choose(id);
        QTest::keyClick(view(), Qt::Key_Return, Qt::ControlModifier); // no pack is offered
        QCOMPARE(opened.size(), 0);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            QTest::keyClick(view(), key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
            QCOMPARE(opened.takeFirst().value(0).toStringList(), QStringList{found.file});
        }
        view()->selectAll(); // of which one has gone
        trigger("Overlay");
        QCOMPARE(overlaid.first().at(0).toStringList().size(), 4);
        QVERIFY(overlaid.first().at(1).toStringList().first().startsWith("x, "));
        view()->choose(id);
        const auto answer = [this](const char *name, QMessageBox::ButtonRole role) {
            whenModal<QMessageBox>(window.get(), [name, role, this](QMessageBox *box) {
                QVERIFY(box->text().startsWith(QString("Move %1 file(s)").arg(view()->selectedIds().size())));
                const bool isOne = view()->selectedIds().size() == 1;
                QVERIFY((isOne ? box->informativeText() : box->detailedText()).contains(name));
                QCOMPARE(box->textFormat(), Qt::PlainText);
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
        view()->selectAll(); // of which two have gone
        trigger("Remove from logbook");
        QTRY_COMPARE(window->shownIds().size(), 3);
        QVERIFY(!logbook->recording(id));
        // Of three the second is being recorded and stays, which is told; each has its turn after a while.
        for (const char *name : {"data/x.acp", "data/z.acp"}) {
            found.file = fixture->path(name);
            QVERIFY(writeFile(found.file, name));
            add(found);
        }
        found.file = fixture->path("data/y.acp");
        const CreatedFile live = createLockedFile(found.file);
        add(found);
        QTRY_COMPARE(window->shownIds().size(), 6);
        view()->clearSelection();
        for (const int row : {0, 1, 2})
            view()->selectionModel()->select(
                view()->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QSignalSpy messages(window->statusBar(), SIGNAL(messageChanged(QString)));
        windowAskedDisk = false;
        answer("y.acp", QMessageBox::AcceptRole);
        trigger("Delete file..."); // those on their way are not asked about again
        QTRY_VERIFY(window->findChild<QMessageBox *>("notDeleted"));
        const auto *told = window->findChild<QMessageBox *>("notDeleted");
        QVERIFY(told->text().startsWith("1 file") && told->detailedText().endsWith("y.acp"));
        QVERIFY(QFile::exists(found.file) && !QFile::exists(fixture->path("data/z.acp")) && !windowAskedDisk);
        QString all;
        for (const QVariantList &message : qAsConst(messages))
            all += message[0].toString() + '|';
        QCOMPARE(all.remove(" moved to the waste bin"), "0 of 3 file(s)|1 of 3 file(s)|2 file(s).|");
        closeFile(live.descriptor);
    }

    /// A click on a point shows its row, whatever is filtered; the keyboard goes along the points.
    void course()
    {
        editor->assign(ids, editor->addPack({0, "A", Varnel::noCellType, 0, 5000, ""}));
        open();
        choosePack(2);
        QCOMPARE(window->findChild<QLabel *>("courseHeadline")->text(),
            "A, 5000 mAh, state of health 90\u00A0%, 4 cycle(s)");
        auto *canvas = window->findChild<CourseCanvas *>();
        type("nothing like that");
        const CourseLine &line = canvas->chart().lines[0];
        const QPointF place = canvas->chart().mapping(canvas->size()).place(line.points[1]);
        QTest::mouseClick(canvas, Qt::LeftButton, {}, place.toPoint());
        QCOMPARE(view()->selectedIds(), QVector<qint64>{ids[1]});
        QCOMPARE(canvas->chart().marked, ids[1]);
        QTest::keyClick(canvas, Qt::Key_Right);
        QCOMPARE(view()->selectedIds(), QVector<qint64>{ids[2]});
        window->findChild<QComboBox *>("courseAxis")->setCurrentIndex(1); // by cycle
        const qint64 charge = add(sampleRecording(1, Varnel::Charge, 5000, 20000, 25200));
        editor->assign({charge}, logbook->recording(ids[0])->pack);
        QTRY_COMPARE(canvas->chart().lines.size(), 2);
        view()->choose(charge);
        QTest::keyClick(canvas, Qt::Key_Right);
        QCOMPARE(view()->selectedIds(), QVector<qint64>{ids[0]}); // of the same cycle
    }

    /// Columns, and what the chart shows, are as they were left.
    void keepsItsLooks()
    {
        open(0, 920);
        QTRY_COMPARE(packs()->width(), view()->parentWidget()->width()); // not more than the rest
        open();
        window->resize(1400, 900);
        QTRY_COMPARE(packs()->viewport()->width(), packs()->header()->length()); // all in sight
        const auto widest = [&](const char *sample, const char *title, bool isBold = true) {
            QFont font = view()->font();
            font.setBold(isBold); // as rows are that are being recorded
            const QFontMetrics letters(font);
            return qMax(letters.horizontalAdvance(sample) + 14, letters.horizontalAdvance(title) + 22);
        };
        QCOMPARE(view()->columnWidth(Columns::Port), widest("COM10 ", "Port"));
        QCOMPARE(view()->columnWidth(Columns::Temperature), widest("000.0", "Max. [°C]", false));
        QCOMPARE(view()->columnWidth(Columns::Process), widest("Discharge", "Process"));
        QCOMPARE(view()->columnWidth(Columns::Start), widest("≈ 28 Dec 2028 23:58", "Start"));
        QCOMPARE(view()->verticalHeader()->defaultSectionSize(), view()->fontMetrics().height() + 6);
        view()->choose(ids[0]);
        view()->setCurrentIndex(view()->model()->index(0, Columns::Port));
        trigger("Hide column");
        view()->setCurrentIndex(view()->model()->index(0, Columns::Charge));
        for (int i = 0; i < 5; ++i) // the last over a hidden one
            trigger("Move column left");
        trigger("Move column right");
        for (int i = 0; i < 2; ++i)
            trigger("Sort by column");
        window->findChild<QComboBox *>("courseQuantity")->setCurrentIndex(3);
        QCOMPARE(window->findChild<QComboBox *>("courseAxis")->currentIndex(), 0);
        window->findChild<QComboBox *>("courseAxis")->setCurrentIndex(1);
        const auto splitter = [this](int i) { return window->findChildren<QSplitter *>().at(i); };
        const auto states = [&] { return splitter(0)->saveState() + splitter(1)->saveState(); };
        QTRY_COMPARE(splitter(1)->sizes().last(), 260);
        for (const int i : {0, 1})
            splitter(i)->setSizes({300, 500});
        const QByteArray sizes = states();
        packs()->sortByColumn(2, Qt::DescendingOrder);
        VarnelSettings settings;
        window->writeState(&settings);
        open();
        QCOMPARE(states(), sizes);
        const QHeaderView *titles = packs()->header();
        QVERIFY(titles->sortIndicatorSection() == 2 && titles->sortIndicatorOrder() == Qt::DescendingOrder);
        QVERIFY(view()->horizontalHeader()->sectionsMovable());
        const std::tuple<QObject *, const char *, QVariant> looks[] = {{view(), "tabKeyNavigation", false},
            {view(), "wordWrap", false}, {view(), "showGrid", false}, {view(), "alternatingRowColors", true},
            {view(), "horizontalScrollMode", QAbstractItemView::ScrollPerPixel},
            {view()->horizontalHeader(), "highlightSections", false},
            {view()->verticalHeader(), "visible", false},
            {view(), "selectionBehavior", QAbstractItemView::SelectRows}, {packs(), "rootIsDecorated", false},
            {packs(), "uniformRowHeights", true}, {packs(), "allColumnsShowFocus", true},
            {packs(), "minimumWidth", 150}, {packs(), "sortingEnabled", true},
            {packs()->header(), "stretchLastSection", false},
            {packs()->parent(), "childrenCollapsible", false},
            {window->findChild<QLabel *>("logbookTrouble"), "wordWrap", true},
            {window->findChild<QLabel *>("logbookTrouble"), "textFormat", Qt::PlainText},
            {packs(), "accessibleName", "Packs"}, {later(), "singleShot", true}, {later(), "interval", 100},
            {window->findChild<QLineEdit *>("filterText"), "clearButtonEnabled", true}};
        for (const auto &[of, look, value] : looks)
            QVERIFY2(of->property(look) == value, look);
        const LogbookPack pack{0, QString(200, 'W'), 5, 6, 5000, ""};
        splitter(0)->setSizes({600, 600});
        editor->addPack(pack); // of which the figures are in sight, and something of the name
        QTRY_COMPARE(packs()->header()->length(), packs()->viewport()->width());
        splitter(0)->setSizes({150, 900});
        editor->addPack(pack);
        QTRY_COMPARE(packs()->header()->sectionSize(0), 80);
        const QByteArray narrow = states();
        window->hide();
        window->show();
        QCOMPARE(states(), narrow); // as the user left it
        QVERIFY(view()->isColumnHidden(Columns::Port) && !view()->isColumnHidden(Columns::Device));
        QCOMPARE(view()->horizontalHeader()->visualIndex(Columns::Charge), int(Columns::Charge) - 5);
        QCOMPARE(window->shownIds().first(), ids[0]); // the most charge
        QCOMPARE(window->findChild<QComboBox *>("courseQuantity")->currentIndex(), 3);
        QCOMPARE(window->findChild<QComboBox *>("courseAxis")->currentIndex(), 1);
        for (int column = 0; column < Columns::count; ++column) {
            view()->setCurrentIndex(view()->model()->index(0, column));
            trigger("Hide column");
        }
        QCOMPARE(view()->horizontalHeader()->hiddenSectionCount(), Columns::count - 1); // one stays
        trigger("Show all columns");
        QCOMPARE(view()->horizontalHeader()->hiddenSectionCount(), 0);
    }
};

QTEST_MAIN(TestLogbookWindow)
#include "tst_logbookwindow.moc"
