#pragma once

#include "data/varnel3data.h"

#include <QObject>

class DataToolBar;
class DisplayWindows;
class QDateTime;

/// The record whose figures are shown, the newest of the current graph window or one pointed at: hands it to
/// the data tool bar and the display windows, and keeps it so that it can be shown again after a switch.
class ShownRecord : public QObject {
    Q_OBJECT

public:
    /// Both outlive this.
    ShownRecord(DataToolBar *bar, DisplayWindows *displays, QObject *parent);

    /// Shows `record` of graph window `windowNumber` (-1: none). `useKeptRi`
    /// keeps cell resistances shown before.
    void show(const Varnel3Data &record, int windowNumber, bool useKeptRi);
    /// Dims what shows the current window while `since` is valid: no line has come since then.
    void setStaleSince(const QDateTime &since);
    /// A window, be it current or not, has fallen silent or speaks again.
    void silenceChanged();
    /// Nothing is current: every figure empty.
    void clear();
    void resendToDataDisplay();
    /// To the data display and the bar display, under another window number.
    void resendToDisplays(int windowNumber);

private:
    DataToolBar *m_bar;
    DisplayWindows *m_displays;
    Varnel3Data m_lastData;
    int m_lastWindow = -1;
};
