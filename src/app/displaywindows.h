#pragma once

#include <QObject>
#include <QPointer>

class MdiGraphChild;
class QSettings;
class QWidget;
class Varnel3Data;
class ViewState;

/// The free-floating display windows: created here, shown, hidden, placed, fed and printed.
class DisplayWindows : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of every display, so that none outlives it or keeps the program running.
    DisplayWindows(QWidget *window, ViewState *state);

    void showData(bool shown);
    void showCapacity(bool shown);
    void showPower(bool shown);
    void showVoltage(bool shown);
    void updateVoltage();

    void updateData(Varnel3Data &record, int windowNumber, bool useKeptRi);
    void updatePower(Varnel3Data &record, int windowNumber, bool useKeptRi);
    void clearCapacities();
    /// The entry of `child`, after those that are there.
    void addCapacity(const MdiGraphChild *child);

    void printCapacity();
    void printVoltage();
    void printPower();

    /// Places and sizes of the displays as the settings keep them.
    void readPlaces(const QSettings &settings);
    void writePlaces(QSettings *settings) const;

signals:
    /// The user closed the window; those that stay in memory are only hidden.
    void dataClosed();
    void capacityClosed();
    void powerClosed();
    void voltageClosed();

private:
    QWidget *m_window;
    ViewState *m_state;
};
