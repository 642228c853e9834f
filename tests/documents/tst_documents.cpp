#include "app/sessionend.h"
#include "displays/datadisplay.h"
#include "graph/mdigraphchild.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QUrl>

#include <cerrno>
#include <functional>

Q_DECLARE_METATYPE(std::function<void(MainWindow *)>)

/// Opening and saving data files with the program's own window and dialogs.
class TestDocuments : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void init()
    {
        setUp();
        open({});
    }
    void cleanup() { tearDown(); }
    void openFromDialog();
    void cancelledDialog();
    void failuresAreListed();
    void saveAndReopen();
    void failedSaveKeepsMarks_data();
    void failedSaveKeepsMarks();
    void cancelledSaveLeavesNothing();
    void savesUnderABox();
    void closingWaitsForTheSave_data();
    void closingWaitsForTheSave();
    void longFiles();
    void memoryRunsOut_data();
    void memoryRunsOut();
    void interrupted_data();
    void interrupted();
    void dropped();

private:
    QString writeFile(const QString &name, int records);
    /// A port that is listened on from now on.
    PtyPair *listen()
    {
        VarnelSettings().setPorts({QStringLiteral("COM3")});
        PtyPair *device = plug(QStringLiteral("COM3"));
        window->startRecording();
        return device;
    }
    QWidget *progress() const { return window->findChild<QProgressBar *>(); }
};

QString TestDocuments::writeFile(const QString &name, int records)
{
    QByteArray lines;
    for (int i = 0; i < records; ++i)
        lines += Lines::charger(i);
    const QString path = fixture->path(name);
    return ::writeFile(path, lines) ? path : QString();
}

void TestDocuments::openFromDialog()
{
    const QString path = writeFile(QStringLiteral("one.acp"), 20);
    whenModal<QFileDialog>(window.get(), [&path](QFileDialog *dialog) {
        QVERIFY(dialog->testOption(QFileDialog::DontUseNativeDialog));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Chose varnel data file names"));
        enterName(dialog, path);
    });
    trigger(ActionId::Open);
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    const MdiGraphChild *child = window->activeMdiChild();
    QCOMPARE(child->store().size(), 20);
    QCOMPARE(child->windowNumber(), 1);
    QVERIFY(!child->isLive() && !child->hasUnsavedData());
    QCOMPARE(message(), QStringLiteral("Data loaded from disk."));
    QCOMPARE(VarnelSettings().value(QStringLiteral("global/lastDir")).toString(), path);
    QVERIFY(window->actionSet()[ActionId::Data]->isEnabled());

    const QString older = fixture->path(QStringLiteral("older.abp"));
    QVERIFY(::writeFile(older, "6\nt\n1\n4000 10\n4000 10\n"));
    window->openFiles({older});
    QTRY_COMPARE(window->mdiChildren().size(), 2);
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        QCOMPARE(dialog->selectedFiles().value(0), fixture->path(QStringLiteral("older.acp")));
        dialog->reject();
    });
    trigger(ActionId::SaveAs);
}

void TestDocuments::cancelledDialog()
{
    window->createMdiChild();
    trigger(ActionId::Data);
    const auto *display = window->findChild<DataDisplay *>();
    QVERIFY(display->isVisible());
    whenModal<QFileDialog>(window.get(), [display](QFileDialog *dialog) {
        QVERIFY(!display->isVisible());
        dialog->reject();
    });
    trigger(ActionId::Open);
    QVERIFY(display->isVisible());
    QCOMPARE(window->mdiChildren().size(), 1);
}

void TestDocuments::failuresAreListed()
{
    const QString good = writeFile(QStringLiteral("good.acp"), 5);
    const QString bad = writeFile(QStringLiteral("bad.abp"), 5); // not a balancer's file
    const QString missing = fixture->path(QStringLiteral("missing.acp"));
    window->openFiles({bad, good, missing, fixture->path(QString())});
    QTRY_VERIFY(box("openFailures"));
    const QString text = box("openFailures")->text();
    QVERIFY2(text.startsWith(QStringLiteral("3 of 4 files could not be opened")), qPrintable(text));
    QVERIFY(text.contains(QStringLiteral("bad.abp")) && text.contains(QStringLiteral("missing.acp")));
    QVERIFY(!text.contains(QStringLiteral("good.acp")));
    QCOMPARE(window->mdiChildren().size(), 1);
    box("openFailures")->close();
    QTRY_VERIFY(!box("openFailures"));
    window->openFiles({missing});
    QTRY_COMPARE(message(), QStringLiteral("Can not open file ") + missing);
    QVERIFY(!box("openFailures"));
}

