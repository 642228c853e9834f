#include "desk/shownrecord.h"

#include "desk/datatoolbar.h"
#include "desk/displaywindows.h"

#include <QDateTime>

ShownRecord::ShownRecord(DataToolBar *bar, DisplayWindows *displays, QObject *parent)
    : QObject(parent)
    , m_bar(bar)
    , m_displays(displays)
{
}

void ShownRecord::show(const Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    m_lastData = record;
    m_lastWindow = windowNumber;
    m_bar->showRecord(m_lastData);
    m_displays->updateData(m_lastData, m_lastWindow, useKeptRi);
    m_displays->updatePower(m_lastData, m_lastWindow, useKeptRi);
}

void ShownRecord::setStaleSince(const QDateTime &since)
{
    m_bar->setStale(since.isValid());
    m_displays->setStaleSince(since);
}

void ShownRecord::silenceChanged()
{
    m_displays->updateComparisons();
}

void ShownRecord::clear()
{
    // A record without cells is what empties them all.
    show(Varnel3Data(), -1, false);
}

void ShownRecord::resendToDataDisplay()
{
    m_displays->updateData(m_lastData, m_lastWindow, false);
}

void ShownRecord::resendToDisplays(int windowNumber)
{
    m_displays->updateData(m_lastData, windowNumber, false);
    m_displays->updatePower(m_lastData, windowNumber, false);
}
