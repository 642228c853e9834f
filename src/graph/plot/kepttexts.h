#pragma once

#include <QCache>
#include <QPair>
#include <QString>

class QPainter;
class QPoint;
class QRect;
class QTextLayout;

/// Draws the texts of a graph, pixel by pixel as a painter does. Most are drawn again and again, and to find
/// the letters of a text and their places takes longer than to paint them, so that these are kept.
class KeptTexts {
public:
    KeptTexts();
    ~KeptTexts();
    KeptTexts(const KeptTexts &) = delete;
    KeptTexts &operator=(const KeptTexts &) = delete;

    /// As QPainter::drawText() does with the painter's font and pen. The font is Arial, sized in pixels.
    void draw(QPainter *painter, const QPoint &start, const QString &text);
    void draw(QPainter *painter, const QRect &rect, int flags, const QString &text);

private:
    using Key = QPair<int, QString>; // the font's size, below 0 for a bold one

    const QTextLayout &laidOut(const QPainter &painter, const QString &text);

    QCache<Key, QTextLayout> m_kept{250};
};
