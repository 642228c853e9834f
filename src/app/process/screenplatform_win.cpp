#include "app/process/screenplatform.h"

QByteArray screenPlatforms()
{
    return QByteArray();
}
