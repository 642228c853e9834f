#include "app/tools/logbookhost.h"
#include "desk/windowfiles.h"
#include "logbook/logbook.h"
#include "logbook/window/course/coursepanel.h"
#include "logbook/window/dialogs/foldersdialog.h"
#include "logbook/window/logbookwindow.h"
#include "support/columns.h"
#include "support/documentrig.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeView>

/// What becomes of a live recording on disk: its journal, its files, what the menu of tools makes of it.
class TestRecordings : public DocumentRig {
    Q_OBJECT

private slots:
    void journalSurvives_data()
    {
        columns<int>({"ending"});
        QTest::newRow("window closed") << int(ActionId::Close);
        QTest::newRow("all windows closed") << int(ActionId::CloseAll);
        QTest::newRow("program closed") << int(ActionId::Exit);
        QTest::newRow("paused") << int(ActionId::Recording);
        QTest::newRow("port lost") << -1;
    }

    void journalSurvives()
    {
        QFETCH(int, ending);
        listen(1);
        send(1, 20);
        const QString journal = journals().value(0);
        QCOMPARE(loaded(journal).size(), 20); // while it is being written
        int expected = 20;
        ending < 0 ? plugged[0]->hangUp() : trigger(ActionId(ending));
        if (ending == int(ActionId::Close)) {
            QVERIFY(window->mdiChildren().isEmpty());
            QCOMPARE(message(),
                "The recording is kept as " + QFileInfo(journal).fileName()
                    + ": Tools > Reopen closed recording.");
            while (expected < 30) // goes on without its window
                plugged[0]->send(Lines::charger(++expected));
        }
        QTRY_COMPARE(loaded(journal).size(), expected);
        window.reset();
        QCOMPARE(journals(), QStringList(journal));
        QCOMPARE(loaded(journal).size(), expected);
    }

    void reopensNewestFirst()
    {
        listen(3);
        const QAction *reopen = window->actionSet()[ActionId::ReopenClosed];
        QVERIFY(!reopen->isEnabled());
        for (int device = 0; device < 3; ++device)
            send(1, 5 + device, size_t(device));
        trigger(ActionId::CloseAll);
        QVERIFY(QFile::remove(journals().filter("COM2").value(0)));
        for (const int records : {7, 5}) {
            QVERIFY(reopen->isEnabled());
            trigger(ActionId::ReopenClosed);
            QTRY_VERIFY(window->activeMdiChild());
            QCOMPARE(window->activeMdiChild()->store().size(), records);
            closeWindow(window->activeMdiChild()); // is in a file, and need not be remembered
        }
        QVERIFY(!reopen->isEnabled());
    }

