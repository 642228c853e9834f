#pragma once

#include <QMdiArea>

/// The area of the graph windows. While it is empty its background tells what to do next.
class DeskArea : public QMdiArea {
    Q_OBJECT

public:
    explicit DeskArea(QWidget *parent);

    /// The ports that are listened on; the hint of an empty area names them, or says how to choose some.
    void tellPorts(const QStringList &ports);
    void setBlack(bool black);
    /// Draws the title of `window`, which was just added.
    void dressTitle(QMdiSubWindow *window) const;
    /// Gives `window`, which was just added, the largest free room where its own place would cover others.
    void takeFreeRoom(QMdiSubWindow *window) const;

public slots:
    /// In rows, by the order of opening; Qt's own puts the active window first.
    void tileSubWindows();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStyle *m_titleStyle; // child
    QString m_hint; ///< its first line is the heading
    bool m_black = true;
};
