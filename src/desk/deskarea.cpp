#include "desk/deskarea.h"

#include "desk/titlebarstyle.h"

#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr QSize smallestRoom(300, 180); // in less a graph says nothing
constexpr int headingSize = 150; // per cent of the area's font

QRect drawLines(QPainter *painter, const QRect &area, int top, const QString &text)
{
    const QRect place(area.left(), top, area.width(), area.bottom() - top);
    QRect used;
    painter->drawText(place, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text, &used);
    return used;
}

// The highest gap that `taken` leaves in the columns `left`..`right` of `area`.
QRect largestGap(const QRect &area, int left, int right, const QVector<QRect> &taken)
{
    QRect largest;
    int top = area.top();
    const QRect column(QPoint(left, area.top()), QPoint(right, area.bottom()));
    const auto consider = [&](int bottom) {
        if (bottom - top + 1 > largest.height())
            largest = QRect(QPoint(left, top), QPoint(right, bottom));
    };
    for (const QRect &rect : taken) { // by their tops
        if (!rect.intersects(column))
            continue;
        consider(rect.top() - 1);
        top = qMax(top, rect.bottom() + 1);
    }
    consider(area.bottom());
    return largest;
}

// The largest part of `area` that has smallestRoom and that `taken` leaves free; empty if there is none.
QRect largestRoom(const QRect &area, QVector<QRect> taken)
{
    std::sort(taken.begin(), taken.end(), [](const QRect &a, const QRect &b) { return a.top() < b.top(); });
    QVector<int> lefts{area.left()};
    QVector<int> rights{area.right()};
    for (const QRect &rect : qAsConst(taken)) {
        lefts.append(qMax(area.left(), rect.right() + 1));
        rights.append(qMin(area.right(), rect.left() - 1));
    }
    QRect largest;
    for (const int left : qAsConst(lefts)) {
        for (const int right : qAsConst(rights)) {
            const QRect gap = largestGap(area, left, right, taken);
            const bool isRoom = gap.width() >= smallestRoom.width() && gap.height() >= smallestRoom.height();
            if (isRoom && gap.width() * gap.height() > largest.width() * largest.height())
                largest = gap;
        }
    }
    return largest;
}

} // namespace

DeskArea::DeskArea(QWidget *parent)
    : QMdiArea(parent)
    , m_titleStyle(new TitleBarStyle)
{
    m_titleStyle->setParent(this);
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

void DeskArea::dressTitle(QMdiSubWindow *window) const
{
    window->setStyle(m_titleStyle);
}

void DeskArea::takeFreeRoom(QMdiSubWindow *window) const
{
    QVector<QRect> taken;
    const QList<QMdiSubWindow *> windows = subWindowList();
    for (const QMdiSubWindow *other : windows) {
        if (other->isMaximized())
            return; // and so will be the new one
        if (other != window && other->isVisible())
            taken.append(other->geometry());
    }
    const auto covers = [window](const QRect &rect) { return rect.intersects(window->geometry()); };
    if (std::none_of(taken.begin(), taken.end(), covers))
        return;
    const QRect room = largestRoom(viewport()->rect(), taken);
    if (!room.isEmpty())
        window->setGeometry(room);
}

void DeskArea::tileSubWindows()
{
    QMdiArea::tileSubWindows();
    QList<QMdiSubWindow *> windows = subWindowList(CreationOrder);
    const auto isLeftOut
        = [](QMdiSubWindow *window) { return !window->isVisible() || window->isMinimized(); };
    windows.erase(std::remove_if(windows.begin(), windows.end(), isLeftOut), windows.end());
    QVector<QRect> places;
    for (const QMdiSubWindow *window : qAsConst(windows))
        places.append(window->geometry());
    std::sort(places.begin(), places.end(), [](const QRect &a, const QRect &b) {
        return a.top() != b.top() ? a.top() < b.top() : a.left() < b.left();
    });
    for (int i = 0; i < windows.size(); ++i)
        windows[i]->setGeometry(places[i]);
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
