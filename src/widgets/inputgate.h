#pragma once

#include <QObject>

class QWidget;

/// While it lives, the user's mouse and keyboard reach only one widget and whatever modal box may be
/// open; the rest of the program runs on.
class InputGate : public QObject {
    Q_OBJECT

public:
    /// `allowed` outlives this.
    explicit InputGate(QWidget *allowed);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void escaped();

private:
    bool isAllowed(const QObject *watched) const;

    QWidget *m_allowed;
};
