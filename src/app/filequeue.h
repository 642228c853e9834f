#pragma once

#include <QObject>
#include <QQueue>

#include <memory>

class DataFileLoader;
class InputGate;
class QProgressBar;
class QPushButton;
class QStatusBar;
class QTimer;
class RecordList;

/// Reads data files one after the other in slices of the event loop, so that ports are read and windows drawn
/// meanwhile. What takes longer shows its progress and a Cancel button in the status bar.
class FileQueue : public QObject {
    Q_OBJECT

public:
    /// `bar` outlives this.
    FileQueue(QStatusBar *bar, QObject *parent);
    ~FileQueue() override;

    /// Reads `files` after those that wait; input is held back until all are read.
    void add(const QStringList &files);
    bool isBusy() const { return m_loader != nullptr || !m_waiting.isEmpty(); }

public slots:
    /// Gives up the file that is being read and all that wait.
    void cancel();

signals:
    /// A file was read, be it with no record. The receiver may take the records away.
    void loaded(const QString &fileName, RecordList *records);
    /// What to tell in the status bar of a file that was read or refused.
    void message(const QString &text, int timeout);
    /// Nothing is left to read. `failures`: a line with name and reason for each that failed; `total` files were read.
    void finished(const QStringList &failures, int total);

private slots:
    void readOn();
    void showProgress();

private:
    void takeResult();
    void finish();

    QQueue<QString> m_waiting;
    std::unique_ptr<DataFileLoader> m_loader;
    std::unique_ptr<InputGate> m_gate;
    QTimer *m_slices;
    QTimer *m_patience; ///< until progress is shown
    QProgressBar *m_progress;
    QPushButton *m_cancel;
    QStringList m_failures;
    int m_total = 0;
};
