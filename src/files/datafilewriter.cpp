#include "files/datafilewriter.h"

#include "files/filesync.h"

#include "data/recordline.h"
#include "data/recordlist.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstring>
#include <memory>

namespace {

constexpr int bufferSize = 256 * 1024;
constexpr int mostLinks = 40; // then it is a circle

QString finalTarget(const QString &fileName)
{
    QFileInfo target(fileName);
    for (int links = 0; target.isSymLink() && links < mostLinks; ++links)
        target.setFile(target.symLinkTarget());
    return target.filePath();
}

SaveResult saveInPlace(const QString &fileName, const RecordList &records)
{
    QFile file;
    const int descriptor = openSpecialFile(fileName);
    if (descriptor < 0)
        return {false, 0, qt_error_string()};
    if (!file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        return {false, 0, file.errorString()};
    const bool written = writeRecords(file, records) && file.flush() && syncToDisk(descriptor);
    return {written, 0, written ? QString() : file.errorString()};
}

SaveResult replaceFile(const QString &fileName, const RecordList &records)
{
    QSaveFile file(fileName);
    // Unbuffered, so that a full disk answers the write that meets it.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeRecords(file, records))
        return {false, 0, file.errorString()};
    if (!file.flush() || !syncToDisk(file.handle()))
        return {false, 0, qt_error_string()};
    if (!file.commit())
        return {false, 0, file.errorString()};
    syncFolder(QFileInfo(fileName).path());
    return {true, 0, QString()};
}

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
    const QString target = finalTarget(fileName);
    const QFileInfo info(target);
    if (info.isSymLink())
        return {false, 0, QCoreApplication::translate("SaveResult", "too many links")};
    const bool special = info.exists() && !info.isFile();
    SaveResult result = special ? saveInPlace(target, records) : replaceFile(target, records);
    if (result.saved)
        result.unreadable = countUnreadable(records);
    return result;
}
