#include "protocol/lineparsers.h"

#include "protocol/fixedlayout.h"

#include <QDebug>
#include <QString>

#include <algorithm>
#include <new>

namespace {

constexpr int resistanceFields = 16;
constexpr double resistanceUnit = 10.0; // a '!' line counts in tenths of a milliohm

struct Dialect {
    int fields;
    int device;
    bool (*parse)(Varnel3Data &, const LineFields &);
    const char *warning;
};

constexpr Dialect dialects[] = {
    {39, Varnel3Data::Varnel3, parseVarnel3, "Błąd parsowania Varnel3:"},
    {4, Varnel3Data::Varnel2, parseVarnel2, "Błąd parsowania varnel2:"},
    {5, Varnel3Data::Varnel2Plus, parseVarnel2Plus, "Błąd parsowania varnel2P:"},
    {24, Varnel3Data::Tandor, parseTandor, "Błąd parsowania Tandor:"},
};

bool parse(Varnel3Data &record, const FieldText &line)
{
    if (line.at(0) != '#')
        return false;
    const LineFields fields(line);
    for (const Dialect &dialect : dialects) {
        if (dialect.fields != fields.count())
            continue;
        record.device = dialect.device;
        try {
            return dialect.parse(record, fields);
        } catch (const std::bad_alloc &) {
            throw; // says nothing about the line
        } catch (...) {
            qWarning().noquote() << QString::fromUtf8(dialect.warning)
                                 << QLatin1String(reinterpret_cast<const char *>(line.data), line.size);
            return false;
        }
    }
    return false;
}

// No line says what is beyond Latin-1; it becomes NUL.
QByteArray narrow(const QString &text)
{
    QByteArray bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](QChar c) { return c.toLatin1(); });
    return bytes;
}

FieldText bytes(QLatin1String text)
{
    return {reinterpret_cast<const uchar *>(text.data()), text.size()};
}

bool parseResistances(Varnel3Data &record, const FieldText &line)
{
    if (line.at(0) != '!')
        return false;
    const LineFields fields(line.mid(1));
    if (fields.count() != resistanceFields)
        return false;
    record.resistanceSum = 0.0;
    for (int i = 0; i < resistanceFields; ++i) {
        const std::optional<int> value = fields[i].number();
        if (!value)
            continue;
        record.cells[i].resistance = *value / resistanceUnit;
        record.resistanceSum += record.cells[i].resistance;
    }
    record.resistanceValid = true;
    return true;
}

} // namespace

bool Varnel3Data::parseLine(const QString &line)
{
    const QByteArray latin1 = narrow(line);
    return parseLine(QLatin1String(latin1.constData(), latin1.size()));
}

bool Varnel3Data::parseLine(QLatin1String line)
{
    return parseFixedLayout(*this, bytes(line)) || parse(*this, bytes(line));
}

bool Varnel3Data::parseResistanceLine(const QString &line)
{
    const QByteArray latin1 = narrow(line);
    return parseResistanceLine(QLatin1String(latin1.constData(), latin1.size()));
}

bool Varnel3Data::parseResistanceLine(QLatin1String line)
{
    return parseResistances(*this, bytes(line));
}
