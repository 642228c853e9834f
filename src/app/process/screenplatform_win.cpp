#include "app/process/screenplatform.h"

QByteArray screenPlatforms()
{
    return QByteArray();
}

// There always is a screen, and its platform has the fonts.
QByteArray screenlessPlatforms()
{
    return QByteArray();
}
