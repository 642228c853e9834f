#pragma once

#include <QByteArray>

/// Makes lines of the bytes that a device sends. Bytes go in by feed(), lines come
/// out by next(); nothing else happens.
///
/// A line ends at '\n' and is printable Latin-1; other bytes vanish. A '#' begins a new count, not a new
/// line: what stood between the last line end and the '#' stays in front of it. The first three bytes after a
/// '#' may carry binary values: there a byte that is below 32 as a signed number comes out as that number in
/// decimal, in at least two digits ('\n' as "10", 0xC8 as "-56"), and ends nothing. Before the first '#'
/// these three bytes count as past: a stray line end ends an empty line, which nobody takes, and does not
/// stand as "10" in front of the first one.
class LineFramer {
public:
    /// What the unfinished lines of all framers together keep, in bytes; what comes beyond that is dropped
    /// from its line, as is what finds no memory. No device sends a line of more than a few hundred. All
    /// framers live in one thread.
    static constexpr int maxHeld = 64 << 20;
    /// What a line may have whatever the others hold.
    static constexpr int ownRoom = 4096;

    LineFramer() = default;
    ~LineFramer() { clear(); }
    LineFramer(const LineFramer &) = delete;
    LineFramer &operator=(const LineFramer &) = delete;

    /// Hands over bytes in the order of their arrival, in pieces of any size.
    void feed(const QByteArray &bytes);
    /// Takes the next complete line out; false when there is none yet. The
    /// cost is that of the bytes fed, once.
    bool next(QByteArray *line);
    /// Forgets the unfinished line and the bytes not yet looked at.
    void clear();

private:
    static constexpr int binarySize = 3; // bytes after a '#' that may be binary

    void takeBinary(char byte);
    void append(const char *bytes, qptrdiff size);
    void takeLine(QByteArray *line);

    QByteArray m_input;
    int m_inputPos = 0; // bytes of m_input already looked at
    QByteArray m_line;
    int m_sinceHash
        = binarySize; // bytes since the last '#', counted up to binarySize; before the first '#': over
};
