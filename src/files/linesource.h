#pragma once

#include <QByteArray>
#include <QLatin1String>

class QIODevice;

/// Cuts a device into lines without their ends ("\n" or "\r\n"), a chunk at a time. Bytes are
/// taken as Latin-1; a byte-order mark is skipped, and UTF-16 that announces itself by one is
/// narrowed (NUL for what Latin-1 lacks).
class LineSource {
public:
    enum class Found {
        Line,
        Nothing, ///< a chunk went by without a line end; ask again
        End,
        Error ///< the device failed
    };
    static constexpr int usualChunk = 256 * 1024;

    /// `device` is open, not owned, and outlives this. A line longer than `chunk` bytes is cut.
    explicit LineSource(QIODevice &device, int chunk = usualChunk);

    /// On Found::Line, `line` is the next one, valid until the next call. The last line needs no end.
    Found next(QLatin1String *line);
    /// The line last found is only the beginning of one that was too long to keep.
    bool wasCut() const { return m_lineCut; }
    /// The line last found has its end; only the last one of a device may lack it.
    bool hasEnd() const { return m_lineEnded; }
    /// Number of the line last found, from 1.
    int lineNumber() const { return m_lineNumber; }
    qint64 bytesRead() const { return m_bytesRead; }

private:
    enum class Encoding { Unknown, Latin1, Utf16Little, Utf16Big };

    bool refill();
    void detectEncoding();
    void narrow(int from);
    void giveLine(QLatin1String *line, int length);

    QIODevice &m_device;
    QByteArray m_buffer;
    int m_begin = 0; // what is not yet given out lies in [m_begin, m_end)
    int m_scanned = 0; // no line end before this
    int m_end = 0;
    char m_oddByte = 0; // first half of a UTF-16 unit that a read has cut
    bool m_hasOddByte = false;
    Encoding m_encoding = Encoding::Unknown;
    bool m_atEnd = false;
    bool m_skipping = false; // inside the rest of a line that was cut
    bool m_lineCut = false;
    bool m_lineEnded = false;
    int m_lineNumber = 0;
    qint64 m_bytesRead = 0;
};
