#pragma once

#include "devices/endedprocess.h"

#include <QObject>
#include <QPointer>
#include <QQueue>

class DeskReaderHost;
class ListenedPorts;
class QMessageBox;
class QTimer;
class QWidget;
class SoundPlayer;

/// Tells the user that a process has ended: a box on top of all windows, with icon and text, and a sound. The
/// box keeps the user's input and nothing else. The main window's slots hand to it: endProcess(int) to
/// show(), endProcessMessage() to dismiss(), onPlayUserMP3() to playUserSound().
class EndNotice : public QObject {
    Q_OBJECT

public:
    static constexpr int defaultUserSoundDelay = 3500; ///< ms; by then the first sound is over

    /// `window` is the parent of the boxes. Nothing is owned; all outlive this.
    /// Sounds are taken from `soundFolder`, the user's own follows after `userSoundDelay` ms.
    EndNotice(QWidget *window, const ListenedPorts *ports, SoundPlayer *player, const QString &soundFolder,
        int userSoundDelay = defaultUserSoundDelay);
    ~EndNotice() override;

    /// What `host` announces comes before the calls of show() and dismiss() that it belongs to.
    void connectHost(DeskReaderHost *host);
    bool isOpen() const { return !m_box.isNull(); }

public slots:
    /// The next show() that is not announced yet is about `process`. The calls by name tell the kind only.
    void announce(const EndedProcess &process);
    /// The next dismiss() that is not announced yet comes from a start on `portName`.
    void announceStart(const QString &portName);
    /// Opens the box for `kind`, a Varnel3Data::End, and returns. While one is open a further end has none,
    /// and none opens above a main window that has been closed.
    void show(int kind);
    /// Closes the box: a device has begun a new process.
    void dismiss();
    /// Plays the user's own sound if the box is still open.
    void playUserSound();
    void stopSound();

signals:
    /// `process` has no box: one was open already, or another device's start has closed its own.
    void untold(const EndedProcess &process);
    /// The user has closed the box, and sees the current window again.
    void closed();

private slots:
    void startSound();
    void onClosed();

private:
    void liftWindow();
    QMessageBox *createBox() const;
    void acknowledge();

    QWidget *m_window;
    const ListenedPorts *m_ports;
    SoundPlayer *m_player;
    QString m_soundFolder;
    QQueue<EndedProcess> m_announced;
    QQueue<QString> m_starts; // ports
    EndedProcess m_shown; // what the box is about
    QPointer<QMessageBox> m_box; // the open one
    QTimer *m_userSoundTimer; // child
};
