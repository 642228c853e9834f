#include "files/datafilepieces.h"

#include "files/disk/filesync.h"

#include "protocol/recordline.h"
#include "data/records/recordlist.h"

#include <cstring>

namespace {

constexpr int bufferSize = 256 * 1024;

} // namespace

DataFilePieces::DataFilePieces(const RecordList &records, int markedFrom)
    : m_records(records)
    , m_count(records.size())
    , m_markedFrom(markedFrom)
    , m_buffer(new char[bufferSize])
{
}

DataFilePieces::~DataFilePieces() = default;

bool DataFilePieces::writeNext(QIODevice &device)
{
    char *const begin = m_buffer.get();
    char *out = begin;
    for (; !atEnd() && out - begin <= bufferSize - maxRecordLineLength; ++m_next) {
        Varnel3Data record = m_records.at(m_next);
        if (m_next >= m_markedFrom)
            record.flag4 = 'E';
        m_unreadable += !isRecordLineReadable(record);
        out = writeRecordLine(out, record);
        std::memcpy(out, lineEnd, size_t(lineEndLength));
        out += lineEndLength;
    }
    return writeAllBytes(device, begin, out - begin);
}

double DataFilePieces::progress() const
{
    return m_count > 0 ? double(m_next) / m_count : 1.0;
}
