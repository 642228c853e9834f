#pragma once

#include <QColor>

/// The colours of a graph on one of its two backgrounds.
class GraphColours {
public:
    explicit GraphColours(bool black);

    QColor background() const { return m_black ? Qt::black : Qt::white; }
    QColor text() const { return m_black ? Qt::white : Qt::black; }
    QColor grid() const;
    QColor axis() const;
    QColor highlight() const; ///< behind a marked row of the legend
    QColor heading() const;
    QColor note() const;

    QColor voltage() const { return {0x00, 0xFF, 0x00}; }
    QColor current() const;
    QColor temperature() const { return {255, 0, 0}; }
    QColor resistance() const { return {0xC7, 0x15, 0x85}; }
    QColor slope() const; ///< dV and energy
    QColor cell(int index) const; ///< sixteen that differ from each other on either background
    QColor cellMax() const { return cell(0); }
    QColor cellAverage() const { return cell(1); }
    QColor cellMin() const { return cell(2); }
    QColor cellDelta() const { return cell(3); }

    /// Width of a curve's pen, px. A thin line is harder to see on white.
    int curveWidth() const { return m_black ? 1 : 2; }

    /// `colour`, or its hue darker or lighter, so that a text in it can be read: contrast of at
    /// least 4.5 to 1 against `background`.
    static QColor readable(const QColor &colour, const QColor &background);
    QColor readable(const QColor &colour) const { return readable(colour, background()); }

private:
    bool m_black;
};
