#include "app/process/screenplatform.h"

// Only X11 has windows that stay on top and come back where they were, in a Wayland session too.
QByteArray screenPlatforms()
{
    return QByteArrayLiteral("xcb;wayland");
}

QByteArray screenlessPlatforms()
{
    return QByteArrayLiteral("offscreen");
}
