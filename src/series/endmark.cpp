#include "series/endmark.h"

#include "data/recordlist.h"

void EndMark::begin(int device)
{
    *this = EndMark();
    m_sendsLetter = device != Varnel3Data::Varnel2Plus && device != Varnel3Data::Varnel2;
}

void EndMark::addNewest(const RecordList &records)
{
    const int newest = records.size() - 1;
    if (!m_sendsLetter && newest < m_markedFrom && records.size() >= recordsForMark()
        && records[newest].current != 0 && records[newest - 1].current == 0
        && records[newest - 2].current != 0) {
        m_markedFrom = newest - 1;
        if (m_first < 0)
            m_first = m_markedFrom;
    }
    addLoaded(records, newest);
}

void EndMark::addLoaded(const RecordList &records, int index)
{
    if (m_first < 0 && records[index].flag4 != '_')
        m_first = index;
}

void EndMark::goOn(const RecordList &records)
{
    if (!m_sendsLetter && records.last().flag4 == letter)
        m_markedFrom = records.size();
}
