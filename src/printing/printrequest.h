#pragma once

#include "printing/printjob.h"

#include <QObject>

#include <memory>

class QDialog;
class QPrinter;
class QWidget;

/// Lets the user choose printer and page for `job` and prints it; cancelling prints nothing.
/// Returns at once, the dialog stays open above `parent`. Without a printer the dialog
/// offers a PDF file. The status bar of the main window that `parent` is or belongs to tells where
/// the page went, a box that it could not.
void printWithDialog(const PrintJob &job, QWidget *parent);

/// A print job whose dialog is open; belongs to the dialog.
class PrintRequest : public QObject {
    Q_OBJECT

public:
    PrintRequest(const PrintJob &job, QWidget *window);
    ~PrintRequest() override;

    const PrintJob &job() const { return m_job; }
    void open();

private slots:
    void print();

private:
    QDialog *createPrintDialog();
    /// Where no printer is.
    QDialog *createFileDialog();

    PrintJob m_job;
    QWidget *m_window; // above which the dialog stands; owns it
    std::unique_ptr<QPrinter> m_printer;
};
