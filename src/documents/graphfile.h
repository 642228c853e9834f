#pragma once

#include <QString>

class QIODevice;
struct GraphRequest;

/// Formats that a graph can be drawn to, by the ending of a file's name.
enum class GraphFormat { Unknown, Png, Svg, Pdf };

/// The format that `fileName` ends in, whatever its case.
GraphFormat graphFormat(const QString &fileName);

/// Draws `request` to `device` in `format`, as the screen shows it; SVG and PDF hold lines and texts, not
/// pixels. False when the device did not take all of it or the picture is too large to hold.
bool writeGraph(const GraphRequest &request, GraphFormat format, QIODevice *device);
