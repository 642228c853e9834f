#pragma once

#include "protocol/fieldtext.h"

/// A line split at its commas, empty fields kept. Points into the line.
template <typename Char>
class LineFields {
public:
    /// More than any dialect has; a line with more counts as having `mostFields` + 1.
    static constexpr int mostFields = 39;

    explicit LineFields(const FieldText<Char> &line);

    int count() const { return m_count; }
    FieldText<Char> operator[](int index) const
    {
        return {m_starts[index], int(m_starts[index + 1] - m_starts[index]) - 1};
    }

private:
    const Char
        *m_starts[mostFields + 2]; // each field's first character; behind the last, one past its end plus one
    int m_count = 0;
};

template <typename Char>
LineFields<Char>::LineFields(const FieldText<Char> &line)
{
    const Char *const end = line.data + line.size;
    m_starts[0] = line.data;
    m_count = 1;
    for (const Char *at = line.data; at != end; ++at) {
        if (*at != ',')
            continue;
        if (m_count > mostFields)
            return;
        m_starts[m_count++] = at + 1;
    }
    if (m_count <= mostFields)
        m_starts[m_count] = end + 1;
}
