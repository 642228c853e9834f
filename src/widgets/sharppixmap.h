#pragma once

#include <QIcon>
#include <QPixmap>

/// The picture `fileName` at its own size, in as many pixels as the finest screen has for it: a drawing has a
/// second file for those.
inline QPixmap sharpPixmap(const QString &fileName)
{
    const QPixmap plain(fileName);
    return QIcon(fileName).pixmap(plain.size() / plain.devicePixelRatio());
}
