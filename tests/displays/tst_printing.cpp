#include "desk/stalewatch.h"
#include "graph/mdigraphchild.h"
#include "printing/printrequest.h"
#include "support/fakelink.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/lines.h"
#include "support/paintlog.h"
#include "support/shellrig.h"

#include <QDir>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

/// From a picture to a PDF page, the dialog in between, and the commands that open it.
class TestPrinting : public ShellRig {
    Q_OBJECT

private slots:
    void pictureFillsThePage()
    {
        for (const auto orientation : {QPageLayout::Landscape, QPageLayout::Portrait}) {
            for (const QSizeF &picture : {QSizeF(470, 280), QSizeF(300, 900)}) {
                const auto printer = pdf(file());
                printer->setPageOrientation(orientation);
                QTransform transform;
                QRectF clip;
                const auto paint = [&](QPainter &painter) {
                    transform = painter.combinedTransform();
                    clip = painter.clipBoundingRect();
                };
                QVERIFY(printPage({"Title", "1 Varnel 3", picture, paint}, printer.get()));
                QVERIFY(contents(file()).contains(QByteArray("\0T\0i\0t\0l\0e", 10)));
                const QSizeF missing = clip.size() - picture;
                QVERIFY(qAbs(missing.width()) < 1 && qAbs(missing.height()) < 1);
                QCOMPARE(transform.m11(), transform.m22()); // proportions
                const QRectF drawn = transform.mapRect(QRectF(QPointF(0, 0), picture));
                const QSizeF page = printer->pageLayout().paintRectPixels(printer->resolution()).size();
                QVERIFY(QRectF(QPointF(0, 0), page).adjusted(-1, 0, 1, 1).contains(drawn));
                const double line
                    = drawn.top() * 72 / printer->resolution(); // of 9 points, and as much again
                QVERIFY(line > 18 && line < 21);
                QVERIFY(drawn.width() > 0.98 * page.width() || drawn.bottom() > 0.98 * page.height());
                QVERIFY(qAbs(drawn.center().x() - page.width() / 2) < 2);
                QVector<int> pages;
                const auto paintPage = [&](QPainter &painter, int number) {
                    pages << number;
                    QCOMPARE(painter.combinedTransform(), transform);
                };
                QVERIFY(printPage({"Title", "1 Varnel 3", picture, {}, {}, 2, paintPage}, printer.get()));
                QVERIFY(pages == QVector<int>({0, 1}) && contents(file()).contains("/Count 2"));
            }
        }
    }

    /// On white paper, as if each line had just come, and with the names of the windows.
    void commands()
    {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("A printer is installed, the dialog would use it.");
        open({});
        print(ActionId::PrintBars, "bar display 470x280", "text 'NO DATA' mid 235,140 53 Arial #000000");
        print(ActionId::PrintVoltage, "voltage comparison 480x280",
            "text 'NO DATA' mid 240,136 53 Arial #000000");
        QVERIFY(
            contents(file()).contains("/FontFile") && !contents(file()).contains("/Subtype /Image")); // drawn
        for (FakeLink &link : links) {
            MdiGraphChild *child = window->createMdiChild();
            child->attachReader(&link);
            child->setPortName(&link == links ? "COM3" : "COM4");
            for (int time = 0; time < 3; ++time)
                child->addRecord(Lines::record(time));
        }
        auto *watch = part<StaleWatch>();
        const QDateTime now = QDateTime::currentDateTime();
        watch->lookAt(now, 0);
        watch->lookAt(now.addSecs(60), std::numeric_limits<qint64>::max());
        print(ActionId::PrintBars, "bar display 470x280, 2: Varnel 3 COM4",
            "text '[mV]' left 24,10 11 Times #000000; rect 0,0 18x18 #ffff00");
        print(ActionId::PrintCapacity, "capacity comparison 470x310",
            "text '1' foot 49,252 13 bold Arial #000000; rect 30,56 38x168 #007f00; "
            "text '2: Varnel 3 COM4, 6 x LiPo, 0.150 Ah' left 30,303 11 Arial #000000");
        trigger(ActionId::Graph);
        QTest::keyClick(window->findChild<QWidget *>("canvas")->window(), Qt::Key_Space);
        print(ActionId::PrintVoltage, "voltage comparison 480x280, 1: Varnel 3 COM3, 2: Varnel 3 COM4",
            "text '[V]' right 46,12 11 Arial #000000; text '4.200 V' mid 159,238 19 bold Arial #000000");
        trigger(ActionId::Graph); // nobody sees any more that it is only one cell
        print(ActionId::PrintVoltage, "voltage comparison 480x280, 1: Varnel 3 COM3, 2: Varnel 3 COM4",
            "text '6' mid 236,216 11 Arial #000000");
        print(ActionId::PrintPlot, "graph 640x400, 2: Varnel 3 COM4");
    }

