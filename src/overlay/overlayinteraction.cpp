#include "overlay/overlayinteraction.h"

#include "graph/scene/graphlayout.h"
#include "overlay/scene/overlayrequest.h"

#include <QWidget>

#include <cmath>
#include <limits>

namespace {

constexpr double wheelFactor = 1.25; // a step of the wheel, which is 120 units; a key
constexpr double wheelStep = 120.0;
constexpr double buttonFactor = 2.0;
constexpr int smallestSelection = 4; // px; less was no selection
constexpr int fast = 10; // px, with Shift
constexpr int partsOfPicture = 10; // a key moves a zoomed picture by one of them
constexpr PlotArea values = PlotArea::Upper; // whose share of the zoom counts

} // namespace

const KeyBinding<OverlayInteraction> OverlayInteraction::keyBindings[] = {
    {Qt::Key_Left, Qt::AltModifier, &OverlayInteraction::moveCourse, -1},
    {Qt::Key_Right, Qt::AltModifier, &OverlayInteraction::moveCourse, 1},
    {Qt::Key_Left, Qt::ControlModifier, &OverlayInteraction::movePart, -1},
    {Qt::Key_Right, Qt::ControlModifier, &OverlayInteraction::movePart, 1},
    {Qt::Key_Up, Qt::ControlModifier, &OverlayInteraction::pickNext, -1},
    {Qt::Key_Down, Qt::ControlModifier, &OverlayInteraction::pickNext, 1},
    {Qt::Key_Left, Qt::NoModifier, &OverlayInteraction::moveCursor, -1},
    {Qt::Key_Right, Qt::NoModifier, &OverlayInteraction::moveCursor, 1},
    {Qt::Key_Up, Qt::NoModifier, &OverlayInteraction::moveValues, 1},
    {Qt::Key_Down, Qt::NoModifier, &OverlayInteraction::moveValues, -1},
    {Qt::Key_Plus, Qt::NoModifier, &OverlayInteraction::zoomByKey, 1},
    {Qt::Key_Equal, Qt::NoModifier, &OverlayInteraction::zoomByKey, 1}, // '+' without Shift
    {Qt::Key_Minus, Qt::NoModifier, &OverlayInteraction::zoomByKey, -1},
    {Qt::Key_Space, Qt::ShiftModifier, &OverlayInteraction::toggleMark},
    {Qt::Key_Home, Qt::NoModifier, &OverlayInteraction::showAll},
};

OverlayInteraction::OverlayInteraction(QWidget *widget, OverlayRequest *shown)
    : QObject(widget)
    , m_widget(widget)
    , m_shown(shown)
{
}

OverlayLayout OverlayInteraction::layout() const
{
    const double scale = GraphLayout::fittingScale(m_widget->size(), m_shown->scale);
    return {m_widget->size() / scale, m_shown->entries.size()};
}

QPoint OverlayInteraction::inPicture(const QPointF &position) const
{
    return (position / GraphLayout::fittingScale(m_widget->size(), m_shown->scale)).toPoint();
}

double OverlayInteraction::placeAt(double x) const
{
    const QRect plot = layout().plot();
    return layout()
        .columns(m_shown->shownPlaces())
        .invTransform(qBound<double>(plot.left(), x, plot.right()));
}

double OverlayInteraction::columnOf(double place) const
{
    return layout().columns(m_shown->shownPlaces()).transform(place);
}

double OverlayInteraction::perPixel() const
{
    const QwtScaleMap columns = layout().columns(m_shown->shownPlaces());
    return columns.sDist() / columns.pDist();
}

double OverlayInteraction::shareAt(int y) const
{
    return layout().heights(m_shown->zoom.share(values)).invTransform(y);
}

void OverlayInteraction::startAnew()
{
    m_shown->zoom.reset();
    m_shown->cursor.reset();
    m_shown->marked.reset();
    endDrag();
    m_widget->update();
}

void OverlayInteraction::pointAt(const QPoint &position)
{
    m_shown->cursor.reset();
    if (layout().plot().contains(position) && !m_shown->entries.isEmpty())
        m_shown->cursor = placeAt(position.x());
    m_widget->update();
}

