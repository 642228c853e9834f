#pragma once

#include <QItemSelectionModel>

class QWidget;

/// Selects no more files of a file dialog than it can take: of each, it looks for all others at every change.
class BoundedSelection : public QItemSelectionModel {
    Q_OBJECT

public:
    static constexpr int most = 500; ///< rows

    /// `view` tells the user when there would be more.
    BoundedSelection(QAbstractItemModel *model, QWidget *view);

    using QItemSelectionModel::select;
    void select(const QItemSelection &selection, SelectionFlags command) override;

private:
    int room(SelectionFlags command) const;

    QWidget *m_view;
};
