#include "files/linesource.h"

#include <QIODevice>

#include <cstring>

LineSource::LineSource(QIODevice &device, int chunk)
    : m_device(device)
    , m_buffer(chunk, Qt::Uninitialized)
{
}

LineSource::Found LineSource::next(QLatin1String *line)
{
    for (bool refilled = false;;) {
        const char *const from = m_buffer.constData() + m_scanned;
        const auto *const end = static_cast<const char *>(std::memchr(from, '\n', size_t(m_end - m_scanned)));
        if (end) {
            const int length = int(end - m_buffer.constData()) - m_begin;
            m_scanned = m_begin + length + 1;
            if (m_skipping) {
                m_skipping = false;
                m_begin = m_scanned;
                continue;
            }
            giveLine(line, length);
            m_lineEnded = true;
            m_begin = m_scanned;
            return Found::Line;
        }
        m_scanned = m_end;
        if (m_skipping)
            m_begin = m_end;
        if (m_atEnd)
            break;
        if (refilled)
            return Found::Nothing;
        if (m_end - m_begin == m_buffer.size()) {
            giveLine(line, m_buffer.size());
            m_begin = m_end;
            m_skipping = m_lineCut = true;
            return Found::Line;
        }
        if (!refill())
            return Found::Error;
        refilled = true;
    }
    if (m_begin == m_end)
        return Found::End;
    giveLine(line, m_end); // refill() has moved it to the beginning
    m_begin = m_end;
    return Found::Line;
}

void LineSource::giveLine(QLatin1String *line, int length)
{
    *line = QLatin1String(m_buffer.constData() + m_begin, length);
    if (line->endsWith(QLatin1Char('\r')))
        line->chop(1);
    m_lineCut = m_lineEnded = false;
    ++m_lineNumber;
}

bool LineSource::refill()
{
    const int kept = m_end - m_begin;
    std::memmove(m_buffer.data(), m_buffer.constData() + m_begin, size_t(kept));
    m_begin = 0;
    m_scanned = m_end = kept;
    const qint64 got = m_device.read(m_buffer.data() + m_end, m_buffer.size() - m_end);
    if (got < 0)
        return false;
    m_atEnd = got == 0;
    m_bytesRead += got;
    m_end += int(got);
    if (m_encoding == Encoding::Unknown)
        detectEncoding();
    if (m_encoding != Encoding::Latin1)
        narrow(kept);
    return true;
}

// Called with the first read, which is at the buffer's beginning.
void LineSource::detectEncoding()
{
    const QByteArray head = QByteArray::fromRawData(m_buffer.constData(), m_end);
    m_encoding = Encoding::Latin1;
    if (head.startsWith("\xef\xbb\xbf")) {
        m_begin = m_scanned = 3;
    } else if (head.startsWith("\xff\xfe")) {
        m_encoding = Encoding::Utf16Little;
    } else if (head.startsWith("\xfe\xff")) {
        m_encoding = Encoding::Utf16Big;
    }
}

// Narrows in place what a read has put behind `from`. The byte-order mark itself is dropped.
void LineSource::narrow(int from)
{
    char *out = m_buffer.data() + from;
    for (int i = from; i < m_end; ++i) {
        const char byte = m_buffer.at(i);
        if (!m_hasOddByte) {
            m_oddByte = byte;
            m_hasOddByte = true;
            continue;
        }
        m_hasOddByte = false;
        const bool little = m_encoding == Encoding::Utf16Little;
        const char high = little ? byte : m_oddByte;
        const char low = little ? m_oddByte : byte;
        if (uchar(high) == 0xfe && uchar(low) == 0xff)
            continue;
        *out++ = high == 0 ? low : '\0';
    }
    m_end = int(out - m_buffer.constData());
}
