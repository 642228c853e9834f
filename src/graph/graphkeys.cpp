// The keyboard's way to everything that the mouse does to a graph.
#include "graph/graphinteraction.h"

#include "series/seriesstore.h"

#include <QWidget>

#include <cmath>

namespace {

constexpr double keyFactor = 1.25;
constexpr int fastCursor = 10; // px
constexpr int partsOfPicture = 10; // a key moves a zoomed picture by one of them

} // namespace

const KeyBinding<GraphInteraction> GraphInteraction::keyBindings[] = {
    {Qt::Key_Left, Qt::ControlModifier, &GraphInteraction::movePart, -1},
    {Qt::Key_Right, Qt::ControlModifier, &GraphInteraction::movePart, 1},
    {Qt::Key_Up, Qt::ControlModifier, &GraphInteraction::pickCell, -1},
    {Qt::Key_Down, Qt::ControlModifier, &GraphInteraction::pickCell, 1},
    {Qt::Key_Left, Qt::NoModifier, &GraphInteraction::moveCursor, -1},
    {Qt::Key_Right, Qt::NoModifier, &GraphInteraction::moveCursor, 1},
    {Qt::Key_Up, Qt::NoModifier, &GraphInteraction::moveValues, 1},
    {Qt::Key_Down, Qt::NoModifier, &GraphInteraction::moveValues, -1},
    {Qt::Key_Plus, Qt::NoModifier, &GraphInteraction::zoomByKey, 1},
    {Qt::Key_Equal, Qt::NoModifier, &GraphInteraction::zoomByKey, 1}, // '+' without Shift
    {Qt::Key_Minus, Qt::NoModifier, &GraphInteraction::zoomByKey, -1},
    {Qt::Key_PageUp, Qt::NoModifier, &GraphInteraction::choosePlot, int(PlotArea::Upper)},
    {Qt::Key_PageDown, Qt::NoModifier, &GraphInteraction::choosePlot, int(PlotArea::Lower)},
    {Qt::Key_Space, Qt::ShiftModifier, &GraphInteraction::markByKey},
    {Qt::Key_Home, Qt::NoModifier, &GraphInteraction::showAll},
    {Qt::Key_Escape, Qt::NoModifier, &GraphInteraction::giveUp},
};

bool GraphInteraction::key(const QKeyEvent *event)
{
    if (m_store->isEmpty())
        return false;
    if (!actOnKey(this, keyBindings, *event))
        return false;
    m_widget->update();
    return true;
}

int GraphInteraction::centreColumn() const
{
    const GraphLayout layout = m_view.layout();
    return m_cursor >= 0 ? m_view.columnOf(m_cursor) : (layout.plotLeft() + layout.plotRight()) / 2;
}

// The first step comes in from the end that is left behind: from what the displays show, as a rule.
void GraphInteraction::moveCursor(int direction, Qt::KeyboardModifiers modifiers)
{
    const int step = modifiers & Qt::ShiftModifier ? fastCursor : 1;
    if (m_cursor >= 0)
        m_cursor = m_view.recordBeside(m_cursor, direction, step);
    else
        m_cursor = direction == 1 ? m_view.firstShown() : m_view.lastShown();
    m_view.reveal(m_cursor);
    emit recordPointedAt(m_cursor);
}

void GraphInteraction::movePart(int direction, Qt::KeyboardModifiers)
{
    const QRect rect = m_view.layout().area(m_area);
    m_view.moveBy(QPoint(-direction * rect.width() / partsOfPicture, 0), m_area);
}

void GraphInteraction::moveValues(int direction, Qt::KeyboardModifiers)
{
    const QRect rect = m_view.layout().area(m_area);
    m_view.moveBy(QPoint(0, direction * rect.height() / partsOfPicture), m_area);
}

void GraphInteraction::zoomByKey(int direction, Qt::KeyboardModifiers modifiers)
{
    const double factor = std::pow(keyFactor, direction);
    if (modifiers & Qt::ControlModifier)
        m_view.zoomValues(factor, m_area, m_view.layout().area(m_area).center().y());
    else
        m_view.zoomTimes(factor, centreColumn());
}

void GraphInteraction::choosePlot(int area, Qt::KeyboardModifiers)
{
    m_area = PlotArea(area);
}

void GraphInteraction::pickCell(int direction, Qt::KeyboardModifiers modifiers)
{
    m_cells.step(direction, modifiers & Qt::ShiftModifier, cellsInLegend());
}

void GraphInteraction::markByKey(int, Qt::KeyboardModifiers)
{
    toggleMark(m_cursor >= 0 ? m_cursor : m_view.lastShown());
}

void GraphInteraction::showAll(int, Qt::KeyboardModifiers)
{
    m_view.showAll();
}

// One thing at a time: what is being picked, the second cursor, the cursor, the picked cells.
void GraphInteraction::giveUp(int, Qt::KeyboardModifiers)
{
    if (m_selecting) {
        m_selecting = false;
    } else if (m_marked >= 0) {
        m_marked = none;
    } else if (m_cursor >= 0) {
        m_cursor = none;
        pointAtNewest();
    } else {
        m_cells.click(-1);
    }
}
