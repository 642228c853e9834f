#include "app/tools/overlaycommands.h"
#include "documents/filequeue.h"
#include "overlay/overlayplot.h"
#include "overlay/overlaywindow.h"
#include "printing/printrequest.h"
#include "support/documentrig.h"
#include "support/layoutfault.h"
#include "support/paintlog.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolTip>

/// The window of overlays, with all that opens it and fills it.
class TestOverlayWindow : public DocumentRig {
    Q_OBJECT

private slots:
    void init() override
    {
        ShellRig::init();
        open({});
        commands = part<OverlayCommands>();
    }

    void showsOpenWindows()
    {
        window->createMdiChild();
        for (int count : {3, 5}) {
            MdiGraphChild *child = window->createMdiChild();
            child->setPortName(QString("COM%1").arg(count));
            for (int i = 0; i < count; ++i)
                child->addRecord(Lines::record(i));
        }
        window->renumerateWindows();
        trigger(ActionId::Overlay);
        QCOMPARE(overlay()->focusWidget(), overlay()->plot());
        QCOMPARE(entries(), "2: COM3 3; 3: COM5 5");
        window->activeMdiChild()->addRecord(Lines::record(9)); // what is shown stays as it was
        overlay()->showMinimized();
        trigger(ActionId::Overlay);
        QVERIFY(entries() == "2: COM3 3; 3: COM5 5" && !overlay()->isMinimized());
        overlay()->findChild<QPushButton *>("overlayWindows")->click();
        QCOMPARE(entries(), "2: COM3 3; 3: COM5 6");
        auto *shift = overlay()->findChild<QSpinBox *>("overlayShift");
        QVERIFY(!shift->isEnabled());
        QTest::keyClick(overlay()->plot(), Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(shift->isEnabled());
        QTest::keyClick(overlay()->plot(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(shift->value(), 1);
        shift->setValue(-1000000);
        QTest::keyClick(overlay()->plot(), Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(shift->value(), 0);
        QTest::keyClick(overlay()->plot(), Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(shift->text(), QString("-999999 s"));
        overlay()->findChild<QComboBox *>("overlayAxis")->setCurrentIndex(1);
        QVERIFY(!shift->isEnabled());
        QCOMPARE(overlay()->plot()->shown().entries[0].shift, -999999.0);
        overlay()->resize(overlay()->width(), 470);
        QTest::keyClick(overlay(), Qt::Key_Escape); // the pick
        QTest::keyClick(overlay()->plot(), Qt::Key_Escape);
        QTRY_VERIFY(!overlay()->isVisible() && overlay()->plot()->shown().entries.isEmpty());
        window.reset();
        open({});
        trigger(ActionId::Overlay);
        QCOMPARE(overlay()->height(), 470);
        QCOMPARE(overlay()->statusBar()->currentMessage(), QString());
        for (int i = 0; i < 21; ++i)
            window->createMdiChild()->addRecord(Lines::record(i));
        trigger(ActionId::Overlay);
        QCOMPARE(overlay()->plot()->shown().entries.size(), 20);
        QCOMPARE(overlay()->statusBar()->currentMessage(), QString("No more than 20 recordings are shown."));
    }

    /// Labels given, from a journal's name, from a file's time; one that is none and one without a record.
    void showsFiles()
    {
        const QString journal = dataFile("2026-05-03_14-20-11_COM7.acp", 4);
        const QString other = dataFile("other.acp", 61);
        QFile file(other);
        QVERIFY(file.open(QIODevice::ReadWrite)
            && file.setFileTime(QDateTime({2026, 5, 4}, {10, 0, 59}), QFileDevice::FileModificationTime));
        file.close();
        const QString none = fixture->path("none.acp");
        const QString empty = fixture->path("empty.acp");
        QVERIFY(writeFile(none, "no recording\n") && writeFile(empty, ""));
        commands->showFiles({journal, other}, {"Pack 3,\n2026-05-03"});
        QTRY_COMPARE(entries(), "Pack 3, 2026-05-03 4; other, ~2026-05-04 09:59 61");
        answer({[&](QDialog *dialog) {
            auto *chooser = qobject_cast<QFileDialog *>(dialog);
            enterName(chooser, '"' + QStringList({journal, none, empty}).join("\" \"") + '"');
        }});
        overlay()->findChild<QPushButton *>("overlayFiles")->click();
        QTRY_COMPARE(entries(), "Pack 3, 2026-05-03 4; other, ~2026-05-04 09:59 61; Pack 3, 2026-05-03 4");
        auto *failures = overlay()->findChild<QMessageBox *>("overlayFailures");
        QVERIFY(failures && failures->text().startsWith(none + ": "));
        QCOMPARE(failures->text().section('\n', 1), empty + ": no records");
        delete failures;
        commands->showFiles({other}, {});
        QTRY_COMPARE(entries(), "other, ~2026-05-04 09:59 61");
        answer({enter(journal)});
        overlay()->findChild<QPushButton *>("overlayFiles")->click();
        QTRY_VERIFY(entries().contains("COM7")); // what it was called in an overlay before may no longer hold
        commands->showFiles(QVector<QString>(25, journal).toList(), {});
        QCOMPARE(entries(), ""); // until they are read
        QTRY_COMPARE(entries().count("COM7, 2026-05-03 14:20 4"), 20);
        QCOMPARE(overlay()->statusBar()->currentMessage(), QString("No more than 20 recordings are shown."));
        QVERIFY(!overlay()->findChild<QMessageBox *>("overlayFailures")); // nothing fails any more
    }

    /// What was read by then stays; a window that is closed shows nothing of what was being read.
    void cancelled()
    {
        QStringList files;
        for (const char *name : {"a.acp", "b.acp", "c.acp"})
            files += dataFile(name, 5);
        commands->showFiles(files, {"a", "b", "c"});
        auto *queue = overlay()->findChild<FileQueue *>();
        auto *cancel = overlay()->findChild<QAbstractButton *>("cancelProgress");
        QSignalSpy finished(queue, SIGNAL(finished(QStringList,int)));
        auto atFirst = connect(queue, &FileQueue::loaded, cancel, &QAbstractButton::click);
        QTRY_COMPARE(finished.size(), 1);
        QCOMPARE(entries(), "a 5");
        QCOMPARE(overlay()->statusBar()->currentMessage(), QString("Opening was cancelled."));
        disconnect(atFirst);
        commands->showFiles(files, {"a", "b", "c"});
        atFirst = connect(queue, &FileQueue::loaded, overlay(), [this, once = &atFirst] {
            disconnect(*once);
            overlay()->close();
        });
        QTRY_COMPARE(finished.size(), 2);
        QVERIFY(!queue->isBusy() && !overlay()->isVisible() && entries().isEmpty());
        commands->showFiles({files[1]}, {});
        QTRY_VERIFY(entries().startsWith("b, ~"));
    }

    /// Each control does what it says, and none lies over another.
    void controls()
    {
        commands->showFiles({dataFile("a.acp", 5), dataFile("b.acp", 6)}, {"a", "b"});
        QTRY_COMPARE(entries(), "a 5; b 6");
        const OverlayRequest &shown = overlay()->plot()->shown();
        overlay()->findChild<QComboBox *>("overlayValue")->setCurrentIndex(int(OverlayValue::Spread));
        overlay()->findChild<QAbstractButton *>("overlayLinedUp")->click();
        QVERIFY(shown.value == OverlayValue::Spread && shown.linedUp && shown.axis == OverlayAxis::Time);
        QCOMPARE(layoutFault(*overlay()), QByteArray());
        const auto labels = overlay()->findChildren<QLabel *>();
        const auto leads = [](const QLabel *label) { return label->buddy() != nullptr; };
        QCOMPARE(int(std::count_if(labels.begin(), labels.end(), leads)), 3);
        auto *remove = overlay()->findChild<QPushButton *>("overlayRemove");
        QTest::keyClick(overlay()->plot(), Qt::Key_Up, Qt::ControlModifier);
        remove->click();
        QCOMPARE(entries(), "a 5");
        remove->click();
        for (const char *name : {"overlayRemove", "overlayPicture", "overlayPrint"})
            QVERIFY(entries().isEmpty() && !overlay()->findChild<QPushButton *>(name)->isEnabled());
    }

    /// The plot's picture and words, and the whole of a name over the legend.
    void plotItself()
    {
        commands->showFiles({dataFile("a.acp", 5), dataFile("b.acp", 6)}, {"a", "b"});
        QTRY_COMPARE(entries(), "a 5; b 6");
        OverlayPlot *plot = overlay()->plot();
        QVERIFY(plot->sizeHint() == QSize(900, 480) && plot->minimumSize() == QSize(320, 200));
        plot->resize(1000, 600);
        QCOMPARE(plot->spokenText(), "Pack voltage\n1: a, 00:00:04   150 mAh\n2: b, 00:00:05   150 mAh");
        VERIFY_PAINTS(*plot, "rect 0,0 1000x600 #000000; line 54,22 54,573 #aaaaaa");
        const auto tip = [&](const QPoint &at) {
            QHelpEvent event(QEvent::ToolTip, at, plot->mapToGlobal(at));
            QCoreApplication::sendEvent(plot, &event);
            return event.isAccepted() ? QToolTip::text() : QString();
        };
        QVERIFY(tip({800, 60}).contains("b") && tip({800, 60}).contains("A click picks"));
        tip({100, 100});
        QTRY_VERIFY(!QToolTip::isVisible());
        QTest::mouseClick(plot, Qt::LeftButton, {}, {200, 200});
        QTest::keyClick(plot, Qt::Key_Space, Qt::ShiftModifier);
        const OverlayRequest picture = plot->picture({640, 480}, false);
        QVERIFY(picture.size == QSize(640, 480) && !picture.black && !picture.cursor && plot->shown().cursor);
        QVERIFY(!picture.marked && plot->shown().marked);
        overlay()->findChild<QPushButton *>("overlayPrint")->click();
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog && dialog->findChild<PrintRequest *>());
        const PrintJob job = dialog->findChild<PrintRequest *>()->job();
        QCOMPARE(job.title, QString("Varnel - overlay"));
        VERIFY_PAINTS(job.size.toSize(), job.paint, "rect 0,0 1000x600 #ffffff");
        dialog->reject();
        plot->setEntries(QVector<OverlayEntry>(21, picture.entries[0]));
        QCOMPARE(plot->shown().entries.size(), 20);
    }

    void savesPicture()
    {
        const QString name = fixture->path("over.png");
        commands->showFiles({dataFile("one.acp", 30)}, {"one"});
        QTRY_COMPARE(entries(), "one 30");
        answer({enter(name)});
        overlay()->findChild<QPushButton *>("overlayPicture")->click();
        QTRY_VERIFY(QFile::exists(name));
        QTRY_COMPARE(QImage(name).size(), overlay()->plot()->size());
        overlay()->resize(overlay()->width(), 444);
        window->close();
        open({});
        trigger(ActionId::Overlay);
        QCOMPARE(overlay()->height(), 444);
    }

private:
    OverlayWindow *overlay() const { return part<OverlayWindow>(); }
    QString entries() const
    {
        QStringList texts;
        for (const OverlayEntry &entry : overlay()->plot()->shown().entries)
            texts.append(entry.label + QString(" %1").arg(entry.course->size()));
        return texts.join("; ");
    }

    OverlayCommands *commands = nullptr;
};

QTEST_MAIN(TestOverlayWindow)
#include "tst_overlaywindow.moc"
