#pragma once

#include <QMdiArea>

/// The area of the graph windows. While it is empty its background tells what to do next.
class DeskArea : public QMdiArea {
    Q_OBJECT

public:
    explicit DeskArea(QWidget *parent);

    /// Text shown while no window is open; its first line is the heading.
    void setHint(const QString &hint);
    QString hint() const { return m_hint; }
    void setBlack(bool black);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_hint;
    bool m_black = true;
};
