#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

/// One row of comma-separated values being built, with those before it.
class CsvRow {
public:
    /// `text` as it may stand between commas.
    static QByteArray quoted(const QByteArray &text)
    {
        const bool plain = std::none_of(
            text.begin(), text.end(), [](char c) { return c == ',' || c == '"' || c == '\n' || c == '\r'; });
        return plain ? text : '"' + QByteArray(text).replace('"', "\"\"") + '"';
    }

    void add(const QByteArray &text) { addQuoted(quoted(text)); }
    /// What quoted() gave.
    void addQuoted(const QByteArray &text)
    {
        char *const out = room(text.size() + 1);
        std::memcpy(out, text.constData(), size_t(text.size()));
        endField(out + text.size());
    }
    void add(int value)
    {
        char *const out = room(mostNumber);
        endField(std::to_chars(out, out + mostNumber, value).ptr);
    }
    /// The shortest text that reads back as `value`; nothing for what is no number.
    void add(double value)
    {
        quint64 bits;
        std::memcpy(&bits, &value, sizeof bits);
        NumberText &text = m_texts[bits * Q_UINT64_C(0x9e3779b97f4a7c15) >> (64 - textBits)];
        if (text.bits != bits)
            text = NumberText(value, bits);
        char *const out = room(mostNumber);
        std::memcpy(out, text.letters, sizeof text.letters);
        endField(out + text.length);
    }
    void addFlag(char flag)
    {
        if (flag <= ' ' || flag >= 0x7f || flag == '"' || flag == ',')
            return add(flag == '\0' ? QByteArray() : QString(QLatin1Char(flag)).toUtf8());
        char *const out = room(2);
        *out = flag;
        endField(out + 1);
    }
    void addEmpty() { endField(room(1)); }
    void end() { m_bytes.data()[m_size - 1] = '\n'; }

    const char *data() const { return m_bytes.constData(); }
    int size() const { return m_size; }

private:
    static constexpr int mostNumber = 40; // bytes, with its comma

    char *room(int bytes)
    {
        if (m_bytes.size() - m_size < bytes)
            m_bytes.resize(2 * m_size + bytes + (1 << 12));
        return m_bytes.data() + m_size;
    }
    void endField(char *out)
    {
        *out++ = ',';
        m_size = int(out - m_bytes.constData());
    }

    /// A number with its text: most come again soon, as what a cell has balanced while nothing is balanced,
    /// and the search for the shortest text takes longer than all the rest of a row.
    struct NumberText {
        NumberText() = default;
        NumberText(double value, quint64 bitsOfValue)
            : bits(bitsOfValue)
        {
            char *end = letters;
            if (isTenths(value))
                end = writeTenths(letters, int(std::lround(value * 10)));
            else if (std::isfinite(value))
                end = std::to_chars(letters, letters + sizeof letters, value).ptr;
            length = int(end - letters);
        }

        quint64 bits = 0; ///< of the number, which is 0.0 to begin with
        int length = 1;
        char letters[24] = "0"; ///< no number has more
    };

    static constexpr int textBits = 8;

    // Most fractions are tenths, which need no search for the shortest text. Larger ones may be shorter with
    // an exponent.
    static bool isTenths(double value)
    {
        constexpr double most = 1e5;
        return value > -most && value < most && double(std::lround(value * 10)) / 10.0 == value
            && !(value == 0 && std::signbit(value));
    }
    static char *writeTenths(char *out, int tenths)
    {
        if (tenths < 0 && tenths > -10)
            *out++ = '-'; // which a whole part of 0 does not say
        out = std::to_chars(out, out + 16, tenths / 10).ptr;
        if (tenths % 10 != 0) {
            *out++ = '.';
            *out++ = char('0' + std::abs(tenths % 10));
        }
        return out;
    }

    NumberText m_texts[1 << textBits];
    QByteArray m_bytes;
    int m_size = 0; // of m_bytes, in use
};
