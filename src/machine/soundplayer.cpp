#include "machine/soundplayer.h"

#include "machine/soundserver.h"

#include <QDir>
#include <QFile>
#include <QSound>

namespace {

QString countrySuffix(QLocale::Country country)
{
    static const struct {
        QLocale::Country country;
        const char *suffix;
    } suffixes[] = {{QLocale::Poland, "_pl"}, {QLocale::Germany, "_de"}};
    for (const auto &entry : suffixes) {
        if (entry.country == country)
            return QLatin1String(entry.suffix);
    }
    return {};
}

QString inFolder(const QString &folder, const QString &name)
{
    return QDir::toNativeSeparators(folder + QLatin1Char('/') + name + QStringLiteral(".wav"));
}

} // namespace

SoundPlayer::SoundPlayer(QObject *parent)
    : QObject(parent)
{
}

SoundPlayer::~SoundPlayer()
{
    delete m_sound;
}

bool SoundPlayer::hasOutput() const
{
    return hasSoundOutput();
}

void SoundPlayer::play(const QString &file)
{
    SoundPlayer::stop();
    if (!QFile::exists(file))
        return;
    m_sound = new QSound(file);
    m_sound->play();
}

void SoundPlayer::stop()
{
    if (!m_sound)
        return;
    m_sound->stop();
    delete m_sound;
}

QString SoundPlayer::filePath(const QString &folder, const QString &base, QLocale::Country country)
{
    const QString local = inFolder(folder, base + countrySuffix(country));
    return QFile::exists(local) ? local : inFolder(folder, base);
}
