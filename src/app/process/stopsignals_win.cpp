#include "app/process/stopsignals.h"

StopSignals::StopSignals(QObject *parent)
    : QObject(parent)
{
}

void StopSignals::onReadable() { }
