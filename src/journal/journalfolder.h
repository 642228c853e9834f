#pragma once

#include <QDateTime>
#include <QStringList>

/// The folder that holds the journals of recordings. Files in it that are not named as a journal are never
/// touched, nor are those that a running program writes.
class JournalFolder {
public:
    /// What a journal holds at least, to be kept.
    static constexpr int leastRecords = 2;

    /// `path` is made when the first journal is.
    explicit JournalFolder(const QString &path);

    /// Where the user's journals lie unless told otherwise.
    static QString defaultPath();

    QString path() const { return m_path; }
    /// Name with its folder for a recording that starts at `time` on `portName`, for example
    /// ".../2026-11-21_06-40-50_COM3.acp"; from `attempt` 2 on with the attempt's
    /// number, for names that are taken.
    QString fileName(const QDateTime &time, const QString &portName, int attempt) const;
    /// When the recording of a journal began, by its name; invalid for other files.
    static QDateTime startOf(const QString &fileName);
    /// Its port as its name has it, with the attempt's number where there is one; empty for other files.
    static QString portOf(const QString &fileName);
    /// `portName` as the names of journals have it.
    static QString inNames(const QString &portName);
    /// The journals, newest first, with their folder.
    QStringList files() const;
    /// Bytes that the journals take.
    qint64 totalSize() const;
    /// Removes journals with fewer than `leastRecords`. Returns how many.
    int removeEmpty() const;
    /// Moves to the waste bin what was last written more than `days` before both `now` and the newest
    /// journal, so that a clock that is wrong takes nothing away; nothing when `days` is below 1. Returns how
    /// many.
    int discardOlderThan(int days, const QDateTime &now = QDateTime::currentDateTime()) const;
    /// Whether `fileName` holds at least `leastRecords`.
    static bool isWorthKeeping(const QString &fileName);

private:
    QString m_path;
};
