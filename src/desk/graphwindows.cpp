#include "desk/graphwindows.h"

#include "desk/closeguard.h"
#include "desk/deskarea.h"
#include "desk/displaywindows.h"
#include "desk/shownrecord.h"
#include "widgets/displayscale.h"
#include "graph/mdigraphchild.h"

#include <QApplication>
#include <QMdiSubWindow>

GraphWindows::GraphWindows(
    QWidget *shell, DeskArea *area, ViewState *state, DisplayWindows *displays, ShownRecord *shownRecord)
    : QObject(shell)
    , m_shell(shell)
    , m_area(area)
    , m_state(state)
    , m_displays(displays)
    , m_shownRecord(shownRecord)
{
    connect(
        m_area, SIGNAL(subWindowActivated(QMdiSubWindow*)), this, SLOT(onSubWindowActivated(QMdiSubWindow*)));
    connect(m_displays, SIGNAL(capacitiesWanted()), this, SLOT(refreshCapacities()));
}

MdiGraphChild *GraphWindows::create()
{
    auto *child = new MdiGraphChild(this, m_shell);
    place(child);
    emit renumberNeeded();
    return child;
}

void GraphWindows::place(MdiGraphChild *child)
{
    QMdiSubWindow *subWindow = m_area->addSubWindow(child);
    m_area->dressTitle(subWindow);
    child->setScale(displayScale());
    m_area->takeFreeRoom(subWindow);
    subWindow->setWindowIcon(child->windowIcon());
    subWindow->setToolTip(child->toolTip());
    m_children.append(child);
    child->setWindowNumber(m_children.size());
    connect(child, SIGNAL(selectedCellsChanged()), this, SIGNAL(selectedCellsChanged()));
    connect(child, SIGNAL(destroyed(QObject*)), this, SLOT(onDestroyed(QObject*)));
    child->show();
    m_displays->addCapacity(child);
    m_area->setActiveSubWindow(subWindow);
    setCurrent(child); // a minimised main window activates nothing
    if (!QApplication::activeModalWidget()) { // whose keys would be lost with it
        m_shell->activateWindow();
        m_shell->raise();
    }
    emit opened();
}

int GraphWindows::currentNumber() const
{
    return m_current ? m_current->windowNumber() : 0;
}

void GraphWindows::renumber()
{
    m_renumbering = false;
    m_displays->clearCapacities();
    const int shown = currentNumber();
    int number = 0;
    for (MdiGraphChild *child : qAsConst(m_children)) {
        child->setWindowNumber(++number);
        m_displays->addCapacity(child);
    }
    if (currentNumber() != shown)
        m_current->showNewest(); // the displays name the number
}

void GraphWindows::repaintAll() const
{
    const QList<QMdiSubWindow *> windows = m_area->subWindowList();
    for (QMdiSubWindow *window : windows) {
        if (window->widget())
            window->widget()->repaint();
    }
}

void GraphWindows::showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    // What was kept of another window's cells is none of this one's business.
    emit recordShown(record, windowNumber, useKeptRi && m_currentShown);
    m_currentShown = true;
}

void GraphWindows::showMessageStatusBar(const QString &text, int timeout)
{
    emit message(text, timeout);
}

QObject *GraphWindows::updateReceiver()
{
    return m_shell;
}

bool GraphWindows::mayClose(MdiGraphChild *child)
{
    return m_ending || m_guard == nullptr || m_guard->mayClose(child);
}

void GraphWindows::graphClosing(MdiGraphChild *child)
{
    forget(child);
}

void GraphWindows::onSubWindowActivated(QMdiSubWindow *window)
{
    auto *child = window ? qobject_cast<MdiGraphChild *>(window->widget()) : nullptr;
    if (child && m_children.contains(child))
        setCurrent(child);
}

void GraphWindows::refreshCapacities()
{
    for (const MdiGraphChild *child : qAsConst(m_children))
        m_displays->refreshCapacity(child);
}

void GraphWindows::onDestroyed(QObject *object)
{
    for (MdiGraphChild *child : qAsConst(m_children)) {
        if (static_cast<QObject *>(child) == object) {
            forget(child);
            return;
        }
    }
}

void GraphWindows::forget(MdiGraphChild *child)
{
    if (!m_children.removeOne(child))
        return;
    if (m_current == child)
        setCurrent(nullptr);
    if (m_ending || m_renumbering)
        return;
    m_renumbering = true;
    QMetaObject::invokeMethod(this, "renumberNeeded", Qt::QueuedConnection);
}

void GraphWindows::setCurrent(MdiGraphChild *child)
{
    if (child == m_current)
        return;
    m_current = child;
    m_shownRecord->clear(); // no figure of another device lingers
    m_currentShown = false;
    if (m_current)
        m_current->showNewest();
    emit currentChanged();
}
