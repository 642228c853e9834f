#include "desk/shownrecord.h"

#include "desk/datatoolbar.h"
#include "desk/displaywindows.h"

#include <QDateTime>

ShownRecord::ShownRecord(DataToolBar *dataToolBar, DisplayWindows *displayWindows, QObject *parent)
    : QObject(parent)
    , bar(dataToolBar)
    , displays(displayWindows)
{
}

void ShownRecord::show(const Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    lastData = record;
    lastWindow = windowNumber;
    bar->showRecord(lastData);
    displays->updateData(lastData, lastWindow, useKeptRi);
    displays->updatePower(lastData, lastWindow, useKeptRi);
}

void ShownRecord::setStaleSince(const QDateTime &since)
{
    bar->setStale(since.isValid());
    displays->setStaleSince(since);
}

void ShownRecord::silenceChanged()
{
    displays->updateComparisons();
}

void ShownRecord::clear()
{
    // A record without cells is what empties them all.
    show(Varnel3Data(), -1, false);
}

void ShownRecord::resendToDataDisplay()
{
    displays->updateData(lastData, lastWindow, false);
}

void ShownRecord::resendToDisplays(int windowNumber)
{
    displays->updateData(lastData, windowNumber, false);
    displays->updatePower(lastData, windowNumber, false);
}
