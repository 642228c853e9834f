#pragma once

#include <QColor>

/// The colours of a graph on one of its two backgrounds: the ones everybody knows, or distinct ones. Those of
/// a plot differ in their lightness too, so that they are told apart without seeing red or green, and have a
/// contrast of 3 to 1 to the background.
class GraphColours {
public:
    explicit GraphColours(bool black, bool distinct = false);

    QColor background() const { return m_black ? Qt::black : Qt::white; }
    QColor text() const { return m_black ? Qt::white : Qt::black; }
    QColor grid() const;
    QColor axis() const;
    QColor highlight() const; ///< behind a marked row of the legend
    QColor heading() const;
    QColor note() const;

    QColor voltage() const;
    QColor current() const;
    QColor temperature() const;
    QColor resistance() const;
    QColor slope() const; ///< dV and energy
    /// Sixteen that differ from each other on either background; distinct ones do with their styles.
    QColor cell(int index) const;
    QColor cellMax() const { return cell(0); }
    QColor cellAverage() const { return cell(1); }
    QColor cellMin() const { return cell(2); }
    QColor cellDelta() const { return cell(3); }

    /// How the `place`th curve of a plot is dashed, four in turn; all lines are solid if they needn't be
    /// distinct.
    Qt::PenStyle style(int place) const;
    Qt::PenStyle cellStyle(int index) const;

    /// Width of a curve's pen, px. A thin line is harder to see on white.
    int curveWidth() const { return m_black && !m_distinct ? 1 : 2; }

    /// `colour`, or its hue darker or lighter, so that a text in it can be read: contrast of at
    /// least 4.5 to 1 against `background`.
    static QColor readable(const QColor &colour, const QColor &background);
    QColor readable(const QColor &colour) const { return readable(colour, background()); }

private:
    QColor distinct(const QColor &onBlack, const QColor &onWhite, const QColor &usual) const;

    bool m_black;
    bool m_distinct;
};
