#pragma once

#include <QString>

#include <future>
#include <memory>
#include <optional>

class DiskSyncer;
class FilePieces;
class QFileDevice;
class QSaveFile;

/// What became of writing a file. When it was not written, the file is as it was.
struct WriteOutcome {
    bool written = false;
    bool cancelled = false; ///< by the user
    QString reason; ///< why it failed; the system's words where it has some

    static WriteOutcome success() { return {true, false, QString()}; }
    static WriteOutcome cancellation() { return {false, true, QString()}; }
    static WriteOutcome failure(const QString &reason) { return {false, false, reason}; }
};

/// A file on its way to new content, some milliseconds at a time, so that the caller stays responsive. A
/// regular file is replaced as a whole once all is on the disk, its mode kept and links to it followed; until
/// then it is as it was. Anything else (a device, a pipe) may make its writer wait for ever; where it is
/// allowed it is written in place.
class WholeFile {
public:
    enum class Kind { Regular, Any };

    /// Is to hold `pieces`. They and `syncer` outlive this.
    WholeFile(const QString &fileName, Kind allowed, FilePieces &pieces, DiskSyncer &syncer);
    /// Gives up what is not yet done.
    ~WholeFile();
    WholeFile(const WholeFile &) = delete;
    WholeFile &operator=(const WholeFile &) = delete;

    /// Goes on for about `maxMilliseconds`. True while there is more to do.
    bool writeSome(int maxMilliseconds);
    /// The disk has not yet taken what was written: writeSome() would do nothing now.
    bool isWaiting() const;
    /// Writes all, waiting for the disk or whoever reads.
    WriteOutcome writeAll();
    /// What came of it, once writeSome() has told that there is no more to do.
    WriteOutcome outcome() const { return *m_outcome; }

private:
    void open();
    void openSpecial();
    void writePieces(int maxMilliseconds);
    void bringToDisk();
    void commit();
    void fail(const QString &reason) { m_outcome = WriteOutcome::failure(reason); }

    QString m_target;
    Kind m_allowed;
    FilePieces &m_pieces;
    DiskSyncer &m_syncer;
    std::unique_ptr<QFileDevice> m_device;
    QSaveFile *m_replacement = nullptr; // the device, where a file is replaced
    std::future<bool> m_synced; // valid once all is written
    std::optional<WriteOutcome> m_outcome;
};

/// Writes `pieces` as `fileName`, be it a device or a pipe, waiting for the disk or whoever reads.
WriteOutcome writeWholeFile(const QString &fileName, FilePieces &pieces);