    void dialogListsNewestFirst()
    {
        oldJournal(2, 0);
        const QString older = oldJournal(3, 1);
        QVERIFY(writeFile(older, Lines::charger(0) + Lines::charger(7200)) && makeOld(older, 3));
        listen(1);
        send(1, 1);
        const QString newest = journals().constFirst();
        const QDir folder = QFileInfo(newest).dir();
        QVERIFY(writeFile(folder.filePath("notes.txt"), "")); // is not listed
        const auto look = [&](QDialog *dialog) {
            const auto *tree = dialog->findChild<QTreeView *>("treeView");
            QVERIFY(tree && tree->isVisible());
            const auto shown = [tree](int row) { return tree->model()->index(row, 0, tree->rootIndex()); };
            QTRY_COMPARE(tree->model()->rowCount(tree->rootIndex()), 2); // the empty one was tidied away
            QTRY_COMPARE(shown(0).data().toString(), QFileInfo(newest).fileName()); // the model sorts later
            const auto *delegate = static_cast<QStyledItemDelegate *>(tree->itemDelegate());
            QVERIFY(delegate->displayText(shown(0).data(), QLocale()).endsWith("acp [Cha 6xLiPo]"));
            for (const auto &[row, length] : {std::pair(0, "0:00"), std::pair(1, "2:00")}) // is read beside
                QTRY_COMPARE(shown(row).sibling(row, 2).data().toString(), QString(length));
            QStringList headings;
            for (int column = 0; column < 4; ++column)
                headings << tree->model()->headerData(column, Qt::Horizontal).toString();
            QCOMPARE(headings.join(' '), QString("Name Size Length Date Modified"));
            QVERIFY(tree->model()->headerData(2, Qt::Horizontal, Qt::ToolTipRole).isNull());
            QCOMPARE(shown(1).sibling(1, 2).data(Qt::TextAlignmentRole).toInt(), 0x82); // right, middle
            QVERIFY(shown(1).sibling(1, 3).data(Qt::TextAlignmentRole).isNull());
            for (int column = 0; column < 4; ++column)
                QTRY_VERIFY( // the header follows the contents later
                    tree->columnWidth(column) >= tree->sizeHintForIndex(shown(1).sibling(1, column)).width());
            const QHeaderView *header = tree->header();
            QVERIFY(
                header->sortIndicatorOrder() == Qt::DescendingOrder && header->sortIndicatorSection() == 0);
            QVERIFY(header->sectionResizeMode(0) == QHeaderView::Stretch && !header->stretchLastSection());
            QCOMPARE(header->sectionResizeMode(3), QHeaderView::ResizeToContents);
            tree->header()->hideSection(1);
            qobject_cast<QFileDialog *>(dialog)->setViewMode(QFileDialog::List);
            enter(newest)(dialog);
        };
        perform(ActionId::OpenRecordings, {look});
        QTRY_COMPARE(window->mdiChildren().size(), 2);
        QVERIFY(!VarnelSettings().contains("global/lastDir")); // is for the user's own folders
        const auto lookAgain = [&](QDialog *dialog) { // nothing of the other dialog is left
            const auto *header = dialog->findChild<QTreeView *>("treeView")->header();
            QCOMPARE(header->sortIndicatorOrder(), Qt::AscendingOrder);
            QCOMPARE(header->hiddenSectionCount(), 0);
            QCOMPARE(qobject_cast<QFileDialog *>(dialog)->viewMode(), QFileDialog::Detail);
            QVERIFY(qobject_cast<QFileDialog *>(dialog)->directory() != folder);
            dialog->reject();
        };
        perform(ActionId::Open, {lookAgain});
        QCOMPARE(unanswered, 0);
        perform(ActionId::OpenRecordings, {[&](QDialog *dialog) { // which it was left with
            QVERIFY(dialog->findChild<QTreeView *>("treeView")->header()->isSectionHidden(1));
            QTRY_COMPARE(qobject_cast<QFileDialog *>(dialog)->directory(), folder); // may come late
            dialog->reject();
        }});
        QCOMPARE(unanswered, 0);
    }

    void runningJournalIsNotOverwritten()
    {
        listen(2);
        send(1, 10);
        const QString journal = journals().constFirst();
        const QString link = fixture->path("link.acp");
        QVERIFY(QFile::link(journal, link));
        perform(ActionId::SaveAs, {enter(link), press(QMessageBox::Yes)});
        QVERIFY(box("saveFailed") && window->activeMdiChild()->hasUnsavedData());
        VarnelSettings().setValue("journal/enabled", false);
        send(1, 5, 1); // which nothing keeps: its window stays
        perform(ActionId::Close, {press(QMessageBox::Save), enter(link), press(QMessageBox::Yes)});
        QVERIFY(unanswered == 0 && window->mdiChildren().size() == 2);
        QVERIFY(QFile::rename(link, fixture->path("nul.csv"))); // which is a file's name here
        perform(ActionId::ExportCsv, {enter(fixture->path("nul.csv")), press(QMessageBox::Yes)});
        QVERIFY(box("exportFailed"));
        send(11, 10);
        QCOMPARE(loaded(journal).size(), 20);
    }

    /// Whoever has the old file keeps it; the recording goes on, its window closed or not.
    void replacedJournalIsTold()
    {
        listen(1);
        send(1, 5);
        MdiGraphChild *child = window->activeMdiChild();
        QString before = journals().value(0);
        for (const bool closed : {false, true}) {
            QVERIFY(QFile::rename(before, fixture->path("moved.acp" + before.right(7))));
            QVERIFY(writeFile(before, "mine"));
            QTRY_VERIFY(box("journalReplaced"));
            const QString now = box("journalReplaced")->text().section('\n', -1);
            QCOMPARE(box("journalReplaced")->text().section('\n', 1, 1), before);
            QVERIFY(now != before);
            QTRY_COMPARE(loaded(now).size(), 5);
            delete box("journalReplaced");
            before = now;
            if (closed)
                break;
            QCOMPARE(window->filesOfWindows().fileOf(child), now);
            QCOMPARE(child->parentWidget()->toolTip(), "Journal: " + now);
            QTRY_VERIFY(window->filesOfWindows().keepsAll(child));
            closeWindow(child);
        }
        trigger(ActionId::ReopenClosed);
        QTRY_VERIFY(window->activeMdiChild());
        QCOMPARE(window->filesOfWindows().fileOf(window->activeMdiChild()), before);
    }

