#pragma once

#include "widgets/spoken.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QScrollBar;
class RefreshGate;
class ViewState;
class VoltageCanvas;
class VoltageChart;
class VoltageSource;

/// The cell voltages of all graph windows side by side at their newest records; always on top, gone when
/// closed. A click on a bar, or Space, shows that one cell of every window; a click anywhere, Space or Escape
/// shows all again; with all shown, Escape closes the window. A click with the Control key selects the cell
/// in its graph window. What is chosen outlives the window.
class VoltageComparison : public QWidget, public Spoken {
    Q_OBJECT

public:
    explicit VoltageComparison(QWidget *parent = nullptr);

    /// `state` is not owned and outlives this.
    void setViewState(ViewState *state);
    /// `source` is not owned and outlives this.
    void setSource(VoltageSource *source);
    /// Shows all cells, whatever was chosen before.
    void showAllCells();
    QString spokenText() const override; ///< title and the cells of each window

public slots:
    /// The voltages have changed; they are asked for when the window next draws.
    void updateVoltage();
    /// Prints the voltages of all windows through the print dialog.
    void print();

signals:
    /// The user has closed the window, or its owner; it goes as soon as the program is back at its events.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private slots:
    void refresh();
    void cycleSelection();
    void onCellPressed(int pack, int cell, bool toggle);
    void updateScrollBar();

private:
    void createControls();
    void showChart(const VoltageChart &chart);
    void showChoice();
    void setOneCell(int cell);
    int cellsAtMost() const;

    ViewState *m_viewState = nullptr; // not owned, outlives this
    VoltageSource *m_source = nullptr; // not owned, outlives this
    RefreshGate *m_gate;
    QPushButton *m_selectionButton = nullptr;
    QLabel *m_hint = nullptr;
    VoltageCanvas *m_canvas = nullptr;
    QScrollBar *m_scrollBar = nullptr;
    bool m_showsAllCells = false;
};
