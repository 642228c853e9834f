#include "graph/plot/kepttexts.h"

#include "widgets/straightstrokes.h"

#include <QPainter>
#include <QTextLayout>

#include <memory>

namespace {

constexpr double endless = 0x1000000; // px

std::unique_ptr<QTextLayout> layOut(const QPainter &painter, const QString &text)
{
    auto layout = std::make_unique<QTextLayout>(text, painter.font(), painter.device());
    QTextOption option;
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setTextDirection(painter.layoutDirection());
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    QTextLine line = layout->createLine();
    line.setLineWidth(endless);
    line.setPosition({0, 0});
    layout->endLayout();
    return layout;
}

// Of the room that a text leaves, what lies before it.
double shareBefore(int flags, int far, int middle)
{
    constexpr double half = 0.5;
    if (flags & far)
        return 1;
    return flags & middle ? half : 0;
}

} // namespace

KeptTexts::KeptTexts() = default;

KeptTexts::~KeptTexts() = default;

const QTextLayout &KeptTexts::laidOut(const QPainter &painter, const QString &text)
{
    const QFont &font = painter.font();
    const Key key(font.bold() ? -font.pixelSize() : font.pixelSize(), text);
    if (!m_kept.contains(key))
        m_kept.insert(key, layOut(painter, text).release());
    return *m_kept.object(key);
}

void KeptTexts::draw(QPainter *painter, const QPoint &start, const QString &text)
{
    if (!isOfWholePixels(*painter)) {
        painter->drawText(start, text);
        return;
    }
    const QTextLine line = laidOut(*painter, text).lineAt(0);
    line.draw(painter, QPointF(start.x(), start.y() - line.ascent()));
}

void KeptTexts::draw(QPainter *painter, const QRect &rect, int flags, const QString &text)
{
    if (!isOfWholePixels(*painter)) {
        painter->drawText(rect, flags, text);
        return;
    }
    const QTextLine line = laidOut(*painter, text).lineAt(0);
    const QSizeF size(line.horizontalAdvance(), line.ascent() + line.descent());
    const double right = shareBefore(flags, Qt::AlignRight, Qt::AlignHCenter);
    const double down = shareBefore(flags, Qt::AlignBottom, Qt::AlignVCenter);
    const QRectF place(rect.x() + (rect.width() - size.width()) * right,
        rect.y() + (rect.height() - size.height()) * down, size.width(), size.height());
    if (flags & Qt::TextDontClip || QRectF(rect).contains(place))
        line.draw(painter, place.topLeft());
    else
        painter->drawText(rect, flags, text); // cut off at the edges
}
