#pragma once

#include <QDateTime>
#include <QRect>
#include <QString>
#include <QVector>

class QColor;
class QPainter;

/// One recorded process in the capacity comparison.
struct CapacityEntry {
    int capacity = 0; ///< mAh
    char mode = ' '; ///< 'C' charge, 'D' discharge, else another process
    int number = 0; ///< of its graph window
    QString recorded = {}; ///< what its window holds: number, device, file or port, pack
    QDateTime staleSince = {}; ///< valid while its live window waits for a line: it is dimmed

    /// All of it, as a line of text.
    QString text() const;
};

/// The capacity comparison as a picture: up to eight bars side by side,
/// each against the largest of all entries.
class CapacityChart {
public:
    static constexpr int visibleBars = 8;

    QVector<CapacityEntry> entries;
    int first = 0; ///< index of the leftmost visible entry
    bool blackGround = true; ///< what is behind the picture: decides the colour of the texts beside the bars
    bool distinct = false; ///< bars differ in lightness and carry letters: C charge, D discharge, B another
    qreal scale = 1.0; ///< enlarges all fixed sizes

    /// Space above the full scale and below the baseline in a picture `height` high.
    int margin(int height) const;
    /// y coordinate of the top of entry `index`'s bar.
    int barTop(int index, int height) const;
    /// The bar of entry `index` in a picture of `size`.
    QRect barRect(int index, const QSize &size) const;
    /// Index of the entry whose column holds `point`, -1 for none.
    int entryAt(const QPoint &point, const QSize &size) const;
    /// Index one past the rightmost visible entry.
    int visibleEnd() const;
    /// Capacity of entry `index` in per cent of the largest of all entries.
    double percent(int index) const;

    /// Draws into (0, 0, `size`), without the ground.
    void paint(QPainter &painter, const QSize &size) const;
    /// Size of the picture of `size` with a line of text for each visible entry under it, for a page.
    QSize pageSize(const QSize &size) const;
    /// Draws that into (0, 0, pageSize(`size`)).
    void paintPage(QPainter &painter, const QSize &size) const;

private:
    int px(int pixels) const { return qRound(pixels * scale); }
    int largest() const; // of one entry at least
    void paintLines(QPainter &painter, const QSize &size) const;
    void paintEntry(QPainter &painter, int index, const QSize &size) const;
    void paintBar(QPainter &painter, int index, const QRect &bar) const;
    void paintLetter(QPainter &painter, char letter, const QRect &bar, bool onDark) const;
    void paintBoxes(QPainter &painter, int index, const QRect &bar) const;
    void paintFigures(QPainter &painter, int index, const QRect &bar, int space) const;
};
