#include "printing/printrequest.h"

#include <QDir>
#include <QMainWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QStatusBar>

namespace {

QString fileNameOf(const PrintJob &job)
{
    return job.fileName.isEmpty() ? job.title : job.fileName;
}

QString suggestedFile(const PrintJob &job)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QDir existing(QDir(folder).exists() ? folder : QDir::homePath());
    QString name = fileNameOf(job);
    for (QChar &c : name) {
        if (QStringLiteral("<>:\"/\\|?*").contains(c)) // which no system, or not every one, has in names
            c = QLatin1Char('-');
    }
    return existing.filePath(name + QStringLiteral(".pdf"));
}

/// In the status bar of the window that `widget` belongs to.
void tell(QWidget *widget, const QString &text)
{
    constexpr int time = 5000; // ms
    while (widget && !qobject_cast<QMainWindow *>(widget))
        widget = widget->parentWidget();
    if (auto *shell = qobject_cast<QMainWindow *>(widget))
        shell->statusBar()->showMessage(text, time);
}

} // namespace

PrintRequest::PrintRequest(const PrintJob &job, QWidget *window)
    : m_job(job)
    , m_window(window)
    , m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution))
{
    m_printer->setDocName(fileNameOf(job)); // what the dialog presents as a file, by choice
    m_printer->setPageOrientation(
        job.size.width() > job.size.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
}

PrintRequest::~PrintRequest() = default;

void PrintRequest::open()
{
    const bool toFile = QPrinterInfo::availablePrinterNames().isEmpty();
    if (toFile)
        m_printer->setOutputFileName(suggestedFile(m_job)); // and with that as PDF
    QDialog *dialog = toFile ? createFileDialog() : createPrintDialog();
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(m_job.title);
    setParent(dialog); // which uses the printer to its end
    dialog->open();
}

QDialog *PrintRequest::createPrintDialog()
{
    auto *dialog = new QPrintDialog(m_printer.get(), m_window);
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog->setOption(QAbstractPrintDialog::PrintCollateCopies, false);
    connect(dialog, SIGNAL(accepted()), this, SLOT(print()));
    return dialog;
}

void PrintRequest::print()
{
    const QString file = QDir::toNativeSeparators(m_printer->outputFileName());
    const QString target = file.isEmpty() ? m_printer->printerName() : file;
    if (printPage(m_job, m_printer.get())) {
        tell(m_window, file.isEmpty() ? tr("Sent to %1.").arg(target) : tr("%1 written.").arg(target));
        return;
    }
    auto *box = new QMessageBox(
        QMessageBox::Warning, m_job.title, tr("Can not print to %1").arg(target), QMessageBox::Ok, m_window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->open();
}

void printWithDialog(const PrintJob &job, QWidget *parent)
{
    (new PrintRequest(job, parent))->open();
}
