#include "app/stylesheet.h"
#include "app/translators.h"
#include "dialogs/about.h"
#include "dialogs/dialogpreferences.h"
#include "dialogs/dialogremotecontrol.h"
#include "logbook/logbook.h"
#include "logbook/window/dialogs/foldersdialog.h"
#include "logbook/window/dialogs/notedialog.h"
#include "logbook/window/dialogs/packchoice.h"
#include "logbook/window/dialogs/packdialog.h"
#include "support/columns.h"
#include "support/lines.h"
#include "support/literal.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTreeView>

/// The program in each of its languages.
class TestLanguages : public ShellRig {
    Q_OBJECT

private slots:
    void cleanup() override
    {
        ShellRig::cleanup();
        installLanguage("en"_s);
    }

    /// Of the program itself, which says what it is for in that language.
    void whoChooses()
    {
        const std::tuple<QString, QString, QString, QString> rows[] = {// system, preference, word
            {"de_AT", "", "--help", "Zeichnet auf, was"},
            {"fr_FR:pl:de", "", "--help", "Nagrywa to, co"}, // the first that is known
            {"fr_FR", "", "--help", "Records what battery"}, {"de", "pl", "--help", "Nagrywa to, co"},
            {"de", "xx", "--help", "Zeichnet auf, was"}, // is not known
            {"de", "pl", "--language=en", "Records what battery"}};
        const QString config = fixture->path("config"_s);
        for (const auto &[system, preference, word, said] : rows) {
            QSettings settings(config + "/VarnelGraph/VarnelGraph.ini"_s, QSettings::IniFormat);
            settings.setValue("language"_s, preference);
            settings.sync();
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert("LANGUAGE"_s, system);
            environment.insert("LC_ALL"_s, "C.UTF-8"_s);
            environment.insert("XDG_CONFIG_HOME"_s, config);
            QProcess program;
            program.setProcessEnvironment(environment);
            program.start(QStringLiteral(VARNELGRAPH_PROGRAM), {word, "--help"_s});
            QVERIFY(program.waitForFinished(60000));
            const QString all = QString::fromUtf8(program.readAllStandardOutput());
            QCOMPARE(all.section('\n', 1, 1).section(' ', 0, 2), said);
        }
    }

    void everyTextHasRoom_data()
    {
        columns<QString, double>({"cancel", "letters"});
        QTest::newRow("en") << "Cancel"_s << 1.0;
        QTest::newRow("pl") << "Anuluj"_s << 1.0;
        QTest::newRow("de") << "Abbrechen"_s << 1.0;
        QTest::newRow("de, larger letters") << "Abbrechen"_s << 1.5;
    }

    /// In every window and dialog, with the widest that it shows.
    void everyTextHasRoom()
    {
        cut.clear();
        QFETCH(double, letters);
        const QFont usual = QApplication::font();
        QFont font = usual;
        font.setPointSizeF(usual.pointSizeF() * letters);
        QApplication::setFont(font);
        installLanguage(QString::fromLatin1(QTest::currentDataTag(), 2));
        installStyleSheet(qApp, fixture->path(QString()));
        VarnelSettings().setPorts({plug("COM1"_s)->portName()});
        window = std::make_unique<MainWindow>();
        window->show();
        QTRY_COMPARE(listened().size(), 1);
        plugged.front()->send(Lines::charger(1));
        QTRY_VERIFY(window->activeMdiChild());
        for (ActionId id :
            {ActionId::Data, ActionId::Graph, ActionId::BarGraph, ActionId::Balancer, ActionId::Power})
            trigger(id);
        showFigures();
        showDialogs();
        QApplication::setFont(usual);
        if (letters > 1) // file dialogs can be made wider
            cut = cut.filter(QRegularExpression("^((?!\\(\\*\\.).)*$"_s));
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join('\n')));
        QStringList keys;
        for (const QAction *menu : constant(window->menuBar()->actions()))
            keys << QKeySequence::mnemonic(menu->text()).toString();
        QCOMPARE(keys.removeDuplicates(), 0);
        QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Cancel);
        QTEST(box.button(QMessageBox::Cancel)->text().remove('&'), "cancel"); // Qt's own texts
    }

