#include "widgets/displayscale.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QScreen>
#include <QString>

namespace {

constexpr qreal referenceDpi = 96.0;
// Screens called ordinary report up to some 10 % more, from their size rounded to millimetres.
constexpr qreal ordinaryDpi = 110.0;
// Desktops come with fonts of 8 to 12 points; a larger one is the user's wish.
constexpr qreal largestUsualPoints = 12.0;

qreal densityScale()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const qreal dpi = screen ? screen->logicalDotsPerInchY() : referenceDpi;
    return dpi <= ordinaryDpi ? 1.0 : dpi / referenceDpi;
}

qreal points(const QFont &font)
{
    return font.pixelSize() == -1 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

} // namespace

qreal fontScale()
{
    // Asked once: some platforms search their font configuration for each answer.
    static const qreal usual
        = qMin(largestUsualPoints, points(QFontDatabase::systemFont(QFontDatabase::GeneralFont)));
    return qMax(1.0, points(QApplication::font()) / usual);
}

qreal displayScale()
{
    return densityScale() * fontScale();
}

int scaled(int pixels)
{
    return qRound(pixels * displayScale());
}

QFont drawingFont(const QString &family, int points, qreal scale, bool bold)
{
    constexpr qreal pointsPerInch = 72.0;
    QFont font(family);
    font.setPixelSize(qMax(1, qRound(points * referenceDpi / pointsPerInch * scale)));
    font.setBold(bold);
    return font;
}
