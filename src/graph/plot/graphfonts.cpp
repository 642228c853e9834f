#include "graph/plot/graphfonts.h"

#include <QFontMetrics>

namespace {

constexpr double pixelsPerPoint = 96.0 / 72.0;
constexpr int smallestFont = 8; // px

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
    if (!m_widths.contains(key))
        m_widths.insert(key, new int(QFontMetrics(ofSize(pixels)).horizontalAdvance(text)));
    return *m_widths.object(key);
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
