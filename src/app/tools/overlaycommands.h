#pragma once

#include "overlay/scene/overlayrequest.h"

#include <QHash>
#include <QObject>
#include <QStringList>

class Documents;
class FileQueue;
class GraphExports;
class GraphWindows;
class OverlayWindow;
class QAction;
class QWidget;
class SeriesStore;
class VarnelSettings;
class ViewState;
class WindowFiles;

/// Lays recordings over each other: the open graph windows, files that are asked for, or those that somebody
/// else has chosen. Its window is made when it is wanted first, and holds nothing while it is closed.
class OverlayCommands : public QObject {
    Q_OBJECT

public:
    /// What it works with; all outlive it.
    struct Parts {
        ViewState *state;
        GraphWindows *graphs;
        Documents *documents;
        WindowFiles *windowFiles;
        GraphExports *exports;
    };
    /// `shell` is the parent of the window, `action` opens it.
    OverlayCommands(QWidget *shell, const QAction *action, const Parts &parts);

    /// Keeps size and place of the window, if there is one.
    void writePlace(VarnelSettings *settings) const;

public slots:
    /// Shows the open graph windows that have records, as they are now.
    void showWindows();
    /// Reads `files` and shows them in place of what was shown, each under the label at its place: its pack
    /// and its date. One that is empty or missing is made from the file. Of more than can be shown the first
    /// ones are taken.
    void showFiles(const QStringList &files, const QStringList &labels);

private slots:
    void open();
    void addFiles();
    void onLoaded(const QString &fileName, SeriesStore *store);
    void onFinished(const QStringList &failures);
    void onMessage(const QString &text, int timeout);
    void savePicture();
    void onClosed();

private:
    void show();
    void read(const QStringList &files);
    void add(const SeriesStore &store, const QString &label);
    void tellIfTooMany(int count);

    QWidget *m_shell;
    Parts m_parts;
    OverlayWindow *m_window = nullptr; // a child of the shell, which outlives dialogs above it
    FileQueue *m_queue = nullptr; // a child of the window
    QVector<OverlayEntry> m_entries; // that are or will be shown, while files are read
    QHash<QString, QString> m_labels; // of files
    int m_wanted = 0; // recordings, of which some may be too many
    QStringList m_failures; // of files that were read but can't be shown
};
