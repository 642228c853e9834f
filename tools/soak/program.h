#pragma once

#include "soak/load.h"

#include <QTemporaryDir>

#include <memory>

class MainWindow;

namespace soak {

/// The program under load: its main window, with settings, ports and data in a folder of its own.
class Program {
public:
    /// Sends settings and data of this process to the folder; nothing may have asked for them before.
    Program();
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    QString portFolder() const { return m_folder.filePath(QStringLiteral("ports")); }
    /// Opens the window, listening on COM1 to COM`ports`.
    void open(int ports);
    void close();
    /// Null before it is opened.
    MainWindow *window() const { return m_window.get(); }
    /// How many ports are listened on.
    int listened() const;
    /// Windows that hold records.
    int recordings() const;
    /// Puts the graph windows side by side.
    void tile();
    void openDisplays(); ///< every one
    /// Minimises every window, and tells whether that has been done.
    void minimise();
    bool isMinimised() const;

    /// Records of all graph windows, by the port that they came from.
    LineCounts records() const;
    qint64 recordCount() const;
    /// Bytes of the records and of the points of their series.
    qint64 dataSize() const;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace soak
