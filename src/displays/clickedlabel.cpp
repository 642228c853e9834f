#include "displays/clickedlabel.h"

ClickedLabel::ClickedLabel(QWidget *parent)
    : QLabel(parent)
{
}

void ClickedLabel::mousePressEvent(QMouseEvent *event)
{
    QLabel::mousePressEvent(event);
    emit clicked();
}
