#include "files/recordinglength.h"

#include "data/varnel3data.h"
#include "files/linetrimming.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int pieceLength = 4096;
constexpr int unknown = -1;

/// Time of the first record among the whole lines of `bytes`, or of the last one.
int timeIn(const QByteArray &bytes, bool first)
{
    int time = unknown;
    int begin = 0;
    for (int end = bytes.indexOf('\n'); end >= 0; begin = end + 1, end = bytes.indexOf('\n', begin)) {
        Varnel3Data record;
        if (!record.parseLine(trimmedLine(QLatin1String(bytes.constData() + begin, end - begin))))
            continue;
        time = record.time;
        if (first)
            break;
    }
    return time;
}

} // namespace

int recordingLength(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return unknown;
    const int begin = timeIn(file.read(pieceLength), true);
    file.seek(std::max<qint64>(0, file.size() - pieceLength));
    const int end = timeIn(file.read(pieceLength), false);
    return begin < 0 || end < begin ? unknown : end - begin;
}
