#pragma once

class MdiGraphChild;
class QWidget;
class StatusFacts;

/// What tool tips of the status bar and of the title of `current`, which may be null, tell the mouse, in a
/// box of its own above `window`.
void showExplanations(QWidget *window, const StatusFacts &facts, const MdiGraphChild *current);
