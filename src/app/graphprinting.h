#pragma once

class MdiGraphChild;
class QWidget;
struct PrintJob;

/// The graph of `child` as it is shown, for white paper; draws nothing once `child` has gone.
PrintJob graphPrintJob(MdiGraphChild *child);
/// Lets the user print the graph of `child`. The dialog stands above `window`.
void printGraph(MdiGraphChild *child, QWidget *window);
