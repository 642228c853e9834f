#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <array>

class CapacityDisplay;
class DataDisplay;
class MdiGraphChild;
class PowerDisplay;
class QAction;
class QDateTime;
class QMainWindow;
class QWidget;
class Varnel3Data;
class VarnelSettings;
class ViewState;
class VoltageComparison;
class VoltageSource;

/// The free-floating display windows: created here, shown, hidden, placed, fed and printed.
class DisplayWindows : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of every display, so that none outlives it or keeps the program running.
    DisplayWindows(QMainWindow *window, ViewState *state);

    /// What the voltage comparison shows; outlives this.
    void setVoltageSource(VoltageSource *source) { m_source = source; }

    /// Keys of `actions` work in the displays too. They outlive this.
    void setKeys(const QList<QAction *> &actions);
    void showData(bool shown);
    void showCapacity(bool shown);
    void showPower(bool shown);
    enum Keyboard { TakesKeyboard, LeavesKeyboard };
    /// Opens the voltage comparison anew, or closes it.
    void showVoltage(bool shown, Keyboard keyboard = TakesKeyboard);
    void hideAll();
    /// Shows those whose switches are on.
    void showAsSwitched();
    void updateVoltage();
    /// Brings what compares windows up to date, where it is seen.
    void updateComparisons();

    void updateData(Varnel3Data &record, int windowNumber, bool useKeptRi);
    void updatePower(Varnel3Data &record, int windowNumber, bool useKeptRi);
    /// No line has come since then; invalid: the figures are fresh.
    void setStaleSince(const QDateTime &since);
    void clearCapacities();
    /// The entry of `child`, the newest window, after those that are there.
    void addCapacity(const MdiGraphChild *child);
    /// The entry of `child`, its number telling which, brought up to date.
    void refreshCapacity(const MdiGraphChild *child);

    void printCapacity();
    void printVoltage();
    void printPower();

    /// Places and sizes of the displays as the settings keep them.
    void readPlaces(const VarnelSettings &settings);
    void writePlaces(VarnelSettings *settings);

signals:
    /// The user closed the window; those that stay in memory are only hidden.
    void dataClosed();
    void capacityClosed();
    void powerClosed();
    void voltageClosed();
    /// The capacity comparison is seen and wants its entries brought up to date.
    void capacitiesWanted();

private slots:
    void onVoltageClosed();

private:
    /// Those that are there from the start.
    std::array<QWidget *, 3> lasting() const;
    void setShown(QWidget *display, bool shown);
    void settle(QWidget *display);
    VoltageComparison *createVoltage();

    QMainWindow *m_window;
    ViewState *m_state;
    CapacityDisplay *m_capacity;
    PowerDisplay *m_power;
    DataDisplay *m_data;
    QPointer<VoltageComparison> m_voltage; ///< made when opened, gone when closed
    QList<QAction *> m_keys; // not owned, outlive this
    VoltageSource *m_source = nullptr;
};
