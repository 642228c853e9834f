#pragma once

#include <QImage>

class QByteArray;
class QString;

/// The small picture of a recording's curve: heights 0..255 from left to right. Null for fewer than two.
QImage curvePicture(const QByteArray &heights, const QSize &size);

/// A tool tip that shows that picture above `text`, which comes from outside.
QString curveToolTip(const QByteArray &heights, const QString &text);
