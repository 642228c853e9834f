#include "app/sessionend.h"
#include "documents/documents.h"
#include "documents/graphfile.h"
#include "documents/progressstrip.h"
#include "displays/capacitydisplay.h"
#include "displays/datadisplay.h"
#include "displays/powerdisplay.h"
#include "displays/voltagecomparison.h"
#include "documents/graphprinting.h"
#include "documents/unsavedwindows.h"
#include "printing/printrequest.h"
#include "support/documentrig.h"
#include "support/limits.h"
#include "support/paintlog.h"

#include <QProgressBar>
#include <QtTest>

#include <cerrno>
#include <string_view>

/// Opening and saving data files with the program's own window and dialogs.
class TestDocuments : public DocumentRig {
    Q_OBJECT

private slots:
    void init() override
    {
        ShellRig::init();
        open({});
    }

    /// The displays, always on top, are out of the dialog's way, and come back as they were switched.
    void opensByDialogAndByAnotherStart()
    {
        const QStringList files{dataFile("a.acp", 2), dataFile("b.acp", 20)};
        window->createMdiChild();
        for (const ActionId id : {ActionId::Data, ActionId::Graph, ActionId::Balancer, ActionId::Power})
            trigger(id);
        const auto seen = [this] {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QString all;
            for (const QWidget *one : std::initializer_list<const QWidget *>{part<DataDisplay>(),
                     part<CapacityDisplay>(), part<PowerDisplay>(), part<VoltageComparison>()})
                all += one->isVisible() ? '1' : '0';
            return all;
        };
        QCOMPARE(seen(), QString("1011"));
        const QString both = '"' + files.join("\" \"") + '"';
        for (const Answer &last : {reject(), enter(both)}) {
            perform(ActionId::Open, {[&](QDialog *dialog) {
                QCOMPARE(dialog->windowTitle(), QString("Chose varnel data file names"));
                QCOMPARE(seen(), QString("0000"));
                QCOMPARE(window->mdiChildren().size(), 1);
                last(dialog);
            }});
            QCOMPARE(unanswered, 0);
        }
        QTRY_COMPARE(window->mdiChildren().size(), 3);
        QTRY_COMPARE(seen(), QString("1011"));
        QCOMPARE(message(), QString("Data loaded from disk."));
        QCOMPARE(VarnelSettings().value("global/lastDir").toString(), files.first());
        QCOMPARE(window->activeWindowNumber(), 3);
        QCOMPARE(window->activeMdiChild()->store().size(), 20);
        QVERIFY(!window->activeMdiChild()->isLive() && !window->activeMdiChild()->hasUnsavedData());
        part<DataDisplay>()->showMinimized(); // and stays so
        window->hide();
        window->comeForward({files.last()});
        QTRY_VERIFY(window->isVisible() && window->isActiveWindow());
        window->showMinimized();
        window->comeForward({});
        QVERIFY(!window->isMinimized());
        QTRY_COMPARE(window->mdiChildren().size(), 4);
        QVERIFY(part<DataDisplay>()->isMinimized());

        window = std::make_unique<MainWindow>();
        window->openFiles(files); // before it listens
        QTRY_COMPARE(window->mdiChildren().size(), 2);
    }

    void failuresAreListed()
    {
        const QString good = dataFile("good.acp", 2);
        const QString bad = dataFile("bad.abp", 5); // not a balancer's file
        const QString broken = fixture->path("broken.acp");
        QVERIFY(writeFile(broken, "5\nc\n2\n0 8.4 1.5\n"));
        QStringList all{bad, good, broken};
        for (int i = 0; i < 11; ++i)
            all << fixture->path(QString("missing%1.acp").arg(i));
        const QString missing = all.last();
        const QSignalSpy said(part<Documents>(), SIGNAL(message(QString,int)));
        window->openFiles(all + QStringList(dataFile("one.acp", 1)));
        QTRY_VERIFY(box("openFailures"));
        QCOMPARE(told(said).mid(0, 4) + told(said).mid(14),
            QStringList({"Format error in bad.abp 2000", "Data loaded from disk. 1000",
                "Format error in broken.acp 8000", "Can not open file missing0.acp 0",
                "No data in file. 1000"}));
        const QString text = box("openFailures")->text();
        QVERIFY2(text.startsWith("13 of 15 files could not be opened:\n\n" + bad + ": "), qPrintable(text));
        QVERIFY2(text.endsWith("... and 1 more"), qPrintable(text));
        QVERIFY(text.contains(all[12]) && !text.contains(missing) && !text.contains(good));
        QVERIFY(box("openFailures")->detailedText().contains(missing));
        QCOMPARE(window->mdiChildren().size(), 2);
        delete box("openFailures");
        window->openFiles(QStringList(all.mid(3)) << bad << good); // a dozen that fail
        QTRY_VERIFY(box("openFailures"));
        QVERIFY(box("openFailures")->text().startsWith("12 of 13 files"));
        QVERIFY(!box("openFailures")->text().contains("more"));
        QVERIFY(box("openFailures")->detailedText().isEmpty());
        delete box("openFailures");
        window->openFiles({good, missing});
        QTRY_VERIFY(box("openFailures"));
        delete box("openFailures");
        window->openFiles({missing});
        QTRY_COMPARE(message(), "Can not open file " + missing);
        QVERIFY(!box("openFailures"));
    }

