#include "machine/sleepblock.h"

#include <windows.h>

class SleepBlock::Private {
public:
    bool held = false;
};

// The system is asked at once here.
bool SleepBlock::isHelper(int, char **)
{
    return false;
}

int SleepBlock::runHelper(int, char **)
{
    return 0;
}

SleepBlock::SleepBlock(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

SleepBlock::~SleepBlock()
{
    release();
}

void SleepBlock::acquire(const QString &)
{
    if (!d->held)
        d->held = SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED) != 0;
}

void SleepBlock::release()
{
    if (d->held)
        SetThreadExecutionState(ES_CONTINUOUS);
    d->held = false;
}

bool SleepBlock::isHeld() const
{
    return d->held;
}
