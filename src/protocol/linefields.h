#pragma once

#include "protocol/fieldtext.h"

/// A line split at its commas, empty fields kept. Points into the line.
class LineFields {
public:
    /// More than any dialect has; a line with more counts as having `mostFields` + 1.
    static constexpr int mostFields = 39;

    explicit LineFields(const FieldText &line);

    int count() const { return m_count; }
    FieldText operator[](int index) const
    {
        return {m_starts[index], int(m_starts[index + 1] - m_starts[index]) - 1};
    }

private:
    const uchar *m_starts[mostFields + 2]; // of each field; behind the last, one past its end plus one
    int m_count = 0;
};

inline LineFields::LineFields(const FieldText &line)
{
    const uchar *const end = line.data + line.size;
    m_starts[0] = line.data;
    m_count = 1;
    for (const uchar *at = line.data; at != end; ++at) {
        if (*at != ',')
            continue;
        if (m_count > mostFields)
            return;
        m_starts[m_count++] = at + 1;
    }
    if (m_count <= mostFields)
        m_starts[m_count] = end + 1;
}