    void savedComesBack()
    {
        const QString older = fixture->path("older.abp");
        QVERIFY(writeFile(older, "6\nt\n1\n4000 10\n4000 10\n"));
        window->openFiles({older});
        QTRY_COMPARE(window->mdiChildren().size(), 1);
        const QString path = fixture->path("saved.acp");
        const QSignalSpy said(part<Documents>(), SIGNAL(message(QString,int)));
        perform(ActionId::SaveAs, {[&](QDialog *dialog) {
            QCOMPARE(dialog->windowTitle(), QString("Choose file name"));
            const auto *files = qobject_cast<QFileDialog *>(dialog);
            QCOMPARE(files->selectedFiles().value(0), QDir::homePath() + "/older.acp");
            enter(path)(dialog);
        }});
        QTRY_COMPARE(told(said), QStringList({"Data saved on disk. 1000", "saved.acp written. 5000"}));
        QVERIFY(message() == QDir::toNativeSeparators(path) + " written." && !box("unreadableRecords"));
        QCOMPARE(VarnelSettings().value("global/lastDir").toString(), path);
        window->openFiles({path});
        QTRY_COMPARE(window->mdiChildren().size(), 2);
        QCOMPARE(window->activeMdiChild()->store().size(), 2);
    }

    void failedSaveKeepsMarks()
    {
        QVERIFY(QFile::link("/dev/full", fixture->path("link.acp")));
        MdiGraphChild *child = window->createMdiChild();
        for (int i = 0; i < 100; ++i)
            child->addRecord(Lines::record(i));
        const QString title = child->windowTitle();
        const QSignalSpy said(part<Documents>(), SIGNAL(message(QString,int)));
        const FileSizeLimit limit(8000);
        for (const bool linked : {true, false}) { // to what may stall; there to be overwritten
            const QString path = fixture->path(linked ? "link.acp" : "full.acp");
            Answers given{enter(path)};
            if (linked)
                given << press(QMessageBox::Yes);
            perform(ActionId::SaveAs, given);
            QTRY_VERIFY(box("saveFailed"));
            QCOMPARE(box("saveFailed")->text().section('\n', 0, 0), "Can not save file " + path);
            QVERIFY(
                box("saveFailed")->text().endsWith(linked ? "not a regular file" : qt_error_string(EFBIG)));
            delete box("saveFailed");
            QCOMPARE(told(said).constLast(), "Can not save file " + QFileInfo(path).fileName() + " 0");
            QVERIFY(child->hasUnsavedData());
            QCOMPARE(child->windowTitle(), title);
        }
    }

    void cancelledSaveLeavesNothing()
    {
        QVector<int> parts; // that the bar tells
        connect(part<QProgressBar>(), &QProgressBar::valueChanged, window.get(),
            [seen = &parts](int value) { *seen << value; });
        window->openFiles({dataFile("long.acp", 100000)});
        QTRY_COMPARE(window->mdiChildren().size(), 1);
        QVERIFY(std::is_sorted(parts.begin(), parts.end()) && parts.first() == 0 && parts.last() == 1000);
        QVERIFY(parts.contains(700)); // once all is read
        QVERIFY(QDir(fixture->path("")).mkdir("target"));
        const QString old = dataFile("target/old.acp", 3);
        perform(ActionId::SaveAs, {enter(old), press(QMessageBox::Yes)});
        while (part<QProgressBar>()->value() == 0) // of many slices the first
            QCoreApplication::processEvents();
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QCOMPARE(message(), QString("Saving was cancelled."));
        QTRY_COMPARE(QFileInfo(old).dir().entryList(QDir::Files | QDir::Hidden), QStringList("old.acp"));
        QCOMPARE(loaded(old).size(), 3);
    }

