#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class DeviceTargets;
class QMessageBox;
class QTimer;
class QWidget;
class SoundPlayer;

/// Tells the user that a process has ended: a box on top of all windows, with icon and text, and a sound.
/// The main window's slots hand to it: endProcess(int) to show(), endProcessMessage() to
/// dismiss(), onPlayUserMP3() to playUserSound().
class EndNotice : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of the boxes. Nothing is owned; all outlive this.
    /// Sounds are taken from `soundFolder`.
    EndNotice(QWidget *window, DeviceTargets *targets, SoundPlayer *player, const QString &soundFolder);
    ~EndNotice() override;

    bool isOpen() const { return !box.isNull(); }

public slots:
    /// Shows the box for `kind`, a Varnel3Data::End, and returns when it is closed. While one
    /// is open further ends are not told.
    void show(int kind);
    /// Closes the box: its device has begun a new process.
    void dismiss();
    /// Plays the user's own sound if the box is still open.
    void playUserSound();
    void stopSound();
    /// Between the two, ends are kept back and told afterwards.
    void hold();
    void release();

private slots:
    void startSound();

private:
    void liftWindow();
    QMessageBox *createBox(int kind);
    void acknowledge();

    QWidget *window;
    DeviceTargets *targets;
    SoundPlayer *player;
    QString soundFolder;
    QPointer<QMessageBox> box; // the open one
    int shownKind = -1;
    int boxesShown = 0;
    QTimer *userSoundTimer; // child
    bool held = false;
    QVector<int> waitingKinds;
};