    void unreadableRecordsStayInTheJournal()
    {
        listen(1);
        send(1, 5);
        plugged[0]->send(Lines::charger(6).replace("#06C", "#06T")); // data files have no letter for the mode
        QTRY_COMPARE(window->activeMdiChild()->store().size(), 6);
        const QString journal = journals().constFirst();
        const QString saved = fixture->path("saved.acp");
        perform(ActionId::SaveAs, {enter(saved)});
        QTRY_VERIFY(box("unreadableRecords"));
        QCOMPARE(box("unreadableRecords")->text(),
            "1 record(s) of a mode or chemistry that the file format has no sign for can't be read back from "
                + saved + ".\nThey are kept in " + journal + '.');
        QCOMPARE(loaded(saved).size() * 10 + loaded(journal).size(), 56);
    }

    void saveIsPresetByTheRecording()
    {
        for (const bool journal : {true, false}) {
            cleanup();
            init();
            VarnelSettings().setValue("journal/enabled", journal);
            VarnelSettings().setValue("global/lastDir", fixture->path("last.acp"));
            listen(1);
            send(1, 5);
            const QString saved = fixture->path("run.acp");
            QVERIFY(writeFile(saved, "old") && QDir(fixture->path("")).mkdir("folder"));
            const auto look = [&](QDialog *dialog) {
                const auto *files = qobject_cast<QFileDialog *>(dialog);
                const QFileInfo preset(files->selectedFiles().value(0));
                QCOMPARE(preset.dir(), QFileInfo(saved).dir());
                QVERIFY(preset.fileName().startsWith("20") && preset.fileName().endsWith("_COM1.acp"));
                QVERIFY(!journal || preset.fileName() == QFileInfo(journals().value(0)).fileName());
                for (const char *name : {"run.ABP", "\"run.abp\""}) {
                    answer({[](QDialog *warning) {
                        QVERIFY(qobject_cast<QMessageBox *>(warning)->text().contains(".abp"));
                        warning->accept();
                    }});
                    enter(name)(dialog);
                    QVERIFY(unanswered == 0 && dialog->isVisible());
                }
                enter("folder")(dialog);
                QCOMPARE(files->directory().dirName(), QString("folder"));
                QVERIFY(dialog->isVisible());
                answer({press(QMessageBox::Yes)}); // to replace it
                enter(fixture->path("run"))(dialog);
            };
            perform(ActionId::SaveAs, {look});
            QCOMPARE(unanswered, 0);
            QTRY_COMPARE(loaded(saved).size(), 5);
        }
    }

    void exports_data()
    {
        const auto row
            = columns<bool, QString, QString, QByteArray>({"table", "name", "written", "beginning"});
        row("table, no ending", true, "run", "run.csv", "record,");
        row("table, dot in the name", true, "Pack 1.5Ah", "Pack 1.5Ah.csv", "record,");
        row("png, no ending", false, "run", "run.png", "\x89PNG");
        row("svg", false, "run.svg", "run.svg", "<?xml");
        row("pdf", false, "run.PDF", "run.PDF", "%PDF");
        row("unknown picture", false, "run.jpg", "", "");
        row("no such folder", true, "none/run.csv", "", "");
    }

