#include "files/columnconverter.h"

#include <algorithm>

namespace {

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

} // namespace

ColumnConverter::Outcome ColumnConverter::convert(QLatin1String line)
{
    const int index = m_linesSeen++;
    if (index < ColumnHeader::lineCount)
        return m_header.takeLine(index, line, m_rules) ? Outcome::NoRecord : Outcome::BadHeader;
    if (index == ColumnHeader::lineCount) {
        const Outcome outcome = takeFourthLine(line);
        if (outcome != Outcome::Record)
            return outcome;
    }
    return convertDataLine(line);
}

// Blank lines may stand at the end of a file, not between its lines.
ColumnConverter::Outcome ColumnConverter::convertDataLine(QLatin1String line)
{
    if (line.startsWith(QLatin1Char('#')))
        return Outcome::NoRecord;
    if (std::all_of(line.begin(), line.end(), isBlank)) {
        m_blankSeen = true;
        return Outcome::NoRecord;
    }
    if (m_blankSeen || !takeFields(line))
        return Outcome::BadLine;
    ++m_dataLines;
    m_length = int(writeLine(m_line) - m_line);
    return Outcome::Record;
}

bool ColumnConverter::takeFields(QLatin1String line)
{
    const int expected = fieldsExpected();
    int count = 0;
    const char *at = line.begin();
    for (;; ++count) {
        at = std::find_if_not(at, line.end(), isBlank);
        if (at == line.end())
            return count == expected;
        const char *const end = std::find_if(at, line.end(), isBlank);
        if (count == expected || !takeField(count, {reinterpret_cast<const uchar *>(at), int(end - at)}))
            return false;
        at = end;
    }
}

char *ColumnConverter::writeHead(char *out) const
{
    *out++ = '#';
    *out++ = m_header.mode;
    out = writeZeroFilled(out, m_header.cellCount, 2);
    return writeZeroFilled(out, m_header.cellTypeCode, 2);
}
