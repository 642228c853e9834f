#pragma once

#include <QLabel>

/// A label that tells when it is pressed with any mouse button.
class ClickedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ClickedLabel(QWidget *parent = nullptr);

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
