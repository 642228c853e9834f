#include "series/endmark.h"

#include "data/records/recordlist.h"

void EndMark::begin(int device)
{
    *this = EndMark();
    m_sendsLetter = device != Varnel3Data::Varnel2Plus && device != Varnel3Data::Varnel2;
}

void EndMark::addNewest(const RecordList &records)
{
    const int newest = records.size() - 1;
    const auto current = [&records](int index) { return records.figure(RecordColumns::Current, index); };
    if (!m_sendsLetter && newest < m_markedFrom && records.size() >= recordsForMark() && current(newest) != 0
        && current(newest - 1) == 0 && current(newest - 2) != 0) {
        m_markedFrom = newest - 1;
        note(m_markedFrom);
    }
    addLoaded(records, newest);
}

void EndMark::addLoaded(const RecordList &records, int index)
{
    if (records.figure(RecordColumns::Flag4, index) != '_')
        note(index);
}

void EndMark::note(int index)
{
    if (m_first < 0)
        m_first = index;
}

void EndMark::goOn(const RecordList &records)
{
    if (!m_sendsLetter && records.figure(RecordColumns::Flag4, records.size() - 1) == letter)
        m_markedFrom = records.size();
}
