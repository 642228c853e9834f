#pragma once

#include <QCache>
#include <QObject>

class DisplayWindows;
class FileQueue;
class GraphWindows;
class MdiGraphChild;
class QStatusBar;
class QWidget;
class RecordList;

/// Opens data files in graph windows of their own, and saves graph windows as data files.
class Documents : public QObject {
    Q_OBJECT

public:
    /// `shell` is the parent of dialogs and has the slots renumerateWindows() and showMessageStatusBar(QString,int).
    /// All outlive this.
    Documents(QWidget *shell, QStatusBar *bar, GraphWindows *graphs, DisplayWindows *displays);

    /// Asks for files and opens them. The displays, always on top, are out of the way meanwhile.
    void openDialog();
    /// Opens `files` in the background; those that fail are listed when the last one has been read.
    void open(const QStringList &files);
    bool isOpening() const;
    /// Gives up what is still being read.
    void cancelOpening();
    /// Asks for a name and saves the records of `child` there.
    void saveDialog(MdiGraphChild *child);
    void save(MdiGraphChild *child, const QString &fileName);

signals:
    void message(const QString &text, int timeout);

private slots:
    void onLoaded(const QString &fileName, RecordList *records);
    void onFinished(const QStringList &failures, int total);

private:
    QStringList askForFiles();
    void listFailures(const QStringList &failures, int total);
    void tellUnreadable(int count, const QString &fileName);

    QWidget *shell;
    GraphWindows *graphs;
    DisplayWindows *displays;
    FileQueue *queue;
    QCache<QString, QString> labels; ///< of files in the open dialog
    bool displaysHidden = false;
};
