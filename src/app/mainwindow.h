#pragma once

#include "data/varnel3data.h"

#include <QMainWindow>
#include <QMutex>
#include <QSerialPortInfo>
#include <QSignalMapper>

#include <memory>

class ActionSet;
class DataToolBar;
class DeskArea;
class Documents;
class DeviceCommands;
class DeviceTargets;
class DisplayWindows;
class EndNotice;
class ShownRecord;
class FileWriter;
class GraphWindows;
class ListenedPorts;
class LiveWindows;
class LogbookHost;
class LogbookParts;
class MdiGraphChild;
class OverlayCommands;
class PackSource;
class PortWatcher;
class WindowFiles;
class RemoteControls;
class DeskReaderHost;
class SleepInhibitor;
class SoundPlayer;
class StaleWatch;
class StatusFacts;
class ToolsCommands;
class UnsavedWindows;
class ViewState;
class ViewSwitchboard;

/// The program's window: builds and wires what it is made of. Its slots
/// hand the work to the helpers that do it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    /// The current graph window, or null.
    MdiGraphChild *activeMdiChild() const;
    /// Number of the current graph window, or 0.
    int activeWindowNumber() const;
    /// Every graph window in the order of opening.
    QList<MdiGraphChild *> mdiChildren() const;
    /// A new graph window, placed and current.
    MdiGraphChild *createMdiChild();

    const ActionSet &actionSet() const { return *actions; }
    const ListenedPorts &listenedPorts() const { return *ports; }
    const WindowFiles &filesOfWindows() const { return *windowFiles; }
    const StatusFacts &statusFacts() const { return *facts; }
    const ViewState &viewState() const { return *state; }

signals:
    /// After every view switch.
    void toolBarChanged();

public slots:
    void setWhiteBack();
    void setBlackBack();
    void updateMenus();
    void updateWindowMenu();
    void printCapComp();
    void printVolComp();
    void printBarDisplay();
    void printActivePlot();
    void startRecording();
    void stopRecording();
    /// Shows the figures of `record`, one of graph window `nrWin`, in the tool bar and the displays.
    void updateData(Varnel3Data &record, int nrWin = -1, bool updateRic = false);
    /// Shows `message` for `timeout` ms; 0 keeps it until the next one.
    void showMessageStatusBar(QString message, int timeout = 0);
    void repaintAllWindows();
    void renumerateWindows();
    /// Does nothing: the capacity comparison asks for its entries itself.
    void updateCapacity(int cap, char mode, int inf, int id);
    void updateVoltage();
    void onPlayUserMP3();
    void endProcess(int mPlayEndId);
    void endProcessMessage();
    /// Opens data files in graph windows of their own.
    void openFiles(const QStringList &files);
    /// Another start of the program: comes to the front and opens `files`.
    void comeForward(const QStringList &files);

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private slots:
    void openFile();
    void saveFile();
    /// Does nothing.
    void saveSesion();
    void about();
    void sendTime();
    void preferences();
    void setActiveSubWindow(QWidget *window);
    void recording();
    void recording(bool start);
    void toolBarData(bool checked);
    void toolBarBarGraph(bool checked);
    void toolBarGraph(bool checked);
    void toolBarTemp(bool checked);
    void toolBarDelta(bool checked);
    void toolBarRw(bool checked);
    void toolBarBalancer(bool checked);
    void toolBarAvg(bool checked);
    void toolBarSelectedCells();
    void toolBarPower(bool checked);
    void toolBarEnergy(bool checked);
    void recordingOnStart();
    void toolBarStop();
    void explain();
    void onDeviceDiscovered(QSerialPortInfo portInfo);
    void onDeviceRemoved(QSerialPortInfo portInfo);
    void listenedPortsChanged();
    void showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi);

private:
    void createParts();
    void createMenus();
    void createToolBars();
    void createStatusBar();
    void connectParts();
    void readSettings();
    void writeSettings() const;

    // NOLINTBEGIN(readability-identifier-naming): the interface names these
    DeskArea *mdiArea;
    QSignalMapper *windowMapper;
    QMenu *windowMenu;
    QMenu *fileMenu;
    QMenu *toolsMenu;
    QMenu *helpMenu;
    std::unique_ptr<QMenu> backgroundMenu; ///< in the window menu, made anew with it
    std::unique_ptr<QMenu> frameMenu; ///< the same
    QToolBar *mainToolBar;
    DataToolBar *dataToolBar;
    bool started = false; ///< listening has begun
    QStringList filesAtStart; ///< to be opened then
    QMutex dataMutex; ///< held while the newest record is shown, and while the end notice is taken away

    ActionSet *actions;
    ViewState *state;
    DisplayWindows *displays;
    ShownRecord *shownRecord;
    ViewSwitchboard *switches;
    GraphWindows *graphs;
    StatusFacts *facts;
    WindowFiles *windowFiles;
    std::unique_ptr<LiveWindows> live;
    DeskReaderHost *readerHost;
    ListenedPorts *ports;
    PortWatcher *watcher;
    StaleWatch *staleWatch;
    std::unique_ptr<PackSource> packs;
    FileWriter *writer;
    Documents *documents;
    UnsavedWindows *unsaved;
    LogbookParts *logbookParts;
    LogbookHost *logbookHost;
    ToolsCommands *tools;
    OverlayCommands *overlay;
    std::unique_ptr<DeviceTargets> targets;
    DeviceCommands *commands;
    SoundPlayer *sounds;
    EndNotice *endNotice;
    RemoteControls *remoteControls;
    SleepInhibitor *sleepInhibitor;
    // NOLINTEND(readability-identifier-naming)
};
