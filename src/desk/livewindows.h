#pragma once

#include <QCoreApplication>
#include <QString>

#include <memory>

class DeviceLink;
class GraphWindows;
class QWidget;
class RecordingLog;
class RecordingWindow;
class WindowFiles;

/// The graph windows as devices know them: those that their recordings open, and the current one.
class LiveWindows {
    Q_DECLARE_TR_FUNCTIONS(LiveWindows)

public:
    /// Neither is owned; both outlive this.
    LiveWindows(GraphWindows *graphs, WindowFiles *files);

    /// A journal for a recording that starts now on `portName`; null while the settings have it switched off.
    std::unique_ptr<RecordingLog> beginLog(const QString &portName);
    /// A new graph window, placed, numbered and current, for the recording that was begun last; never null.
    RecordingWindow *create();
    /// `window`, which create() has made, as a widget; null for null.
    static QWidget *windowOf(RecordingWindow *window);

    bool hasCurrent() const;
    bool isCurrent(const QWidget *window) const;
    /// The device that feeds the current window; null without such a window or when nothing feeds it.
    DeviceLink *currentLink() const;
    /// Port that feeds the current window or did; empty without such a window and for that of a file.
    QString currentPort() const;
    /// Asks the current window to stop its process; true when it has told its device.
    bool stopCurrentProcess();

private:
    GraphWindows *m_graphs;
    WindowFiles *m_files;
};
