#include "printing/printrequest.h"

#include "displays/capacitydisplay.h"
#include "displays/powerdisplay.h"
#include "displays/samplepack.h"
#include "displays/voltagecomparison.h"
#include "displays/voltagesource.h"
#include "resources/resources.h"
#include "settings/viewstate.h"
#include "support/files.h"
#include "support/limits.h"

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
    QVector<PackVoltages> packs() const override { return {PackVoltages::of(samplePack({4000, 4100}), 1)}; }
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

    void drawnNotAsABitmap()
    {
        SKIP_WITH_PRINTER();
        PowerDisplay display;
        Varnel3Data record = samplePack({4000, 4100, 4050});
        display.updateData(record, 1);
        accept([&display] { display.print(); });
        const QByteArray pdf = contents(file());
        QVERIFY(pdf.startsWith("%PDF"));
        QVERIFY(pdf.contains("/Subtype /CIDFontType2") || pdf.contains("/FontFile"));
        QVERIFY(!pdf.contains("/Subtype /Image"));
    }

    void everyDisplayPrints()
    {
        SKIP_WITH_PRINTER();
        ViewState state;
        CapacityDisplay capacities;
        capacities.setViewState(&state);
        capacities.addEntry({1000, 'C', 1});
        accept([&capacities] { capacities.print(); });
        QVERIFY(contents(file()).contains("%%EOF"));

        // The shell closes the window that it has made for printing while its dialog is still open.
        QMainWindow shell;
        OnePack source;
        auto *voltages = new VoltageComparison(&shell);
        voltages->setSource(&source);
        accept([voltages] {
            voltages->print();
            voltages->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        });
        QVERIFY(contents(file()).contains("%%EOF"));
        QCOMPARE(shell.statusBar()->currentMessage(), QDir::toNativeSeparators(file()) + " written.");
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

    template <typename Print>
    void accept(Print print) const
    {
        QFile::remove(file());
        print();
        auto *dialog = openDialog();
        QVERIFY(dialog);
        setFile(dialog);
        dialog->accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QTemporaryDir folder;
};

QTEST_MAIN(TestPrinting)
#include "tst_printing.moc"