    void exports()
    {
        QFETCH(bool, table);
        QFETCH(QString, name);
        QFETCH(QString, written);
        QFETCH(QByteArray, beginning);
        const bool exported = written.isEmpty(); // before, so that it begins there; else beside the data
        VarnelSettings().setValue(
            exported ? "export/lastDir" : "global/lastDir", fixture->path(exported ? "" : "last.acp"));
        listen(1);
        send(1, 30);
        MdiGraphChild *child = window->activeMdiChild();
        const auto giveName = [&](QDialog *dialog) {
            const QString suggested = qobject_cast<QFileDialog *>(dialog)->selectedFiles().value(0);
            QCOMPARE(QFileInfo(suggested).path(), fixture->path(""));
            QVERIFY2(suggested.endsWith(table ? "_COM1.csv" : "_COM1.png"), qPrintable(suggested));
            QCOMPARE(qobject_cast<QFileDialog *>(dialog)->nameFilters().size(), table ? 1 : 3);
            QMetaObject::invokeMethod(dialog, "changeEnding", Q_ARG(QString, "Drawing (*.svg)"));
            const QString other = qobject_cast<QFileDialog *>(dialog)->selectedFiles().value(0);
            QCOMPARE(other, suggested.chopped(4) + ".svg");
            QMetaObject::invokeMethod(dialog, "changeEnding", Q_ARG(QString, table ? "(*.csv)" : "(*.png)"));
            enter(fixture->path(name))(dialog);
        };
        perform(table ? ActionId::ExportCsv : ActionId::SavePicture, {giveName});
        if (written.isEmpty()) {
            QTRY_VERIFY(box("exportFailed"));
            QVERIFY(!QFile::exists(fixture->path(name)));
            return;
        }
        QTRY_COMPARE(message(), fixture->path(written) + " written.");
        QVERIFY(!box("exportFailed"));
        const QByteArray bytes = contents(fixture->path(written));
        QVERIFY2(bytes.startsWith(beginning), bytes.left(20).constData());
        QCOMPARE(VarnelSettings().value("export/lastDir").toString(), fixture->path(""));
        QVERIFY(!table || bytes.count('\n') == 31);
        const QImage screen = child->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QVERIFY(!written.endsWith(".png") || QImage::fromData(bytes) == screen);
    }

    /// Neither without a name nor of a window that has gone meanwhile.
    void nothingIsWritten()
    {
        open({});
        perform(ActionId::OpenRecordings, {[](QDialog *dialog) { // before there is any
            QCOMPARE(qobject_cast<QFileDialog *>(dialog)->directory().path(), JournalFolder::defaultPath());
            dialog->reject();
        }});
        const QString source = dataFile("source.acp", 5);
        for (const ActionId id : {ActionId::SaveAs, ActionId::ExportCsv, ActionId::SavePicture}) {
            window->openFiles({source});
            QTRY_COMPARE(window->mdiChildren().size(), 1);
            const QString before = message();
            perform(id, {reject()});
            QVERIFY(unanswered == 0 && !box("saveFailed") && !box("exportFailed") && message() == before);
            perform(id, {[&](QDialog *dialog) {
                closeWindow(window->activeMdiChild());
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                enter(fixture->path("none"))(dialog);
            }});
            QVERIFY(unanswered == 0 && window->mdiChildren().isEmpty());
            QCOMPARE(QDir(fixture->path("")).entryList({"none*"}), QStringList());
        }
    }

