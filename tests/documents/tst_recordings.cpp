#include "desk/windowfiles.h"
#include "journal/journalfolder.h"
#include "documents/csvexport.h"
#include "graph/mdigraphchild.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QBuffer>
#include <QHeaderView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeView>

/// What becomes of a live recording on disk: its journal, the menu of tools,
/// what is asked when no journal keeps it.
class TestRecordings : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }
    void journalSurvives_data();
    void journalSurvives();
    void reopensNewestFirst_data();
    void reopensNewestFirst();
    void dialogListsNewestFirst();
    void asksWithoutJournal_data();
    void asksWithoutJournal();
    void asksWhileNotWritten();
    void runningJournalIsNotOverwritten();
    void unreadableRecordsStayInTheJournal();
    void saveIsPresetByTheRecording_data();
    void saveIsPresetByTheRecording();
    void exports_data();
    void exports();
    void pictureIsTheScreens();
    void toolsNeedSomething();
    void tidiesByAge();
    void largeFolderIsToldOnce();

private:
    void start(int ports = 1);
    void send(int from, int count);
    QAction *tool(const char *name) const { return window->findChild<QAction *>(QLatin1String(name)); }
    void closeWindow(MdiGraphChild *child) const { child->parentWidget()->close(); }
    static QStringList journals() { return JournalFolder(JournalFolder::defaultPath()).files(); }
    static QString oldJournal(int daysAgo, qint64 size);

    PtyPair *device = nullptr;
};

void TestRecordings::init()
{
    setUp();
    device = plug(QStringLiteral("COM3"));
    VarnelSettings().setPorts({QStringLiteral("COM3")});
}

void TestRecordings::start(int ports)
{
    open(VarnelSettings().ports());
    QTRY_COMPARE(listened().size(), ports);
}

/// Sends `count` lines with the times from `from` on and waits for them.
void TestRecordings::send(int from, int count)
{
    for (int i = 0; i < count; ++i) {
        device->send(Lines::charger(from + i));
        QTest::qWait(0); // the line holds no more than a hundred
    }
    QTRY_VERIFY(window->activeMdiChild());
    const MdiGraphChild *child = window->activeMdiChild();
    QTRY_COMPARE(child->store().records().last().time, from + count - 1);
}

QString TestRecordings::oldJournal(int daysAgo, qint64 size)
{
    const QDateTime then = QDateTime::currentDateTime().addDays(-daysAgo);
    const JournalFolder folder(JournalFolder::defaultPath());
    QDir().mkpath(folder.path());
    QFile file(folder.fileName(then, QStringLiteral("COM9"), 1));
    if (!file.open(QIODevice::WriteOnly) || !file.resize(size)
        || !file.setFileTime(then, QFileDevice::FileModificationTime))
        return QString();
    return file.fileName();
}

void TestRecordings::journalSurvives_data()
{
    QTest::addColumn<QString>("ending");
    for (const char *ending :
        {"window closed", "all windows closed", "program closed", "port lost", "paused"})
        QTest::newRow(ending) << ending;
}

void TestRecordings::journalSurvives()
{
    QFETCH(QString, ending);
    start();
    send(1, 20);
    QCOMPARE(journals().size(), 1);
    const QString journal = journals().constFirst();
    QCOMPARE(loaded(journal).size(), 20); // while it is being written
    int expected = 20;
    if (ending == QLatin1String("window closed")) {
        closeWindow(window->activeMdiChild());
        QVERIFY(window->mdiChildren().isEmpty());
        QVERIFY(message().contains(QFileInfo(journal).fileName()));
        for (int i = 21; i <= 30; ++i) // goes on without its window
            device->send(Lines::charger(i));
        expected = 30;
    } else if (ending == QLatin1String("all windows closed")) {
        trigger(ActionId::CloseAll);
    } else if (ending == QLatin1String("program closed")) {
        window->close();
        QVERIFY(!window->isVisible());
    } else if (ending == QLatin1String("port lost")) {
        device->hangUp();
    } else {
        trigger(ActionId::Recording);
    }
    QTRY_COMPARE(loaded(journal).size(), expected);
    window.reset();
    QCOMPARE(journals(), QStringList(journal));
    QCOMPARE(loaded(journal).size(), expected);
}

