#pragma once

#include <QStringList>

struct GraphRequest;
struct GraphScene;

/// What changes between the two cursors of `request`, from the earlier record to the later one: time, charge
/// and the value of each curve of `scene` that has one at both. Without a first cursor the newest record
/// counts. Empty without a second one.
QStringList cursorDifference(const GraphRequest &request, const GraphScene &scene);
/// A change of `value` with its sign, of which nothing is left where it is rounded away.
QString signedFigure(double value, int decimals);
