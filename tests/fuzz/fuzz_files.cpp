#include "protocol/recordline.h"
#include "files/datafileloader.h"
#include "files/datafilepieces.h"
#include "fuzzcheck.h"
#include "series/seriesstore.h"

#include <QBuffer>

#include <algorithm>
#include <array>

namespace {

constexpr int longFile = 300 * 1024; // beyond a chunk
constexpr int shortFile = 48 * 1024; // beyond a block of records
constexpr int headerLines = 4; // of columns; they come once

/// What the input's first two bytes say of the file that the others are.
struct Form {
    Form(unsigned char first, unsigned char second)
        : name(first % 2 == 0 ? QStringLiteral("x.acp") : QStringLiteral("x.ABP"))
        , chunk(std::array<int, 4>{LineSource::usualChunk, 64, 401, 4096}[first / 2 % 4])
        , slice(first / 8 % 2 == 0 ? 2048 : 100)
        , copies(second < 240 ? 1 : 1 << (second - 240))
    {
    }

    QString name;
    int chunk; // bytes that are read at once
    int slice; // records that are derived at once
    int copies; // of all behind the header
};

QByteArray bytesOf(const Form &form, const QByteArray &input)
{
    int begin = 0;
    for (int line = 0; line < headerLines; ++line) {
        const int end = input.indexOf('\n', begin);
        if (end < 0) {
            begin = 0;
            break;
        }
        begin = end + 1;
    }
    const QByteArray rest = input.mid(begin);
    const int size = form.chunk == LineSource::usualChunk ? longFile : shortFile;
    const int most = std::max(1, size / std::max(1, rest.size()));
    return input + rest.repeated(std::min(form.copies, most) - 1);
}

bool isUtf16(const QByteArray &bytes)
{
    return bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff");
}

bool hasMark(const QByteArray &bytes)
{
    return isUtf16(bytes) || bytes.startsWith("\xef\xbb\xbf");
}

/// The same in bytes, as far as a byte can say it.
QByteArray latin1(const QByteArray &bytes)
{
    if (!isUtf16(bytes))
        return bytes;
    const int high = bytes[0] == '\xff' ? 1 : 0;
    QByteArray narrow;
    for (int i = 0; i + 1 < bytes.size(); i += 2) {
        const int unit = uchar(bytes[i + high]) << 8 | uchar(bytes[i + 1 - high]);
        if (unit != 0xfeff)
            narrow += unit <= 0xff ? char(unit) : '\0';
    }
    return narrow;
}

/// Whether chunks of this size cut no line.
bool fits(const QByteArray &bytes, int chunk)
{
    constexpr int mark = 3; // bytes that are skipped at most
    for (int begin = 0; begin < bytes.size();) {
        const int found = bytes.indexOf('\n', begin);
        const int end = found < 0 ? bytes.size() : found;
        if (end - begin >= chunk - mark)
            return false;
        begin = end + 1;
    }
    return true;
}

// Reads as the program does, in slices; false for a file that is none.
bool load(const QByteArray &bytes, const Form &form, SeriesStore *store)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    check(buffer->open(QIODevice::ReadOnly), "a buffer opens");
    DataFileLoader loader(std::move(buffer), form.name, form.chunk);
    while (loader.readSome(1))
        check(loader.progress() <= 1.0, "progress ends at 1");
    const bool loaded = loader.status() == DataFileLoader::Status::Loaded;
    check(loaded == loader.reason().isEmpty(), "a reason where it was not loaded, and only there");
    const int count = loader.recordCount();
    RecordList records = loader.takeRecords();
    check(loaded ? records.size() == count : records.isEmpty(), "all records or none");
    store->beginLoad(std::move(records));
    while (store->loadSome(form.slice))
        check(store->loadProgress() < 1.0, "more to do");
    return loaded;
}

QByteArray save(const RecordList &records)
{
    QBuffer buffer;
    check(buffer.open(QIODevice::WriteOnly), "a buffer opens");
    check(DataFilePieces(records).writeAll(buffer), "a buffer takes all");
    return buffer.data();
}

bool allReadable(const RecordList &records)
{
    for (int i = 0; i < records.size(); ++i)
        if (!isRecordLineReadable(records[i]))
            return false;
    return true;
}

void checkSeries(const SeriesStore &store)
{
    for (int kind = 0; kind < SeriesStore::kindCount && !store.isEmpty(); ++kind) {
        const PlotSeries &series = store.series(kind);
        if (kind < SeriesStore::CellMin)
            check(series.size() == store.size(), "a point for each record");
        else
            check(series.isEmpty() || series.size() == store.size(), "of the cells all or none");
        if (series.isEmpty())
            continue;
        const auto ends = std::minmax_element(series.begin(), series.end());
        const Interval found = series.extremes(0, series.size());
        check(found.low == *ends.first && found.high == *ends.second, "blocks tell the extremes");
    }
}

// A store of a file may grow live.
void appendLive(SeriesStore *store)
{
    const int count = std::min(40, store->size());
    for (int i = 0; i < count; ++i) {
        store->append(store->records()[i]);
        store->applyResistanceLine("!1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16");
    }
    checkSeries(*store);
}

} // namespace

// The first byte says by which ending the file goes and in what pieces it is taken, the second how often
// it repeats what is behind its header.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size < 2)
        return 0;
    const Form form(data[0], data[1]);
    const QByteArray bytes
        = bytesOf(form, QByteArray(reinterpret_cast<const char *>(data + 2), int(size - 2)));
    SeriesStore store;
    const bool loaded = load(bytes, form, &store);
    const QByteArray saved = save(store.records());
    const QByteArray narrow = latin1(bytes);
    const Form plain(data[0] & 1, 0);
    if ((form.chunk != plain.chunk || isUtf16(bytes)) && !(isUtf16(bytes) && hasMark(narrow))
        && fits(narrow, form.chunk)) {
        SeriesStore whole;
        check(load(narrow, plain, &whole) == loaded, "pieces make no difference, nor does width");
        check(save(whole.records()) == saved, "nor to what is read");
    }
    if (!loaded)
        return 0;
    checkSeries(store);
    if (allReadable(store.records())) {
        SeriesStore again;
        check(load(saved, Form(0, 0), &again), "what was saved is read");
        check(save(again.records()) == saved, "save, load, save gives the same bytes");
    }
    appendLive(&store);
    return 0;
}
