#pragma once

#include <QColor>
#include <QString>

class QPainter;
class QRect;

/// What the drawn displays have in common. All sizes are in pixels at `scale` 1.
namespace ChartPaint {

constexpr QColor grey{127, 127, 127};
constexpr double staleOpacity = 0.4;

/// White on the black ground, black on white paper.
QColor textColour(bool blackGround);

/// The yellow badge with the number of a graph window, its top left corner
/// at (`left`, `top`). Returns its width.
int drawBadge(QPainter &painter, int left, int top, int number, qreal scale);

/// `text` in `box`, in `family` at `points`, smaller where it takes that to fit into the width.
void drawFitted(QPainter &painter, const QRect &box, int flags, const QString &text, int points, qreal scale,
    bool bold = false, const QString &family = QStringLiteral("Arial"));

} // namespace ChartPaint
