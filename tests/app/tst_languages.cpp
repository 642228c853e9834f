#include "app/stylesheet.h"
#include "app/translators.h"
#include "dialogs/about.h"
#include "dialogs/dialogpreferences.h"
#include "dialogs/dialogremotecontrol.h"
#include "resources/resources.h"
#include "settings/language.h"
#include "support/columns.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <QTreeView>

namespace {

/// The room that a widget's style leaves for its text, px.
int roomFor(const QAbstractButton &button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    const bool box = qobject_cast<const QCheckBox *>(&button);
    return button.style()
        ->subElementRect(box ? QStyle::SE_CheckBoxContents : QStyle::SE_PushButtonContents, &option, &button)
        .width();
}

int roomFor(const QComboBox &box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    return box.style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
        .width();
}

/// Takes down what is cut off in the windows that are shown.
class CutTexts {
public:
    void look()
    {
        QCoreApplication::processEvents(); // layouts follow later
        const QWidgetList all = QApplication::allWidgets();
        for (QWidget *widget : all) {
            if (!widget->isVisible() || widget->objectName() == QLatin1String("lookInCombo")) // a path
                continue;
            if (const auto *label = qobject_cast<QLabel *>(widget))
                lookAt(*label);
            else if (auto *button = qobject_cast<QAbstractButton *>(widget))
                lookAt(*button);
            else if (const auto *box = qobject_cast<QComboBox *>(widget))
                for (int i = 0; i < box->count(); ++i)
                    need(*widget, box->itemText(i), box->fontMetrics().horizontalAdvance(box->itemText(i)),
                        roomFor(*box));
            else if (const auto *tree = qobject_cast<QTreeView *>(widget))
                lookAt(*tree);
        }
    }
    QStringList found;

private:
    void lookAt(const QLabel &label)
    {
        if (label.wordWrap() || label.textFormat() == Qt::RichText || label.text().contains('<')) {
            const int height = label.hasHeightForWidth() ? label.heightForWidth(label.width())
                                                         : label.minimumSizeHint().height();
            need(label, label.text(), height, label.height());
            return;
        }
        need(label, label.text(), label.fontMetrics().size(Qt::TextShowMnemonic, label.text()).width(),
            label.contentsRect().width());
    }
    void lookAt(QAbstractButton &button)
    {
        const auto *tool = qobject_cast<QToolButton *>(&button);
        if (tool)
            need(button, button.text(), tool->sizeHint().width(), tool->width());
        else
            need(button, button.text(),
                button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width(), roomFor(button));
    }
    void lookAt(const QTreeView &tree)
    {
        const QHeaderView &header = *tree.header();
        for (int i = 0; i < header.count(); ++i) {
            if (header.isSectionHidden(i))
                continue;
            need(tree, tree.model()->headerData(i, Qt::Horizontal).toString(), header.sectionSizeHint(i),
                header.sectionSize(i));
            const QModelIndex first = tree.model()->index(0, i, tree.rootIndex());
            need(tree, first.data().toString(), tree.sizeHintForIndex(first).width(), header.sectionSize(i));
        }
    }
    void need(const QWidget &widget, const QString &text, int needed, int room)
    {
        const QString fault
            = QStringLiteral("%1: \"%2\" needs %3 px of %4")
                  .arg(widget.objectName(), text, QString::number(needed), QString::number(room));
        if (!text.isEmpty() && needed > room && !found.contains(fault))
            found << fault;
    }
};

} // namespace

/// The program in each of its languages.
class TestLanguages : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void initTestCase() { initResources(); }
    void init() { setUp(); }
    void cleanup()
    {
        tearDown();
        installLanguage(QStringLiteral("en"));
    }
    void whoChooses_data();
    void whoChooses();
    void everyTextHasRoom_data();
    void everyTextHasRoom();

private:
    void showFigures(CutTexts *texts) const;
    void showDialogs(CutTexts *texts);
    QStringList mnemonicsThatClash() const;
};

void TestLanguages::whoChooses_data()
{
    columns<QString, QString, QString, QString>({"system", "preference", "words", "said"});
    const QString english = QStringLiteral("Records what battery");
    const QString polish = QStringLiteral("Nagrywa to, co");
    const QString german = QStringLiteral("Zeichnet auf, was");
    QTest::newRow("system") << "de_AT"
                            << ""
                            << "" << german;
    QTest::newRow("first that is known") << "fr_FR:pl:de"
                                         << ""
                                         << "" << polish;
    QTest::newRow("none that is known") << "fr_FR"
                                        << ""
                                        << "" << english;
    QTest::newRow("preferences") << "de"
                                 << "pl"
                                 << "" << polish;
    QTest::newRow("preference that is not known") << "de"
                                                  << "xx"
                                                  << "" << german;
    QTest::newRow("command line") << "de"
                                  << "pl"
                                  << "--language=en" << english;
}

