#include "data/memorygroups.h"

#include <QFile>
#include <QList>

#include <optional>

namespace {

// What a version of the control groups calls things.
struct GroupFiles {
    const char *limit;
    const char *usage;
    const char *cache; // in memory.stat
};

constexpr GroupFiles version1 = {"memory.limit_in_bytes", "memory.usage_in_bytes", "total_inactive_file "};
constexpr GroupFiles version2 = {"memory.max", "memory.current", "inactive_file "};

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Nothing where there is none, or no number: "max".
std::optional<qint64> figure(const QString &fileName)
{
    bool ok = false;
    const qint64 value = contents(fileName).trimmed().toLongLong(&ok);
    return ok ? std::optional<qint64>(value) : std::nullopt;
}

qint64 cached(const QString &folder, const GroupFiles &files)
{
    const QList<QByteArray> lines = contents(folder + QStringLiteral("memory.stat")).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(files.cache))
            return line.mid(int(qstrlen(files.cache))).toLongLong();
    }
    return 0;
}

void take(qint64 *total, qint64 *available, const QString &folder, const GroupFiles &files)
{
    const std::optional<qint64> limit = figure(folder + QLatin1String(files.limit));
    const std::optional<qint64> usage = figure(folder + QLatin1String(files.usage));
    if (!limit || !usage || *limit >= *total)
        return;
    *total = *limit;
    *available = qMin(*available, *limit - *usage + cached(folder, files));
}

} // namespace

void narrowToGroups(qint64 *total, qint64 *available, const QByteArray &membership, const QString &root)
{
    const QList<QByteArray> lines = membership.split('\n');
    for (const QByteArray &line : lines) { // "4:memory:/user/1000" or "0::/user/1000"
        const QList<QByteArray> parts = line.split(':');
        const bool unified = parts.value(1).isEmpty();
        if (parts.size() < 3 || !(unified || parts[1].split(',').contains("memory")))
            continue;
        QString path = QFile::decodeName(parts[2]);
        while (path.startsWith(QLatin1Char('/'))) {
            const QString folder = root + (unified ? QString() : QStringLiteral("/memory")) + path;
            take(total, available, folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/'),
                unified ? version2 : version1);
            path = path.size() > 1 ? QLatin1Char('/') + path.section(QLatin1Char('/'), 1, -2) : QString();
        }
    }
}
