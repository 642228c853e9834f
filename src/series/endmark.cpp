#include "series/endmark.h"

#include "data/recordlist.h"

void EndMark::begin(int device)
{
    m_sendsLetter = device != Varnel3Data::Varnel2Plus && device != Varnel3Data::Varnel2;
    m_isMarked = false;
    m_first = -1;
}

void EndMark::addNewest(RecordList *records)
{
    RecordList &all = *records;
    const int newest = all.size() - 1;
    if (m_isMarked) {
        all[newest].flag4 = 'E';
    } else if (!m_sendsLetter && all.size() >= recordsForMark() && all[newest].current != 0
        && all[newest - 1].current == 0 && all[newest - 2].current != 0) {
        m_isMarked = true;
        all[newest - 1].flag4 = 'E';
        all[newest].flag4 = 'E';
        addLoaded(all, newest - 1);
    }
    addLoaded(all, newest);
}

void EndMark::addLoaded(const RecordList &records, int index)
{
    if (m_first < 0 && records[index].flag4 != '_')
        m_first = index;
}

void EndMark::goOn(const RecordList &records)
{
    m_isMarked = !m_sendsLetter && records.last().flag4 == 'E';
}