/// Of the program itself, which says what it is for in that language.
void TestLanguages::whoChooses()
{
    QFETCH(QString, system);
    QFETCH(QString, preference);
    QFETCH(QString, words);
    const QString config = fixture->path(QStringLiteral("config"));
    QSettings settings(config + QStringLiteral("/VarnelGraph/VarnelGraph.ini"), QSettings::IniFormat);
    settings.setValue(QStringLiteral("language"), preference);
    settings.sync();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LANGUAGE"), system);
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), config);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(VARNELGRAPH_PROGRAM),
        words.split(QLatin1Char(' '), Qt::SkipEmptyParts) << QStringLiteral("--help"));
    QVERIFY(program.waitForFinished(60000));
    const QString description
        = QString::fromUtf8(program.readAllStandardOutput()).section(QLatin1Char('\n'), 1, 1);
    QTEST(description.section(QLatin1Char(' '), 0, 2), "said");
}

void TestLanguages::everyTextHasRoom_data()
{
    columns<QString>({"cancel"});
    QTest::newRow("en") << QStringLiteral("Cancel");
    QTest::newRow("pl") << QStringLiteral("Anuluj");
    QTest::newRow("de") << QStringLiteral("Abbrechen");
}

/// Every window and dialog with the widest that it shows.
void TestLanguages::everyTextHasRoom()
{
    installLanguage(QLatin1String(QTest::currentDataTag()));
    installStyleSheet(qApp, fixture->path(QString()));
    CutTexts texts;
    VarnelSettings().setPorts({plug(QStringLiteral("COM1"))->portName()});
    window = std::make_unique<MainWindow>();
    window->show();
    QTRY_COMPARE(listened().size(), 1);
    plugged.front()->send(Lines::charger(1));
    QTRY_VERIFY(window->activeMdiChild());
    for (const ActionId id :
        {ActionId::Data, ActionId::Graph, ActionId::BarGraph, ActionId::Balancer, ActionId::Power})
        trigger(id);
    showFigures(&texts);
    showDialogs(&texts);
    QVERIFY2(texts.found.isEmpty(), qPrintable(texts.found.join('\n')));
    QCOMPARE(mnemonicsThatClash().join(','), QString());
    QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Cancel);
    QTEST(box.button(QMessageBox::Cancel)->text().remove('&'), "cancel");
}

void TestLanguages::showFigures(CutTexts *texts) const
{
    Varnel3Data record = Lines::record(360000);
    record.cellType = 11; // has the widest name
    record.cellCount = Varnel3Data::maxCells;
    for (int value = 0; value < 3; ++value, trigger(ActionId::Energy)) {
        for (record.mode = Varnel3Data::Charge; record.mode < Varnel3Data::NoMode; ++record.mode) {
            window->updateData(record, 1);
            texts->look();
        }
    }
    trigger(ActionId::Balancer); // off: the display's other view
    window->updateData(record = Lines::record(1), 1);
    texts->look();
}

void TestLanguages::showDialogs(CutTexts *texts)
{
    DialogPreferences preferences(window.get());
    About about(window.get());
    DialogRemoteControl remote(nullptr, window.get(), {1000000, 1000000, 1000000});
    for (QDialog *dialog : {static_cast<QDialog *>(&preferences), static_cast<QDialog *>(&about),
             static_cast<QDialog *>(&remote)})
        dialog->show();
    for (const char *state : {"#TRYB00", "#TRYB01", "#TRYB02", "#TRYB03", "#TRYB04"}) {
        remote.control_data(QLatin1String(state));
        texts->look();
    }
    for (int end = 0; end < 3; ++end) {
        window->endProcess(end);
        texts->look();
        window->endProcessMessage();
    }
    for (const ActionId id : {ActionId::Open, ActionId::OpenRecordings, ActionId::SaveAs, ActionId::ExportCsv,
             ActionId::SavePicture}) {
        whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
            QTRY_VERIFY(
                dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->placeholderText().isEmpty());
            texts->look();
            dialog->reject();
        });
        trigger(id);
    }
}

/// Two entries of one menu under one key.
QStringList TestLanguages::mnemonicsThatClash() const
{
    QStringList clashes;
    QList<QWidget *> menus = {window->menuBar()};
    const auto all = window->findChildren<QMenu *>();
    for (QMenu *menu : all)
        if (!qobject_cast<QMdiSubWindow *>(menu->parent())) // the system menus are Qt's
            menus << menu;
    for (const QWidget *menu : qAsConst(menus)) {
        QStringList keys;
        const auto actions = menu->actions();
        for (const QAction *action : actions) {
            const QString key = QKeySequence::mnemonic(action->text()).toString();
            if (!key.isEmpty() && keys.contains(key))
                clashes << action->text();
            keys << key;
        }
    }
    return clashes;
}

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
