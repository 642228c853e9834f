#pragma once

#include "files/wholefile.h"

#include <QObject>

class DiskSyncer;
class ProgressStrip;

/// Writes files while ports are read and windows drawn.
class FileWriter : public QObject {
    Q_OBJECT

public:
    /// Both outlive this.
    FileWriter(ProgressStrip *strip, DiskSyncer *syncer, QObject *parent);

    /// Writes `pieces` as `fileName`. Runs events but for the user's input, and returns when all is on the
    /// disk, when that failed, or after cancel(); `pieces` are not touched after that.
    WriteOutcome write(const QString &fileName, FilePieces &pieces);

public slots:
    /// Gives up what is being written.
    void cancel() { ++m_cancels; }

private:
    WriteOutcome writeOn(WholeFile &file, FilePieces &pieces);
    bool writePieces(QFileDevice &device, FilePieces &pieces);
    bool bringToDisk(const QFileDevice &device);

    ProgressStrip *m_strip;
    DiskSyncer *m_syncer;
    int m_cancels = 0; ///< so far
};
