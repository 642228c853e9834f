#pragma once

#include "graph/graphhost.h"

#include <QList>
#include <QObject>

class CloseGuard;
class DeskArea;
class DisplayWindows;
class ShownRecord;
class QMdiSubWindow;
class QWidget;

/// The graph windows in the MDI area: which there are, how they are numbered, and which one is current, that
/// is, was active last. A minimised main window has no active graph window but still a current one.
class GraphWindows : public QObject, public GraphHost {
    Q_OBJECT

public:
    /// `shell` is the parent of the graph windows, which look for updateCapacity() and updateVoltage() there.
    /// All outlive the graph windows.
    GraphWindows(
        QWidget *shell, DeskArea *area, ViewState *state, DisplayWindows *displays, ShownRecord *shownRecord);

    /// Asked about every window that closes, from now until the program ends; outlives the graph windows.
    void setCloseGuard(CloseGuard *guard) { m_guard = guard; }
    /// A new empty graph window, placed, shown, numbered and current.
    MdiGraphChild *create();
    /// Places a window that was made outside, as create() does.
    void place(MdiGraphChild *child);
    MdiGraphChild *current() const { return m_current; }
    /// Number of the current window, 0 when there is none.
    int currentNumber() const;
    /// In the order in which they were opened; those about to close are left out.
    QList<MdiGraphChild *> all() const { return m_children; }
    /// Numbers the windows 1, 2, 3 and hands their entries to the capacity comparison.
    void renumber();
    bool isEmpty() const { return m_children.isEmpty(); }
    void repaintAll() const;
    /// The program ends: windows close without being asked about and are no longer renumbered.
    void setEnding() { m_ending = true; }

    ViewState *viewState() const override { return m_state; }
    bool isCurrent(const MdiGraphChild *child) const override { return child == m_current; }
    void showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi) override;
    void showMessageStatusBar(const QString &message, int timeout) override;
    QObject *updateReceiver() override;
    bool mayClose(MdiGraphChild *child) override;
    void graphClosing(MdiGraphChild *child) override;

public slots:
    void onSubWindowActivated(QMdiSubWindow *window);
    void refreshCapacities();

signals:
    /// The current window's newest record, or one that the user points at.
    void recordShown(const Varnel3Data &record, int windowNumber, bool useKeptRi);
    void message(const QString &text, int timeout);
    void currentChanged();
    /// A window was placed.
    void opened();
    /// Windows have come or gone: renumber() is to be called, after all that the numbers are shown in.
    void renumberNeeded();
    /// Cells of some window were selected or no longer are.
    void selectedCellsChanged();

private slots:
    void onDestroyed(QObject *object);

private:
    void forget(MdiGraphChild *child);
    void setCurrent(MdiGraphChild *child);

    QWidget *m_shell;
    DeskArea *m_area;
    ViewState *m_state;
    DisplayWindows *m_displays;
    ShownRecord *m_shownRecord;
    CloseGuard *m_guard = nullptr;
    QList<MdiGraphChild *> m_children;
    MdiGraphChild *m_current = nullptr; ///< one of m_children
    bool m_currentShown = false; ///< what the displays show is a record of it
    bool m_ending = false;
    bool m_renumbering = false; ///< asked for, not done yet
};
