#include "files/recordlabel.h"
#include "fuzzcheck.h"

#include <QFile>
#include <QTemporaryDir>

// The first byte says by which ending the file goes.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    if (size == 0)
        return 0;
    static const QTemporaryDir folder;
    const QString path
        = folder.filePath(data[0] % 2 == 0 ? QStringLiteral("x.acp") : QStringLiteral("x.abp"));
    QFile file(path);
    check(file.open(QIODevice::WriteOnly), "a file opens");
    file.write(reinterpret_cast<const char *>(data + 1), qint64(size - 1));
    file.close();

    QCache<QString, QString> cache(10000); // bytes: room for any path with its label
    QSet<QString> failures;
    bool fromCache = true;
    const QString label = recordLabel(cache, path, &fromCache, &failures);
    check(!fromCache, "a new file is read");
    check(label.isEmpty() == failures.contains(path), "failures are remembered apart");
    check(label.isEmpty() || label.startsWith(QLatin1String(" [")), "a label has its bracket");
    check(label.size() < 80, "a label is short");
    check(recordLabel(cache, path, &fromCache, &failures) == label, "the same label again");
    check(fromCache != label.isEmpty(), "from the cache");
    return 0;
}