// The curve that is next to `position` where it stands, if there is any.
std::optional<int> OverlayInteraction::entryNear(const QPoint &position) const
{
    const QwtScaleMap heights = layout().heights(m_shown->shownValues());
    std::optional<int> nearest;
    double least = std::numeric_limits<double>::infinity();
    for (int entry = 0; entry < m_shown->entries.size(); ++entry) {
        const OverlayCourse &course = *m_shown->entries[entry].course;
        const int point = course.pointAt(m_shown->axis, placeAt(position.x()) - m_shown->offsetOf(entry));
        if (point < 0 || !course.has(m_shown->value))
            continue;
        const auto value = double(course.values(m_shown->value)[std::size_t(point)]);
        const double distance = std::abs(heights.transform(value) - position.y());
        if (distance < least) {
            nearest = entry;
            least = distance;
        }
    }
    return nearest;
}

void OverlayInteraction::pick(int entry)
{
    m_shown->picked = entry;
    emit pickedChanged();
}

void OverlayInteraction::press(const QMouseEvent *event)
{
    const QPoint position = inPicture(event->localPos());
    pointAt(position);
    m_pressed = position;
    if (event->button() == Qt::RightButton && m_shown->zoom.isActive()) {
        m_drag = Drag::View;
        m_widget->setCursor(Qt::ClosedHandCursor);
    }
    if (event->button() != Qt::LeftButton)
        return;
    const int entry = layout().entryAt(position).value_or(-1);
    if (m_shown->cursor)
        pressPlot(position, event->modifiers());
    else
        pick(entry == m_shown->picked ? -1 : entry);
}

void OverlayInteraction::pressPlot(const QPoint &position, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ShiftModifier) {
        toggleMark(0, modifiers);
    } else if (!(modifiers & Qt::ControlModifier)) {
        m_drag = Drag::Zoom;
    } else if (m_shown->axis == OverlayAxis::Time) {
        const std::optional<int> entry = entryNear(position);
        if (!entry)
            return;
        pick(*entry);
        m_drag = Drag::Course;
        m_shiftBefore = m_shown->entries[*entry].shift;
        m_secondsPerPixel = perPixel();
        m_widget->setCursor(Qt::SizeHorCursor);
    }
}

void OverlayInteraction::move(const QMouseEvent *event)
{
    const QPoint position = inPicture(event->localPos());
    if (m_drag == Drag::None && event->buttons() == Qt::NoButton)
        pointAt(position);
    if (m_drag == Drag::Zoom)
        m_shown->rubberBand = QRect(m_pressed, position).normalized() & layout().plot();
    if (m_drag == Drag::Course)
        shiftPicked(m_shiftBefore + (position.x() - m_pressed.x()) * m_secondsPerPixel);
    if (m_drag == Drag::View) {
        moveView(position - m_pressed);
        m_pressed = position;
    }
    if (m_drag != Drag::None)
        m_shown->cursor.reset();
    m_widget->update();
}

void OverlayInteraction::release(const QMouseEvent *event)
{
    const QPoint position = inPicture(event->localPos());
    const QRect band = m_shown->rubberBand;
    if (m_drag == Drag::Zoom && band.width() > smallestSelection && band.height() > smallestSelection)
        m_shown->zoom.show({placeAt(band.left()), placeAt(band.right())}, values,
            {shareAt(band.bottom()), shareAt(band.top())}, m_shown->wholePlaces());
    if (event->button() == Qt::MiddleButton && layout().plot().contains(position)) {
        const double factor = event->modifiers() & Qt::ControlModifier ? 1 / buttonFactor : buttonFactor;
        m_shown->zoom.zoomTimes(factor, placeAt(position.x()), m_shown->wholePlaces());
        m_shown->zoom.zoomValues(factor, values, shareAt(position.y()), m_shown->wholePlaces());
    }
    endDrag();
    pointAt(position);
}

void OverlayInteraction::endDrag()
{
    if (m_drag != Drag::None)
        m_widget->unsetCursor();
    m_drag = Drag::None;
    m_shown->rubberBand = QRect();
}

void OverlayInteraction::doubleClick(const QMouseEvent *event)
{
    const QPoint position = inPicture(event->localPos());
    const bool isInPlot = layout().plot().contains(position);
    if (event->button() != Qt::LeftButton || !isInPlot || event->modifiers() != Qt::NoModifier)
        return press(event); // the second one of two
    m_shown->zoom.reset();
    pointAt(position);
}

void OverlayInteraction::leave()
{
    m_shown->cursor.reset();
    m_widget->update();
}

