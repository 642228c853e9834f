#pragma once

#include <QtGlobal>

#include <limits>
#include <optional>

/// A piece of a device line, in Latin-1. Points into the line and owns nothing.
struct FieldText {
    const uchar *data = nullptr;
    int size = 0;

    /// The character at `index`, NUL beyond the end.
    uchar at(int index) const { return index < size ? data[index] : uchar(0); }
    /// At most `length` characters from `start` on, fewer where the text ends.
    FieldText mid(int start, int length = std::numeric_limits<int>::max()) const
    {
        const int from = qMin(start, size);
        return {data + from, qMin(length, size - from)};
    }
    /// Converts the whole text as QString::toInt does. `value` keeps what it holds when that fails.
    bool toInt(int *value) const;
    /// The same; nothing when that fails.
    std::optional<int> number() const;
};

/// QString::toInt itself, for whatever is not plainly a short row of digits: blanks around, signs, overflow.
bool generalToInt(const FieldText &text, int *value);

inline bool FieldText::toInt(int *value) const
{
    constexpr int safeDigits = 9; // never more than 32 bits hold
    if (size < 1 || size > safeDigits)
        return generalToInt(*this, value);
    unsigned sum = 0;
    for (int i = 0; i < size; ++i) {
        const unsigned digit = unsigned(data[i]) - '0';
        if (digit > 9)
            return generalToInt(*this, value);
        sum = sum * 10 + digit;
    }
    *value = int(sum);
    return true;
}

inline std::optional<int> FieldText::number() const
{
    int value = 0;
    return toInt(&value) ? std::optional<int>(value) : std::nullopt;
}
