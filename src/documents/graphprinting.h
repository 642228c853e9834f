#pragma once

class MdiGraphChild;
class QString;
class QWidget;
struct PrintJob;

/// The graph of `child` as it is shown, for white paper; draws nothing once `child` has gone. As a file
/// it is presented under `name`.
PrintJob graphPrintJob(MdiGraphChild *child, const QString &name);
/// Lets the user print the graph of `child`. The dialog stands above `window`.
void printGraph(MdiGraphChild *child, const QString &name, QWidget *window);
