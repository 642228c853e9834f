#pragma once

#include <QObject>
#include <QQueue>

#include <memory>

class DataFileLoader;
class ProgressStrip;
class QTimer;
class SeriesStore;
struct FileStamp;

/// Reads data files one after the other in slices of the event loop, so that ports are read and windows drawn
/// meanwhile. Input is held back until all are read, but for cancelling.
class FileQueue : public QObject {
    Q_OBJECT

public:
    /// `strip` outlives this.
    FileQueue(ProgressStrip *strip, QObject *parent);
    ~FileQueue() override;

    /// Reads `files` after those that wait.
    void add(const QStringList &files);
    bool isBusy() const { return m_loader != nullptr || !m_waiting.isEmpty(); }

public slots:
    /// Gives up the file that is being read and all that wait.
    void cancel();

signals:
    /// A file was read as it stood with `stamp`, be it with no record. The receiver may take the records
    /// away.
    void loaded(const QString &fileName, SeriesStore *store, const FileStamp &stamp);
    /// What to tell in the status bar of a file that was read or refused.
    void message(const QString &text, int timeout);
    /// Nothing is left to read. `failures`: a line with name and reason for each that
    /// failed; `total` files were read.
    void finished(const QStringList &failures, int total);

private slots:
    void readOn();

private:
    bool workOn();
    bool readSome();
    bool deriveSome();
    void takeResult();
    void finish();

    QQueue<QString> m_waiting;
    std::unique_ptr<DataFileLoader> m_loader; ///< of the file that is read
    std::unique_ptr<SeriesStore> m_store; ///< of its records, once all are read
    ProgressStrip *m_strip;
    QTimer *m_slices;
    QStringList m_failures;
    int m_total = 0;
};
