#include "displays/voltagecanvas.h"

#include <QMouseEvent>
#include <QPainter>

VoltageCanvas::VoltageCanvas(QWidget *parent)
    : QWidget(parent)
{
}

void VoltageCanvas::setChart(const VoltageChart &chart)
{
    m_chart = chart;
    update();
}

void VoltageCanvas::setScroll(int scroll)
{
    m_scroll = scroll;
    update();
}

void VoltageCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_chart.paint(painter, size(), m_scroll);
}

void VoltageCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const VoltageChart::CellRef hit = m_chart.cellAt(event->pos(), size(), m_scroll);
    emit cellPressed(hit.pack, hit.cell, event->modifiers().testFlag(Qt::ControlModifier));
}

void VoltageCanvas::resizeEvent(QResizeEvent *)
{
    emit resized();
}
