#include "displays/powerdisplay.h"

#include "widgets/displayscale.h"
#include "printing/printstamp.h"
#include "widgets/refreshgate.h"
#include "printing/printrequest.h"
#include "settings/viewstate.h"

#include <QIcon>
#include <QKeyEvent>
#include <QPainter>

PowerDisplay::PowerDisplay(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint)
    , m_gate(new RefreshGate(this))
{
    setWindowIcon(QIcon(QStringLiteral(":/Icons/wykbar.png")));
    setWindowTitle(tr("Varnel - bar display"));
    setAutoFillBackground(true);
    setMinimumSize(scaled(470), scaled(280));
    setFocusPolicy(Qt::StrongFocus);
    m_chart.scale = displayScale();
    connect(m_gate, SIGNAL(refresh()), this, SLOT(refresh()));
    onViewChanged();
}

void PowerDisplay::setViewState(ViewState *state)
{
    m_viewState = state;
    connect(state, SIGNAL(changed()), this, SLOT(onViewChanged()));
    onViewChanged();
}

void PowerDisplay::setStaleSince(const QDateTime &since)
{
    if (since == m_staleSince)
        return;
    m_staleSince = since;
    m_gate->request();
}

void PowerDisplay::setNoData()
{
    m_record = Varnel3Data();
    m_gate->request();
}

QSize PowerDisplay::sizeHint() const
{
    return {scaled(465), scaled(364)};
}

void PowerDisplay::updateData(Varnel3Data &record, int nrWin, bool useKeptRi)
{
    const bool resistances = m_viewState && m_viewState->switches().cellValue == CellValue::Resistance;
    const bool sameDevice = nrWin == m_windowNumber && m_record.hasCellData();
    if (useKeptRi && resistances && sameDevice && record.hasCellData())
        return;
    m_windowNumber = nrWin;
    m_record = record;
    m_gate->request();
}

void PowerDisplay::print()
{
    refresh();
    PrintJob job;
    job.title = windowTitle();
    const QString device = Varnel3Data::deviceName(m_record.device);
    job.details = m_chart.bars.hasData() ? printDetails({printedName(m_windowNumber, device, m_sourceName)})
                                         : printDetails({});
    job.size = size();
    job.paint = [chart = m_chart, area = size()](QPainter &painter) mutable {
        chart.blackGround = false;
        chart.stale = false;
        chart.paint(painter, area);
    };
    printWithDialog(job, isVisible() ? this : parentWidget());
}

void PowerDisplay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_chart.paint(painter, size());
}

void PowerDisplay::closeEvent(QCloseEvent *)
{
    emit closed();
}

void PowerDisplay::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

QString PowerDisplay::spokenText() const
{
    static const char *const units[] = {" mV", " mAh", " %"}; // by quantity
    const PowerBars &bars = m_chart.bars;
    QStringList parts = {windowTitle()};
    if (!bars.hasData())
        parts.append(tr("NO DATA"));
    else if (m_windowNumber != -1)
        parts.append(tr("window %1").arg(m_windowNumber));
    for (int i = 0; i < bars.count; ++i) {
        const QString value = bars.known[i]
            ? QString::number(bars.values[i]) + QLatin1String(units[int(bars.quantity)])
            : QStringLiteral("-");
        parts.append(tr("cell %1: %2, balancing %3 %")
                         .arg(QString::number(i + 1), value, QString::number(bars.levels[i])));
    }
    parts.append(toolTip());
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

void PowerDisplay::refresh()
{
    m_chart.bars
        = PowerBars::of(m_record, m_viewState ? m_viewState->switches().cellValue : CellValue::Voltage);
    m_chart.windowNumber = m_windowNumber;
    m_chart.stale = m_staleSince.isValid();
    setToolTip(m_chart.stale
            ? tr("No line since %1").arg(m_staleSince.time().toString(QStringLiteral("HH:mm:ss")))
            : QString());
    update();
}

void PowerDisplay::onViewChanged()
{
    m_chart.blackGround = !m_viewState || m_viewState->switches().blackBackground;
    m_chart.distinct = m_viewState && m_viewState->switches().distinctLines;
    QPalette colours = palette();
    colours.setColor(QPalette::Window, m_chart.blackGround ? Qt::black : Qt::white);
    setPalette(colours);
    m_gate->request();
}
