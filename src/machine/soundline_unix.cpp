#include "machine/soundline.h"

#include <QHash>
#include <QSound>

namespace {

// Kept for good, one of each file: to let one go whose file ends too soon, the library waits for its rest,
// and that never comes.
QSound *soundOf(const QString &file)
{
    static auto *const sounds = new QHash<QString, QSound *>;
    QSound *&sound = (*sounds)[file];
    if (!sound)
        sound = new QSound(file);
    return sound;
}

} // namespace

class SoundLine::Private {
public:
    QSound *sound = nullptr; // that was played last, until it is stopped
};

SoundLine::SoundLine()
    : d(std::make_unique<Private>())
{
}

SoundLine::~SoundLine()
{
    SoundLine::stop();
}

// The sound library talks to its server from a thread of its own.
void SoundLine::play(const QString &file)
{
    SoundLine::stop();
    d->sound = soundOf(file);
    d->sound->play();
}

void SoundLine::stop()
{
    if (d->sound)
        d->sound->stop();
    d->sound = nullptr;
}