void TestRecordings::reopensNewestFirst_data()
{
    QTest::addColumn<bool>("newestGone");
    QTest::newRow("all there") << false;
    QTest::newRow("newest gone") << true;
}

void TestRecordings::reopensNewestFirst()
{
    QFETCH(bool, newestGone);
    PtyPair *other = plug(QStringLiteral("COM4"));
    VarnelSettings().setPorts({QStringLiteral("COM3"), QStringLiteral("COM4")});
    start(2);
    QAction *reopen = tool("reopenClosedAction");
    QVERIFY(!reopen->isEnabled() && !reopen->statusTip().isEmpty());
    send(1, 5);
    for (int i = 1; i <= 6; ++i)
        other->send(Lines::charger(i));
    QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->store().size() == 6);
    closeWindow(window->mdiChildren().first());
    closeWindow(window->mdiChildren().first());
    if (newestGone)
        QVERIFY(QFile::remove(journals().filter(QStringLiteral("COM4")).value(0)));
    const QVector<int> reopened = newestGone ? QVector<int>{5} : QVector<int>{6, 5};
    for (const int records : reopened) {
        QVERIFY(reopen->isEnabled());
        reopen->trigger();
        QTRY_VERIFY(window->activeMdiChild() && window->activeMdiChild()->store().size() == records);
        closeWindow(window->activeMdiChild()); // is in a file, and need not be remembered
    }
    QVERIFY(!reopen->isEnabled());
}

void TestRecordings::dialogListsNewestFirst()
{
    const QString older = oldJournal(2, 0);
    QVERIFY(!oldJournal(3, 265000).isEmpty());
    start();
    send(1, 3);
    const QString newest = journals().constFirst();
    QVERIFY(newest != older);
    QFile notes(QFileInfo(newest).dir().filePath(QStringLiteral("notes.txt"))); // is not listed
    QVERIFY(notes.open(QIODevice::WriteOnly));
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        const auto *tree = dialog->findChild<QTreeView *>(QStringLiteral("treeView"));
        QVERIFY(tree && tree->isVisible());
        const auto shown = [tree](int row) { return tree->model()->index(row, 0, tree->rootIndex()); };
        QTRY_COMPARE(tree->model()->rowCount(tree->rootIndex()), 2); // the empty one was tidied away
        QTRY_COMPARE(shown(0).data().toString(), QFileInfo(newest).fileName()); // the model sorts later
        const QString text = static_cast<QStyledItemDelegate *>(tree->itemDelegate())
                                 ->displayText(shown(0).data(), QLocale());
        QVERIFY2(text.endsWith(QStringLiteral("acp [Cha 6xLiPo]")), qPrintable(text));
        QTRY_COMPARE(shown(0).sibling(0, 2).data().toString(), QStringLiteral("0:00")); // is read beside
        QCOMPARE(tree->model()->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Length"));
        for (int column = 0; column < 4; ++column)
            QTRY_VERIFY( // the header follows the contents later
                tree->columnWidth(column) >= tree->sizeHintForIndex(shown(1).sibling(1, column)).width());
        QCOMPARE(tree->header()->sortIndicatorOrder(), Qt::DescendingOrder);
        enterName(dialog, newest);
    });
    tool("openRecordingsAction")->trigger();
    QTRY_COMPARE(window->mdiChildren().size(), 2);
    QVERIFY(!VarnelSettings().contains(QStringLiteral("global/lastDir"))); // is for the user's own folders
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        const auto *header = dialog->findChild<QTreeView *>(QStringLiteral("treeView"))->header();
        QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
        QCOMPARE(header->hiddenSectionCount(), 0);
        QVERIFY(dialog->directory() != QFileInfo(newest).dir());
        dialog->reject();
    });
    trigger(ActionId::Open); // nothing of the other dialog is left
    QVERIFY(notes.remove());
}

