#pragma once

#include <QObject>

#include <memory>

class FileWriter;
class GraphExports;
class LogbookParts;
class LogbookWindow;
class QAction;
class QWidget;
class VarnelSettings;
class ViewState;
class WindowFiles;

/// Opens the logbook's window, keeps its place, and does for it what takes file dialogs.
class LogbookHost : public QObject {
    Q_OBJECT

public:
    /// What it works with; all outlive it.
    struct Works {
        const LogbookParts *logbook;
        const ViewState *state;
        FileWriter *writer;
        WindowFiles *windowFiles;
    };
    /// `action` opens the window.
    LogbookHost(const Works &works, const QAction *action, QObject *parent);
    ~LogbookHost() override;

    LogbookWindow *window() const { return m_window.get(); } ///< null until it is first opened

public slots:
    void show();
    /// Closes the window, if it is open, and keeps its place.
    void close();

signals:
    /// Files are to be opened in graph windows.
    void openWanted(const QStringList &files);
    /// Files are to be shown over each other, each under the label of the same place.
    void overlayWanted(const QStringList &files, const QStringList &labels);

private slots:
    void onClosed();
    void writeTable();
    void writePicture();
    void askFolder(QWidget *dialog);

private:
    void create();

    Works m_works;
    GraphExports *m_exports = nullptr; ///< of the window
    std::unique_ptr<LogbookWindow> m_window; ///< kept once made; a parent would lie below it
};
