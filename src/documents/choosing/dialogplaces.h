#pragma once

#include <QStringList>

/// Where a file dialog of Qt's own begins. It looks at once at the folder that it is given, at the one that
/// the last dialog of any program was left in, and at its bookmarks, and hangs where one of their disks does
/// not answer. While this lives, it gets those that do. Waits for less than 50 ms.
class DialogPlaces {
public:
    /// `path` is a folder, or a file that is to be offered.
    explicit DialogPlaces(const QString &path);
    /// Gives the bookmarks back, once the dialog has gone.
    ~DialogPlaces();
    DialogPlaces(const DialogPlaces &) = delete;
    DialogPlaces &operator=(const DialogPlaces &) = delete;

    /// To begin with: the path, or the home folder.
    QString first() const { return m_isSilent ? m_home : m_path; }
    /// Whether the path was not to be had, so that it is to be shown later, should its disk answer.
    bool isSilent() const { return m_isSilent; }

private:
    QString m_path;
    QString m_home;
    QStringList m_keptBookmarks; // URLs
    bool m_isSilent = false;
};