void TestRecordings::asksWithoutJournal_data()
{
    columns<int, bool>({"button", "closes"});
    QTest::newRow("save") << int(QMessageBox::Save) << true;
    QTest::newRow("save, but no name") << int(QMessageBox::SaveAll) << false;
    QTest::newRow("discard") << int(QMessageBox::Discard) << true;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false;
}

void TestRecordings::asksWithoutJournal()
{
    QFETCH(int, button);
    QFETCH(bool, closes);
    VarnelSettings().setValue(QStringLiteral("journal/enabled"), false);
    start();
    send(1, 10);
    QVERIFY(journals().isEmpty());
    const QString saved = fixture->path(QStringLiteral("saved.acp"));
    int questions = 0;
    whenModal<QMessageBox>(window.get(), [&](QMessageBox *question) {
        ++questions;
        QCOMPARE(question->objectName(), QStringLiteral("unsavedRecording"));
        QVERIFY(question->text().contains(QStringLiteral("COM3")));
        const bool cancelled = button == QMessageBox::SaveAll;
        whenModal<QFileDialog>(window.get(), [&saved, cancelled](QFileDialog *dialog) {
            if (cancelled)
                dialog->reject();
            else
                enterName(dialog, saved);
        });
        question->button(cancelled ? QMessageBox::Save : QMessageBox::StandardButton(button))->click();
    });
    closeWindow(window->activeMdiChild());
    QCOMPARE(questions, 1);
    QTRY_COMPARE(window->mdiChildren().isEmpty(), closes);
    QCOMPARE(loaded(saved).size(), button == QMessageBox::Save ? 10 : 0);
    if (!closes)
        send(11, 5); // as if nothing had happened
}

// A file in the place of the folder: no journal can be made until it goes.
void TestRecordings::asksWhileNotWritten()
{
    const QString folder = JournalFolder::defaultPath();
    QDir().mkpath(QFileInfo(folder).path());
    QFile obstacle(folder);
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    start();
    send(1, 10);
    QVERIFY(!fact(StatusFacts::NotWritten).isEmpty());
    int questions = 0;
    whenModal<QMessageBox>(window.get(), [&](QMessageBox *question) {
        ++questions;
        question->button(QMessageBox::Cancel)->click();
    });
    closeWindow(window->activeMdiChild());
    QCOMPARE(questions, 1);
    QVERIFY(obstacle.remove());
    QTRY_VERIFY(fact(StatusFacts::NotWritten).isEmpty());
    closeWindow(window->activeMdiChild());
    QVERIFY(window->mdiChildren().isEmpty());
    QCOMPARE(loaded(journals().value(0)).size(), 10);
}

void TestRecordings::runningJournalIsNotOverwritten()
{
    start();
    send(1, 10);
    const QString journal = journals().constFirst();
    const QString link = fixture->path(QStringLiteral("link.acp"));
    QVERIFY(QFile::link(journal, link));
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        whenModal<QMessageBox>(
            window.get(), [](QMessageBox *overwrite) { overwrite->button(QMessageBox::Yes)->click(); });
        enterName(dialog, link);
    });
    trigger(ActionId::SaveAs);
    QVERIFY(box("saveFailed"));
    QVERIFY(window->activeMdiChild()->hasUnsavedData());
    send(11, 10);
    QCOMPARE(loaded(journal).size(), 20);
}

void TestRecordings::unreadableRecordsStayInTheJournal()
{
    start();
    send(1, 5);
    device->send(Lines::charger(6).replace("#06C", "#06T")); // a mode that data files have no letter for
    QTRY_COMPARE(window->activeMdiChild()->store().size(), 6);
    const QString journal = journals().constFirst();
    const QString saved = fixture->path(QStringLiteral("saved.acp"));
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) { enterName(dialog, saved); });
    trigger(ActionId::SaveAs);
    QTRY_VERIFY(box("unreadableRecords"));
    const QString text = box("unreadableRecords")->text();
    QVERIFY2(text.startsWith(QLatin1Char('1')) && text.contains(journal), qPrintable(text));
    QCOMPARE(loaded(saved).size(), 5);
    QCOMPARE(loaded(journal).size(), 6);
}

