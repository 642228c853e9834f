#include "machine/soundline.h"

#include <QPointer>
#include <QSound>

class SoundLine::Private {
public:
    QPointer<QSound> sound;
};

SoundLine::SoundLine()
    : d(std::make_unique<Private>())
{
}

SoundLine::~SoundLine()
{
    delete d->sound;
}

// The sound library talks to its server from a thread of its own.
void SoundLine::play(const QString &file)
{
    SoundLine::stop();
    d->sound = new QSound(file);
    d->sound->play();
}

void SoundLine::stop()
{
    if (!d->sound)
        return;
    d->sound->stop();
    delete d->sound;
}
