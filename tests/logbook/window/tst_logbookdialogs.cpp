#include "logbook/window/dialogs/foldersdialog.h"
#include "logbook/window/dialogs/notedialog.h"
#include "logbook/window/dialogs/packchoice.h"
#include "logbook/window/dialogs/packdialog.h"
#include "logbook/window/filterline.h"
#include "sample.h"
#include "support/layoutfault.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

/// What a user fills in: the filter, and the small dialogs of packs, notes and folders.
class TestLogbookDialogs : public QObject, private BookRig {
    Q_OBJECT

private slots:
    void init() { renew(); }

    void filterLine()
    {
        QLocale::setDefault(QLocale("en_US"));
        FilterLine line;
        QSignalSpy changed(&line, SIGNAL(changed()));
        const auto boxes = line.findChildren<QCheckBox *>();
        const auto dates = line.findChildren<QDateEdit *>();
        auto *chemistry = line.findChild<QComboBox *>("filterChemistry");
        auto *process = line.findChild<QComboBox *>("filterProcess");
        QCOMPARE(chemistry->count(), int(Varnel::noCellType) + 1);
        QCOMPARE(process->count(), int(Varnel::NoMode) + 1);
        QCOMPARE(dates[0]->displayFormat(), QString("M/d/yyyy"));
        QCOMPARE(dates[0]->date(), dates[1]->date().addYears(-1));
        QVERIFY(dates[0]->calendarPopup());
        const auto told = [&] {
            const LogbookFilter filter = line.filter();
            QString text;
            QTextStream(&text) << filter.text << ' ' << filter.cellType << ' ' << filter.mode << ' '
                               << filter.from.toString(Qt::ISODate) << ' ' << filter.to.toString(Qt::ISODate)
                               << ' ' << line.isEmpty() << ' ' << dates[0]->isEnabled() << ' '
                               << dates[1]->isEnabled();
            return text;
        };
        const QString everything = " -1 -1   1 0 0";
        const std::pair<std::function<void()>, const char *> changes[]
            = {{[&] { line.findChild<QLineEdit *>("filterText")->setText("a b"); }, "a b -1 -1   0 0 0"},
                {[&] { chemistry->setCurrentIndex(6); }, " 5 -1   0 0 0"},
                {[&] { process->setCurrentIndex(2); }, " -1 1   0 0 0"},
                {[&] { boxes[0]->setChecked(true); }, " -1 -1 2026-02-03  0 1 0"},
                {[&] { boxes[1]->setChecked(true); }, " -1 -1  2026-03-04 0 0 1"}};
        dates[0]->setDate({2026, 2, 3});
        dates[1]->setDate({2026, 3, 4});
        QCOMPARE(changed.size(), 2);
        for (const auto &[change, filter] : changes) {
            changed.clear();
            change();
            QVERIFY(!changed.isEmpty());
            QCOMPARE(told(), QString(filter));
            changed.clear();
            line.clear();
            QCOMPARE(changed.size(), 1);
            QCOMPARE(told(), everything);
        }
        line.show();
        QCOMPARE(layoutFault(line), QByteArray());
        QVERIFY(QTest::qWaitForWindowActive(&line));
        auto *text = line.findChild<QLineEdit *>("filterText");
        QCOMPARE(text->placeholderText(), QString("Filter: words of any column"));
        QCOMPARE(text->accessibleName() + chemistry->accessibleName() + process->accessibleName(),
            QString("FilterChemistryProcess"));
        QVERIFY(dates[1]->y() > text->geometry().bottom());
        line.resize(3000, line.height());
        QTRY_VERIFY(dates[1]->y() < text->geometry().bottom());
        text->setText("old");
        chemistry->setFocus();
        line.takeKeyboard();
        QCOMPARE(text->hasFocus() ? text->selectedText() : QString(), QString("old"));
        text->deselect();
        line.takeKeyboard(); // which it has
        QCOMPARE(text->selectedText(), QString("old"));
    }

    void packDialog()
    {
        const LogbookPack pack{7, "A", Varnel::noCellType, 0, 0, ""};
        const auto told = [](const PackDialog &of) {
            const LogbookPack now = of.pack();
            QString text;
            QTextStream(&text) << now.id << ' ' << now.name << ' ' << now.cellType << ' ' << now.cells << ' '
                               << now.capacity << ' ' << now.note.size();
            return text;
        };
        QCOMPARE(told(PackDialog("Full", {8, "B", 5, 6, 5000, "note"}, nullptr)), QString("8 B 5 6 5000 4"));
        PackDialog dialog("Title", pack, nullptr);
        QCOMPARE(dialog.windowTitle(), QString("Title"));
        QCOMPARE(told(dialog), QString("7 A %1 0 0 0").arg(Varnel::noCellType));
        auto *name = dialog.findChild<QLineEdit *>("packName");
        QCOMPARE(name->selectedText(), QString("A"));
        auto *chemistry = dialog.findChild<QComboBox *>();
        QCOMPARE(chemistry->currentText(), QString("not said"));
        const auto spins = dialog.findChildren<QSpinBox *>();
        QCOMPARE(spins[0]->text() + spins[1]->text(), QString("not said").repeated(2));
        name->setText(" B  ");
        chemistry->setCurrentIndex(0);
        spins[0]->setValue(17);
        spins[1]->stepUp();
        dialog.findChild<QPlainTextEdit *>()->setPlainText(QString(LogbookPack::longestNote + 1, 'x'));
        QCOMPARE(told(dialog), QString("7 B 0 16 100 65536"));
        spins[1]->setValue(2000000);
        QCOMPARE(spins[1]->text(), QString("1000000 mAh"));
        name->setText(" ");
        QVERIFY(!dialog.findChild<QPushButton *>()->isEnabled()); // OK
        name->setText(QString(201, 'y'));
        QCOMPARE(dialog.pack().name.size(), 200);
        dialog.findChild<QPlainTextEdit *>()->clear(); // so much text takes its time to be shown
        dialog.show();
        QCOMPARE(layoutFault(dialog), QByteArray());
        QCOMPARE(dialog.findChild<QPlainTextEdit *>()->height(), 70);
        QVERIFY(dialog.findChild<QPlainTextEdit *>()->tabChangesFocus());
        dialog.hide();
        dialog.showNameOnly("Text");
        dialog.show();
        QVERIFY(name->isVisible() && !chemistry->isVisible() && !spins[0]->isVisible());
        QStringList labels;
        const auto shownLabels = dialog.findChildren<QLabel *>();
        for (const QLabel *label : shownLabels)
            labels += label->isVisible() ? label->text() : QString();
        labels.removeAll({});
        QCOMPARE(labels.join(' '), QString("&Name: Text"));
    }