void TestRecordings::saveIsPresetByTheRecording_data()
{
    QTest::addColumn<bool>("journal");
    QTest::newRow("as its journal") << true;
    QTest::newRow("as its journal would be") << false;
}

void TestRecordings::saveIsPresetByTheRecording()
{
    QFETCH(bool, journal);
    VarnelSettings().setValue(QStringLiteral("journal/enabled"), journal);
    VarnelSettings().setValue(QStringLiteral("global/lastDir"), fixture->path(QStringLiteral("last.acp")));
    start();
    send(1, 5);
    const QString saved = fixture->path(QStringLiteral("run.acp"));
    QVERIFY(writeFile(saved, "old"));
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        const QFileInfo preset(dialog->selectedFiles().value(0));
        QCOMPARE(preset.dir(), QFileInfo(saved).dir());
        QVERIFY(preset.fileName().startsWith(QLatin1String("20")));
        QVERIFY(preset.fileName().endsWith(QLatin1String("_COM3.acp")));
        QVERIFY(!journal || preset.fileName() == QFileInfo(journals().value(0)).fileName());
        for (const char *name : {"run.ABP", "\"run.abp\""}) {
            bool refused = false;
            whenModal<QMessageBox>(dialog, [&](QMessageBox *warning) {
                refused = warning->text().contains(QLatin1String(".abp"));
                warning->accept();
            });
            enterName(dialog, QString::fromLatin1(name));
            QVERIFY(refused && dialog->isVisible());
        }
        QVERIFY(dialog->directory().mkdir(QStringLiteral("folder")));
        enterName(dialog, QStringLiteral("folder"));
        QCOMPARE(dialog->directory().dirName(), QStringLiteral("folder"));
        QVERIFY(dialog->isVisible());
        whenModal<QMessageBox>(dialog, [](QMessageBox *question) {
            QVERIFY(question->text().contains(QLatin1String("run.acp")));
            question->button(QMessageBox::Yes)->click();
        });
        enterName(dialog, fixture->path(QStringLiteral("run")));
    });
    trigger(ActionId::SaveAs);
    QTRY_COMPARE(loaded(saved).size(), 5);
}

void TestRecordings::exports_data()
{
    columns<QString, QString, QString, QByteArray>({"action", "name", "written", "beginning"});
    const auto row = [](const char *name, const char *action, const char *given, const char *written,
                         const QByteArray &beginning) {
        QTest::newRow(name) << QString::fromLatin1(action) << QString::fromLatin1(given)
                            << QString::fromLatin1(written) << beginning;
    };
    row("table", "exportCsvAction", "run.csv", "run.csv", "record,");
    row("table, no ending", "exportCsvAction", "run", "run.csv", "record,");
    row("table, dot in the name", "exportCsvAction", "Pack 1.5Ah", "Pack 1.5Ah.csv", "record,");
    row("png, no ending", "savePictureAction", "run", "run.png", "\x89PNG");
    row("svg", "savePictureAction", "run.svg", "run.svg", "<?xml");
    row("pdf", "savePictureAction", "run.PDF", "run.PDF", "%PDF");
    row("unknown picture", "savePictureAction", "run.jpg", "", "");
    row("no such folder", "exportCsvAction", "none/run.csv", "", "");
}

