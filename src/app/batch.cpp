#include "app/batch.h"

#include "app/commandline.h"
#include "documents/graphfile.h"
#include "files/datafileloader.h"
#include "files/filepieces.h"
#include "files/wholefile.h"
#include "documents/csvexport.h"
#include "graph/scene/graphpicture.h"
#include "series/seriesstore.h"

#include <QFile>

#include <cstdio>
#include <new>

namespace {

enum Status { Done = 0, Failed = 1, Refused = 2 };

int fail(const QString &text)
{
    std::fprintf(stderr, "varnelgraph: %s\n", qPrintable(text));
    return Failed;
}

bool load(const QString &fileName, SeriesStore &store, QString *reason)
{
    DataFileLoader loader(fileName);
    if (!loader.readAll()) {
        *reason = loader.reason();
        return false;
    }
    if (loader.recordCount() == 0) {
        *reason = loader.statusText();
        return false;
    }
    try {
        store.load(loader.takeRecords());
        return true;
    } catch (const std::bad_alloc &) {
        loader.giveUpForMemory();
        *reason = loader.reason();
        return false;
    }
}

WriteOutcome writeOutput(const QString &output, FilePieces &pieces)
{
    if (output != QLatin1String("-"))
        return writeWholeFile(output, pieces);
    QFile out;
    const bool written = out.open(stdout, QIODevice::WriteOnly) && pieces.writeAll(out) && out.flush();
    return {written, false, out.errorString()};
}

bool render(const CommandLine &line, const SeriesStore &store, QIODevice *device)
{
    GraphPicture picture;
    picture.size = line.size;
    picture.store = &store;
    picture.switches = line.switches;
    picture.windowNumber = 1;
    return writeGraph(picture, graphFormat(line.output), device);
}

} // namespace

int runBatch(const CommandLine &line)
{
    if (line.task == CommandLine::Print || line.task == CommandLine::Refuse) {
        const bool refused = line.task == CommandLine::Refuse;
        std::fputs(qPrintable(line.message), refused ? stderr : stdout);
        return refused ? Refused : Done;
    }
    SeriesStore store;
    QString reason;
    if (!load(line.files.first(), store, &reason))
        return fail(line.files.first() + QStringLiteral(": ") + reason);
    CsvRows rows(store);
    OnePiece picture([&](QIODevice &device) { return render(line, store, &device); });
    const bool renders = line.task == CommandLine::Render;
    const WriteOutcome outcome
        = writeOutput(line.output, renders ? static_cast<FilePieces &>(picture) : rows);
    return outcome.written ? int(Done) : fail(line.output + QStringLiteral(": ") + outcome.reason);
}
