#pragma once

#include "files/columnheader.h"

#include "protocol/fieldtext.h"
#include "protocol/recordline.h"

/// Turns an older column file, line by line, into lines that the device line parsers take.
class ColumnConverter {
public:
    enum class Outcome { NoRecord, Record, BadHeader, BadLine };

    virtual ~ColumnConverter() = default;

    /// Takes the next line of the file. On Outcome::Record, recordLine() is what it became.
    Outcome convert(QLatin1String line);
    QLatin1String recordLine() const { return QLatin1String(m_line, m_length); }
    /// Of the newest record (s) where no line holds one.
    static constexpr int timeFromLine = -1;
    virtual int time() const { return timeFromLine; }

protected:
    using Field = FieldText;

    explicit ColumnConverter(const ColumnHeader::Rules &rules)
        : m_rules(rules)
    {
    }

    /// The line behind the header's three, offered once: NoRecord when it belongs to the header too,
    /// Record when it is the first data line.
    virtual Outcome takeFourthLine(QLatin1String) { return Outcome::Record; }
    virtual int fieldsExpected() const = 0;
    /// Field `index` of a data line; false when it does not convert.
    virtual bool takeField(int index, const Field &field) = 0;
    /// Writes the record line of the fields taken, at most maxRecordLineLength bytes, and returns its end.
    virtual char *writeLine(char *out) const = 0;

    /// Data lines so far, the newest included.
    int dataLines() const { return m_dataLines; }
    const ColumnHeader &header() const { return m_header; }
    /// '#', mode letter, cell count and cell type, as both kinds of line begin.
    char *writeHead(char *out) const;

private:
    Outcome convertDataLine(QLatin1String line);
    bool takeFields(QLatin1String line);

    const ColumnHeader::Rules m_rules;
    ColumnHeader m_header;
    int m_linesSeen = 0;
    int m_dataLines = 0;
    bool m_blankSeen = false;
    char m_line[maxRecordLineLength] = {};
    int m_length = 0;
};
