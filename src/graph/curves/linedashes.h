#pragma once

#include <QPolygonF>
#include <QRegion>
#include <QVector>

class QRect;

/// Where a line is broken: by columns of pixels, so that a line through a hundred samples a column has the
/// same dashes as one through two. Steep stretches are whole: no peak falls into a gap.
class LineDashes {
public:
    /// A stroke from `begin` up to `end`, px.
    struct Stroke {
        qreal begin, end;
    };

    /// Of `style`, the first dash beginning at `origin`; `unit` px is the length of its dots.
    LineDashes(Qt::PenStyle style, qreal origin, qreal unit);

    bool isSolid() const { return m_lengths.isEmpty(); }
    /// The dashes between `begin` and `end`, cut there; one if solid.
    QVector<Stroke> strokes(qreal begin, qreal end) const;
    /// What is inked of a line through `points`; nothing far beside `area`.
    QVector<QPolygonF> pieces(const QRect &area, const QPolygonF &points) const;
    /// The part of `area` in which a curve on whole pixels is inked that consists of `spans`, a rectangle or
    /// more a column, and of lines through `points`.
    QRegion inked(const QRect &area, const QVector<QRect> &spans, const QPolygonF &points) const;

private:
    bool isSteep(qreal width, qreal height) const;
    bool isHigh(qreal height) const;

    QVector<int> m_lengths; // dash and gap in turn, in units; empty for none
    qreal m_origin;
    qreal m_unit;
};
