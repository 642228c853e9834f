#include "support/fakegraphhost.h"

void FakeGraphHost::showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    calls += 'r';
    shown.append({record, windowNumber, useKeptRi});
}

void FakeGraphHost::showMessageStatusBar(const QString &message, int timeout)
{
    messages.append(message + QLatin1Char(' ') + QString::number(timeout));
}

void FakeGraphHost::graphClosing(MdiGraphChild *child)
{
    closed.append(child);
}

void FakeGraphHost::updateCapacity(int energyNow, char mode, int energyAtMark, int number)
{
    calls += 'c';
    capacities.append(
        QStringLiteral("%1 %2 %3 %4").arg(energyNow).arg(QLatin1Char(mode)).arg(energyAtMark).arg(number));
}
