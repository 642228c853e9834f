#pragma once

#include <QtGlobal>

class QFont;
class QString;

/// Factor by which the displays' pixel sizes, given for 96 dpi and the usual font size, are
/// enlarged on this desktop: 1 on an ordinary one, 1.5 with 144 dpi or with an application
/// font half as large again. Never below 1.
qreal displayScale();

/// The part of displayScale() that comes from the application font; point
/// sizes take the other part by themselves.
qreal fontScale();

/// `pixels` enlarged by displayScale(), rounded.
int scaled(int pixels);

/// A font for drawing at `scale`, sized in pixels so that it means the same on a screen and on a scaled page.
QFont drawingFont(const QString &family, int points, qreal scale, bool bold = false);
