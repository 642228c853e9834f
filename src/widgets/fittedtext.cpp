#include "widgets/fittedtext.h"

#include <QLabel>

void setFittedText(QLabel *label, const QString &text, qreal points, const QSize &box)
{
    if (label->text() == text)
        return;
    constexpr qreal smallest = 4.0;
    constexpr qreal step = 0.5;
    QFont font = label->font();
    for (;; points -= step) {
        font.setPointSizeF(qMax(smallest, points));
        const QSize size = QFontMetrics(font).size(0, text);
        if (points <= smallest || (size.width() <= box.width() && size.height() <= box.height()))
            break;
    }
    label->setFont(font);
    label->setText(text);
}
