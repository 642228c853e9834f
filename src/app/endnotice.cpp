#include "app/endnotice.h"

#include "app/devicetargets.h"
#include "app/soundplayer.h"
#include "graph/processend.h"
#include "link/serialreader.h"
#include "settings/varnelsettings.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <iterator>

namespace {

constexpr int userSoundDelayMs = 3500; // by then the first sound is over

struct KindText {
    const char *title;
    const char *sound;
};

const KindText kindTexts[] = {
    // by Varnel3Data::End
    {QT_TRANSLATE_NOOP("EndNotice", "Error"), "error"},
    {QT_TRANSLATE_NOOP("EndNotice", "Aborted"), "aborted"},
    {QT_TRANSLATE_NOOP("EndNotice", "End"), "end"},
};

const KindText *textsOf(int kind)
{
    return kind >= 0 && kind < int(std::size(kindTexts)) ? &kindTexts[kind] : nullptr;
}

} // namespace

EndNotice::EndNotice(
    QWidget *mainWindow, DeviceTargets *deviceTargets, SoundPlayer *soundPlayer, const QString &folder)
    : QObject(mainWindow)
    , window(mainWindow)
    , targets(deviceTargets)
    , player(soundPlayer)
    , soundFolder(folder)
    , userSoundTimer(new QTimer(this))
{
    userSoundTimer->setSingleShot(true);
    userSoundTimer->setInterval(userSoundDelayMs);
    connect(userSoundTimer, SIGNAL(timeout()), this, SLOT(playUserSound()));
}

EndNotice::~EndNotice() = default;

void EndNotice::show(int kind)
{
    if (held) {
        waitingKinds.append(kind);
        return;
    }
    const QPointer<EndNotice> self(this);
    const int told = boxesShown;
    liftWindow();
    QApplication::processEvents();
    // Another end may have come from inside: its box is open or, the user being done with it, was.
    if (!self || box || boxesShown != told)
        return;
    ++boxesShown;
    const QPointer<QMessageBox> own = createBox(kind);
    box = own;
    shownKind = kind;
    QTimer::singleShot(0, this, SLOT(startSound()));
    // cppcheck-suppress nullPointerRedundantCheck ; the pointer clears itself while the box is open
    own->exec();
    // A box that is gone was dismissed by a new process, or its window was:
    // another end may have been told since.
    if (!self || !own)
        return;
    acknowledge();
    delete own;
}

// Only the minimised state goes: a maximised or full-screen window stays so.
void EndNotice::liftWindow()
{
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
}

QMessageBox *EndNotice::createBox(int kind)
{
    const KindText *texts = textsOf(kind);
    auto *notice = new QMessageBox(window);
    notice->setWindowFlags(notice->windowFlags() | Qt::WindowStaysOnTopHint);
    if (texts != nullptr) {
        notice->setIconPixmap(QPixmap(processEndIcon(kind)));
        notice->setText(processEndText(kind));
        notice->setWindowTitle(tr(texts->title));
    }
    notice->addButton(QMessageBox::Close);
    return notice;
}

// The user has closed the box: a device that waits for a new process is
// freed from its end-of-process display.
void EndNotice::acknowledge()
{
    userSoundTimer->stop();
    stopSound();
    SerialReader *reader = targets->onlyReader();
    if (reader && reader->isNewProcess())
        reader->sendCommand(QStringLiteral("#STOP\r\n"));
}

// Runs when the box is on the screen, which therefore never waits for a sound system that is slow to answer.
void EndNotice::startSound()
{
    if (!box || !player->hasOutput())
        return;
    const KindText *texts = textsOf(shownKind);
    player->stop();
    if (texts != nullptr) {
        const QString base = QLatin1String(texts->sound);
        player->play(SoundPlayer::filePath(soundFolder, base, QLocale::system().country()));
    }
    if (VarnelSettings().value(QStringLiteral("/mp3/user_wave"), true).toBool())
        userSoundTimer->start();
}

void EndNotice::playUserSound()
{
    stopSound();
    if (box)
        player->play(SoundPlayer::filePath(soundFolder, QStringLiteral("v3_mp3"), QLocale::AnyCountry));
}

void EndNotice::dismiss()
{
    waitingKinds.clear();
    if (box)
        box->reject();
    delete box;
    userSoundTimer->stop();
    stopSound();
}

void EndNotice::stopSound()
{
    player->stop();
}

void EndNotice::hold()
{
    held = true;
}

void EndNotice::release()
{
    held = false;
    const QVector<int> kinds = waitingKinds;
    waitingKinds.clear();
    // Queued, so that whoever releases has finished before the first box waits for the user.
    for (int kind : kinds)
        QMetaObject::invokeMethod(this, "show", Qt::QueuedConnection, Q_ARG(int, kind));
}
