#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <charconv>
#include <cmath>

/// One row of comma-separated values being built, with those before it.
class CsvRow {
public:
    void add(const QByteArray &text)
    {
        separate();
        const bool plain = std::none_of(
            text.begin(), text.end(), [](char c) { return c == ',' || c == '"' || c == '\n' || c == '\r'; });
        bytes += plain ? text : '"' + QByteArray(text).replace('"', "\"\"") + '"';
    }
    void add(int value)
    {
        separate();
        char digits[16];
        bytes.append(digits, int(std::to_chars(digits, digits + sizeof digits, value).ptr - digits));
    }
    /// The shortest text that reads back as `value`; nothing for what is no number.
    void add(double value)
    {
        separate();
        char digits[32];
        if (std::isfinite(value))
            bytes.append(digits, int(std::to_chars(digits, digits + sizeof digits, value).ptr - digits));
    }
    void addFlag(char flag) { add(flag == '\0' ? QByteArray() : QString(QLatin1Char(flag)).toUtf8()); }
    void addEmpty() { separate(); }
    void end()
    {
        bytes += '\n';
        m_first = true;
    }

    QByteArray bytes;

private:
    void separate()
    {
        if (!m_first)
            bytes += ',';
        m_first = false;
    }

    bool m_first = true;
};
