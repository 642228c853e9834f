#include "logbook/window/table/tablepages.h"

#include "widgets/displayscale.h"

#include <QAbstractItemModel>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace {

constexpr QSizeF pageSize(1120, 740);
constexpr double lineHeight = 17; // where the columns fit
constexpr double space = 8;
constexpr int widest = 260; // of a column; longer texts are cut
constexpr int printedPoints = 8;

} // namespace

TablePages::TablePages(const QAbstractItemModel &model, const QHeaderView &header)
{
    QVector<int> shown;
    for (int place = 0; place < header.count(); ++place) {
        const int column = header.logicalIndex(place);
        if (header.isSectionHidden(column))
            continue;
        shown.append(column);
        const int alignment = model.index(0, column).data(Qt::TextAlignmentRole).toInt();
        m_columns.append(Column{(alignment & Qt::AlignRight) != 0});
        m_titles.append(model.headerData(column, Qt::Horizontal).toString());
    }
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList texts;
        for (const int column : qAsConst(shown))
            texts.append(model.index(row, column).data().toString());
        m_rows.append(texts);
    }
    fitColumns();
}

// Narrower than on the screen, where most texts leave much room.
void TablePages::fitColumns()
{
    const QFontMetricsF letters(drawingFont(QStringLiteral("Arial"), printedPoints, 1.0, true));
    for (int i = 0; i < m_columns.size(); ++i) {
        double width = letters.horizontalAdvance(m_titles[i]);
        for (const QStringList &texts : qAsConst(m_rows))
            width = std::max(width, letters.horizontalAdvance(texts[i]));
        m_columns[i].width = std::min(int(width + space) + 1, widest);
        m_width += m_columns[i].width;
    }
}

QSizeF TablePages::size()
{
    return pageSize;
}

// Columns that take more than the page's width are all made smaller, and the letters with them.
static double factorOf(int width)
{
    return std::min(1.0, pageSize.width() / width);
}

// Beside the titles and the number of the page.
int TablePages::rowsOnPage() const
{
    return int(pageSize.height() / (lineHeight * factorOf(m_width))) - 2;
}

int TablePages::count() const
{
    return std::max(1, (m_rows.size() + rowsOnPage() - 1) / rowsOnPage());
}

void TablePages::paint(QPainter &painter, int page) const
{
    const double factor = factorOf(m_width);
    const QSizeF paper = pageSize / factor;
    painter.scale(factor, factor);
    painter.setFont(drawingFont(QStringLiteral("Arial"), printedPoints, 1.0, true));
    paintRow(painter, m_titles, 0);
    painter.drawLine(QPointF(0, lineHeight), QPointF(m_width, lineHeight));
    painter.setFont(drawingFont(QStringLiteral("Arial"), printedPoints, 1.0));
    const int first = page * rowsOnPage();
    const int end = std::min(int(m_rows.size()), first + rowsOnPage());
    for (int row = first; row < end; ++row)
        paintRow(painter, m_rows[row], (row - first + 1) * lineHeight);
    painter.drawText(QRectF(0, paper.height() - lineHeight, paper.width(), lineHeight),
        int(Qt::AlignRight) | int(Qt::AlignVCenter), QStringLiteral("%1 / %2").arg(page + 1).arg(count()));
}

void TablePages::paintRow(QPainter &painter, const QStringList &texts, double top) const
{
    double left = 0;
    for (int i = 0; i < m_columns.size(); ++i) {
        const QRectF box(left, top, m_columns[i].width - space, lineHeight);
        painter.drawText(box,
            int(m_columns[i].isRight ? Qt::AlignRight : Qt::AlignLeft) | int(Qt::AlignVCenter),
            painter.fontMetrics().elidedText(texts[i], Qt::ElideRight, int(box.width()) + 1));
        left += m_columns[i].width;
    }
}
