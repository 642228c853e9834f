#include "files/datafilepieces.h"
#include "files/recordlabel.h"
#include "fuzzfile.h"
#include "series/seriesstore.h"

#include <QBuffer>
#include <QTemporaryDir>

#include <algorithm>

namespace {

constexpr int longFile = 300 * 1024; // beyond a chunk
constexpr int shortFile = 48 * 1024; // beyond a block of records
constexpr int headerLines = 4; // of columns; they come once

struct Form {
    QString name;
    int chunk; // bytes that are read at once
    int slice; // records that are derived at once
    int copies; // of all behind the header
};

/// What the input's first two bytes say of the file that the others are.
Form formOf(unsigned char first, unsigned char second)
{
    const int chunks[] = {LineSource::usualChunk, 64, 401, 4096};
    return {first % 2 == 0 ? QStringLiteral("x.acp") : QStringLiteral("x.ABP"), chunks[first / 2 % 4],
        first / 8 % 2 == 0 ? 2048 : 100, second < 240 ? 1 : 1 << (second - 240)};
}

QByteArray bytesOf(const Form &form, const QByteArray &input)
{
    const QByteArrayList lines = input.split('\n');
    const QByteArray rest = lines.size() > headerLines ? lines.mid(headerLines).join('\n') : input;
    const int size = form.chunk == LineSource::usualChunk ? longFile : shortFile;
    const int most = std::max(1, size / std::max(1, rest.size()));
    return input + rest.repeated(std::min(form.copies, most) - 1);
}

/// Whether chunks of this size cut no line, as far as that is easily told.
bool fits(const QByteArray &bytes, int chunk)
{
    constexpr int mark = 3; // bytes that are skipped at most
    const QByteArrayList lines = bytes.split('\n');
    const bool isUtf16 = bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff");
    return !isUtf16 && std::all_of(lines.begin(), lines.end(), [&](const QByteArray &line) {
        return line.size() < chunk - mark;
    });
}

/// The same for a store, whose points come in slices.
bool load(const QByteArray &bytes, const Form &form, SeriesStore *store)
{
    RecordList records;
    const bool loaded = readDataFile(bytes, form.name, form.chunk, &records);
    store->beginLoad(std::move(records));
    while (store->loadSome(form.slice))
        check(store->loadProgress() < 1.0, "more to do");
    return loaded;
}

// `unreadable`: records whose lines the reader will refuse.
QByteArray save(const RecordList &records, int *unreadable = nullptr)
{
    QBuffer buffer;
    DataFilePieces lines(records);
    check(buffer.open(QIODevice::WriteOnly) && lines.writeAll(buffer), "a buffer takes all");
    if (unreadable)
        *unreadable = lines.unreadable();
    return buffer.data();
}

// Of a new file: what is known of it is not read again.
void checkLabel(const QByteArray &bytes, const QString &name)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(name));
    check(file.open(QIODevice::WriteOnly) && file.write(bytes.left(8192)) >= 0, "a file opens");
    file.close();
    QCache<QString, QString> cache(10000); // bytes: room for any path with its label
    QSet<QString> failures;
    bool fromCache = true;
    const QString label = recordLabel(cache, file.fileName(), &fromCache, &failures);
    check(
        !fromCache && label.isEmpty() == failures.contains(file.fileName()), "failures are remembered apart");
    check(
        label.isEmpty() || (label.startsWith(QLatin1String(" [")) && label.size() < 80), "a label is short");
    check(recordLabel(cache, file.fileName(), &fromCache, &failures) == label, "the same label again");
    check(fromCache != label.isEmpty(), "from the cache");
}

void checkSeries(const SeriesStore &store)
{
    for (int kind = 0; kind < SeriesStore::kindCount && !store.isEmpty(); ++kind) {
        const int size = store.series(kind).size();
        check(size == store.size() || (kind >= SeriesStore::CellMin && size == 0),
            "a point for each record; of the cells all or none");
    }
}

} // namespace

// The first byte says by which ending the file goes and in what pieces it is taken, the second how often
// it repeats what is behind its header.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size < 2)
        return 0;
    const Form form = formOf(data[0], data[1]);
    const QByteArray bytes
        = bytesOf(form, QByteArray(reinterpret_cast<const char *>(data + 2), int(size - 2)));
    checkLabel(bytes, form.name);
    SeriesStore store;
    const bool loaded = load(bytes, form, &store);
    int unreadable = 0;
    const QByteArray saved = save(store.records(), &unreadable);
    const Form plain = formOf(data[0] & 1, 0);
    if (form.chunk != plain.chunk && fits(bytes, form.chunk)) {
        SeriesStore whole;
        check(load(bytes, plain, &whole) == loaded, "pieces make no difference");
        check(save(whole.records()) == saved, "nor to what is read");
    }
    if (!loaded)
        return 0;
    checkSeries(store);
    if (unreadable == 0) {
        SeriesStore again;
        check(load(saved, formOf(0, 0), &again), "what was saved is read");
        check(save(again.records()) == saved, "save, load, save gives the same bytes");
    }
    for (int i = std::min(40, store.size()); i > 0; --i) // it may go on live
        store.append(store.records()[i - 1]);
    checkSeries(store);
    return 0;
}
