#pragma once

#include "overlay/overlaypainter.h"
#include "overlay/scene/overlayrequest.h"
#include "widgets/spoken.h"

#include <QWidget>

class OverlayInteraction;
class ViewState;

/// The picture of an overlay, with the mouse and the keys on it. Follows the view's background and lines.
class OverlayPlot : public QWidget, public Spoken {
    Q_OBJECT

public:
    /// `state` outlives this.
    explicit OverlayPlot(const ViewState *state, QWidget *parent = nullptr);

    const OverlayRequest &shown() const { return m_shown; }
    /// As `shown`, without what points at something, on black or white.
    OverlayRequest picture(const QSize &size, bool black) const;
    /// All of them, without cursors; none is picked. At most OverlayRequest::mostEntries.
    void setEntries(const QVector<OverlayEntry> &entries);
    /// The picked one; all where none is.
    void remove();
    void setValue(OverlayValue value);
    void setAxis(OverlayAxis axis);
    void setLinedUp(bool linedUp);
    /// Moves the picked one to `seconds` from where it was recorded.
    void setShift(double seconds);
    QString spokenText() const override; ///< heading and rows of the legend
    QSize sizeHint() const override;

signals:
    /// Another recording is picked, or the one that is has been moved, or there are others.
    void pickedChanged();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;

private slots:
    void onViewChanged();

private:
    const ViewState *m_state; // not owned
    OverlayRequest m_shown;
    OverlayPainter m_painter;
    OverlayInteraction *m_interaction; // a child of this
};
