#include "desk/shownrecord.h"

#include "desk/datatoolbar.h"
#include "desk/displaywindows.h"

#include <QDateTime>

Figures::Figures(DataToolBar *dataToolBar, DisplayWindows *displayWindows, QObject *parent)
    : QObject(parent)
    , bar(dataToolBar)
    , displays(displayWindows)
{
}

void Figures::show(const Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    lastData = record;
    lastWindow = windowNumber;
    bar->showRecord(lastData);
    displays->updateData(lastData, lastWindow, useKeptRi);
    displays->updatePower(lastData, lastWindow, useKeptRi);
}

void Figures::setStaleSince(const QDateTime &since)
{
    bar->setStale(since.isValid());
    displays->setStaleSince(since);
}

void Figures::silenceChanged()
{
    displays->updateComparisons();
}

void Figures::clear()
{
    // A record without cells is what empties them all.
    show(Varnel3Data(), -1, false);
}

void Figures::resendToDataDisplay()
{
    displays->updateData(lastData, lastWindow, false);
}

void Figures::resendToDisplays(int windowNumber)
{
    displays->updateData(lastData, windowNumber, false);
    displays->updatePower(lastData, windowNumber, false);
}
