#include "support/fakegraphhost.h"

void FakeHost::showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    shown.append({record, windowNumber, useKeptRi});
}

void FakeHost::showMessageStatusBar(const QString &message, int timeout)
{
    messages.append(message + QLatin1Char(' ') + QString::number(timeout));
}

void FakeHost::graphClosing(MdiGraphChild *child)
{
    closed.append(child);
}

void FakeHost::updateCapacity(int energyNow, char mode, int energyAtMark, int number)
{
    capacities.append(
        QStringLiteral("%1 %2 %3 %4").arg(energyNow).arg(QLatin1Char(mode)).arg(energyAtMark).arg(number));
}
