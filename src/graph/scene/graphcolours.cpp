#include "graph/scene/graphcolours.h"

#include <cmath>

namespace {

// Far from each other in a perceptual space, and none too dark for black or too light for white.
constexpr QRgb cellColours[] = {0xFF0022, 0x00BB00, 0x0066FF, 0xFF8800, 0xEE00FF, 0x00BBAA, 0xAAAA00,
    0x775522, 0x66AAFF, 0xAA2244, 0x116611, 0x773388, 0xCC99AA, 0x225566, 0x2200FF, 0xFF11AA};

constexpr int toneCount = 4;
constexpr QRgb tones[2][toneCount] = {{0x000000, 0xB07000, 0x0060FF, 0xA0105A}, // on white
    {0xFFFFFF, 0xFFB000, 0x40A0FF, 0xC03090}}; // on black

constexpr Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};

double linear(double part)
{
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

} // namespace

GraphColours::GraphColours(bool black, bool distinct)
    : m_black(black)
    , m_distinct(distinct)
{
}

QColor GraphColours::grid() const
{
    return m_black ? QColor(80, 80, 80) : QColor(215, 215, 215);
}

QColor GraphColours::axis() const
{
    return m_black ? QColor(170, 170, 170) : QColor(90, 90, 90);
}

QColor GraphColours::highlight() const
{
    return m_black ? QColor(60, 60, 60) : QColor(222, 226, 230);
}

QColor GraphColours::current() const
{
    const QColor usual = m_black ? QColor(0x00, 0xFF, 0xFF) : QColor(0x00, 0x7A, 0xF5);
    return distinct(usual, QColor(0x00, 0x7A, 0xF5), usual);
}

QColor GraphColours::voltage() const
{
    return distinct({0x00, 0xFF, 0x00}, {0x00, 0x50, 0x00}, {0x00, 0xFF, 0x00});
}

QColor GraphColours::temperature() const
{
    return distinct({0xFF, 0x50, 0x50}, {0xC0, 0x00, 0x00}, {255, 0, 0});
}

QColor GraphColours::resistance() const
{
    return distinct({0xA0, 0x60, 0xFF}, {0x50, 0x00, 0x60}, {0xC7, 0x15, 0x85});
}

QColor GraphColours::heading() const
{
    return readable(current());
}

QColor GraphColours::note() const
{
    return readable(QColor(0xFF, 0xA5, 0x00));
}

QColor GraphColours::slope() const
{
    const QColor usual = m_black ? QColor(0xFF, 0xFF, 0x00) : QColor(0xFF, 0xD7, 0x00);
    return distinct({0xC0, 0x60, 0x00}, {0xC0, 0x78, 0x00}, usual);
}

QColor GraphColours::distinct(const QColor &onBlack, const QColor &onWhite, const QColor &usual) const
{
    return !m_distinct ? usual : m_black ? onBlack : onWhite;
}

QColor GraphColours::cell(int index) const
{
    return m_distinct ? QColor(tones[m_black][index % toneCount])
                      : QColor(cellColours[index % int(std::size(cellColours))]);
}

Qt::PenStyle GraphColours::style(int place) const
{
    return m_distinct ? styles[place % int(std::size(styles))] : Qt::SolidLine;
}

// Neighbours differ in both tone and style; each pair of them comes once in sixteen cells.
Qt::PenStyle GraphColours::cellStyle(int index) const
{
    return style(index + index / toneCount);
}

QColor GraphColours::readable(const QColor &colour, const QColor &background)
{
    constexpr double least = 4.5;
    constexpr qreal step = 0.02;
    const bool lighter = luminance(background) < 0.18;
    QColor text = colour;
    qreal lightness = colour.lightnessF();
    while (contrast(text, background) < least) { // which white or black have at the latest
        lightness = qBound(qreal(0), lightness + (lighter ? step : -step), qreal(1));
        text = QColor::fromHslF(colour.hslHueF(), colour.hslSaturationF(), lightness);
    }
    return text;
}
