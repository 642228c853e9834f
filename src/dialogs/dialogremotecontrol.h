#pragma once

#include <QDialog>
#include <QPointer>

#include <memory>

class QTimer;
class SerialReader;

namespace Ui {
class DialogRemoteControl;
}

/// The front panel of a charger: sends its short commands through a reader and follows the state ("tryb")
/// that the device replies with, one page a state. Choosing a memory or a number of cells in a box sends it
/// at once; there is no button for it. A dialog that has been closed or hidden, by whatever, is over: it
/// sends nothing and follows nothing any more, also while somebody keeps it.
class DialogRemoteControl : public QDialog {
    Q_OBJECT

public:
    /// All in ms.
    struct Times {
        int answer = 1000; ///< within which the device must say its state
        int poll = 1000; ///< from one question for the state to the next
        int query = 100; ///< from a command to the question what came of it
    };

    /// Asks the device for its state at once; a device that does not answer in time closes the
    /// dialog. `reader` is not owned and may go: the dialog then closes with a text.
    explicit DialogRemoteControl(SerialReader *reader, QWidget *parent = nullptr);
    DialogRemoteControl(SerialReader *reader, QWidget *parent, const Times &times);
    ~DialogRemoteControl() override;

    void done(int result) override;

public slots:
    void control_data(const QString &line);
    /// The device has not answered: closes the dialog and says so in a box of its own that waits for nobody.
    void timerEventOut();
    void timerEventMem();
    void timerEventCell();
    void timerEventTryb();

protected:
    bool event(QEvent *event) override;

private slots:
    // clazy:excludeall=connect-by-name (bound to the form's widgets, which are never renamed)
    void on_pbTryb0_battery_clicked();
    void on_cbTryb0_nc_currentIndexChanged(int index);
    void on_pbTryb0_ps_clicked();
    void on_pbTryb1_mm_clicked();
    void on_pbTryb1_mp_clicked();
    void on_pbTryb2_mm_clicked();
    void on_pbTryb2_mp_clicked();
    void on_pbTryb2_start_clicked();
    void on_cbTryb2_nr_currentIndexChanged(int index);
    void on_pbTryb3_stop_clicked();
    void on_pbTryb4_stop_clicked();
    void on_cbTryb0_nc_activated(int index);
    /// The user picked an item of the memory page; setting it from a reply does not come here.
    void on_cbTryb1_nr_activated(int index);
    void on_pbMemory_clicked();
    void onReaderGone();

private:
    void fillCombos();
    void connectReader();
    void end();
    void send(const QString &command);
    void poll();
    void followState(const QString &reply);
    /// The button that leads to the memory page is there while the device is in its memory state.
    void setMemoryState(bool on);
    void tell(const QString &text);

    std::unique_ptr<Ui::DialogRemoteControl> ui;
    Times times;
    QPointer<SerialReader> reader;
    QString portName; // of the reader, for when it has gone
    int askedMemory = -1; // index that the setup page has just asked for
    QTimer *timeOutTimer; // child
    QTimer *pollTimer; // child
};
