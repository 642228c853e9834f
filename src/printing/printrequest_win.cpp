#include "printing/printrequest.h"

#include <QFileDialog>
#include <QPrinter>

// The system's own dialog for printers refuses to open without one.
QDialog *PrintRequest::createFileDialog()
{
    auto *dialog = new QFileDialog(m_window, QString(), m_printer->outputFileName(), QStringLiteral("*.pdf"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("pdf"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &fileName) {
        m_printer->setOutputFileName(fileName);
        print();
    });
    return dialog;
}
