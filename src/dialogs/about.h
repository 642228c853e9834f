#pragma once

#include <QDialog>

/// Picture, links and version of the program.
class About : public QDialog {
    Q_OBJECT

public:
    explicit About(QWidget *parent = nullptr);

    using QDialog::exec;
    /// Runs the dialog modally and closes it after `milliseconds`.
    int exec(int milliseconds);
};
