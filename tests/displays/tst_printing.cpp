#include "printing/printrequest.h"
#include "printing/printstamp.h"

#include "displays/capacitydisplay.h"
#include "displays/powerdisplay.h"
#include "displays/samplepack.h"
#include "displays/voltagecomparison.h"
#include "displays/voltagesource.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/files.h"
#include "support/limits.h"
#include "support/paintlog.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

// The dialog would use it, and paper with it.
#define SKIP_WITH_PRINTER()                                                                                  \
    if (!QPrinterInfo::availablePrinterNames().isEmpty())                                                    \
    QSKIP("A printer is installed.")

namespace {

class OnePack : public VoltageSource {
public:
    QVector<PackVoltages> packs() const override
    {
        PackVoltages pack = PackVoltages::of(samplePack({4000, 4100}), 1);
        pack.source = "COM1";
        return {pack};
    }
    void toggleCell(int, int) override { }
};

} // namespace

/// From a picture to a PDF page, and the dialog in between.
class TestPrinting : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initResources();
        QLocale::setDefault(QLocale::c());
        QVERIFY(folder.isValid());
    }

    void pictureFillsThePage_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QSizeF>("picture");
        QTest::newRow("wide on landscape") << int(QPageLayout::Landscape) << QSizeF(470, 280);
        QTest::newRow("wide on portrait") << int(QPageLayout::Portrait) << QSizeF(470, 280);
        QTest::newRow("tall on landscape") << int(QPageLayout::Landscape) << QSizeF(300, 900);
        QTest::newRow("tall on portrait") << int(QPageLayout::Portrait) << QSizeF(300, 900);
    }

    void pictureFillsThePage()
    {
        QFETCH(int, orientation);
        QFETCH(QSizeF, picture);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file());
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(QPageLayout::Orientation(orientation));

        QTransform transform;
        PrintJob job{QStringLiteral("Title"), QStringLiteral("1 Varnel 3"), picture,
            [&transform](QPainter &painter) { transform = painter.combinedTransform(); }};
        QVERIFY(printPage(job, &printer));
        QCOMPARE(transform.m11(), transform.m22()); // proportions
        const QRectF drawn = transform.mapRect(QRectF(QPointF(0, 0), picture));
        const QSizeF page = printer.pageLayout().paintRectPixels(printer.resolution()).size();
        QVERIFY(QRectF(QPointF(0, 0), page).adjusted(-1, 0, 1, 1).contains(drawn));
        QVERIFY(drawn.top() > 0.01 * page.height()); // under the line
        QVERIFY(drawn.width() > 0.98 * page.width() || drawn.bottom() > 0.98 * page.height());
    }

    void everyDisplayPrints()
    {
        SKIP_WITH_PRINTER();
        QMainWindow shell;
        ViewState state;
        const QDateTime silence({2026, 1, 2}, {3, 4, 5});
        CapacityDisplay capacities(&shell);
        capacities.resize(470, 280);
        capacities.addEntry({2000, 'C', 1, {}, silence});
        // On white paper, as if each line had just come.
        accept([&] { capacities.print(); }, "capacity comparison", {470, 295},
            "text '1' foot 49,252 13 bold Arial #000000; rect 30,56 38x168 #007f00; "
            "text '1, 2.000 Ah' left 30,288 11 Arial #000000");
        PowerDisplay power(&shell);
        power.resize(470, 280);
        accept(
            [&] { power.print(); }, "bar display", {470, 280}, "text 'NO DATA' mid 235,140 53 Arial #000000");
        Varnel3Data record = samplePack({4100, 4000});
        power.updateData(record, 3);
        power.setSourceName("COM3");
        power.setStaleSince(silence);
        accept([&] { power.print(); }, "bar display, 3: Varnel 3 COM3", {470, 280},
            "text '[mV]' left 24,10 11 Times #000000; rect 39,63 157x35 #00ff00");
        power.updateData(record, 4); // of another file or port
        accept([&] { power.print(); }, "bar display, 4: Varnel 3", {470, 280}, "rect 0,0 18x18 #ffff00");
        const QByteArray pdf = contents(file());
        QVERIFY(pdf.contains("/Subtype /CIDFontType2") || pdf.contains("/FontFile"));
        QVERIFY(!pdf.contains("/Subtype /Image")); // drawn, not as a bitmap

        // The shell closes the window that it has made for printing while its dialog is still open.
        OnePack source;
        auto *voltages = new VoltageComparison(&shell);
        voltages->setSource(&source);
        accept(
            [voltages] {
                voltages->print();
                voltages->close();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            },
            "voltage comparison, 1: Varnel 3 COM1", {480, 280},
            "line 52,206 479,206 #d7d7d7; text '[V]' right 46,12 11 Arial #000000");
        QCOMPARE(shell.statusBar()->currentMessage(), QDir::toNativeSeparators(file()) + " written.");
    }

    void captions()
    {
        QCOMPARE(printedName(-1, "Varnel 3", {}), QString("Varnel 3"));
        QCOMPARE(printedName(0, {}, "a.abp"), QString("0: a.abp"));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QString now = QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat);
        QVERIFY(printDetails({"a", "b"}) == "a, b, " + now || printDetails({}) != now); // or a minute later
        QLocale::setDefault(QLocale::c());
    }

    void presentsTheNameOfTheFile()
    {
        SKIP_WITH_PRINTER();
        QWidget window;
        PrintJob job{QStringLiteral("Title"), {}, {100, 100}, [](QPainter &) {}};
        job.fileName = QStringLiteral("run of COM3");
        printWithDialog(job, &window);
        QVERIFY(openDialog()
                    ->findChild<QLineEdit *>(QStringLiteral("filename"))
                    ->text()
                    .endsWith(QStringLiteral("/run of COM3.pdf")));
    }

    void cancelPrintsNothing()
    {
        QFile::remove(file());
        PowerDisplay display;
        display.show();
        display.print();
        auto *dialog = openDialog();
        QVERIFY(dialog);
        setFile(dialog);
        dialog->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!openDialog());
        QVERIFY(!QFile::exists(file()));
    }

    void failuresAreReported()
    {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(QStringLiteral("none/x.pdf")));
        const PrintJob job{QStringLiteral("Title"), {}, {100, 100}, [](QPainter &) {}};
        QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
        QVERIFY(!printPage(job, &printer));

        QPrinter good;
        good.setOutputFormat(QPrinter::PdfFormat);
        good.setOutputFileName(file());
        QVERIFY(printPage(job, &good));
        PrintJob nothing = job;
        nothing.size = {};
        QVERIFY(!printPage(nothing, &good));
    }

    void diskFullIsReported()
    {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file());
        const FileSizeLimit limit(700);
        QVERIFY(!printPage({QStringLiteral("Title"), {}, {100, 100}, [](QPainter &) {}}, &printer));
    }

private:
    QString file() const { return folder.filePath(QStringLiteral("page.pdf")); }

    void setFile(QPrintDialog *dialog) const
    {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("filename"));
        QVERIFY(edit);
        edit->setText(file());
    }

    static QPrintDialog *openDialog()
    {
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget *widget : widgets)
            if (auto *dialog = qobject_cast<QPrintDialog *>(widget))
                return dialog;
        return nullptr;
    }

    /// What `print` prints is of `size`, has such a title and details but for the time, and among what is
    /// painted is `expected`.
    template <typename Print>
    void accept(Print print, const char *title, const QSizeF &size, const char *expected) const
    {
        QFile::remove(file());
        print();
        auto *dialog = openDialog();
        QVERIFY(dialog);
        const PrintJob &job = dialog->findChild<PrintRequest *>()->job();
        QCOMPARE((job.title + ", " + job.details).section(", ", 0, -2).remove("Varnel - "), QString(title));
        QCOMPARE(job.size, size);
        VERIFY_PAINTS(size.toSize(), job.paint, expected);
        setFile(dialog);
        dialog->accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(contents(file()).contains("%%EOF"));
    }

    QTemporaryDir folder;
};

QTEST_MAIN(TestPrinting)
#include "tst_printing.moc"
