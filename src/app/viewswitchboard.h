#pragma once

#include <QObject>

class ActionSet;
class DisplayWindows;
class ShownRecord;
class ViewState;

/// What the view switches do: which switch enables, unchecks or renames which, and what is shown or sent
/// again. The outcome stands in the ViewState, which drawing and displays follow.
class ViewSwitchboard : public QObject {
    Q_OBJECT

public:
    /// All outlive this.
    ViewSwitchboard(ActionSet *actions, ViewState *state, DisplayWindows *displays, ShownRecord *shownRecord,
        QObject *parent);

    /// Without a graph window: all eleven.
    void disableViews();

    void showData(bool checked);
    void showBarGraph(bool checked);
    void showGraph(bool checked);
    void showPower(bool checked);
    /// " T " and " Rw ": their state is all there is to them.
    void showCurve();
    void cycleDelta(bool checked);
    void switchBalancer(bool checked);
    void switchAverage(bool checked);
    void cycleCells();
    /// `windowNumber` is the current graph window's, or -1.
    void cycleEnergy(int windowNumber);
    void setBlackBackground(bool black);

public slots:
    /// Takes the check states of the actions over into the view state; all that there is to Hold view
    /// and Distinct lines.
    void publish();
    /// With a graph window: the switches DATA to Avg, and those that depend on " B " while it is on.
    void enableViews();
    /// The user closed a display window: its switch follows.
    void dataClosed();
    void barGraphClosed();
    void graphClosed();
    void powerClosed();

signals:
    void repaintNeeded();
    /// A view switch has been handled.
    void switched();

private:
    void finish();
    void enableBalancerSwitches(bool enabled);

    ActionSet &m_actions;
    ViewState *m_state;
    DisplayWindows *m_displays;
    ShownRecord *m_shownRecord;
};