    void failuresAreReported()
    {
        const PrintJob job{"Title", {}, {100, 100}, [](QPainter &) {}, "a/b:c?"};
        QVERIFY(printPage(job, pdf(file()).get()) && !printPage({"", {}, {}, job.paint}, pdf(file()).get()));
        QVERIFY(printPage(job, pdf("/dev/null").get())); // what is no file can't be looked at
        const PrintJob lost{"", {}, {100, 100}, [this](QPainter &) { QFile::remove(file()); }};
        QVERIFY(!printPage(lost, pdf(file()).get()));
        QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
        QVERIFY(!printPage(job, pdf(fixture->path("none/x.pdf")).get()));
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("A printer is installed.");
        QWidget parent;
        printWithDialog(job, &parent);
        QCOMPARE(openDialog()->windowTitle() + openDialog()->printer()->docName(), "Title" + job.fileName);
        QCOMPARE(openDialog()->printer()->pageLayout().orientation(), QPageLayout::Portrait);
        QVERIFY(openDialog()->printer()->outputFileName().endsWith("/a-b-c-.pdf"));
        QVERIFY(!openDialog()->testOption(QAbstractPrintDialog::PrintPageRange));
        QVERIFY(!openDialog()->testOption(QAbstractPrintDialog::PrintCollateCopies));
        const FileSizeLimit limit(700);
        finish(true);
        const auto *box = parent.findChild<QMessageBox *>();
        QVERIFY(box && box->isVisible());
        QCOMPARE(
            box->windowTitle() + box->text(), "TitleCan not print to " + QDir::toNativeSeparators(file()));
        QVERIFY(box->textFormat() == Qt::PlainText && box->testAttribute(Qt::WA_DeleteOnClose));
    }

private:
    FakeLink links[2]; // outlive the window

    QString file() const { return fixture->path("page.pdf"); }

    static std::unique_ptr<QPrinter> pdf(const QString &fileName)
    {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(fileName);
        return printer;
    }

    static QPrintDialog *openDialog()
    {
        return qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
    }

    void finish(bool accepted) const
    {
        const QPointer<QPrintDialog> dialog = openDialog();
        dialog->findChild<QLineEdit *>("filename")->setText(file());
        accepted ? dialog->accept() : dialog->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!dialog);
    }

    /// The command prints a page of such a title, size and details, with what is `expected`.
    void print(ActionId command, const char *title, const char *expected = nullptr)
    {
        for (const bool accepted : {false, true}) {
            QFile::remove(file());
            trigger(command);
            QVERIFY(openDialog());
            const PrintJob &job = openDialog()->findChild<PrintRequest *>()->job();
            const QString size = QString(" %1x%2").arg(job.size.width()).arg(job.size.height());
            const bool isWide = openDialog()->printer()->pageLayout().orientation() == QPageLayout::Landscape;
            QCOMPARE(isWide, job.size.width() > job.size.height());
            QCOMPARE(
                (job.title + size + ", " + job.details).section(", ", 0, -2), "Varnel - " + QString(title));
            if (expected)
                VERIFY_PAINTS(job.size.toSize(), job.paint, expected);
            finish(accepted);
            QCOMPARE(contents(file()).contains("%%EOF"), accepted);
        }
        QCOMPARE(message(), QDir::toNativeSeparators(file()) + " written.");
    }
};

QTEST_MAIN(TestPrinting)
#include "tst_printing.moc"
