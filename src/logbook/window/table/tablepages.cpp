#include "logbook/window/table/tablepages.h"

#include "widgets/displayscale.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace {

constexpr QSizeF pageSize(1120, 740);
constexpr double lineHeight = 17; // where the columns fit as wide as they are on the screen
constexpr double space = 4;
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
        m_columns.append({header.sectionSize(column), (alignment & Qt::AlignRight) != 0});
        m_titles.append(model.headerData(column, Qt::Horizontal).toString());
    }
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList texts;
        for (const int column : qAsConst(shown))
            texts.append(model.index(row, column).data().toString());
        m_rows.append(texts);
    }
}

QSizeF TablePages::size()
{
    return pageSize;
}

// Columns that take more than the page's width are all made smaller, and the letters with them.
static double factorOf(int width)
{
    return std::min(1.0, pageSize.width() / std::max(1, width));
}

int TablePages::count() const
{
    int width = 0;
    for (const Column &column : m_columns)
        width += column.width;
    const int onPage = int(pageSize.height() / (lineHeight * factorOf(width))) - 1;
    return std::max(1, (m_rows.size() + onPage - 1) / onPage);
}

void TablePages::paint(QPainter &painter, int page) const
{
    int width = 0;
    for (const Column &column : m_columns)
        width += column.width;
    const double factor = factorOf(width);
    const double line = lineHeight * factor;
    const int onPage = int(pageSize.height() / line) - 1;
    painter.setPen(Qt::black);
    painter.setFont(drawingFont(QStringLiteral("Arial"), printedPoints, factor, true));
    paintRow(painter, m_titles, 0, factor);
    painter.drawLine(QPointF(0, line), QPointF(width * factor, line));
    painter.setFont(drawingFont(QStringLiteral("Arial"), printedPoints, factor));
    const int end = std::min(int(m_rows.size()), (page + 1) * onPage);
    for (int row = page * onPage; row < end; ++row)
        paintRow(painter, m_rows[row], (row - page * onPage + 1) * line, factor);
}

void TablePages::paintRow(QPainter &painter, const QStringList &texts, double top, double factor) const
{
    double left = 0;
    for (int i = 0; i < m_columns.size(); ++i) {
        const double width = m_columns[i].width * factor;
        const QRectF box(left, top, width - space * factor, lineHeight * factor);
        painter.drawText(box,
            int(m_columns[i].isRight ? Qt::AlignRight : Qt::AlignLeft) | int(Qt::AlignVCenter),
            painter.fontMetrics().elidedText(texts[i], Qt::ElideRight, int(box.width())));
        left += width;
    }
}
