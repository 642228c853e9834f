#include "widgets/fittedtext.h"

#include <QLabel>

QFont fittedFont(QFont font, const QString &text, const QSize &box)
{
    // The one that the font is not sized in is below 0.
    qreal points = font.pointSizeF();
    int pixels = font.pixelSize();
    for (;;) {
        const QSize size = QFontMetrics(font).size(0, text);
        if (size.width() <= box.width() && size.height() <= box.height())
            return font;
        if (points > 1.0)
            font.setPointSizeF(points -= 0.5);
        else if (pixels > 1)
            font.setPixelSize(--pixels);
        else
            return font;
    }
}

void setFittedText(QLabel *label, const QString &text, qreal points, const QSize &box)
{
    if (label->text() == text)
        return;
    QFont font = label->font();
    font.setPointSizeF(points);
    label->setFont(fittedFont(font, text, box));
    label->setText(text);
}
