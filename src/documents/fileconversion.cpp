#include "documents/fileconversion.h"

#include "documents/csvexport.h"
#include "documents/graphfile.h"
#include "documents/loadoutcome.h"
#include "files/datafileloader.h"
#include "files/filepieces.h"
#include "files/wholefile.h"
#include "graph/scene/graphrequest.h"
#include "series/seriesstore.h"

#include <QFile>

#include <new>

namespace {

QString failure(const QString &fileName, const QString &reason)
{
    return fileName + QStringLiteral(": ") + reason;
}

QString load(const QString &fileName, SeriesStore &store)
{
    DataFileLoader loader(fileName);
    if (!loader.readAll())
        return failure(fileName, loader.reason());
    if (loader.recordCount() == 0)
        return failure(fileName, loadOutcome(loader).text);
    try {
        store.load(loader.takeRecords());
        return QString();
    } catch (const std::bad_alloc &) {
        loader.giveUpForMemory();
        return failure(fileName, loader.reason());
    }
}

} // namespace

QString convertToCsv(const QString &fileName, const QString &output)
{
    SeriesStore store;
    const QString reason = load(fileName, store);
    if (!reason.isEmpty())
        return reason;
    CsvRows rows(store);
    return writeOutput(output, rows);
}

QString convertToPicture(
    const QString &fileName, const QString &output, const QSize &size, const ViewSwitches &switches)
{
    SeriesStore store;
    const QString reason = load(fileName, store);
    if (!reason.isEmpty())
        return reason;
    GraphRequest request;
    request.size = size;
    request.store = &store;
    request.switches = switches;
    request.windowNumber = 1;
    OnePiece piece([&](QIODevice &device) { return writeGraph(request, graphFormat(output), &device); });
    return writeOutput(output, piece);
}

QString writeOutput(const QString &output, FilePieces &pieces)
{
    if (output != QLatin1String("-")) {
        const WriteOutcome outcome = writeWholeFile(output, pieces);
        return outcome.written ? QString() : failure(output, outcome.reason);
    }
    QFile out;
    const bool written = out.open(stdout, QIODevice::WriteOnly) && pieces.writeAll(out) && out.flush();
    return written ? QString() : failure(output, out.errorString());
}
