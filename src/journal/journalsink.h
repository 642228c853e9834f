#pragma once

class QByteArray;

/// Where a recording's journal puts its lines.
class JournalSink {
public:
    virtual ~JournalSink() = default;

    /// Takes a line without its end.
    virtual void append(const QByteArray &line) = 0;
    /// No more lines come.
    virtual void finish() = 0;
    /// No more lines come, and what came is not worth a file.
    virtual void discard() = 0;
};
