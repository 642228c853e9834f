#include "files/recordlabel.h"

#include "files/columnheader.h"
#include "files/linesource.h"
#include "files/linetrimming.h"

#include "data/varnel3data.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int headLength = 4096;

struct ProcessText {
    char mode;
    const char *text;
};
constexpr ProcessText recordProcesses[] = {
    {Varnel3Data::Charge, " [Cha "}, {Varnel3Data::Discharge, " [Dis "}, {Varnel3Data::Balancing, " [Bal "}};
constexpr ProcessText chargerProcesses[] = {{'c', " [Cha "}, {'d', " [Dis "}, {'f', " [For "}};
constexpr ProcessText balancerProcesses[] = {{'t', " [Test "}, {'e', " [Tandor "}, {'f', " [Fast "}};

struct ChemistryText {
    int code;
    const char *text;
};
// A code that is missing leaves the bracket open.
constexpr ChemistryText chargerChemistries[] = {{1, "NiCd]"}, {2, "NiMh]"}, {3, "Pb]"}, {4, "RAM]"},
    {5, "LiIon]"}, {6, "LiPol]"}, {7, "LiTa]"}, {8, "LiPh]"}};
constexpr ChemistryText balancerChemistries[] = {{5, "LiIon]"}, {6, "LiPol]"}, {7, "LiPh]"}};

template <int size>
QString processText(const ProcessText (&table)[size], int mode)
{
    for (const ProcessText &entry : table) {
        if (entry.mode == mode)
            return QLatin1String(entry.text);
    }
    return QStringLiteral(" [");
}

template <int size>
QString chemistryText(const ChemistryText (&table)[size], int code)
{
    for (const ChemistryText &entry : table) {
        if (entry.code == code)
            return QLatin1String(entry.text);
    }
    return QString();
}

QString countText(int cellCount)
{
    return QString::number(cellCount) + QLatin1Char('x');
}

QString labelOfRecord(QLatin1String line)
{
    Varnel3Data record;
    if (!record.parseLine(trimmedLine(line)))
        return QString();
    return processText(recordProcesses, record.mode) + countText(record.cellCount)
        + Varnel3Data::cellTypeName(record.cellType) + QLatin1Char(']');
}

QString labelOfColumns(LineSource &lines, QLatin1String firstLine, bool balancer)
{
    const ColumnHeader::Rules rules = balancer ? ColumnHeader::balancer : ColumnHeader::charger;
    ColumnHeader header;
    QLatin1String line = firstLine;
    for (int i = 0; i < ColumnHeader::lineCount; ++i) {
        if (i > 0 && lines.next(&line) != LineSource::Found::Line)
            return QString();
        if (!header.takeLine(i, line, rules))
            return QString();
    }
    const QString process
        = balancer ? processText(balancerProcesses, header.mode) : processText(chargerProcesses, header.mode);
    return process + countText(header.cellCount)
        + (balancer ? chemistryText(balancerChemistries, header.cellTypeCode)
                    : chemistryText(chargerChemistries, header.cellTypeCode));
}

QString readLabel(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return QString();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return QString();
    QByteArray head = file.read(headLength);
    QBuffer buffer(&head);
    buffer.open(QIODevice::ReadOnly);
    LineSource lines(buffer, headLength + 1);
    QLatin1String first;
    LineSource::Found found = lines.next(&first);
    if (found == LineSource::Found::Nothing)
        found = lines.next(&first); // one line without an end
    if (found != LineSource::Found::Line)
        return QString();
    const bool balancer = path.endsWith(QLatin1String(".abp"), Qt::CaseInsensitive);
    if (!balancer && first.startsWith(QLatin1Char('#')))
        return labelOfRecord(first);
    return labelOfColumns(lines, first, balancer);
}

} // namespace

QString recordLabel(
    QCache<QString, QString> &cache, const QString &path, bool *fromCache, QSet<QString> *failures)
{
    const QString *const known = cache.object(path);
    if (fromCache)
        *fromCache = known != nullptr;
    if (known)
        return *known;
    if (failures && failures->contains(path))
        return QString();
    const QString label = readLabel(path);
    if (!label.isEmpty())
        cache.insert(path, new QString(label), int(sizeof(QChar)) * (path.size() + label.size()));
    else if (failures)
        failures->insert(path);
    return label;
}
