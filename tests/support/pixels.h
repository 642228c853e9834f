#pragma once

#include <QColor>
#include <QImage>

#include <cmath>

/// How many pixels of `image` within `rect` have exactly this colour.
inline int countOf(const QImage &image, const QRect &rect, const QColor &colour)
{
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            count += image.pixelColor(x, y) == colour;
    }
    return count;
}

inline double luminance(const QColor &colour)
{
    const auto linear
        = [](double part) { return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

/// From 1 to 21, by the rules for legible texts.
inline double contrast(const QColor &a, const QColor &b)
{
    const double light = qMax(luminance(a), luminance(b)) + 0.05;
    return light / (qMin(luminance(a), luminance(b)) + 0.05);
}
