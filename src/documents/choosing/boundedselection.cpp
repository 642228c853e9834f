#include "documents/choosing/boundedselection.h"

#include <QCursor>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

BoundedSelection::BoundedSelection(QAbstractItemModel *model, QWidget *view)
    : QItemSelectionModel(model, view)
    , m_view(view)
{
}

void BoundedSelection::select(const QItemSelection &selection, SelectionFlags command)
{
    int left = room(command);
    QItemSelection taken;
    for (const QItemSelectionRange &range : selection) {
        const int rows = std::min(range.height(), left);
        left -= rows;
        if (rows > 0)
            taken.append(
                {range.topLeft(), range.bottomRight().sibling(range.top() + rows - 1, range.right())});
        if (rows < range.height())
            QToolTip::showText(
                QCursor::pos(), tr("At most %n files can be selected at once.", nullptr, most), m_view);
    }
    QItemSelectionModel::select(taken, command);
}

int BoundedSelection::room(SelectionFlags command) const
{
    int left = most;
    if (!(command & (Select | Toggle)))
        return model()->rowCount();
    if (command & (Clear | Current))
        return left;
    const QItemSelection &now = selection();
    for (const QItemSelectionRange &range : now)
        left -= range.height();
    return left;
}
