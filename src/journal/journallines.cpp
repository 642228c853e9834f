#include "journal/journallines.h"

#include "files/linetrimming.h"
#include "journal/journalfolder.h"

#include "protocol/recordline.h"
#include "data/saturated.h"
#include "data/varnel3data.h"

#include <algorithm>

namespace {

constexpr int longestLine = 4096; // beyond it no device's

// As far as record lines go, which is all that a graph shows.
bool sameInRecordLines(const Varnel3Data &a, const Varnel3Data &b)
{
    char lineOfA[maxRecordLineLength];
    char lineOfB[maxRecordLineLength];
    return std::equal(lineOfA, writeRecordLine(lineOfA, a), lineOfB, writeRecordLine(lineOfB, b));
}

// A line that does not depend on those before it says more than the record does: the device, and
// modes that have no letter in record lines.
bool standsAlone(const QByteArray &line, const Varnel3Data &record)
{
    if (line.size() > longestLine || line.contains('\n'))
        return false;
    Varnel3Data fresh;
    return fresh.parseLine(trimmedLine(QLatin1String(line.constData(), line.size())))
        && sameInRecordLines(fresh, record);
}

} // namespace

JournalLines::JournalLines()
{
    m_line.reserve(longestLine);
}

const QByteArray &JournalLines::ofRecord(const QByteArray &line, const Varnel3Data &record)
{
    const bool alone = record.device != Varnel3Data::Tandor && standsAlone(line, record);
    m_newestReads = alone || isRecordLineReadable(record);
    if (!alone)
        takeOwn(record);
    ++m_records;
    return alone ? line : m_line;
}

// Readers give it to the newest record that they could read; where that is another one they skip it.
const QByteArray &JournalLines::ofResistances(const QByteArray &line)
{
    const QLatin1String text = trimmedLine(QLatin1String(line.constData(), line.size()));
    m_line.resize(0);
    if (!m_newestReads)
        m_line.append('~');
    m_line.append(text.data(), text.size());
    return m_line;
}

bool JournalLines::areWorthKeeping() const
{
    return m_records >= JournalFolder::leastRecords;
}

// A balancer's line has no time; the graph counts 5 s a record, and so does the file.
void JournalLines::takeOwn(const Varnel3Data &record)
{
    Varnel3Data written = record;
    if (record.device == Varnel3Data::Tandor)
        written.setTime(saturated(qint64(Varnel3Data::balancerPeriod) * m_records));
    char bytes[maxRecordLineLength];
    m_line.resize(0);
    m_line.append(bytes, int(writeRecordLine(bytes, written) - bytes));
}
