#include "devices/endnotice.h"

#include "devices/deskreaderhost.h"
#include "devices/listenedports.h"
#include "machine/soundplayer.h"
#include "data/processend.h"
#include "link/serialreader.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "widgets/sharppixmap.h"

#include <QLabel>
#include <QMessageBox>
#include <QTimer>

EndNotice::EndNotice(QWidget *window, const ListenedPorts *ports, SoundPlayer *player,
    const QString &soundFolder, int userSoundDelay)
    : QObject(window)
    , m_window(window)
    , m_ports(ports)
    , m_player(player)
    , m_soundFolder(soundFolder)
    , m_userSoundTimer(new QTimer(this))
{
    m_userSoundTimer->setSingleShot(true);
    m_userSoundTimer->setInterval(userSoundDelay);
    connect(m_userSoundTimer, SIGNAL(timeout()), this, SLOT(playUserSound()));
}

EndNotice::~EndNotice() = default;

void EndNotice::connectHost(DeskReaderHost *host)
{
    connect(host, SIGNAL(processEnds(EndedProcess)), this, SLOT(announce(EndedProcess)));
    connect(host, SIGNAL(recordingBegins(QString)), this, SLOT(announceStart(QString)));
}

void EndNotice::announce(const EndedProcess &process)
{
    m_announced.enqueue(process);
}

void EndNotice::announceStart(const QString &portName)
{
    m_starts.enqueue(portName);
}

void EndNotice::show(int kind)
{
    EndedProcess process;
    if (!m_announced.isEmpty())
        process = m_announced.dequeue();
    process.end = kind;
    if (m_window->isHidden() && m_window->testAttribute(Qt::WA_WState_ExplicitShowHide))
        return; // it has been closed, the program ends
    liftWindow();
    if (m_box) {
        if (process.portName != m_shown.portName)
            emit untold(process);
        return;
    }
    m_shown = process;
    m_box = createBox();
    connect(m_box, SIGNAL(finished(int)), this, SLOT(onClosed()));
    m_box->show();
    QTimer::singleShot(0, this, SLOT(startSound()));
}

// Only the minimised state goes: a maximised or full-screen window stays so.
void EndNotice::liftWindow()
{
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
}

QMessageBox *EndNotice::createBox() const
{
    auto *notice = new QMessageBox(m_window);
    notice->setWindowModality(Qt::ApplicationModal); // resets the flags
    notice->setWindowFlags(notice->windowFlags() | Qt::WindowStaysOnTopHint);
    notice->setIconPixmap(sharpPixmap(processEndIcon(m_shown.end)));
    notice->setText(processEndText(m_shown.end));
    notice->setWindowTitle(processEndTitle(m_shown.end));
    notice->setInformativeText(m_shown.facts());
    if (auto *facts = notice->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"))) {
        facts->setTextFormat(Qt::PlainText);
        facts->setWordWrap(false);
    }
    notice->addButton(QMessageBox::Close);
    return notice;
}

void EndNotice::onClosed()
{
    if (!m_box)
        return;
    m_box->deleteLater();
    m_box.clear();
    acknowledge();
    emit closed();
}

// A device that waits for a new process is freed from its end-of-process display.
void EndNotice::acknowledge()
{
    m_userSoundTimer->stop();
    stopSound();
    SerialReader *reader = m_ports->onlyReader();
    if (reader && reader->isNewProcess())
        reader->stopProcess();
}

// Runs when the box is on the screen, which therefore never waits for a sound system that is slow to answer.
void EndNotice::startSound()
{
    if (!m_box || !m_player->hasOutput())
        return;
    m_player->stop();
    const QString sound = processEndSound(m_shown.end);
    if (!sound.isEmpty())
        m_player->play(SoundPlayer::filePath(m_soundFolder, sound, QLocale::system().country()));
    if (VarnelSettings().value(SettingsKey::userWave, true).toBool())
        m_userSoundTimer->start();
}

void EndNotice::playUserSound()
{
    stopSound();
    if (m_box)
        m_player->play(SoundPlayer::filePath(m_soundFolder, QStringLiteral("v3_mp3"), QLocale::AnyCountry));
}

// The device that has begun frees no other: nothing is sent.
void EndNotice::dismiss()
{
    const QString starter = m_starts.isEmpty() ? QString() : m_starts.dequeue();
    const bool wasOpen = isOpen();
    if (m_box)
        m_box->disconnect(this);
    delete m_box;
    m_userSoundTimer->stop();
    stopSound();
    if (wasOpen && m_shown.portName != starter)
        emit untold(m_shown);
}

void EndNotice::stopSound()
{
    m_player->stop();
}
