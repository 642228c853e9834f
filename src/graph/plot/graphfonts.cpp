#include "graph/plot/graphfonts.h"

#include <QFontMetrics>

namespace {

constexpr double pixelsPerPoint = 96.0 / 72.0;
constexpr int smallestFont = 8; // px
constexpr int mostWidths = 250; // figures come and go; then all are measured anew

int pixelsOf(double points)
{
    return qRound(points * pixelsPerPoint);
}

} // namespace

QFont GraphFonts::ofSize(int pixels)
{
    const auto known = m_fonts.constFind(pixels);
    if (known != m_fonts.constEnd())
        return *known;
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(pixels);
    return *m_fonts.insert(pixels, font);
}

QFont GraphFonts::font(double points)
{
    return ofSize(pixelsOf(points));
}

int GraphFonts::widthIn(int pixels, const QString &text)
{
    const QPair<int, QString> key(pixels, text);
    const auto known = m_widths.constFind(key);
    if (known != m_widths.constEnd())
        return *known;
    if (m_widths.size() >= mostWidths)
        m_widths.clear();
    return *m_widths.insert(key, QFontMetrics(ofSize(pixels)).horizontalAdvance(text));
}

GraphFonts::Fit GraphFonts::fit(double points, const QString &text, int width)
{
    int pixels = pixelsOf(points);
    while (pixels > smallestFont && widthIn(pixels, text) > width)
        --pixels;
    return {ofSize(pixels), widthIn(pixels, text)};
}
