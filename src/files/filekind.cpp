#include "files/filekind.h"

#include <QString>

namespace {

bool hasEnding(const QString &fileName, const char *ending)
{
    return fileName.endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

} // namespace

FileKind::Dialect FileKind::of(const QString &fileName, QLatin1String firstLine)
{
    if (hasEnding(fileName, ".abp"))
        return BalancerColumns;
    return firstLine.startsWith(QLatin1Char('#')) ? Records : ChargerColumns;
}

bool FileKind::isDataFile(const QString &fileName)
{
    return hasEnding(fileName, ".acp") || hasEnding(fileName, ".abp");
}
