#pragma once

#include <QObject>

class Documents;
class FileWriter;
class GraphExports;
class GraphWindows;
class QAction;
class QMenu;
class QWidget;
class WindowFiles;

/// Commands of the menu of tools: those on recordings, and those that export the current graph.
class ToolsCommands : public QObject {
    Q_OBJECT

public:
    /// `shell` is as GraphExports asks. All outlive this.
    ToolsCommands(QWidget *shell, GraphWindows *graphs, Documents *documents, FileWriter *writer,
        WindowFiles *windowFiles);

    /// Appends the commands to `menu`.
    void fill(QMenu *menu) const;

public slots:
    /// Enables what can be done now; the status tips tell why the rest can't.
    void refresh();

private slots:
    void openRecordings();
    void reopenClosed();
    void exportCsv();
    void savePicture();

private:
    QAction *addCommand(const char *name, const QString &text, const char *icon, const char *slot);

    GraphWindows *m_graphs;
    Documents *m_documents;
    WindowFiles *m_windowFiles;
    GraphExports *m_exports; // child
    QAction *m_openRecordings;
    QAction *m_reopen;
    QAction *m_csv;
    QAction *m_picture;
};
