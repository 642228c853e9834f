#pragma once

#include "files/wholefile.h"

#include <QObject>

#include <deque>
#include <functional>
#include <memory>

class DiskSyncer;
class ProgressStrip;
class QTimer;

/// Writes files one after the other in slices of the event loop, so that ports are read and windows drawn
/// meanwhile, be it under a dialog. Input is held back until all are written, but for cancelling.
class FileWriter : public QObject {
    Q_OBJECT

public:
    /// Hears what became of a file; its pieces are still there.
    using Told = std::function<void(const WriteOutcome &outcome)>;

    /// Both outlive this.
    FileWriter(ProgressStrip *strip, DiskSyncer *syncer, QObject *parent);
    ~FileWriter() override;

    /// Writes `pieces` as `fileName`, a regular file, after those that wait. What the pieces are made from
    /// outlives the writing. `told` is called from the event loop or from cancel(), and may add another.
    void add(const QString &fileName, std::unique_ptr<FilePieces> pieces, Told told);
    bool isBusy() const { return !m_jobs.empty(); }

public slots:
    /// Gives up what is being written and all that waits.
    void cancel();

signals:
    /// Nothing is left to write. `good`: no file has failed; one that was cancelled has not.
    void finished(bool good);

private slots:
    void writeOn();

private:
    struct Job;

    void tell(const WriteOutcome &outcome);
    void stopWhenIdle();

    ProgressStrip *m_strip;
    DiskSyncer *m_syncer;
    QTimer *m_slices;
    std::deque<std::unique_ptr<Job>> m_jobs; ///< the first is being written
    bool m_good = true;
};
