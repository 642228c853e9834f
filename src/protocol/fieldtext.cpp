#include "protocol/fieldtext.h"

#include <QString>

namespace {

bool convert(const QString &text, int *value)
{
    bool ok = false;
    const int converted = text.toInt(&ok);
    if (ok)
        *value = converted;
    return ok;
}

} // namespace

bool generalToInt(const FieldText<uchar> &text, int *value)
{
    return convert(QString::fromLatin1(reinterpret_cast<const char *>(text.data), text.size), value);
}

bool generalToInt(const FieldText<ushort> &text, int *value)
{
    // Not fromUtf16(), which would take a byte-order mark away and swap what follows.
    return convert(QString(reinterpret_cast<const QChar *>(text.data), text.size), value);
}