void TestRecordings::exports()
{
    QFETCH(QString, action);
    QFETCH(QString, name);
    QFETCH(QString, written);
    QFETCH(QByteArray, beginning);
    start();
    send(1, 30);
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        const QString suggested = dialog->selectedFiles().value(0);
        QVERIFY2(suggested.endsWith(action.startsWith(QLatin1String("save")) ? QStringLiteral("_COM3.png")
                                                                             : QStringLiteral("_COM3.csv")),
            qPrintable(suggested));
        enterName(dialog, fixture->path(name));
    });
    tool(action.toLatin1().constData())->trigger();
    if (written.isEmpty()) {
        QTRY_VERIFY(box("exportFailed"));
        QVERIFY(!QFile::exists(fixture->path(name)));
        return;
    }
    QTRY_VERIFY(message().contains(written));
    QVERIFY(!box("exportFailed"));
    const QByteArray bytes = contents(fixture->path(written));
    QVERIFY2(bytes.startsWith(beginning), bytes.left(20).constData());
    QCOMPARE(VarnelSettings().value(QStringLiteral("export/lastDir")).toString(),
        QFileInfo(fixture->path(written)).path());
    if (name.endsWith(QLatin1String(".csv"))) {
        QBuffer expected;
        QVERIFY(expected.open(QIODevice::WriteOnly));
        QVERIFY(CsvRows(window->activeMdiChild()->store()).writeAll(expected));
        QCOMPARE(bytes, expected.data());
    }
}

void TestRecordings::pictureIsTheScreens()
{
    start();
    send(1, 200);
    MdiGraphChild *child = window->activeMdiChild();
    trigger(ActionId::Temperature);
    child->parentWidget()->resize(713, 431);
    const QImage whole = child->grab().toImage();
    QWheelEvent wheel(QPointF(300, 100), child->mapToGlobal(QPoint(300, 100)), QPoint(), QPoint(0, 480),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(child, &wheel);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(child, &leave);
    const QString name = fixture->path(QStringLiteral("run.png"));
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) { enterName(dialog, name); });
    tool("savePictureAction")->trigger();
    QTRY_VERIFY(QFile::exists(name));
    const QImage screen = child->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QVERIFY(screen != whole.convertToFormat(QImage::Format_RGB32)); // the zoom shows
    const QImage picture = QImage(name).convertToFormat(QImage::Format_RGB32);
    QCOMPARE(picture.size(), screen.size());
    QVERIFY(picture == screen);
}

void TestRecordings::toolsNeedSomething()
{
    start();
    QVERIFY(tool("openRecordingsAction")->isEnabled());
    for (const char *name : {"exportCsvAction", "savePictureAction"}) {
        QVERIFY(!tool(name)->isEnabled());
        QVERIFY(!tool(name)->statusTip().isEmpty());
    }
    send(1, 1);
    QVERIFY(tool("exportCsvAction")->isEnabled() && tool("savePictureAction")->isEnabled());
    closeWindow(window->activeMdiChild()); // one record: nothing that could be reopened
    QTRY_VERIFY(!tool("exportCsvAction")->isEnabled());
    QVERIFY(!tool("reopenClosedAction")->isEnabled());
}

void TestRecordings::tidiesByAge()
{
    const QPair<QVariant, bool> settings[]
        = {{QVariant(), true}, {31, true}, {7, false}, {QStringLiteral("a week"), true}, {-1, true}};
    for (const auto &[maxAgeDays, stays] : settings) {
        if (maxAgeDays.isValid())
            VarnelSettings().setValue(QStringLiteral("journal/maxAgeDays"), maxAgeDays);
        const QString old = oldJournal(10, 100000);
        oldJournal(0, 100000); // the newest one is never old
        start();
        QVERIFY2(QFile::exists(old) == stays, qPrintable(maxAgeDays.toString()));
    }
}

void TestRecordings::largeFolderIsToldOnce()
{
    constexpr qint64 large = (Q_INT64_C(1) << 30) + 1;
    QVERIFY(!oldJournal(1, large).isEmpty()); // takes no room on the disk
    for (const bool told : {true, false, true}) {
        start();
        send(1, 2);
        QTRY_COMPARE(box("journalLarge") != nullptr, told);
        if (told) {
            QVERIFY(!box("journalLarge")->isModal());
            QVERIFY(box("journalLarge")->text().contains(JournalFolder::defaultPath()));
        }
        window.reset();
        if (!told)
            QVERIFY(!oldJournal(2, large).isEmpty());
    }
}

QTEST_MAIN(TestRecordings)
#include "tst_recordings.moc"
