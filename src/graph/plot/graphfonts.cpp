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

// Digits are of one width, but for pairs that move together or, in odd fonts, apart.
int GraphFonts::mostWidthIn(int pixels, QString text)
{
    constexpr int share = 16;
    constexpr int margin = 2; // px
    for (QChar &letter : text) {
        if (letter.isDigit())
            letter = QLatin1Char('0');
    }
    const int width = widthIn(pixels, text);
    return width + width / share + margin;
}

GraphFonts::Fit GraphFonts::fit(double points, const QString &text, int width)
{
    int pixels = pixelsOf(points);
    const int most = mostWidthIn(pixels, text);
    if (most <= width)
        return {ofSize(pixels), most};
    while (pixels > smallestFont && widthIn(pixels, text) > width)
        --pixels;
    return {ofSize(pixels), widthIn(pixels, text)};
}
