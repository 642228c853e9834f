#pragma once

#include <QSize>
#include <QString>

#include <functional>

class QIODevice;
class QPainter;
struct GraphRequest;

/// Formats that a graph can be drawn to, by the ending of a file's name.
enum class GraphFormat { Unknown, Png, Svg, Pdf };

/// What can be drawn at any size and density.
struct Picture {
    QSize size; ///< px at 96 dpi
    std::function<void(QPainter *)> paint; ///< into (0, 0, size)
};

/// The format that `fileName` ends in, whatever its case.
GraphFormat graphFormat(const QString &fileName);

/// Draws `picture` to `device` in `format`, as the screen shows it; SVG and PDF hold lines and texts, not
/// pixels. False when the device did not take all of it or the picture is too large to hold.
bool writePicture(const Picture &picture, GraphFormat format, QIODevice *device);
/// The same with the graph of `request`.
bool writeGraph(const GraphRequest &request, GraphFormat format, QIODevice *device);
