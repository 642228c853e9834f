#pragma once

#include "displays/voltagechart.h"

#include <QWidget>

/// Shows a voltage chart and tells which of its cells is pressed.
class VoltageCanvas : public QWidget {
    Q_OBJECT

public:
    explicit VoltageCanvas(QWidget *parent = nullptr);

    const VoltageChart &chart() const { return m_chart; }
    void setChart(const VoltageChart &chart);

public slots:
    /// Moves the groups left by `scroll` pixels.
    void setScroll(int scroll);

signals:
    /// Left button on the bar of `cell` of pack `pack`, both indexes, -1 beside the bars;
    /// `toggle` with the Control key held.
    void cellPressed(int pack, int cell, bool toggle);
    void resized();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    VoltageChart m_chart;
    int m_scroll = 0;
};
