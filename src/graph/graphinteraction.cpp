#include "graph/graphinteraction.h"

#include "graph/scene/celllegend.h"
#include "series/seriesstore.h"
#include "settings/viewstate.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

#include <cmath>

namespace {

constexpr double wheelFactor = 1.25; // a step of the wheel, which is 120 units
constexpr double wheelStep = 120.0;
constexpr double buttonFactor = 2.0;
constexpr int smallestSelection = 4; // px; less was no selection

} // namespace

GraphInteraction::GraphInteraction(QWidget *widget, const SeriesStore *store, const ViewState *state)
    : QObject(widget)
    , m_widget(widget)
    , m_store(store)
    , m_state(state)
    , m_view(store)
{
    connect(&m_cells, SIGNAL(changed()), widget, SLOT(update()));
}

void GraphInteraction::dataArrived()
{
    if (!m_state->switches().holdView)
        showNewest();
    else if (!zoom().isActive())
        m_heldRecords = 0;
    else if (m_heldRecords == 0)
        m_heldRecords = m_store->size() - 1;
}

int GraphInteraction::rangedRecords() const
{
    const bool held = m_heldRecords > 0 && zoom().isActive() && m_store->isTimeMonotone();
    return held ? qMax(m_heldRecords, m_view.lastShown() + 1) : 0;
}

void GraphInteraction::startAnew()
{
    showNewest();
    m_marked = none;
}

// The second cursor was set on purpose: it is measured from while a recording goes on.
void GraphInteraction::showNewest()
{
    m_view.showAll();
    m_heldRecords = 0;
    m_selecting = false;
    m_cursor = none;
    endDrag();
}

void GraphInteraction::resize(const QSize &size, double scale)
{
    m_scale = GraphLayout::fittingScale(size, scale);
    m_view.resize(size / m_scale);
    m_selecting = false;
}

QPoint GraphInteraction::inPicture(const QPointF &position) const
{
    return (position / m_scale).toPoint();
}

int GraphInteraction::cellsInLegend() const
{
    const ViewSwitches &switches = m_state->switches();
    return switches.balancer && !switches.average && m_store->hasCellData() ? m_store->cellSeriesCount() : -1;
}

void GraphInteraction::pointAt(const QPoint &position)
{
    if (!QRect(0, 0, m_view.layout().width(), m_view.layout().height()).contains(position))
        return;
    m_area = m_view.areaAt(position).value_or(m_area);
    const int record = m_view.recordAt(position.x());
    const int cursor = position.x() <= m_view.layout().plotRight() ? record : none;
    if (cursor != m_cursor) {
        m_cursor = cursor;
        m_widget->update();
    }
    if (record >= 0)
        emit recordPointedAt(record);
}

void GraphInteraction::press(const QMouseEvent *event)
{
    if (!m_widget->isActiveWindow())
        return;
    const QPoint position = inPicture(event->localPos());
    pointAt(position);
    const std::optional<PlotArea> area = m_view.areaAt(position);
    if (event->button() == Qt::LeftButton) {
        if (pressLegend(position, event->modifiers() & Qt::ControlModifier) || !area)
            return;
        if (event->modifiers() & Qt::ShiftModifier) {
            toggleMark(m_cursor);
            return;
        }
        m_selecting = true;
        m_selectionStart = position;
        m_rubberBand = QRect();
    } else if (event->button() == Qt::RightButton && zoom().isActive()) {
        m_dragging = true;
        m_dragPoint = position;
        m_widget->setCursor(Qt::ClosedHandCursor);
    }
}

void GraphInteraction::toggleMark(int record)
{
    m_marked = m_marked < 0 ? record : none;
    m_widget->update();
}

bool GraphInteraction::pressLegend(const QPoint &position, bool toggle)
{
    const int cells = cellsInLegend();
    if (cells < 0)
        return false;
    const int cell = CellLegend(m_view.layout(), cells).cellAt(position);
    if (cell < 0 && position.x() < m_view.layout().legend().left()) // two columns begin left of it
        return false;
    m_cells.click(cell, toggle);
    return true;
}

void GraphInteraction::move(const QMouseEvent *event)
{
    const QPoint position = inPicture(event->localPos());
    if (event->buttons() == Qt::NoButton)
        pointAt(position);
    if (m_selecting)
        select(position);
    if (m_dragging) {
        m_view.moveBy(position - m_dragPoint, m_area);
        m_dragPoint = position;
        m_widget->update();
    }
}

void GraphInteraction::select(const QPoint &position)
{
    const QRect spanned = QRect(m_selectionStart, position).normalized();
    m_rubberBand = spanned & m_view.layout().area(m_area);
    m_widget->update();
}

void GraphInteraction::release(const QMouseEvent *event)
{
    const QPoint position = inPicture(event->localPos());
    if (event->button() == Qt::RightButton) {
        endDrag();
    } else if (event->button() == Qt::LeftButton && m_selecting) {
        endSelection();
    } else if (event->button() == Qt::MiddleButton && m_widget->isActiveWindow()) {
        const bool out = event->modifiers() & Qt::ControlModifier;
        stepZoom(out ? 1 / buttonFactor : buttonFactor, position);
    }
    pointAt(position); // what is under the pointer may have changed without its moving
}

void GraphInteraction::endSelection()
{
    m_selecting = false;
    if (m_rubberBand.width() > smallestSelection && m_rubberBand.height() > smallestSelection)
        m_view.showRect(m_area, m_rubberBand);
    m_widget->update();
}

// Around a point of a plot, in time and value; elsewhere there is no value, and only the time is left.
void GraphInteraction::stepZoom(double factor, const QPoint &position)
{
    const std::optional<PlotArea> area = m_view.areaAt(position);
    m_view.zoomTimes(factor, position.x());
    if (area)
        m_view.zoomValues(factor, *area, position.y());
    m_widget->update();
}

void GraphInteraction::endDrag()
{
    if (m_dragging)
        m_widget->unsetCursor();
    m_dragging = false;
}

void GraphInteraction::doubleClick(const QMouseEvent *event)
{
    const QPoint position = inPicture(event->localPos());
    if (event->button() == Qt::RightButton)
        press(event); // of a drag that follows another one quickly
    if (event->button() == Qt::LeftButton && event->modifiers() & Qt::ShiftModifier)
        return press(event); // the second of two that set and take away
    if (event->button() != Qt::LeftButton || pressLegend(position, event->modifiers() & Qt::ControlModifier))
        return;
    m_view.showAll();
    pointAt(position);
    m_widget->update();
}

void GraphInteraction::leave()
{
    m_cursor = none;
    m_widget->unsetCursor();
    m_widget->update();
    pointAtNewest();
}

void GraphInteraction::pointAtNewest()
{
    if (!m_store->isEmpty())
        emit recordPointedAt(m_store->size() - 1);
}

bool GraphInteraction::wheel(const QWheelEvent *event)
{
    const QPoint position = inPicture(event->position());
    // with Alt held, some systems turn the wheel sideways
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    const double factor = std::pow(wheelFactor, turned / wheelStep);
    const std::optional<PlotArea> area = m_view.areaAt(position);
    if (turned == 0 || m_store->isEmpty() || !area)
        return false;
    if (event->modifiers() & Qt::ControlModifier)
        m_view.zoomValues(factor, *area, position.y());
    else
        m_view.zoomTimes(factor, position.x());
    pointAt(position);
    m_widget->update();
    return true;
}