void TestDocuments::saveAndReopen()
{
    MdiGraphChild *child = window->createMdiChild();
    for (int i = 0; i < 4; ++i)
        child->addRecord(Lines::record(i));
    Varnel3Data record = Lines::record(4);
    record.mode = Varnel3Data::Test; // the format has no letter for it
    child->addRecord(record);
    const QString path = fixture->path(QStringLiteral("saved.acp"));
    whenModal<QFileDialog>(window.get(), [&path](QFileDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Choose file name"));
        enterName(dialog, path);
    });
    trigger(ActionId::SaveAs);
    QTRY_VERIFY(!child->hasUnsavedData());
    QCOMPARE(message(), QStringLiteral("Data saved on disk."));
    QVERIFY(box("unreadableRecords"));
    QTRY_COMPARE(message(), QDir::toNativeSeparators(path) + QStringLiteral(" written."));
    QCOMPARE(VarnelSettings().value(QStringLiteral("global/lastDir")).toString(), path);
    window->openFiles({path});
    QTRY_COMPARE(window->mdiChildren().size(), 2);
    QCOMPARE(window->activeMdiChild()->store().size(), 4);
}

void TestDocuments::failedSaveKeepsMarks_data()
{
    columns<QString, QString>({"name", "reason"});
    QTest::newRow("what may stall") << QStringLiteral("link.acp") << QStringLiteral("not a regular file");
    QTest::newRow("full disk") << QStringLiteral("full.acp") << qt_error_string(EFBIG);
}

void TestDocuments::failedSaveKeepsMarks()
{
    QFETCH(QString, name);
    const QString path = fixture->path(name);
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), fixture->path(QStringLiteral("link.acp"))));
    MdiGraphChild *child = window->createMdiChild();
    for (int i = 0; i < 100; ++i)
        child->addRecord(Lines::record(i));
    const QString title = child->windowTitle();
    whenModal<QFileDialog>(window.get(), [&path](QFileDialog *dialog) {
        if (QFile::exists(path)) { // overwriting is asked about
            whenModal<QMessageBox>(
                dialog, [](QMessageBox *question) { question->button(QMessageBox::Yes)->click(); });
        }
        enterName(dialog, path);
    });
    const FileSizeLimit limit(8000);
    trigger(ActionId::SaveAs);
    QTRY_VERIFY(box("saveFailed"));
    QFETCH(QString, reason);
    QVERIFY2(box("saveFailed")->text().endsWith(reason), qPrintable(box("saveFailed")->text()));
    QCOMPARE(message(), QStringLiteral("Can not save file ") + path);
    QVERIFY(child->hasUnsavedData());
    QCOMPARE(child->windowTitle(), title);
}

/// The first event that runs while the file is written gives it up.
void TestDocuments::cancelledSaveLeavesNothing()
{
    window->openFiles({writeFile(QStringLiteral("long.acp"), 100000)});
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    QVERIFY(QDir().mkdir(fixture->path(QStringLiteral("target"))));
    const QString old = writeFile(QStringLiteral("target/old.acp"), 3);
    QTimer escapes;
    connect(&escapes, &QTimer::timeout, window.get(), [this] {
        if (!QApplication::activeModalWidget())
            QTest::keyClick(window.get(), Qt::Key_Escape);
    });
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        whenModal<QMessageBox>(
            dialog, [](QMessageBox *question) { question->button(QMessageBox::Yes)->click(); });
        escapes.start(0);
        enterName(dialog, old);
    });
    trigger(ActionId::SaveAs);
    QTRY_COMPARE(message(), QStringLiteral("Saving was cancelled."));
    escapes.stop();
    const QFileInfoList left = QFileInfo(old).dir().entryInfoList(QDir::Files | QDir::Hidden);
    QCOMPARE(left.size(), 1);
    QCOMPARE(left.first().size(), qint64(3) * Lines::charger(0).size());
}

/// A box that opens while a file is written does not hold it up.
void TestDocuments::savesUnderABox()
{
    window->openFiles({writeFile(QStringLiteral("long.acp"), 100000)});
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    const QString path = fixture->path(QStringLiteral("saved.acp"));
    bool written = false;
    const auto showBox = [&] {
        QMessageBox notice(window.get());
        QTimer look;
        connect(&look, &QTimer::timeout, &notice, [&] {
            written = QFile::exists(path);
            if (written)
                notice.accept();
        });
        look.start(5);
        QTimer::singleShot(30000, &notice, &QDialog::reject);
        notice.exec();
    };
    whenModal<QFileDialog>(window.get(), [&](QFileDialog *dialog) {
        QTimer::singleShot(0, window.get(), showBox);
        enterName(dialog, path);
    });
    trigger(ActionId::SaveAs);
    QTRY_VERIFY_WITH_TIMEOUT(written, 40000);
}

void TestDocuments::closingWaitsForTheSave_data()
{
    QTest::addColumn<QString>("course");
    for (const char *course : {"written", "given up", "failed", "session ends"})
        QTest::newRow(course) << QString::fromLatin1(course);
}