private:
    void showFigures()
    {
        Varnel3Data record = Lines::record(360000);
        record.cellType = 11; // has the widest name
        record.cellCount = Varnel3Data::maxCells;
        for (int value = 0; value < 3; ++value, trigger(ActionId::Energy)) {
            for (record.mode = Varnel3Data::Charge; record.mode < Varnel3Data::NoMode; ++record.mode) {
                window->updateData(record, 1);
                look();
            }
        }
        trigger(ActionId::Balancer); // off: the display's other view
        window->updateData(record = Lines::record(1), 1);
        look();
    }

    void showDialogs()
    {
        DialogPreferences preferences(window.get());
        About about(window.get());
        DialogRemoteControl remote(nullptr, window.get(), {1000000, 1000000, 1000000});
        PackDialog pack(QString(), LogbookPack(), window.get());
        PackChoice choice(Logbook(), {}, window.get());
        NoteDialog note(QString(), QString(), window.get());
        FoldersDialog folders("/own"_s, {}, window.get());
        for (QDialog *dialog :
            std::initializer_list<QDialog *>{&preferences, &about, &remote, &pack, &choice, &note, &folders})
            dialog->show();
        trigger(ActionId::Overlay);
        trigger(ActionId::Logbook);
        auto *pages = remote.findChild<QStackedWidget *>();
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            look();
        }
        for (int end = 0; end < 3; ++end) {
            window->endProcess(end);
            look();
            window->endProcessMessage();
        }
        for (ActionId id :
            {ActionId::Open, ActionId::OpenRecordings, ActionId::SaveAs, ActionId::ExportCsv}) {
            whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
                QTRY_VERIFY(dialog->findChild<QLineEdit *>("fileNameEdit"_s)->placeholderText().isEmpty());
                look();
                dialog->reject();
            });
            trigger(id);
        }
    }

    /// Takes down what is cut off in the windows that are shown.
    void look()
    {
        QCoreApplication::processEvents(); // layouts follow later
        for (QWidget *widget : constant(QApplication::allWidgets())) {
            if (!widget->isVisible())
                continue;
            if (const auto *label = qobject_cast<QLabel *>(widget))
                lookAt(*label);
            else if (auto *button = qobject_cast<QAbstractButton *>(widget))
                lookAt(*button);
            else if (const auto *box = qobject_cast<QComboBox *>(widget))
                lookAt(*box);
            else if (const auto *tree = qobject_cast<QTreeView *>(widget))
                lookAt(*tree);
        }
    }

    void lookAt(const QLabel &label)
    {
        const QString text = label.text();
        if (label.wordWrap())
            need(text, label.heightForWidth(label.width()), label.height());
        else if (text.contains('<'))
            need(text, label.sizeHint().width(), label.width());
        else
            need(text, label.fontMetrics().size(Qt::TextShowMnemonic, text).width(),
                label.contentsRect().width());
    }

    void lookAt(QAbstractButton &button)
    {
        const bool isBox = qobject_cast<QCheckBox *>(&button);
        if (!isBox && !qobject_cast<QPushButton *>(&button))
            return need(button.text(), button.sizeHint().width(), button.width());
        QStyleOptionButton option;
        option.initFrom(&button);
        const auto contents = isBox ? QStyle::SE_CheckBoxContents : QStyle::SE_PushButtonContents;
        const QSize room = button.style()->subElementRect(contents, &option, &button).size();
        const QFontMetrics metrics = button.fontMetrics();
        const QSize ink = metrics.tightBoundingRect(button.text()).size(); // with what marks its letter
        const int advance = metrics.size(Qt::TextShowMnemonic, button.text()).width(); // with empty room
        need(button.text(), qMin(ink.width(), advance), room.width());
        need(button.text(), ink.height(), room.height());
    }

    void lookAt(const QComboBox &box)
    {
        QStyleOptionComboBox option;
        option.initFrom(&box);
        const QRect field
            = box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
        for (int i = 0; i < box.count() && box.objectName() != "lookInCombo"_s; ++i) // which has paths
            need(box.itemText(i), box.fontMetrics().horizontalAdvance(box.itemText(i)), field.width());
    }

    void lookAt(const QTreeView &tree)
    {
        const QHeaderView &header = *tree.header();
        for (int i = 0; i < header.count(); ++i) {
            if (header.isSectionHidden(i))
                continue;
            need(tree.model()->headerData(i, Qt::Horizontal).toString(), header.sectionSizeHint(i),
                header.sectionSize(i));
            const QModelIndex first = tree.model()->index(0, i, tree.rootIndex());
            const bool isAlone = i == 0 && tree.isFirstColumnSpanned(0, tree.rootIndex());
            need(first.data().toString(), tree.sizeHintForIndex(first).width(),
                isAlone ? header.length() : header.sectionSize(i));
        }
    }

    void need(const QString &text, int needed, int room)
    {
        const QString fault = QStringLiteral("\"%1\" needs %2 px of %3").arg(text).arg(needed).arg(room);
        if (!text.isEmpty() && needed > room && !cut.contains(fault))
            cut << fault;
    }

    QStringList cut;
};

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
