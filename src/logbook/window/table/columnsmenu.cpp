#include "logbook/window/table/columnsmenu.h"

#include "logbook/window/table/recordingcolumns.h"
#include "logbook/window/table/recordingview.h"
#include "widgets/mnemonics.h"

ColumnsMenu::ColumnsMenu(RecordingView *view, QWidget *parent)
    : QMenu(tr("Columns"), parent)
    , m_view(view)
{
    setToolTipsVisible(true);
    for (int column = 0; column < RecordingColumns::count; ++column) {
        QAction *action = addAction(RecordingColumns::title(column));
        action->setToolTip(RecordingColumns::tip(column));
        action->setCheckable(true);
        action->setData(column);
    }
    connect(this, SIGNAL(aboutToShow()), this, SLOT(refresh()));
    connect(this, SIGNAL(triggered(QAction*)), this, SLOT(onTriggered(QAction*)));
    new MenuMnemonics(this);
}

void ColumnsMenu::refresh()
{
    const QList<QAction *> all = actions();
    for (QAction *action : all)
        action->setChecked(m_view->isColumnShown(action->data().toInt()));
}

void ColumnsMenu::onTriggered(QAction *action)
{
    m_view->setColumnShown(action->data().toInt(), action->isChecked());
}
