#pragma once

#include "overlay/scene/overlayrequest.h"

#include <QColor>
#include <QCoreApplication>
#include <QString>
#include <QVector>

/// What an overlay shows: curves, axes and the texts of the legend. Made from a request; knows no pixel but
/// widths.
struct OverlayScene {
    Q_DECLARE_TR_FUNCTIONS(Overlay)

public:
    struct Line { ///< how an entry is drawn
        QColor colour;
        Qt::PenStyle style;
        int width; ///< px
    };
    struct Row { ///< of the legend
        QString name;
        QString figures; ///< at the cursor, between the cursors, or of all of it
    };
    struct Tick {
        double at; ///< a place, or a value in the unit of the series
        QString text;
    };

    QString heading; ///< the value, where the cursor stands or what lies between the two
    QString reason; ///< why there is no curve; empty while there is one
    QString unit; ///< of the values' texts
    QVector<Line> lines; ///< by entry
    QVector<Row> rows; ///< the same
    QVector<Tick> places;
    QVector<Tick> values;

    /// With at most so many divisions of the axes.
    static OverlayScene of(const OverlayRequest &request, int mostPlaces = 1, int mostValues = 1);
    static QString valueName(OverlayValue value);
    /// Of the axis itself.
    static QString axisName(OverlayAxis axis);
    /// Such as "00:45:00" and "1,250 mAh".
    static QString placeText(OverlayAxis axis, double place);
};
