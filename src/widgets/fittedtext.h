#pragma once

#include <QtGlobal>

class QLabel;
class QSize;
class QString;

/// Sets `label`'s text in its font at `points`, or as much smaller as it takes to fit into `box` pixels: a
/// figure with its digits cut off would be a wrong figure. An unchanged text costs nothing.
void setFittedText(QLabel *label, const QString &text, qreal points, const QSize &box);
