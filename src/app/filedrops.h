#pragma once

#include <QObject>

class QWidget;

/// Takes the files that the user drops on a window.
class FileDrops : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent.
    explicit FileDrops(QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /// Paths of files of this machine, one or more.
    void dropped(const QStringList &files);
};