    /// By live recordings and by files that are opened and saved; its window comes back as it was left.
    void logbookIsFed()
    {
        listen(1);
        send(1, 5);
        trigger(ActionId::Logbook);
        LogbookWindow *book = part<LogbookHost>()->window();
        const auto *logbook = part<Logbook>();
        const QString journal = journals().value(0);
        QTRY_VERIFY(logbook->recordingOf(journal) && logbook->recordingOf(journal)->isLive);
        QVERIFY(book->isVisible());
        book->showMinimized();
        window->activateWindow();
        trigger(ActionId::Logbook);
        QTRY_VERIFY(!book->isMinimized() && book->isActiveWindow());
        plugged[0]->hangUp();
        QTRY_VERIFY(!logbook->recordingOf(journal)->isLive);
        const QString saved = fixture->path("saved.acp");
        perform(ActionId::SaveAs, {enter(saved)});
        QTRY_VERIFY(logbook->recordingOf(saved));
        QCOMPARE(logbook->recordingOf(saved)->start, logbook->recordingOf(journal)->start);
        QMetaObject::invokeMethod(book, "openWanted", Q_ARG(QStringList, {dataFile("other.acp", 9)}));
        QTRY_VERIFY(logbook->recordingOf(fixture->path("other.acp")));
        QTRY_COMPARE(book->shownIds().size(), 3);

        const QString table = fixture->path("book.csv");
        answer({enter(table)});
        QMetaObject::invokeMethod(book, "tableWanted");
        QTRY_COMPARE(book->statusBar()->currentMessage(), table + " written.");
        QCOMPARE(contents(table).count('\n'), 4);
        answer({[&](QDialog *dialog) {
            QCOMPARE(dialog->parentWidget(), static_cast<QWidget *>(book));
            QVERIFY(
                qobject_cast<QFileDialog *>(dialog)->selectedFiles().value(0).endsWith("/pack course.png"));
            enter(fixture->path("course.png"))(dialog);
        }});
        QMetaObject::invokeMethod(book, "pictureWanted");
        QTRY_COMPARE(QImage(fixture->path("course.png")).size(), book->course().pictureSize());
        FoldersDialog folders(QString(), {}, nullptr);
        for (const bool chosen : {false, true}) {
            answer({[&](QDialog *dialog) {
                const auto *asking = qobject_cast<QFileDialog *>(dialog);
                QVERIFY(asking->testOption(QFileDialog::ShowDirsOnly));
                QCOMPARE(asking->fileMode(), QFileDialog::Directory);
                (chosen ? enter(fixture->path("")) : reject())(dialog);
            }});
            emit book->folderWanted(&folders);
            QCOMPARE(folders.folders(), chosen ? QStringList(fixture->path("")) : QStringList());
        }
        book->resize(book->width(), 444);
        window->close();
        QVERIFY(!book->isVisible() && VarnelSettings().contains("logbook/byDate"));
        window.reset();
        VarnelSettings().setValue("logbook/byDate", false);
        QVERIFY(writeFile(Logbook::defaultFolder() + "/logbook.sqlite", QByteArray(5000, 'x')));
        open({});
        QTRY_VERIFY(box("logbookDamaged"));
        trigger(ActionId::Logbook);
        book = part<LogbookHost>()->window();
        QVERIFY(book->height() == 444 && book->findChild<QComboBox *>("courseAxis")->currentIndex() == 1);
        window.reset();
        const QString data = Logbook::defaultFolder();
        QVERIFY(QDir(data).removeRecursively() && writeFile(data, "")); // in its way
        open({});
        QTRY_VERIFY2(message().startsWith("The logbook can't be kept"), qPrintable(message()));
        QVERIFY(QFile::remove(data));
    }

    void tidiesByAge()
    {
        for (const QVariant &maxAgeDays :
            {QVariant(), QVariant(10), QVariant(9), QVariant("a week"), QVariant(-1)}) {
            VarnelSettings().setValue("journal/maxAgeDays", maxAgeDays);
            const QString old = oldJournal(10, 100000);
            oldJournal(0, 100000); // the newest one is never old
            open({});
            QVERIFY2(QFile::exists(old) == (maxAgeDays != 9), qPrintable(maxAgeDays.toString()));
        }
    }

    void largeFolderIsToldOnce()
    {
        constexpr qint64 large = (Q_INT64_C(1) << 30) + 1;
        oldJournal(1, large); // takes no room on the disk
        plug("COM1");
        VarnelSettings().setValue("journal/toldSize", std::numeric_limits<qint64>::min()); // by whomever
        for (const bool told : {true, false, true}) {
            open({"COM1"});
            send(1, 2);
            QTRY_COMPARE(box("journalLarge") != nullptr, told);
            if (told) {
                QVERIFY(box("journalLarge")->isVisible()
                    && box("journalLarge")->text().contains(JournalFolder::defaultPath()));
                QDesktopServices::setUrlHandler("file", this, "takeUrl");
                box("journalLarge")->buttons().constLast()->click();
                QDesktopServices::unsetUrlHandler("file");
                QCOMPARE(opened, QUrl::fromLocalFile(JournalFolder::defaultPath()));
            } else {
                oldJournal(2, large);
            }
            window.reset();
        }
    }

public slots:
    void takeUrl(const QUrl &url) { opened = url; }

private:
    static QString oldJournal(int daysAgo, qint64 size)
    {
        const JournalFolder folder(JournalFolder::defaultPath());
        const QString name = folder.fileName(QDateTime::currentDateTime().addDays(-daysAgo), "COM9", 1);
        const bool done = QDir().mkpath(folder.path()) && writeFile(name, "") && QFile::resize(name, size);
        return done && makeOld(name, daysAgo) ? name : QString();
    }

    QUrl opened; // by the desktop, as it was told
};

QTEST_MAIN(TestRecordings)
#include "tst_recordings.moc"
