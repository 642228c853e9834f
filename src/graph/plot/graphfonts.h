#pragma once

#include <QCache>
#include <QFont>
#include <QMap>
#include <QPair>
#include <QString>

/// The fonts of a graph's texts. Looking a font up and measuring a text costs more than drawing a long curve,
/// so that both are remembered: keep one with each painter.
class GraphFonts {
public:
    /// A font and what a text measures in it at most, px; exactly, where that is more than was asked for.
    struct Fit {
        QFont font;
        int width;
    };

    /// Arial of `points` at 96 dpi, on every device, because the layout counts in such pixels.
    QFont font(double points);
    /// font(points), or smaller so that `text` is at most `width` px wide, if that can still be read.
    Fit fit(double points, const QString &text, int width);
    /// The font of `pixels` px.
    QFont ofSize(int pixels);
    /// Width of `text` in it, px.
    int widthIn(int pixels, const QString &text);
    /// No less than widthIn(). The same for all figures of as many digits, so that little has to be measured.
    int mostWidthIn(int pixels, QString text);

private:
    QMap<int, QFont> m_fonts; // by size, px
    QCache<QPair<int, QString>, int> m_widths{250};
};
