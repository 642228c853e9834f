#include "documents/loadoutcome.h"

#include "files/datafileloader.h"

#include <QCoreApplication>

namespace {

constexpr int usualTime = 1000; // ms
constexpr int headerErrorTime = 2000; // ms
constexpr int lineErrorTime = 8000; // ms

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(LoadOutcome)
};

} // namespace

LoadOutcome loadOutcome(const DataFileLoader &loader)
{
    switch (loader.status()) {
    case DataFileLoader::Status::Reading:
        return {};
    case DataFileLoader::Status::CanNotOpen:
        return {Texts::tr("Can not open file %1").arg(loader.fileName()), 0};
    case DataFileLoader::Status::BadHeader:
        return {Texts::tr("Format error in ") + loader.fileName(), headerErrorTime};
    case DataFileLoader::Status::BadLine:
        return {Texts::tr("Format error in ") + loader.fileName(), lineErrorTime};
    case DataFileLoader::Status::NoMemory:
        return {Texts::tr("Not enough memory to open %1").arg(loader.fileName()), 0};
    case DataFileLoader::Status::Loaded:
        break;
    }
    return {loader.recordCount() > 1 ? Texts::tr("Data loaded from disk.") : Texts::tr("No data in file."),
        usualTime};
}
