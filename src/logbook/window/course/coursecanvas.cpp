#include "logbook/window/course/coursecanvas.h"

#include "data/figuretext.h"
#include "widgets/displayscale.h"
#include "widgets/plaintooltip.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>
#include <limits>
#include <utility>

CourseCanvas::CourseCanvas(QWidget *parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setToolTip(tr("Point at a point: its recording. A click selects it; arrow keys go from point to point."));
}

void CourseCanvas::setChart(const CourseChart &chart)
{
    const qint64 marked = m_chart.marked;
    m_chart = chart;
    m_chart.marked = marked;
    m_chart.scale = displayScale();
    update();
}

void CourseCanvas::mark(qint64 recording)
{
    m_chart.marked = recording;
    update();
}

QSize CourseCanvas::sizeHint() const
{
    return {scaled(600), scaled(240)};
}

QSize CourseCanvas::minimumSizeHint() const
{
    return {scaled(240), scaled(120)};
}

const CoursePoint &CourseCanvas::pointAt(CourseChart::Hit hit) const
{
    return m_chart.lines[hit.line].points[hit.point];
}

QString CourseCanvas::textOf(CourseChart::Hit hit) const
{
    return hit.isNone() || !m_namer ? QString() : m_namer(m_chart.lines[hit.line], pointAt(hit));
}

QString CourseCanvas::spokenText() const
{
    QStringList lines = {m_title};
    const CourseChart::Hit marked = markedPoint();
    if (!marked.isNone())
        lines.append(textOf(marked));
    if (m_chart.isEmpty())
        lines.append(m_chart.emptyText);
    for (const CourseLine &line : m_chart.lines) {
        if (line.points.isEmpty())
            continue;
        const auto value
            = [this](double v) { return FigureText::fixed(v, 2) + QLatin1Char(' ') + m_chart.unit; };
        //: A line of a chart: its name, its first and its last value.
        lines.append(tr("%1: from %2 to %3")
                         .arg(line.name, value(line.points.first().value), value(line.points.last().value)));
    }
    return lines.join(QLatin1Char('\n'));
}

bool CourseCanvas::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QString text = textOf(m_chart.hit(help->pos(), size()));
    QToolTip::showText(help->globalPos(), text.isEmpty() ? toolTip() : plainToolTip(text), this);
    return true;
}

void CourseCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_chart.paint(painter, size());
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void CourseCanvas::mouseMoveEvent(QMouseEvent *event)
{
    const CourseChart::Hit hit = m_chart.hit(event->pos(), size());
    setCursor(hit.isNone() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    if (!hit.isNone())
        QToolTip::showText(event->globalPos(), plainToolTip(textOf(hit)), this);
    else
        QToolTip::hideText();
}

void CourseCanvas::mousePressEvent(QMouseEvent *event)
{
    const CourseChart::Hit hit = m_chart.hit(event->pos(), size());
    if (event->button() == Qt::LeftButton && !hit.isNone())
        emit chosen(pointAt(hit).recording);
}

CourseChart::Hit CourseCanvas::markedPoint() const
{
    for (int i = 0; m_chart.marked != 0 && i < m_chart.lines.size(); ++i)
        for (int k = 0; k < m_chart.lines[i].points.size(); ++k)
            if (m_chart.lines[i].points[k].recording == m_chart.marked)
                return {i, k};
    return {};
}

// The next one in time, of whichever line: the one that follows the marked point, or the outermost. Of those
// of the same time, as both halves of a cycle are, the next line's.
CourseChart::Hit CourseCanvas::neighbour(int direction) const
{
    const CourseChart::Hit marked = markedPoint();
    const double infinity = std::numeric_limits<double>::infinity();
    using Order = std::pair<double, int>;
    const Order from = !marked.isNone() ? Order(direction * pointAt(marked).at, direction * marked.line)
                                        : Order(-infinity, {});
    CourseChart::Hit best;
    Order nearest(infinity, {});
    for (int i = 0; i < m_chart.lines.size(); ++i) {
        for (int k = 0; k < m_chart.lines[i].points.size(); ++k) {
            const Order at(direction * pointAt({i, k}).at, direction * i);
            if (at > from && at < nearest) {
                nearest = at;
                best = {i, k};
            }
        }
    }
    return best;
}

void CourseCanvas::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right)
        return QWidget::keyPressEvent(event);
    const CourseChart::Hit hit = neighbour(event->key() == Qt::Key_Right ? 1 : -1);
    if (hit.isNone())
        return;
    emit chosen(pointAt(hit).recording);
    const QPointF place = m_chart.mapping(size()).place(pointAt(hit));
    QToolTip::showText(mapToGlobal(place.toPoint()), plainToolTip(textOf(hit)), this);
}
