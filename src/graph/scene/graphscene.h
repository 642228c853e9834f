#pragma once

#include "graph/scene/graphlayout.h"

#include <QColor>
#include <QString>

struct GraphPicture;

/// What a graph shows: which curves, axes and legend texts stand in which plot. Made from a
/// picture, it knows no pixel but widths.
struct GraphScene {
    struct Curve {
        PlotArea area;
        int series; ///< SeriesStore::Kind
        int first; ///< first record drawn
        Interval range; ///< of the whole area, before any zoom; in the series' unit
        QColor colour;
        int width;
        QString name;
        QString unit; ///< that its values are told in
        double factor = 1.0; ///< from the series' unit to `unit`
        int decimals = 2;
    };
    enum class Side { Left, Right };
    struct Axis {
        PlotArea area;
        Side side;
        Interval range; ///< in `unit`, before any zoom
        QString unit;
        int decimals;
        int fieldWidth;
        QColor colour;
    };
    struct Entry {
        QString name;
        QString value;
        QColor colour;
        bool marked = false;
    };

    QVector<Curve> curves; ///< the first on top of the others: a noisy curve would hide a steady one
    QVector<Axis> axes;
    QVector<Entry> upperLegend;
    QVector<Entry> lowerLegend;
    /// The upper legend has one row an entry, about the cells, under this heading; empty otherwise.
    QString cellHeading;
    QString cellUnit; ///< of the rows' values
    /// Why the upper plot is empty; empty when it is not.
    QString upperReason;

    /// The scene of `picture`, which has at least one record.
    static GraphScene of(const GraphPicture &picture);

private:
    void addVoltage(const GraphPicture &picture);
    void addSlope(const GraphPicture &picture);
    void addEnergy(const GraphPicture &picture);
    void addCells(const GraphPicture &picture);
    void addStatistics(const GraphPicture &picture);
    void addCurrent(const GraphPicture &picture);
    void addTemperature(const GraphPicture &picture);
    void addResistance(const GraphPicture &picture);
};
