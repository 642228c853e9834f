#include "app/deskarea.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr int headingSize = 150; // per cent of the area's font

QRect drawLines(QPainter *painter, const QRect &area, int top, const QString &text)
{
    const QRect place(area.left(), top, area.width(), area.bottom() - top);
    QRect used;
    painter->drawText(place, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text, &used);
    return used;
}

} // namespace

DeskArea::DeskArea(QWidget *parent)
    : QMdiArea(parent)
{
    setBlack(true);
    // The first window to open and the last to close change what the background shows.
    connect(this, SIGNAL(subWindowActivated(QMdiSubWindow*)), viewport(), SLOT(update()));
}

void DeskArea::tellPorts(const QStringList &ports)
{
    const QString state = ports.isEmpty()
        ? tr("No port is listened on\nChoose the ports of your devices: File > Preferences.")
        : tr("Listening on %1\nA window opens as soon as a device sends.")
              .arg(ports.join(QStringLiteral(", ")));
    m_hint = state + QLatin1Char('\n') + tr("Saved recordings: File > Open file, or drop them here.");
    viewport()->update();
}

void DeskArea::setBlack(bool black)
{
    m_black = black;
    viewport()->update();
}

void DeskArea::paintEvent(QPaintEvent *event)
{
    // Not through setBackground(): the style sheet's polishing would put its own brush back.
    QPainter painter(viewport());
    painter.fillRect(event->rect(), m_black ? QColor(0x2b, 0x2e, 0x33) : QColor(0xe4, 0xe7, 0xeb));
    if (!subWindowList().isEmpty())
        return;
    const QRect area = viewport()->rect().adjusted(30, 20, -30, -20);
    QFont heading = font();
    heading.setPointSizeF(heading.pointSizeF() * headingSize / 100);
    painter.setFont(heading);
    painter.setPen(m_black ? QColor(0xd6, 0xda, 0xe0) : QColor(0x33, 0x38, 0x40));
    const QRect used = drawLines(&painter, area, area.top() + area.height() / 3, m_hint.section('\n', 0, 0));
    painter.setFont(font());
    painter.setPen(m_black ? QColor(0xa8, 0xae, 0xb8) : QColor(0x55, 0x5b, 0x66));
    drawLines(&painter, area, used.bottom() + painter.fontMetrics().height(), m_hint.section('\n', 1));
}
