#include "data/recordline.h"
#include "files/datafileloader.h"
#include "files/datafilewriter.h"
#include "fuzzcheck.h"
#include "graph/seriesstore.h"

#include <QBuffer>

namespace {

// Reads as the program does, in slices; false for a file that is none.
bool load(const QByteArray &bytes, const QString &name, SeriesStore *store)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    check(buffer->open(QIODevice::ReadOnly), "a buffer opens");
    DataFileLoader loader(std::move(buffer), name);
    while (loader.readSome(1))
        check(loader.progress() <= 1.0, "progress ends at 1");
    const bool loaded = loader.status() == DataFileLoader::Status::Loaded;
    check(loaded == loader.reason().isEmpty(), "a reason where it was not loaded, and only there");
    const int count = loader.recordCount();
    RecordList records = loader.takeRecords();
    check(loaded ? records.size() == count : records.isEmpty(), "all records or none");
    store->load(std::move(records));
    return loaded;
}

QByteArray save(const RecordList &records)
{
    QBuffer buffer;
    check(buffer.open(QIODevice::WriteOnly), "a buffer opens");
    check(RecordLines(records).writeAll(buffer), "a buffer takes all");
    return buffer.data();
}

bool allReadable(const RecordList &records)
{
    for (int i = 0; i < records.size(); ++i)
        if (!isRecordLineReadable(records[i]))
            return false;
    return true;
}

} // namespace

// The first byte says by which ending the file goes.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
    SeriesStore store;
    if (!load(bytes, data[0] % 2 == 0 ? QStringLiteral("x.acp") : QStringLiteral("x.ABP"), &store))
        return 0;
    check(store.series(SeriesStore::Time).size() == store.size(), "a point for each record");

    const QByteArray saved = save(store.records());
    SeriesStore again;
    if (!allReadable(store.records()) || !load(saved, QStringLiteral("y.acp"), &again))
        return 0;
    check(save(again.records()) == saved, "save, load, save gives the same bytes");
    return 0;
}
