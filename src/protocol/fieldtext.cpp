#include "protocol/fieldtext.h"

#include <QString>

bool generalToInt(const FieldText &text, int *value)
{
    bool ok = false;
    const int converted
        = QString::fromLatin1(reinterpret_cast<const char *>(text.data), text.size).toInt(&ok);
    if (ok)
        *value = converted;
    return ok;
}
