#pragma once

#include "overlay/scene/overlaylayout.h"
#include "widgets/keybinding.h"

#include <QObject>

class QMouseEvent;
class QWheelEvent;
class QWidget;
struct OverlayRequest;

/// What mouse and keyboard do to an overlay, the same as in graph windows where it means something there: two
/// cursors, the zoom, the picked recording and its place in time. The widget forwards its events and paints.
class OverlayInteraction : public QObject {
    Q_OBJECT

public:
    /// Both outlive this. `widget` shows what `shown` says over all its size.
    OverlayInteraction(QWidget *widget, OverlayRequest *shown);

    void press(const QMouseEvent *event);
    void move(const QMouseEvent *event);
    void release(const QMouseEvent *event);
    void doubleClick(const QMouseEvent *event);
    void leave();
    /// False for an event that means nothing here.
    bool wheel(const QWheelEvent *event);
    bool key(const QKeyEvent *event);
    /// All is shown, without cursors, and nothing is being picked.
    void startAnew();

signals:
    /// Another recording is picked, or the one that is has been moved.
    void pickedChanged();

private:
    static const KeyBinding<OverlayInteraction> keyBindings[];
    enum class Drag { None, Zoom, View, Course };

    OverlayLayout layout() const;
    QPoint inPicture(const QPointF &position) const;
    double placeAt(double x) const;
    double columnOf(double place) const;
    double perPixel() const; ///< what lies along the axis
    double shareAt(int y) const;
    std::optional<int> entryNear(const QPoint &position) const;
    void pointAt(const QPoint &position);
    void pick(int entry);
    void pressPlot(const QPoint &position, Qt::KeyboardModifiers modifiers);
    void endDrag();
    void moveView(const QPoint &distance);
    void shiftPicked(double seconds);

    void moveCursor(int direction, Qt::KeyboardModifiers modifiers);
    void moveCourse(int direction, Qt::KeyboardModifiers modifiers);
    void movePart(int direction, Qt::KeyboardModifiers modifiers);
    void moveValues(int direction, Qt::KeyboardModifiers modifiers);
    void zoomByKey(int direction, Qt::KeyboardModifiers modifiers);
    void pickNext(int direction, Qt::KeyboardModifiers modifiers);
    void toggleMark(int direction, Qt::KeyboardModifiers modifiers);
    void showAll(int direction, Qt::KeyboardModifiers modifiers);
    bool giveUp();

    QWidget *m_widget; // not owned
    OverlayRequest *m_shown; // not owned
    Drag m_drag = Drag::None;
    QPoint m_pressed;
    double m_shiftBefore = 0.0; // s, of the course that is dragged
    double m_secondsPerPixel = 0.0; // when it began to be
};