bool OverlayInteraction::wheel(const QWheelEvent *event)
{
    const QPoint position = inPicture(event->position());
    // with Alt held, some systems turn the wheel sideways
    const int turned = event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    if (turned == 0 || m_shown->entries.isEmpty() || !layout().plot().contains(position))
        return false;
    const double factor = std::pow(wheelFactor, turned / wheelStep);
    if (event->modifiers() & Qt::ControlModifier)
        m_shown->zoom.zoomValues(factor, values, shareAt(position.y()), m_shown->wholePlaces());
    else
        m_shown->zoom.zoomTimes(factor, placeAt(position.x()), m_shown->wholePlaces());
    pointAt(position);
    return true;
}

void OverlayInteraction::moveView(const QPoint &distance)
{
    const QwtScaleMap heights = layout().heights(m_shown->zoom.share(values));
    m_shown->zoom.moveTimes(-distance.x() * perPixel(), m_shown->wholePlaces());
    m_shown->zoom.moveValues(distance.y() * heights.sDist() / heights.pDist(), values);
}

// To whole seconds, as they are told.
void OverlayInteraction::shiftPicked(double seconds)
{
    if (m_shown->picked < 0 || m_shown->axis != OverlayAxis::Time)
        return;
    m_shown->entries[m_shown->picked].shift = std::round(seconds);
    emit pickedChanged();
}

bool OverlayInteraction::key(const QKeyEvent *event)
{
    if (m_shown->entries.isEmpty())
        return false;
    if (event->key() == Qt::Key_Escape)
        return giveUp();
    if (!actOnKey(this, keyBindings, *event))
        return false;
    m_widget->update();
    return true;
}

// The first step comes in from the end that is left behind.
void OverlayInteraction::moveCursor(int direction, Qt::KeyboardModifiers modifiers)
{
    const QRect plot = layout().plot();
    const int step = direction * (modifiers & Qt::ShiftModifier ? fast : 1);
    const double from = direction == 1 ? plot.left() : plot.right();
    const double x = m_shown->cursor ? columnOf(*m_shown->cursor) + step : from;
    const double beyond = x - qBound<double>(plot.left(), x, plot.right());
    moveView(QPoint(int(-beyond), 0)); // as far as there is more
    m_shown->cursor = placeAt(x);
}

void OverlayInteraction::moveCourse(int direction, Qt::KeyboardModifiers modifiers)
{
    const int step = direction * (modifiers & Qt::ShiftModifier ? fast : 1);
    if (m_shown->picked >= 0)
        shiftPicked(m_shown->entries[m_shown->picked].shift + step * std::max(1.0, perPixel()));
}

void OverlayInteraction::movePart(int direction, Qt::KeyboardModifiers)
{
    moveView(QPoint(-direction * layout().plot().width() / partsOfPicture, 0));
}

void OverlayInteraction::moveValues(int direction, Qt::KeyboardModifiers)
{
    moveView(QPoint(0, direction * layout().plot().height() / partsOfPicture));
}

void OverlayInteraction::zoomByKey(int direction, Qt::KeyboardModifiers modifiers)
{
    const double factor = std::pow(wheelFactor, direction);
    const QPoint centre = layout().plot().center();
    if (modifiers & Qt::ControlModifier)
        m_shown->zoom.zoomValues(factor, values, shareAt(centre.y()), m_shown->wholePlaces());
    else
        m_shown->zoom.zoomTimes(
            factor, m_shown->cursor.value_or(placeAt(centre.x())), m_shown->wholePlaces());
}

void OverlayInteraction::pickNext(int direction, Qt::KeyboardModifiers)
{
    const int count = m_shown->entries.size();
    const int none = direction == 1 ? -1 : count;
    const int from = m_shown->picked < 0 ? none : m_shown->picked;
    pick((from + direction + count) % count);
}

void OverlayInteraction::toggleMark(int, Qt::KeyboardModifiers)
{
    if (m_shown->marked)
        m_shown->marked.reset();
    else
        m_shown->marked = m_shown->cursor.value_or(m_shown->shownPlaces().low);
}

void OverlayInteraction::showAll(int, Qt::KeyboardModifiers)
{
    m_shown->zoom.reset();
}

// One thing at a time: what is being dragged, the second cursor, the cursor, the picked recording.
bool OverlayInteraction::giveUp()
{
    m_widget->update();
    if (m_drag != Drag::None)
        endDrag();
    else if (m_shown->marked)
        m_shown->marked.reset();
    else if (m_shown->cursor)
        m_shown->cursor.reset();
    else if (m_shown->picked >= 0)
        pick(-1);
    else
        return false;
    return true;
}
