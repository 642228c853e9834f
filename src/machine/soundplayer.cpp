#include "machine/soundplayer.h"

#include "machine/soundserver.h"

#include <QDir>
#include <QFile>

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

bool SoundPlayer::hasOutput() const
{
    return hasSoundOutput();
}

void SoundPlayer::play(const QString &file)
{
    if (QFile::exists(file))
        m_line.play(file);
}

void SoundPlayer::stop()
{
    m_line.stop();
}

QString SoundPlayer::filePath(const QString &folder, const QString &base, QLocale::Country country)
{
    const QString local = inFolder(folder, base + countrySuffix(country));
    return QFile::exists(local) ? local : inFolder(folder, base);
}
