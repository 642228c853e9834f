#pragma once

#include <QCache>
#include <QObject>

#include <functional>

class DisplayWindows;
class FileQueue;
class FileWriter;
class GraphWindows;
class MdiGraphChild;
class ProgressStrip;
class QFileDialog;
class DataFilePieces;
class QWidget;
class WindowFiles;
class SeriesStore;
struct FileStamp;
struct WriteOutcome;

/// Opens data files in graph windows of their own, and saves graph windows as data files.
class Documents : public QObject {
    Q_OBJECT

public:
    /// `shell` is the parent of dialogs. All outlive this.
    Documents(QWidget *shell, ProgressStrip *strip, FileWriter *writer, GraphWindows *graphs,
        DisplayWindows *displays, WindowFiles *windowFiles);

    /// Asks for files and opens them. The displays, always on top, are out of the way meanwhile.
    void openDialog();
    /// Asks for files in the same way, above `window`, for another use.
    QStringList chooseFiles(QWidget *window);
    /// Opens them among the journals of live recordings, the newest first.
    void openRecordings();
    /// Opens `files` in the background; those that fail are listed when the last one has been read.
    void open(const QStringList &files);
    bool isOpening() const;
    /// Gives up what is still being read.
    void cancelOpening();
    /// Asks for a name and saves the records of `child` there.
    void saveDialog(MdiGraphChild *child);
    /// Asks for a name to save the records of `child` as; empty when none was given.
    QString askSaveName(const MdiGraphChild *child);
    /// Saves what `child` holds now in the background, and then calls `done`: true when all is on the disk,
    /// false when it failed or was cancelled, of which the user is told. `child` stays until then.
    void save(MdiGraphChild *child, const QString &fileName, const std::function<void(bool)> &done);

signals:
    void message(const QString &text, int timeout);
    /// `child` shows what stood in `fileName` when that had `stamp`.
    void fileOpened(const QString &fileName, MdiGraphChild *child, const FileStamp &stamp);
    /// `fileName` was written; the same records stand in `source`, which is empty where no file holds them.
    void fileSaved(const QString &fileName, const QString &source);
    /// What was to be opened is, or could not be: the windows are to be numbered, before the displays are
    /// shown again.
    void opened();

private slots:
    void onLoaded(const QString &fileName, SeriesStore *store, const FileStamp &stamp);
    void onFinished(const QStringList &failures = {}, int total = 0);
    void nameSaved();

private:
    QStringList askFiles(QWidget *window);
    QStringList chooseFrom(QFileDialog &dialog);
    /// Opens what is chosen in `dialog`.
    void openFrom(QFileDialog &dialog);
    void listFailures(const QStringList &failures, int total);
    void finishSave(MdiGraphChild *child, const QString &fileName, const DataFilePieces &lines,
        const WriteOutcome &outcome);
    void tellFailure(const QString &fileName, const QString &reason);
    void tellUnreadable(int count, const MdiGraphChild *child, const QString &fileName);

    QWidget *m_shell;
    FileWriter *m_writer;
    GraphWindows *m_graphs;
    DisplayWindows *m_displays;
    WindowFiles *m_windowFiles;
    FileQueue *m_queue;
    QCache<QString, QString> m_labels; ///< of files in the open dialog
    bool m_displaysHidden = false;
    QString m_savedFile; ///< the one saved last, as it is told
};
