#pragma once

#include <QCache>
#include <QObject>

class DisplayWindows;
class FileQueue;
class FileWriter;
class GraphWindows;
class MdiGraphChild;
class ProgressStrip;
class QFileDialog;
class QWidget;
class Recordings;
class SeriesStore;

/// Opens data files in graph windows of their own, and saves graph windows as data files.
class Documents : public QObject {
    Q_OBJECT

public:
    /// `shell` is the parent of dialogs and has the slots renumerateWindows() and
    /// showMessageStatusBar(QString,int). All outlive this.
    Documents(QWidget *shell, ProgressStrip *strip, FileWriter *writer, GraphWindows *graphs,
        DisplayWindows *displays, Recordings *recordings);

    /// Asks for files and opens them. The displays, always on top, are out of the way meanwhile.
    void openDialog();
    /// The same among the journals of live recordings, the newest first.
    void openRecordings();
    /// Opens `files` in the background; those that fail are listed when the last one has been read.
    void open(const QStringList &files);
    bool isOpening() const;
    /// Gives up what is still being read.
    void cancelOpening();
    /// Asks for a name and saves the records of `child` there.
    void saveDialog(MdiGraphChild *child);
    /// Asks for a name to save records as; empty when none was given.
    QString askSaveName();
    /// Returns when all is on the disk. False when it failed or was cancelled, which is told.
    bool save(MdiGraphChild *child, const QString &fileName);

signals:
    void message(const QString &text, int timeout);

private slots:
    void onLoaded(const QString &fileName, SeriesStore *store);
    void onFinished(const QStringList &failures, int total);
    void nameSaved();

private:
    /// Opens what is chosen in `dialog` and returns it.
    QStringList openFrom(QFileDialog &dialog);
    void listFailures(const QStringList &failures, int total);
    void tellFailure(const QString &fileName, const QString &reason);
    void tellUnreadable(int count, const MdiGraphChild *child, const QString &fileName);

    QWidget *shell;
    FileWriter *writer;
    GraphWindows *graphs;
    DisplayWindows *displays;
    Recordings *recordings;
    FileQueue *queue;
    QCache<QString, QString> labels; ///< of files in the open dialog
    bool displaysHidden = false;
    QString savedFile; ///< the one saved last, as it is told
};
