#include "files/datafilewriter.h"

#include "files/filesync.h"
#include "files/wholefile.h"

#include "data/recordline.h"
#include "data/recordlist.h"

#include <QIODevice>

#include <cstring>
#include <memory>

namespace {

constexpr int bufferSize = 256 * 1024;

int countUnreadable(const RecordList &records)
{
    int count = 0;
    for (int i = 0; i < records.size(); ++i)
        count += !isRecordLineReadable(records[i]);
    return count;
}

} // namespace

bool writeRecords(QIODevice &device, const RecordList &records)
{
    const std::unique_ptr<char[]> buffer(new char[bufferSize]);
    char *out = buffer.get();
    const auto drain = [&] {
        const qint64 length = out - buffer.get();
        out = buffer.get();
        return length == 0 || device.write(buffer.get(), length) == length;
    };
    for (int i = 0; i < records.size(); ++i) {
        if (out - buffer.get() > bufferSize - maxRecordLineLength && !drain())
            return false;
        out = writeRecordLine(out, records[i]);
        std::memcpy(out, lineEnd, size_t(lineEndLength));
        out += lineEndLength;
    }
    return drain();
}

SaveResult saveRecords(const QString &fileName, const RecordList &records)
{
    const WriteOutcome outcome
        = writeWholeFile(fileName, [&](QIODevice &device) { return writeRecords(device, records); });
    return {outcome.written, outcome.written ? countUnreadable(records) : 0, outcome.reason};
}
