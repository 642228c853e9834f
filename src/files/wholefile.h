#pragma once

#include <QString>

#include <memory>

class FilePieces;
class QFileDevice;
class QSaveFile;

/// What became of writing a file. When it was not written, the file is as it was.
struct WriteOutcome {
    bool written = false;
    bool cancelled = false; ///< by the user
    QString reason; ///< the system's words when it failed
};

/// A file on its way to new content. A regular file is replaced as a whole by commit(), its
/// mode kept and links to it followed; without that it stays as it was. Anything else (a
/// device, a pipe) may make its writer wait for ever; where it is allowed it is written in place.
class WholeFile {
public:
    enum class Kind { Regular, Any };

    WholeFile(const QString &fileName, Kind allowed);
    ~WholeFile();
    WholeFile(const WholeFile &) = delete;
    WholeFile &operator=(const WholeFile &) = delete;

    /// False when it failed; reason() then tells why, as for commit().
    bool open();
    /// Where the new content goes. What was written is to be on the disk before commit().
    QFileDevice &device() { return *m_device; }
    bool commit();
    QString reason() const;
    /// The folder whose new entry is to be brought to the disk after commit(); empty where there is none.
    QString folder() const;

private:
    QString m_target;
    Kind m_allowed;
    std::unique_ptr<QFileDevice> m_device;
    QSaveFile *m_replacement = nullptr; // the device, where a file is replaced
    QString m_reason;
};

/// Writes `pieces` as `fileName`, be it a device or a pipe, waiting for the disk or whoever reads.
WriteOutcome writeWholeFile(const QString &fileName, FilePieces &pieces);
