#pragma once

#include "files/datafileloader.h"
#include "fuzzcheck.h"

#include <QBuffer>

#include <memory>

/// Reads as the program does, in slices, with chunks of `chunk` bytes; false for a file that is none.
inline bool readDataFile(const QByteArray &bytes, const QString &name, int chunk, RecordList *records)
{
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    check(buffer->open(QIODevice::ReadOnly), "a buffer opens");
    DataFileLoader loader(std::move(buffer), name, chunk);
    while (loader.readSome(1))
        check(loader.progress() <= 1.0, "progress ends at 1");
    const bool loaded = loader.status() == DataFileLoader::Status::Loaded;
    check(loaded == loader.reason().isEmpty(), "a reason where it was not loaded, and only there");
    *records = loader.takeRecords();
    check(records->size() == loader.recordCount(), "all records or none");
    return loaded;
}
