#pragma once

#include <QToolBar>

class QLabel;
class Varnel3Data;

/// Six read-only figures of the newest measurement of the current graph window.
class DataToolBar : public QToolBar {
    Q_OBJECT

public:
    explicit DataToolBar(QWidget *parent);

    /// Shows `record`; one without cells or without a process leaves every figure empty.
    void showRecord(const Varnel3Data &record);
    void clearFigures();
    /// Makes the figures as large as the desktop's letters, as far as `width` px have room for all of them.
    void fitTo(int width);
    /// Dims the figures while `stale`: they are no longer those of now.
    void setStale(bool stale);

private:
    QList<QLabel *> labels() const;
    void fitModeText();
    void speak() const;

    QLabel *m_modeLabel;
    QLabel *m_voltageLabel;
    QLabel *m_currentLabel;
    QLabel *m_temperatureLabel;
    QLabel *m_energyLabel;
    QLabel *m_timeLabel;
    double m_scale = 0.0; // of the labels
    int m_modeLetters = 0; // px, height
};
