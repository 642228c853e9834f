#pragma once

#include <QSet>
#include <QTableView>

class RecordingTable;

/// The table of recordings. What is selected stays so while rows come and go. Columns are sorted, moved and
/// hidden by the mouse in the header, or by the slots here, which act on the current column.
class RecordingView : public QTableView {
    Q_OBJECT

public:
    /// `table` outlives this.
    explicit RecordingView(RecordingTable *table, QWidget *parent = nullptr);

    QVector<qint64> selectedIds() const; ///< from the first row on
    qint64 currentId() const; ///< 0 without one
    /// Selects this recording alone and shows it. False where it is not among the rows.
    bool choose(qint64 id);
    /// Columns as saveState() of the header gave them; by itself where that does not fit.
    void restoreColumns(const QByteArray &state);
    bool isColumnShown(int column) const { return !isColumnHidden(column); }

public slots:
    void showStart(); ///< the first rows, unless rows are selected
    void sortByColumn(); ///< the other way round where it is sorted by that already
    void moveLeft();
    void moveRight();
    void hideColumn();
    void showAllColumns();
    void setColumnShown(int column, bool shown);
    /// What the tool tip of the current row tells the mouse.
    void explain();

signals:
    void selected(); ///< other rows than before
    void columnsMenuWanted(const QPoint &place); ///< global

protected:
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void keepSelection();
    void restoreSelection();
    void onHeaderMenu(const QPoint &place);

private:
    void fitColumns();
    void moveColumn(int by);
    int shownColumns() const;
    int currentColumn() const; ///< the first one without one

    RecordingTable *m_table;
    QSet<qint64> m_selected; // while the rows are reset
    qint64 m_current = 0; // the same
    int m_currentColumn = 0; // the same
};
