#include "displays/capacitydisplay.h"

#include "widgets/displayscale.h"
#include "printing/printstamp.h"
#include "printing/printrequest.h"
#include "settings/viewstate.h"
#include "widgets/plaintooltip.h"

#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QPushButton>
#include <QToolTip>

namespace {

constexpr int updateInterval = 1000; // ms
constexpr QSize buttonSize{15, 40};

} // namespace

CapacityDisplay::CapacityDisplay(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint)
{
    m_next = createButton(QStringLiteral(":/Icons/control-right.png"), tr("Next"), SLOT(showNext()));
    m_next->setObjectName(QStringLiteral("next"));
    m_prev = createButton(QStringLiteral(":/Icons/control-left.png"), tr("Previous"), SLOT(showPrev()));
    m_prev->setObjectName(QStringLiteral("previous"));
    setWindowIcon(QIcon(QStringLiteral(":/Icons/wykbar.png")));
    setWindowTitle(tr("Varnel - capacity comparison"));
    setAutoFillBackground(true);
    setMinimumSize(scaled(470), scaled(280));
    setFocusPolicy(Qt::StrongFocus);
    m_chart.scale = displayScale();
    m_updateTimer.setInterval(updateInterval);
    connect(&m_updateTimer, SIGNAL(timeout()), this, SLOT(wantEntries()));
    onViewChanged();
}

QPushButton *CapacityDisplay::createButton(const QString &icon, const QString &toolTip, const char *slot)
{
    auto *button = new QPushButton(QIcon(icon), QString(), this);
    button->setFixedSize(scaled(buttonSize.width()), scaled(buttonSize.height()));
    button->setIconSize(QSize(scaled(buttonSize.width() - 3), scaled(buttonSize.width() - 3)));
    // The program's buttons have a padding that would leave nothing for the icon.
    button->setStyleSheet(QStringLiteral("padding: 0px; min-width: 0px; min-height: 0px;"));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, SIGNAL(clicked()), this, slot);
    return button;
}

void CapacityDisplay::setViewState(ViewState *state)
{
    m_viewState = state;
    connect(state, SIGNAL(changed()), this, SLOT(onViewChanged()));
    onViewChanged();
}

void CapacityDisplay::addEntry(const CapacityEntry &entry)
{
    m_chart.entries.append(entry);
    if (m_end >= CapacityChart::visibleBars)
        ++m_chart.first;
    ++m_end;
    refresh();
}

void CapacityDisplay::changeEntry(const CapacityEntry &entry, int k)
{
    if (k < 1 || k > m_chart.entries.size())
        return;
    m_chart.entries[k - 1] = entry;
    refresh();
}

void CapacityDisplay::removeEntry(int k)
{
    if (k < 0 || k >= m_chart.entries.size())
        return;
    m_chart.entries.remove(k);
    if (m_chart.entries.size() <= m_end) {
        if (m_end > CapacityChart::visibleBars)
            --m_chart.first;
        --m_end;
    }
    // The view never ends before the last entry while it has room for it.
    m_end = m_chart.visibleEnd();
    refresh();
}

void CapacityDisplay::clear()
{
    m_chart.first = 0;
    m_end = 0;
    m_chart.entries.clear();
    refresh();
}

void CapacityDisplay::setWindowCount(int count)
{
    m_windowCount = count;
}

QSize CapacityDisplay::sizeHint() const
{
    return {scaled(465), scaled(364)};
}

void CapacityDisplay::showNext()
{
    if (m_end >= m_chart.entries.size())
        return;
    ++m_chart.first;
    ++m_end;
    refresh();
}

void CapacityDisplay::showPrev()
{
    if (m_chart.first <= 0)
        return;
    --m_chart.first;
    --m_end;
    refresh();
}

void CapacityDisplay::wantEntries()
{
    if (isVisible() && !isMinimized())
        emit entriesWanted();
}

void CapacityDisplay::refresh()
{
    m_next->setEnabled(m_end < m_chart.entries.size());
    m_prev->setEnabled(m_chart.first > 0);
    update();
}

void CapacityDisplay::onViewChanged()
{
    m_chart.blackGround = !m_viewState || m_viewState->switches().blackBackground;
    m_chart.distinct = m_viewState && m_viewState->switches().distinctLines;
    QPalette colours = palette();
    colours.setColor(QPalette::Window, m_chart.blackGround ? Qt::black : Qt::white);
    setPalette(colours);
    update();
}

void CapacityDisplay::print()
{
    PrintJob job;
    job.title = windowTitle();
    job.details = printDetails({}); // the lines below the picture name the windows
    CapacityChart chart = m_chart;
    chart.blackGround = false;
    for (CapacityEntry &entry : chart.entries)
        entry.staleSince = QDateTime();
    job.size = chart.pageSize(size());
    job.paint = [chart, area = size()](QPainter &painter) { chart.paintPage(painter, area); };
    printWithDialog(job, isVisible() ? this : parentWidget());
}

bool CapacityDisplay::event(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange)
        wantEntries(); // those of the time in which it was minimised
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int index = m_chart.entryAt(help->pos(), size());
    QToolTip::showText(help->globalPos(), textOf(index), this); // without one, another's goes
    return true;
}

QString CapacityDisplay::textOf(int index) const
{
    if (index < 0)
        return {};
    const CapacityEntry &entry = m_chart.entries[index];
    QString text = entry.text();
    if (entry.staleSince.isValid())
        text += QLatin1Char('\n')
            + tr("No line since %1").arg(entry.staleSince.time().toString(QStringLiteral("HH:mm:ss")));
    return text;
}

QString CapacityDisplay::spokenText() const
{
    QStringList lines = {windowTitle()};
    for (int i = m_chart.first; i < m_chart.visibleEnd(); ++i)
        lines.append(QString::number(i + 1) + QStringLiteral(": ") + textOf(i));
    return lines.join(QLatin1Char('\n'));
}

void CapacityDisplay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_chart.paint(painter, size());
}

void CapacityDisplay::resizeEvent(QResizeEvent *)
{
    const int top = height() / 2 - scaled(20);
    m_prev->move(scaled(7), top);
    m_next->move(width() - 1 - scaled(22), top);
}

void CapacityDisplay::showEvent(QShowEvent *)
{
    while (m_chart.first > 0 && m_chart.first >= m_windowCount) {
        --m_chart.first;
        --m_end;
    }
    refresh();
    emit entriesWanted();
    m_updateTimer.start();
}

void CapacityDisplay::hideEvent(QHideEvent *)
{
    m_updateTimer.stop();
}

void CapacityDisplay::closeEvent(QCloseEvent *)
{
    emit closed();
}

void CapacityDisplay::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Right)
        showNext();
    else if (event->key() == Qt::Key_Left)
        showPrev();
    else if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_Space) // what the bars tell the mouse
        QToolTip::showText(mapToGlobal(rect().center()), plainToolTip(spokenText()), this);
    else
        QWidget::keyPressEvent(event);
}
