#include "link/lineframer.h"

#include <QChar>

#include <array>
#include <new>

namespace {

constexpr int usualLineSize = 512; // longer than any device's line

using ByteTable = std::array<bool, 256>;

ByteTable makeTextBytes()
{
    ByteTable table;
    ushort code = 0;
    for (bool &isTaken : table) {
        isTaken = QChar(code).isPrint() && code != '#';
        ++code;
    }
    return table;
}

int held = 0; // bytes in unfinished lines, of all framers

const ByteTable textBytes = makeTextBytes(); // what is taken over in runs; '\n' is not printable

bool isText(char byte)
{
    return textBytes[static_cast<unsigned char>(byte)];
}

} // namespace

void LineFramer::feed(const QByteArray &bytes)
{
    if (m_inputPos != m_input.size()) {
        m_input.append(bytes);
        return;
    }
    m_input = bytes;
    m_inputPos = 0;
}

bool LineFramer::next(QByteArray *line)
{
    const char *const begin = m_input.constData();
    const char *const end = begin + m_input.size();
    const char *at = begin + m_inputPos;
    bool complete = false;
    while (at != end && !complete) {
        if (*at == '#') {
            m_sinceHash = 0;
            append(at++, 1);
        } else if (m_sinceHash < binarySize) {
            takeBinary(*at++);
        } else {
            const char *const run = at;
            while (at != end && isText(*at))
                ++at;
            append(run, at - run);
            if (at != end && *at != '#')
                complete = *at++ == '\n';
        }
    }
    m_inputPos = int(at - begin);
    if (complete)
        takeLine(line);
    return complete;
}

void LineFramer::clear()
{
    m_input.clear();
    m_inputPos = 0;
    held -= m_line.size();
    m_line.clear();
    m_sinceHash = binarySize;
}

void LineFramer::takeBinary(char byte)
{
    ++m_sinceHash;
    const auto value = qint8(byte);
    if (value < ' ') {
        const QByteArray digits = QByteArray::number(value).rightJustified(2, '0');
        append(digits.constData(), digits.size());
    } else if (isText(byte)) {
        append(&byte, 1);
    }
}

void LineFramer::append(const char *bytes, qptrdiff size)
{
    const int room = qMax(maxHeld - held, ownRoom - m_line.size());
    const int taken = int(qBound<qptrdiff>(0, size, room));
    try {
        m_line.append(bytes, taken);
        held += taken;
    } catch (const std::bad_alloc &) {
        // The line goes on without these bytes and is refused like any other that is none.
    }
}

// The two lend each other their memory, so that a line of usual length needs none.
void LineFramer::takeLine(QByteArray *line)
{
    held -= m_line.size();
    line->swap(m_line);
    if (m_line.capacity() == usualLineSize) {
        m_line.resize(0);
        return;
    }
    m_line = QByteArray();
    try {
        m_line.reserve(usualLineSize);
    } catch (const std::bad_alloc &) {
        // append() tries again
    }
}