void TestDocuments::closingWaitsForTheSave()
{
    QFETCH(QString, course);
    const bool fails = course == QLatin1String("failed");
    const bool givenUp = course == QLatin1String("given up");
    window->openFiles({writeFile(QStringLiteral("one.acp"), 20)});
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    const QString path
        = fixture->path(fails ? QStringLiteral("none/saved.acp") : QStringLiteral("saved.acp"));
    whenModal<QFileDialog>(window.get(), [&path](QFileDialog *dialog) { enterName(dialog, path); });
    trigger(ActionId::SaveAs);
    window->mdiChildren().first()->parentWidget()->close(); // neither does a graph window
    QCOMPARE(window->mdiChildren().size(), 1);
    if (course == QLatin1String("session ends"))
        window->findChild<SessionEnd *>()->closeShell();
    else
        QVERIFY(!window->close());
    if (givenUp)
        QTest::keyClick(window.get(), Qt::Key_Escape);
    if (fails)
        QTRY_VERIFY(box("saveFailed"));
    QTRY_COMPARE(window->isVisible(), fails);
    QVERIFY(window->mdiChildren().isEmpty());
    QCOMPARE(loaded(path).size(), fails || givenUp ? 0 : 20);
}

void TestDocuments::longFiles()
{
    const QString path = writeFile(QStringLiteral("long.acp"), 100000);
    PtyPair *device = listen();
    window->openFiles({path, path, path});
    device->send(Lines::charger(7));
    QTRY_COMPARE_WITH_TIMEOUT(window->mdiChildren().size(), 4, 60000);
    QTRY_VERIFY(!progress()->isVisible());
}

void TestDocuments::memoryRunsOut_data()
{
    QTest::addColumn<int>("room"); // MB
    QTest::newRow("for the records") << 64; // which need 192
    QTest::newRow("for their series") << 203; // 21 more
}

// One of the files is too large for the limit; the other one and the device find room.
void TestDocuments::memoryRunsOut()
{
    QFETCH(int, room);
    const QString large = fixture->path(QStringLiteral("large.acp"));
    QVERIFY(::writeFile(large, QByteArray("#c0605 00123,25200+02000,025,01234\n").repeated(400000)));
    const QString good = writeFile(QStringLiteral("good.acp"), 5);
    PtyPair *device = listen();
    device->send(Lines::charger(7));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    const MdiGraphChild *live = window->activeMdiChild();
    const AddressSpaceLimit limit(qint64(room) << 20);
    window->openFiles({large, good});
    device->send(Lines::charger(8));
    QTRY_VERIFY(box("openFailures"));
    QVERIFY2(box("openFailures")->text().endsWith(QStringLiteral("large.acp: not enough memory")),
        qPrintable(box("openFailures")->text()));
    QCOMPARE(window->mdiChildren().size(), 2);
    device->send(Lines::charger(9));
    QTRY_COMPARE(live->store().size(), 3);
    QVERIFY(live->isLive());
}

void TestDocuments::interrupted_data()
{
    QTest::addColumn<std::function<void(MainWindow *)>>("interrupt");
    const auto row
        = [](const char *name, const std::function<void(MainWindow *)> &act) { QTest::newRow(name) << act; };
    row("cancel", [](MainWindow *shell) {
        QTest::mouseClick(shell->findChild<QPushButton *>(QStringLiteral("cancelProgress")), Qt::LeftButton);
    });
    row("escape", [](MainWindow *shell) { QTest::keyClick(shell, Qt::Key_Escape); });
    row("close the program", [](MainWindow *shell) { shell->close(); });
}

/// While a file is read ports are listened to, but input reaches only
/// Cancel; nothing shows of a file given up.
void TestDocuments::interrupted()
{
    QFETCH(std::function<void(MainWindow *)>, interrupt);
    const QString path = writeFile(QStringLiteral("endless.acp"), 100);
    QVERIFY(QFile::resize(path, 1LL << 36)); // a hole takes no room, and longer to read than anyone waits
    PtyPair *device = listen();
    window->openFiles({path});
    QTRY_VERIFY(progress()->isVisible());
    QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(window->isVisible());
    device->send(Lines::charger(7));
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    QVERIFY(window->mdiChildren().first()->isLive());
    interrupt(window.get());
    QVERIFY(!progress()->isVisible());
    if (!window->isVisible())
        return;
    const MdiGraphChild *live = window->mdiChildren().first();
    for (int i = 2; i <= 4; ++i) { // by then the file would show
        device->send(Lines::charger(7 + i));
        QTRY_COMPARE(live->store().size(), i);
    }
    QCOMPARE(window->mdiChildren().size(), 1);
}

void TestDocuments::dropped()
{
    const QString path = writeFile(QStringLiteral("one.acp"), 3);
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("https://host.example/two.acp")), QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    QTRY_COMPARE(window->mdiChildren().size(), 1);
    QVERIFY2(message().endsWith(QStringLiteral(" loaded from disk.")), "and nothing else was tried");
    QVERIFY(!box("openFailures"));
}

QTEST_MAIN(TestDocuments)
#include "tst_documents.moc"
