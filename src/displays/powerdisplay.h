#pragma once

#include "data/varnel3data.h"
#include "displays/powerchart.h"
#include "widgets/spoken.h"

#include <QDateTime>
#include <QWidget>

class RefreshGate;
class ViewState;

/// The cells of the newest record as a row of bars. Follows the per-cell quantity and the
/// background of the view state; always on top.
class PowerDisplay : public QWidget, public Spoken {
    Q_OBJECT

public:
    explicit PowerDisplay(QWidget *parent = nullptr);

    /// `state` is not owned and outlives this.
    void setViewState(ViewState *state);
    /// Dims the bars while `since` is valid: no line has come since then.
    void setStaleSince(const QDateTime &since);
    /// Number of the graph window whose bars are shown, -1 for none.
    int windowNumber() const { return m_windowNumber; }
    /// File or port that the shown window's records come from, for the printed page.
    void setSourceName(const QString &name) { m_sourceName = name; }
    /// Shows that there is nothing to show.
    void setNoData();

    QSize sizeHint() const override;
    QString spokenText() const override; ///< title and, of each cell, value and balancing level

public slots:
    /// Shows `record` of graph window `nrWin`, -1 for none. `useKeptRi`: resistance bars stay as they are,
    /// since the record has none yet. While hidden only the newest record is kept, and shown on opening.
    void updateData(Varnel3Data &record, int nrWin, bool useKeptRi = false);
    /// Part of the interface; the resistances come with the record.
    void updateRic() { }
    /// Prints the bars through the print dialog.
    void print();

signals:
    /// The user has closed the window.
    void closed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void refresh();
    void onViewChanged();

private:
    ViewState *m_viewState = nullptr; // not owned, outlives this
    RefreshGate *m_gate;
    Varnel3Data m_record;
    int m_windowNumber = -1;
    QString m_sourceName;
    QDateTime m_staleSince;
    PowerChart m_chart;
};
