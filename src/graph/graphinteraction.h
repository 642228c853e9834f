#pragma once

#include "graph/cellpicker.h"
#include "graph/graphviewport.h"
#include "widgets/keybinding.h"

class QMouseEvent;
class QWheelEvent;
class QWidget;
class ViewState;

/// What mouse and keyboard do to a graph: the cursor that walks along the records and the second one that is
/// set beside it, the zoom, the picked cells. The widget forwards its events and paints what this says.
class GraphInteraction : public QObject {
    Q_OBJECT

public:
    /// All outlive this. `widget` shows the graph over all its size, and its events are of its own pixels.
    GraphInteraction(QWidget *widget, const SeriesStore *store, const ViewState *state);

    const GraphZoom &zoom() const { return m_view.zoom(); }
    /// Records, from the first on, whose values the axes are to cover; 0 for all. A held view keeps its axes
    /// until it is moved to newer ones.
    int rangedRecords() const;
    /// Record that the cursor line stands at; -1 for none, and while the left button is picking.
    int cursorRecord() const { return m_selecting ? -1 : m_cursor; }
    /// Record that the second cursor was set at; -1 for none. Records that come in leave it.
    int markedRecord() const { return m_marked; }
    /// What the left button is picking; empty while it does not.
    QRect rubberBand() const { return m_selecting ? m_rubberBand : QRect(); }
    CellPicker *cells() { return &m_cells; }
    const CellPicker *cells() const { return &m_cells; }

    void press(const QMouseEvent *event);
    void move(const QMouseEvent *event);
    void release(const QMouseEvent *event);
    void doubleClick(const QMouseEvent *event);
    void leave();
    /// The widget now shows the graph at this size, its letters enlarged by `scale` as far as there is room.
    void resize(const QSize &size, double scale);
    /// False for an event that means nothing here.
    bool wheel(const QWheelEvent *event);
    bool key(const QKeyEvent *event);
    /// A record came in: unless the view is held, as below.
    void dataArrived();
    /// All of the recording is shown, without cursors, and nothing is being picked.
    void startAnew();

signals:
    /// The pointer or the cursor came to `record`, or went away and left the newest one to be shown.
    void recordPointedAt(int record);

private:
    static constexpr int none = GraphViewport::none;
    static const KeyBinding<GraphInteraction> keyBindings[];

    QPoint inPicture(const QPointF &position) const;
    void pointAt(const QPoint &position);
    bool pressLegend(const QPoint &position, bool toggle);
    void pointAtNewest();
    void toggleMark(int record);
    void showNewest();
    void select(const QPoint &position);
    void endSelection();
    void stepZoom(double factor, const QPoint &position);
    void endDrag();
    int cellsInLegend() const;
    int centreColumn() const;

    void moveCursor(int direction, Qt::KeyboardModifiers modifiers);
    void movePart(int direction, Qt::KeyboardModifiers modifiers);
    void moveValues(int direction, Qt::KeyboardModifiers modifiers);
    void zoomByKey(int direction, Qt::KeyboardModifiers modifiers);
    void choosePlot(int area, Qt::KeyboardModifiers modifiers);
    void pickCell(int direction, Qt::KeyboardModifiers modifiers);
    void markByKey(int direction, Qt::KeyboardModifiers modifiers);
    void showAll(int direction, Qt::KeyboardModifiers modifiers);
    void giveUp(int direction, Qt::KeyboardModifiers modifiers);

    QWidget *m_widget; // not owned
    const SeriesStore *m_store; // not owned
    const ViewState *m_state; // not owned
    GraphViewport m_view;
    double m_scale = 1.0; // the widget's pixels to one that the layout counts in
    CellPicker m_cells;
    int m_cursor = none;
    int m_marked = none; // second cursor
    PlotArea m_area = PlotArea::Upper; // where the pointer was last
    bool m_selecting = false;
    QPoint m_selectionStart;
    QRect m_rubberBand;
    int m_heldRecords = 0; // that there were when the zoomed view began to be held
    bool m_dragging = false;
    QPoint m_dragPoint;
};
