#include "overlay/overlayplot.h"

#include "overlay/overlayinteraction.h"
#include "overlay/scene/overlaylayout.h"
#include "overlay/scene/overlayscene.h"
#include "settings/viewstate.h"
#include "widgets/displayscale.h"
#include "widgets/plaintooltip.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

OverlayPlot::OverlayPlot(const ViewState *state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
    , m_interaction(new OverlayInteraction(this, &m_shown))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(scaled(320), scaled(200));
    setToolTip(
        tr("A click picks the recording. Control and drag, or Alt with Left and Right, move its curve."));
    m_shown.scale = displayScale();
    connect(m_state, SIGNAL(changed()), this, SLOT(onViewChanged()));
    connect(m_interaction, SIGNAL(pickedChanged()), this, SIGNAL(pickedChanged()));
    onViewChanged();
}

void OverlayPlot::onViewChanged()
{
    m_shown.black = m_state->switches().blackBackground;
    m_shown.distinct = m_state->switches().distinctLines;
    update();
}

OverlayRequest OverlayPlot::picture(const QSize &size, bool black) const
{
    OverlayRequest picture = m_shown;
    picture.size = size;
    picture.black = black;
    picture.cursor.reset();
    picture.marked.reset();
    picture.rubberBand = QRect();
    return picture;
}

void OverlayPlot::setEntries(const QVector<OverlayEntry> &entries)
{
    m_shown.entries = entries.mid(0, OverlayRequest::mostEntries);
    m_shown.picked = -1;
    m_interaction->startAnew();
    emit pickedChanged();
}

void OverlayPlot::remove()
{
    QVector<OverlayEntry> left = m_shown.entries;
    if (m_shown.picked < 0)
        left.clear();
    else
        left.remove(m_shown.picked);
    setEntries(left);
}

void OverlayPlot::setValue(OverlayValue value)
{
    const GraphZoom before = m_shown.zoom;
    m_shown.value = value;
    m_shown.zoom.reset(); // of another value's axis the same share means nothing
    if (before.isActive())
        m_shown.zoom.show(
            before.times(), PlotArea::Upper, m_shown.zoom.share(PlotArea::Upper), m_shown.wholePlaces());
    update();
}

void OverlayPlot::setAxis(OverlayAxis axis)
{
    m_shown.axis = axis;
    m_interaction->startAnew();
    emit pickedChanged();
}

void OverlayPlot::setLinedUp(bool linedUp)
{
    m_shown.linedUp = linedUp;
    m_interaction->startAnew();
}

void OverlayPlot::setShift(double seconds)
{
    if (m_shown.picked < 0)
        return;
    m_shown.entries[m_shown.picked].shift = seconds;
    update();
}

QString OverlayPlot::spokenText() const
{
    const OverlayScene scene = OverlayScene::of(m_shown);
    QStringList lines{scene.reason.isEmpty() ? scene.heading : scene.reason};
    for (int i = 0; i < scene.rows.size(); ++i)
        lines.append(QStringLiteral("%1: ").arg(i + 1) + scene.rows[i].name + QStringLiteral(", ")
            + scene.rows[i].figures);
    return lines.join(QLatin1Char('\n'));
}

QSize OverlayPlot::sizeHint() const
{
    return {scaled(900), scaled(480)};
}

// Over the legend only; the legend may have had no room for all of a name.
bool OverlayPlot::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const auto scale = double(displayScale());
    const std::optional<int> entry = OverlayLayout(size() / scale, m_shown.entries.size())
                                         .entryAt((QPointF(help->pos()) / scale).toPoint());
    const QString text
        = entry ? plainToolTip(m_shown.entries[*entry].label + QLatin1Char('\n') + toolTip()) : QString();
    QToolTip::showText(help->globalPos(), text, this); // without one, another's goes
    return true;
}

void OverlayPlot::paintEvent(QPaintEvent *)
{
    m_shown.size = size();
    QPainter painter(this);
    m_painter.paint(&painter, m_shown);
}

void OverlayPlot::mousePressEvent(QMouseEvent *event)
{
    m_interaction->press(event);
}

void OverlayPlot::mouseMoveEvent(QMouseEvent *event)
{
    m_interaction->move(event);
}

void OverlayPlot::mouseReleaseEvent(QMouseEvent *event)
{
    m_interaction->release(event);
}

void OverlayPlot::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_interaction->doubleClick(event);
}

void OverlayPlot::wheelEvent(QWheelEvent *event)
{
    event->setAccepted(m_interaction->wheel(event));
}

void OverlayPlot::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && !m_shown.entries.isEmpty())
        remove();
    else if (!m_interaction->key(event))
        QWidget::keyPressEvent(event);
}

void OverlayPlot::leaveEvent(QEvent *)
{
    m_interaction->leave();
}