    void closingWaitsForTheSave()
    {
        for (const std::string_view course : {"written", "given up", "failed", "session ends"}) {
            cleanup();
            init();
            const bool fails = course == "failed";
            const bool givenUp = course == "given up";
            window->openFiles({dataFile("one.acp", 20)});
            QTRY_COMPARE(window->mdiChildren().size(), 1);
            const QString path = fixture->path(fails ? "none/saved.acp" : "saved.acp");
            perform(ActionId::SaveAs, {enter(path)});
            const QSignalSpy said(part<UnsavedWindows>(), SIGNAL(message(QString,int)));
            closeWindow(window->mdiChildren().first()); // neither does a graph window
            QCOMPARE(window->mdiChildren().size(), 1);
            if (course == "session ends")
                part<SessionEnd>()->closeShell();
            else
                QVERIFY(!window->close() && told(said).constLast().endsWith("Cancel gives the file up. 0"));
            if (givenUp)
                QTest::keyClick(window.get(), Qt::Key_Escape);
            if (fails)
                QTRY_VERIFY(box("saveFailed"));
            QTRY_COMPARE(window->isVisible(), fails);
            QVERIFY(window->mdiChildren().isEmpty());
            QCOMPARE(loaded(path).size(), fails || givenUp ? 0 : 20);
            if (!fails)
                continue;
            delete box("saveFailed"); // the next one is good
            window->openFiles({dataFile("two.acp", 20)});
            QTRY_COMPARE(window->mdiChildren().size(), 1);
            perform(ActionId::SaveAs, {enter(fixture->path("saved.acp"))});
            QVERIFY(!window->close());
            QTRY_VERIFY(!window->isVisible());
        }
    }

