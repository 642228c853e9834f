#pragma once

#include <QtGlobal>

class QFont;
class QLabel;
class QSize;
class QString;

/// `font`, sized in points or in pixels, or as much smaller as it takes for `text` to fit into `box` pixels:
/// a figure with its digits cut off would be a wrong figure.
QFont fittedFont(const QFont &font, const QString &text, const QSize &box);

/// Sets `label`'s text in its font at `points`, fitted into `box` pixels. An unchanged text costs nothing.
void setFittedText(QLabel *label, const QString &text, qreal points, const QSize &box);
