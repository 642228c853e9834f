#include "protocol/lineparsers.h"

#include "protocol/fixedlayout.h"

#include <QDebug>
#include <QString>

#include <new>

namespace {

constexpr int resistanceFields = 16;
constexpr double resistanceUnit = 10.0; // a '!' line counts in tenths of a milliohm

template <typename Char>
struct Dialect {
    int fields;
    int device;
    bool (*parse)(Varnel3Data &, const LineFields<Char> &);
    const char *warning;
};

template <typename Char>
constexpr Dialect<Char> dialects[] = {
    {39, Varnel3Data::Varnel3, parseVarnel3<Char>, "Błąd parsowania Varnel3:"},
    {4, Varnel3Data::Varnel2, parseVarnel2<Char>, "Błąd parsowania varnel2:"},
    {5, Varnel3Data::Varnel2Plus, parseVarnel2Plus<Char>, "Błąd parsowania varnel2P:"},
    {24, Varnel3Data::Tandor, parseTandor<Char>, "Błąd parsowania Tandor:"},
};

QString toText(const FieldText<uchar> &text)
{
    return QString::fromLatin1(reinterpret_cast<const char *>(text.data), text.size);
}

QString toText(const FieldText<ushort> &text)
{
    return QString::fromUtf16(text.data, text.size);
}

template <typename Char>
bool parse(Varnel3Data &record, const FieldText<Char> &line)
{
    if (line.at(0) != '#')
        return false;
    const LineFields<Char> fields(line);
    for (const Dialect<Char> &dialect : dialects<Char>) {
        if (dialect.fields != fields.count())
            continue;
        record.device = dialect.device;
        try {
            return dialect.parse(record, fields);
        } catch (const std::bad_alloc &) {
            throw; // says nothing about the line
        } catch (...) {
            qWarning().noquote() << QString::fromUtf8(dialect.warning) << toText(line);
            return false;
        }
    }
    return false;
}

FieldText<ushort> units(const QString &text)
{
    return {text.utf16(), text.size()};
}

FieldText<uchar> bytes(QLatin1String text)
{
    return {reinterpret_cast<const uchar *>(text.data()), text.size()};
}

template <typename Char>
FieldText<Char> trimmed(FieldText<Char> text)
{
    while (text.size > 0 && QChar(text.data[text.size - 1]).isSpace())
        --text.size;
    while (text.size > 0 && QChar(*text.data).isSpace()) {
        ++text.data;
        --text.size;
    }
    return text;
}

template <typename Char>
bool parseResistances(Varnel3Data &record, const FieldText<Char> &line)
{
    if (line.at(0) != '!')
        return false;
    const FieldText<Char> text = trimmed(line);
    const LineFields<Char> fields(text.mid(1, text.size - 1));
    if (fields.count() != resistanceFields)
        return false;
    record.resistanceSum = 0.0;
    for (int i = 0; i < resistanceFields; ++i) {
        int value = 0;
        if (!fields[i].toInt(&value))
            continue;
        record.cells[i].resistance = value / resistanceUnit;
        record.resistanceSum += record.cells[i].resistance;
    }
    record.resistanceValid = true;
    return true;
}

} // namespace

bool Varnel3Data::parseLine(const QString &line)
{
    return parse(*this, units(line));
}

bool Varnel3Data::parseLine(QLatin1String line)
{
    return parseFixedLayout(*this, bytes(line)) || parse(*this, bytes(line));
}

bool Varnel3Data::parseResistanceLine(const QString &line)
{
    return parseResistances(*this, units(line));
}

bool Varnel3Data::parseResistanceLine(QLatin1String line)
{
    return parseResistances(*this, bytes(line));
}