    // One of the files is too large for the limit; the others, and the device, find room.
    void longFiles()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("a sanitizer's allocator has addresses in store");
#endif
        const QString large = fixture->path("large.acp");
        const QByteArray high = "#16C05____B4" + QByteArray(",2000000000").repeated(6);
        const QByteArray low = "#16C05____B4" + QByteArray(",0").repeated(38) + '\n'; // none fits two bytes
        QVERIFY(writeFile(
            large, (high + QByteArray(",2000000000,:").repeated(16) + '\n' + low).repeated(150000)));
        const QString path = dataFile("long.acp", 50000);
        listen(1);
        send(7, 1);
        const MdiGraphChild *live = window->activeMdiChild();
        const QSignalSpy said(part<Documents>(), SIGNAL(message(QString,int)));
        for (int i = 0; i < 2; ++i) {
            const AddressSpaceLimit limit(qint64(32) << 20); // the records alone need 57
            window->openFiles({large, path});
            plugged[0]->send(Lines::charger(7 + live->store().size()));
            QTRY_VERIFY_WITH_TIMEOUT(box("openFailures"), 60000);
            QCOMPARE(box("openFailures")->text().section("\n\n", 1), large + ": not enough memory");
            QVERIFY(told(said).contains("Not enough memory to open large.acp 0"));
            delete box("openFailures");
            send(7 + live->store().size(), 1);
        }
        QVERIFY(live->isLive() && !part<QProgressBar>()->isVisible());
        QCOMPARE(live->store().size(), 5);
        QCOMPARE(window->mdiChildren().size(), 3);
    }

    /// While a file is read ports are listened to, but input reaches only Cancel; nothing shows of a file
    /// given up.
    void interrupted()
    {
        for (const std::string_view by : {"cancel", "escape", "close the program"}) {
            cleanup();
            init();
            const QString path = dataFile("endless.acp", 100);
            QVERIFY(QFile::resize(path, 1LL << 36)); // a hole: longer to read than anyone waits
            listen(1);
            const auto *progress = part<QProgressBar>();
            const auto *cancel = window->findChild<QAbstractButton *>("cancelProgress");
            auto *strip = part<ProgressStrip>();
            auto *patience = strip->findChild<QTimer *>();
            window->openFiles({path});
            QVERIFY(patience->isActive() && patience->isSingleShot() && patience->interval() == 500);
            QVERIFY(!progress->isVisible() && !cancel->isVisible());
            patience->start(0);
            QTRY_VERIFY(progress->isVisible() && progress->x() < cancel->x() && progress->width() == 220);
            strip->begin(); // something else, that ends
            QVERIFY(!patience->isActive());
            strip->end();
            QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
            QVERIFY(window->isVisible() && progress->isVisible());
            send(7, 1);
            if (by == "cancel")
                QTest::mouseClick(window->findChild<QAbstractButton *>("cancelProgress"), Qt::LeftButton);
            else if (by == "escape")
                QTest::keyClick(window.get(), Qt::Key_Escape);
            else
                window->close();
            QVERIFY(!progress->isVisible() && !cancel->isVisible() && !patience->isActive());
            if (!window->isVisible())
                continue;
            QCOMPARE(message(), QString("Opening was cancelled."));
            const QSignalSpy opened(part<Documents>(), SIGNAL(opened()));
            window->openFiles({dataFile("next.acp", 3)});
            QTRY_COMPARE(opened.size(), 1);
            QVERIFY(window->mdiChildren().size() == 2 && !patience->isActive());
            QCOMPARE(window->activeMdiChild()->store().size(), 3);
        }
    }

    /// On white paper, though the screen is black; nothing of a window that has gone.
    void printed()
    {
        MdiGraphChild *child = window->createMdiChild();
        for (int i = 0; i < 30; ++i)
            child->addRecord(Lines::record(i));
        for (const auto &[id, what] : {std::pair(ActionId::PrintCapacity, "capacity comparison"),
                 {ActionId::PrintVoltage, "voltage comparison"}, {ActionId::PrintBars, "bar display"},
                 {ActionId::PrintPlot, "graph"}}) {
            trigger(id);
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog && dialog->findChild<PrintRequest *>()->job().title.endsWith(what));
            dialog->reject();
        }
        const PrintJob job = graphPrintJob(child, "run");
        QVERIFY2(job.details.startsWith("1: Varnel 3, "), qPrintable(job.details));
        child->setPortName("COM3");
        child->markSaved("/some/where/run.acp", child->store().size());
        const QString named = graphPrintJob(child, "run").details;
        QVERIFY2(named.startsWith("1: Varnel 3 run.acp COM3, "), qPrintable(named));
        QCOMPARE(job.title + ' ' + job.fileName, QString("Varnel - graph run"));
        QCOMPARE(job.size, QSizeF(child->size().expandedTo(QSize(640, 400))));
        const auto drawn = [&job] {
            PaintLog page(job.size.toSize());
            QPainter painter(&page);
            job.paint(painter);
            painter.end();
            return page.lines();
        };
        QVERIFY(drawn().size() > 20);
        QCOMPARE(drawn().constFirst(), QString("rect 0,0 640x400 #ffffff"));
        delete child;
        QCOMPARE(drawn(), QStringList());
    }

    /// Each on all of its page, and with a name for those who list documents.
    void picturesFillTheirPages()
    {
        const Picture picture{
            {96, 192}, [](QPainter *painter) { painter->fillRect(0, 0, 96, 192, Qt::red); }};
        QBuffer svg, pdf, png;
        for (const auto &[file, format] :
            {std::pair(&svg, GraphFormat::Svg), {&pdf, GraphFormat::Pdf}, {&png, GraphFormat::Png}})
            QVERIFY(file->open(QIODevice::WriteOnly) && writePicture(picture, format, file));
        QVERIFY(svg.data().contains("<title>VarnelGraph</title>"));
        QVERIFY(svg.data().contains("width=\"25.4mm\" height=\"50.8mm\""));
        QVERIFY(QByteArray(pdf.data()).replace('\0', QByteArray()).contains("/Title (\xfe\xffVarnelGraph)"));
        const int begin = pdf.data().indexOf("stream\n", pdf.data().indexOf("/Contents")) + 7;
        const QByteArray drawn
            = qUncompress(QByteArray("\0\0\x10\0", 4) + pdf.data().mid(begin)); // 72 by 144
        QVERIFY2(drawn.contains("\n0.060000000 0 0 -0.060000000 0 144 cm\n"), drawn);
        QVERIFY2(drawn.contains("\n12.5000000 0 0 12.5000000 0 0 cm\n0 0 96 192 re\n"), drawn);
        const QImage image = QImage::fromData(png.data());
        QCOMPARE(image.size(), QSize(96, 192));
        QVERIFY(image.pixelColor(0, 0) == Qt::red && image.pixelColor(95, 191) == Qt::red);
        QCOMPARE(QPoint(image.dotsPerMeterX(), image.dotsPerMeterY()), QPoint(3780, 3780));
    }

    void dropped()
    {
        const QString path = dataFile("one.acp", 3);
        QVERIFY(window->acceptDrops());
        for (const bool any : {false, true}) {
            QMimeData data;
            data.setUrls({QUrl("https://host.example/two.acp"), any ? QUrl::fromLocalFile(path) : QUrl()});
            QDragEnterEvent enter(QPoint(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window.get(), &enter);
            QDropEvent drop(QPointF(50, 200), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window.get(), &drop);
            QVERIFY(enter.isAccepted() == any && drop.isAccepted() == any);
        }
        QTRY_COMPARE(window->mdiChildren().size(), 1);
        QCOMPARE(message(), QString("Data loaded from disk.")); // and nothing else was tried
    }

private:
    /// What was said without the folder, and for how long.
    QStringList told(const QSignalSpy &said) const
    {
        QStringList texts;
        for (const QVariantList &one : said)
            texts << one[0].toString().remove(fixture->path("") + '/') + ' ' + one[1].toString();
        return texts;
    }
};

QTEST_MAIN(TestDocuments)
#include "tst_documents.moc"