    void smallDialogs()
    {
        NoteDialog note("2026-05-03", QString(LogbookPack::longestNote + 1, 'x'), nullptr);
        QCOMPARE(note.note().size(), LogbookPack::longestNote);
        note.findChild<QPlainTextEdit *>()->clear();
        QCOMPARE(note.findChild<QLabel *>()->text(), QString("2026-05-03"));
        FoldersDialog folders("/own", {"/b", "/a"}, nullptr);
        const auto *told = folders.findChild<QLabel *>();
        QVERIFY(told->text().contains("/own") && told->wordWrap());
        for (const char *folder : {"/a", "", "/c"})
            folders.add(folder);
        QCOMPARE(folders.folders(), (QStringList{"/b", "/a", "/c"}));
        const auto buttons = folders.findChildren<QPushButton *>();
        const auto button = [&](const char *text) {
            return *std::find_if(
                buttons.begin(), buttons.end(), [&](const QPushButton *b) { return b->text() == text; });
        };
        QVERIFY(!button("&Remove")->isEnabled());
        folders.findChild<QListWidget *>()->setCurrentRow(0);
        button("&Remove")->click();
        QCOMPARE(folders.folders(), (QStringList{"/a", "/c"}));
        for (int left = 2; left > 0; --left)
            button("&Remove")->click();
        QVERIFY(folders.folders().isEmpty() && !button("&Remove")->isEnabled());
        QSignalSpy wanted(&folders, SIGNAL(folderWanted(QWidget*)));
        button("&Add...")->click();
        QCOMPARE(wanted.first().at(0).value<QWidget *>(), &folders);
        const qint64 a = addPack("A", 5000);
        const qint64 b = editor->addPack({0, "B", Varnel::noCellType, 0, 0, ""});
        const qint64 c = editor->addPack({0, "C", 5, 1, 1, ""});
        PackChoice::Question question{"Title", "Text", {a, 99, b, c}, b, true};
        PackChoice choice(*logbook, question, nullptr);
        QCOMPARE(choice.chosen(), b);
        QCOMPARE(choice.windowTitle() + choice.findChild<QLabel *>()->text(), QString("TitleText"));
        QVERIFY(choice.findChild<QLabel *>()->wordWrap());
        for (QDialog *dialog : std::initializer_list<QDialog *>{&note, &folders, &choice}) {
            dialog->show();
            QVERIFY(!dialog->windowTitle().isEmpty());
            QCOMPARE(layoutFault(*dialog), QByteArray());
            const auto shownLabels = dialog->findChildren<QLabel *>();
            for (const QLabel *label : shownLabels)
                QCOMPARE(label->textFormat(), Qt::PlainText); // of files and packs
            const auto lists = dialog->findChildren<QListWidget *>();
            for (const QListWidget *list : lists) // some rows are in sight
                QVERIFY(list->minimumHeight() >= 5 * list->fontMetrics().height());
            const auto controls = dialog->findChildren<QWidget *>();
            for (const QWidget *control : controls)
                QVERIFY(control->focusPolicy() == Qt::NoFocus || !control->toolTip().isEmpty());
            for (const auto &[answer, result] : {std::pair(QDialogButtonBox::Ok, QDialog::Accepted),
                     std::pair(QDialogButtonBox::Cancel, QDialog::Rejected)}) {
                dialog->show();
                dialog->findChild<QDialogButtonBox *>()->button(answer)->click();
                QVERIFY(!dialog->isVisible() && dialog->result() == result);
            }
        }
        QVERIFY(note.findChild<QPlainTextEdit *>()->tabChangesFocus());
        auto *list = choice.findChild<QListWidget *>();
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts += list->item(i)->text();
        QCOMPARE(texts.join('|'), QString("A, 6 x LiPo, 5000 mAh|B|C, 1 x LiPo, 1 mAh|New pack..."));
        list->setCurrentRow(3);
        QCOMPARE(choice.chosen(), qint64(PackChoice::newPack));
        question.first = a;
        QCOMPARE(PackChoice(*logbook, question, nullptr).chosen(), a);
        question.first = 0;
        QCOMPARE(PackChoice(*logbook, question, nullptr).chosen(), qint64(PackChoice::newPack));
        question.offersNew = false;
        QCOMPARE(PackChoice(*logbook, question, nullptr).chosen(), a);
        question.packs.clear();
        QCOMPARE(PackChoice(*logbook, question, nullptr).chosen(), qint64(LogbookPack::none));
    }
};

QTEST_MAIN(TestLogbookDialogs)
#include "tst_logbookdialogs.moc"
