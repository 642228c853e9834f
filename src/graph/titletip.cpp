#include "graph/titletip.h"

#include "data/processend.h"
#include "widgets/plaintooltip.h"

#include <QIcon>
#include <QMdiSubWindow>

TitleTip::TitleTip(QWidget *window)
    : m_window(window)
{
}

void TitleTip::showProcessEnd(int end)
{
    const QString text = processEndText(end);
    if (text.isEmpty())
        return;
    const QIcon icon(processEndIcon(end));
    m_window->setWindowIcon(icon);
    m_window->setToolTip(text);
    if (auto *frame = qobject_cast<QMdiSubWindow *>(m_window->parentWidget()))
        frame->setWindowIcon(icon); // it took the icon over once only
    show();
}

void TitleTip::setLine(const QString &text)
{
    m_line = text;
    show();
}

QString TitleTip::text() const
{
    QStringList lines = {m_window->toolTip(), m_line};
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

void TitleTip::show()
{
    if (auto *frame = qobject_cast<QMdiSubWindow *>(m_window->parentWidget()))
        frame->setToolTip(plainToolTip(text()));
}
