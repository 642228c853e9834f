#pragma once

#include <QObject>

class ActionSet;
class Documents;
class FileWriter;
class GraphExports;
class GraphWindows;
class QWidget;
class WindowFiles;

/// Serves commands of the menu of tools, those on recordings and those that export the current graph, and
/// opens the user guide.
class ToolsCommands : public QObject {
    Q_OBJECT

public:
    /// `shell` is the parent of dialogs. All outlive this.
    ToolsCommands(QWidget *shell, const ActionSet *actions, GraphWindows *graphs, Documents *documents,
        FileWriter *writer, WindowFiles *windowFiles);

public slots:
    /// Enables what can be done now; the status tips tell why the rest can't.
    void refresh();

signals:
    void message(const QString &text, int timeout);

private slots:
    void openRecordings();
    void reopenClosed();
    void exportCsv();
    void savePicture();
    void userGuide();

private:
    QWidget *m_shell;
    const ActionSet *m_actions;
    GraphWindows *m_graphs;
    Documents *m_documents;
    WindowFiles *m_windowFiles;
    GraphExports *m_exports; // child
};
