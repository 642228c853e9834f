#pragma once

#include <QObject>

#include <array>

class QAction;

/// The commands and view switches of the main window, in the order in which they are created.
enum class ActionId {
    Open,
    SaveAs,
    SaveSession,
    Preferences,
    Exit,
    Black,
    White,
    Close,
    CloseAll,
    Tile,
    Cascade,
    Next,
    Previous,
    Recording,
    PrintCapacity,
    PrintVoltage,
    PrintBars,
    PrintPlot,
    Separator,
    About,
    AboutQt,
    SetTime,
    Data, // the view switches: Data to Energy
    Graph,
    BarGraph,
    Temperature,
    Delta,
    Resistance,
    Balancer,
    Average,
    SelectedCells,
    Power,
    Energy,
    StopProcess,
    HoldView,
    DistinctLines,
    Explain,
    OpenRecordings,
    Logbook,
    ReopenClosed,
    Overlay,
    ExportCsv,
    SavePicture,
    RemoteControl,
    UserGuide,
    Count
};

/// Creates the actions of the main window from one table and connects them to their slots; those that a
/// helper of the window serves it connects itself.
class ActionSet : public QObject {
    Q_OBJECT

public:
    /// `window` has the slots of the commands, `mdiArea` those that arrange windows. Both outlive this.
    ActionSet(QObject *window, QObject *mdiArea);

    QAction *operator[](ActionId id) const { return m_actions[size_t(id)]; }
    bool isChecked(ActionId id) const;
    void setChecked(ActionId id, bool checked) const;
    void setText(ActionId id, const QString &text) const;
    void setEnabled(ActionId id, bool enabled) const;
    /// The view switches, for windows that take their keys too.
    QList<QAction *> viewSwitches() const;
    /// Recording looks pressed while it has paused `port`; empty for none.
    void showPaused(const QString &port) const;
    /// Enables the command `id` while `reason` is empty; its tips tell what it does, or why it can't.
    void offer(ActionId id, const QString &reason) const;
    /// Enables or disables all actions from `first` to `last`, both included.
    void setRangeEnabled(ActionId first, ActionId last, bool enabled) const;
    /// Enables or disables the commands that need a graph window.
    void enableWindowCommands(bool enabled) const;

private:
    std::array<QAction *, size_t(ActionId::Count)> m_actions = {};
};
