#include "documents/loadoutcome.h"

#include "files/datafileloader.h"

#include <QCoreApplication>

namespace {

constexpr int usualTime = 1000; // ms
constexpr int headerErrorTime = 2000; // ms
constexpr int lineErrorTime = 8000; // ms

QString text(const char *english)
{
    return QCoreApplication::translate("LoadOutcome", english);
}

} // namespace

LoadOutcome loadOutcome(const DataFileLoader &loader)
{
    switch (loader.status()) {
    case DataFileLoader::Status::Reading:
        return {};
    case DataFileLoader::Status::CanNotOpen:
        return {text("Can not open file %1").arg(loader.fileName()), 0};
    case DataFileLoader::Status::BadHeader:
        return {text("Format error in ") + loader.fileName(), headerErrorTime};
    case DataFileLoader::Status::BadLine:
        return {text("Format error in ") + loader.fileName(), lineErrorTime};
    case DataFileLoader::Status::NoMemory:
        return {text("Not enough memory to open %1").arg(loader.fileName()), 0};
    case DataFileLoader::Status::Loaded:
        break;
    }
    return {loader.recordCount() > 1 ? text("Data loaded from disk.") : text("No data in file."), usualTime};
}
