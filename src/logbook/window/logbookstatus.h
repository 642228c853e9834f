#pragma once

#include <QObject>

class LogbookReader;
class QLabel;
class QProgressBar;
class QPushButton;
class QStatusBar;

/// The logbook's status bar: how many recordings are shown, and how far files are read, with Cancel.
class LogbookStatus : public QObject {
    Q_OBJECT

public:
    /// Both outlive this.
    LogbookStatus(QStatusBar *bar, LogbookReader *reader);

    void tell(int shown, int total, int chosen);

private slots:
    void onProgress(int done, int toDo);

private:
    QLabel *m_count;
    QProgressBar *m_progress;
    QPushButton *m_cancel;
};
