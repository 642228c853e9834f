#pragma once

#include "displays/packvoltages.h"
#include "displays/voltageaxis.h"

#include <QRect>
#include <QVector>

class QPainter;

/// The voltage comparison as a picture: a group of bars for each graph window, on one voltage axis.
class VoltageChart {
public:
    /// Which cells are shown.
    enum Selection { AllButSelected, All, OnlySelected, selectionCount };
    struct CellRef {
        int pack = -1; ///< index, -1 for none
        int cell = -1; ///< index
    };

    QVector<PackVoltages> packs;
    Selection selection = All;
    int oneCell = -1; ///< index of the cell shown of every window, -1 for all of them
    bool distinct = false; ///< the highest and the lowest cell differ in lightness, too
    bool blackGround = true; ///< what is behind the picture: decides the colours
    qreal scale = 1.0; ///< enlarges all fixed sizes

    /// Indexes of the cells shown of `pack`.
    QVector<int> shownCells(const PackVoltages &pack) const;
    /// Why none is shown of `pack`.
    QString noCellText(const PackVoltages &pack) const;
    /// Width of the picture when `available` pixels are there: more where the groups need it to be readable.
    int contentWidth(int available) const;
    /// Part of `available` that the groups have, beside the axis.
    int groupsWidth(int available) const;
    /// What of the groups, scrolled by `scroll` in a picture `available` wide, comes first: the leftmost pack
    /// whose beginning is seen, or that of which any is. -1 without packs.
    int firstSeen(int available, int scroll) const;
    /// How far pack `pack`'s group lies from the beginning of the groups in a picture `available` wide.
    int groupStart(int pack, int available) const;
    /// The cell whose bar column holds `point` of the picture drawn into `size` with `scroll`.
    CellRef cellAt(const QPoint &point, const QSize &size, int scroll) const;
    /// Bar of `cell` of pack `pack`, as drawn; empty where it is not shown.
    QRect barRect(int pack, int cell, const QSize &size, int scroll) const;

    /// Draws into (0, 0, `size`), without the ground. The axis stays while the
    /// groups are moved left by `scroll`.
    void paint(QPainter &painter, const QSize &size, int scroll = 0) const;
    /// Size of the picture of all packs in rows, for a page.
    QSize pageSize() const;
    /// Draws all packs in rows into (0, 0, pageSize()).
    void paintPage(QPainter &painter) const;

private:
    struct Group {
        int left = 0; // in the picture, unscrolled
        int width = 0;
        int pitch = 0; // from bar to bar
    };

    int px(int pixels) const { return qRound(pixels * scale); }
    int bottom(int height) const;
    int top() const;
    int groupWidth(const PackVoltages &pack, int pitch) const;
    QVector<Group> groups(int available) const;
    VoltageAxis axis() const;
    void paintAxis(QPainter &painter, const VoltageAxis &axis, const QSize &size) const;
    void paintGroup(
        QPainter &painter, const VoltageAxis &axis, int pack, const Group &group, int height) const;
    void paintBars(
        QPainter &painter, const VoltageAxis &axis, int pack, const Group &group, int height) const;
    void paintHeader(QPainter &painter, const PackVoltages &pack, const Group &group) const;
    void paintFigures(QPainter &painter, const PackVoltages &pack, const Group &group, int height) const;
    QRect barIn(
        const Group &group, int slot, int count, int voltage, const VoltageAxis &axis, int height) const;
    int pageRows() const;
    VoltageChart row(int index) const;

    VoltageAxis m_pageAxis; // of all rows of a page
    bool m_isRow = false;
};
