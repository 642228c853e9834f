#include "files/recordlabel.h"

#include "files/columnheader.h"
#include "files/filekind.h"
#include "files/linesource.h"
#include "files/linetrimming.h"

#include "data/varnel3data.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int headLength = 4096;

struct Text {
    int code;
    const char *text;
};
constexpr Text recordProcesses[] = {
    {Varnel3Data::Charge, " [Cha "}, {Varnel3Data::Discharge, " [Dis "}, {Varnel3Data::Balancing, " [Bal "}};

/// How the columns of a device are labelled. A chemistry that is missing leaves the bracket open.
struct ColumnLabels {
    ColumnHeader::Rules rules;
    Text processes[3]; // of all modes that the rules let pass
    Text chemistries[8]; // those behind the last stand for 0: no text
};
constexpr ColumnLabels chargerLabels
    = {ColumnHeader::charger, {{'c', " [Cha "}, {'d', " [Dis "}, {'f', " [For "}},
        {{1, "NiCd]"}, {2, "NiMh]"}, {3, "Pb]"}, {4, "RAM]"}, {5, "LiIon]"}, {6, "LiPol]"}, {7, "LiTa]"},
            {8, "LiPh]"}}};
constexpr ColumnLabels balancerLabels = {ColumnHeader::balancer,
    {{'t', " [Test "}, {'e', " [Tandor "}, {'f', " [Fast "}}, {{5, "LiIon]"}, {6, "LiPol]"}, {7, "LiPh]"}}};

template <int size>
QString textOf(const Text (&table)[size], int code, const char *otherwise)
{
    for (const Text &entry : table) {
        if (entry.code == code)
            return QLatin1String(entry.text);
    }
    return QLatin1String(otherwise);
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
    return textOf(recordProcesses, record.mode, " [") + countText(record.cellCount)
        + Varnel3Data::cellTypeName(record.cellType) + QLatin1Char(']');
}

QString labelOfColumns(LineSource &lines, QLatin1String firstLine, const ColumnLabels &labels)
{
    ColumnHeader header;
    QLatin1String line = firstLine;
    for (int i = 0; i < ColumnHeader::lineCount; ++i) {
        if (i > 0 && lines.next(&line) != LineSource::Found::Line)
            return QString();
        if (!header.takeLine(i, line, labels.rules))
            return QString();
    }
    return textOf(labels.processes, header.mode, "") + countText(header.cellCount)
        + textOf(labels.chemistries, header.cellTypeCode, "");
}

QString labelOf(FileKind::Dialect dialect, LineSource &lines, QLatin1String firstLine)
{
    switch (dialect) {
    case FileKind::ChargerColumns:
        return labelOfColumns(lines, firstLine, chargerLabels);
    case FileKind::BalancerColumns:
        return labelOfColumns(lines, firstLine, balancerLabels);
    case FileKind::Records:
        break;
    }
    return labelOfRecord(firstLine);
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
    LineSource lines(buffer, headLength);
    QLatin1String first;
    LineSource::Found found = lines.next(&first);
    if (found == LineSource::Found::Nothing)
        found = lines.next(&first); // one line without an end
    if (found != LineSource::Found::Line)
        return QString();
    return labelOf(FileKind::of(path, first), lines, first);
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
