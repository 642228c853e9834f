#pragma once

#include "graph/scene/graphlayout.h"

#include <QColor>
#include <QCoreApplication>
#include <QString>

struct GraphRequest;

/// What a graph shows: which curves, axes and legend texts stand in which plot. Made from a
/// request; knows no pixel but widths.
struct GraphScene {
    Q_DECLARE_TR_FUNCTIONS(GraphScene)

public:
    struct Curve {
        PlotArea area;
        int series; ///< SeriesStore::Kind
        int first; ///< first record drawn
        Interval range; ///< of the whole area, before any zoom; in the series' unit
        QColor colour;
        Qt::PenStyle style;
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
        Qt::PenStyle style; ///< of its curve
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

    /// The scene of `request`, which has at least one record.
    static GraphScene of(const GraphRequest &request);

private:
    void addVoltage(const GraphRequest &request);
    void addSlope(const GraphRequest &request);
    void addEnergy(const GraphRequest &request);
    void addCells(const GraphRequest &request);
    void addStatistics(const GraphRequest &request);
    void addCurrent(const GraphRequest &request);
    void addTemperature(const GraphRequest &request);
    void addResistance(const GraphRequest &request);
};
