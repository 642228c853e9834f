#include "displays/voltagecomparison.h"

#include "data/figuretext.h"
#include "displays/chartpaint.h"
#include "widgets/displayscale.h"
#include "printing/printstamp.h"
#include "widgets/refreshgate.h"
#include "displays/voltagecanvas.h"
#include "displays/voltagesource.h"
#include "printing/printrequest.h"
#include "settings/viewstate.h"

#include <QBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>

namespace {

/// What the user has chosen. The shell makes a new window whenever the graph windows are numbered afresh.
struct Choice {
    VoltageChart::Selection selection = VoltageChart::All;
    int oneCell = -1; // index, -1 for all cells
    int lastCell = 0; // index, shown when one cell is asked for by key
};

Choice &choice()
{
    static Choice made;
    return made;
}

struct SelectionText {
    const char *button;
    const char *toolTip;
};

constexpr SelectionText selectionTexts[VoltageChart::selectionCount] = {
    {"-", QT_TRANSLATE_NOOP("VoltageComparison", "All cells but the selected")},
    {"S", QT_TRANSLATE_NOOP("VoltageComparison", "All cells, the selected emphasised")},
    {"+", QT_TRANSLATE_NOOP("VoltageComparison", "Only the selected cells")},
};

} // namespace

VoltageComparison::VoltageComparison(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint)
    , m_gate(new RefreshGate(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(QIcon(QStringLiteral(":/Icons/wyk.png")));
    setWindowTitle(tr("Varnel - voltage comparison"));
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    createControls();
    connect(m_gate, SIGNAL(refresh()), this, SLOT(refresh()));
    connect(m_selectionButton, SIGNAL(clicked()), this, SLOT(cycleSelection()));
    connect(m_canvas, SIGNAL(cellPressed(int,int,bool)), this, SLOT(onCellPressed(int,int,bool)));
    // Queued: shown while its neighbour is being resized, the bar would have no height until the next time.
    connect(m_canvas, SIGNAL(resized()), this, SLOT(updateScrollBar()), Qt::QueuedConnection);
    connect(m_scrollBar, SIGNAL(valueChanged(int)), m_canvas, SLOT(setScroll(int)));
    updateVoltage();
}

void VoltageComparison::createControls()
{
    m_selectionButton = new QPushButton(this);
    m_selectionButton->setObjectName(QStringLiteral("selectionButton"));
    // In the style sheet, which would otherwise bring sizes of its own.
    m_selectionButton->setStyleSheet(
        QStringLiteral("padding: 0px; min-width: %1px; min-height: %2px;").arg(scaled(26)).arg(scaled(20)));
    m_selectionButton->setFocusPolicy(Qt::NoFocus);
    m_hint = new QLabel(this);
    m_hint->setObjectName(QStringLiteral("hintLabel"));
    m_hint->setFont(drawingFont(QStringLiteral("Arial"), 8, displayScale()));
    m_hint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_canvas = new VoltageCanvas(this);
    m_canvas->setObjectName(QStringLiteral("canvas"));
    m_canvas->setMinimumHeight(scaled(190));
    m_scrollBar = new QScrollBar(Qt::Horizontal, this);
    m_scrollBar->setFocusPolicy(Qt::NoFocus);

    auto *controls = new QHBoxLayout;
    const int margin = scaled(3);
    controls->setContentsMargins(margin, margin, margin, margin);
    controls->setSpacing(2 * margin);
    controls->addWidget(m_selectionButton);
    controls->addWidget(m_hint, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(controls);
    layout->addWidget(m_canvas, 1);
    layout->addWidget(m_scrollBar);
    setMinimumWidth(scaled(300));
}

void VoltageComparison::setViewState(ViewState *state)
{
    m_viewState = state;
    connect(state, SIGNAL(changed()), this, SLOT(updateVoltage()));
}

void VoltageComparison::setSource(VoltageSource *source)
{
    m_source = source;
}

void VoltageComparison::showAllCells()
{
    m_showsAllCells = true;
    updateVoltage();
}

void VoltageComparison::updateVoltage()
{
    m_gate->request();
}

void VoltageComparison::refresh()
{
    VoltageChart chart;
    chart.scale = displayScale();
    chart.blackGround = !m_viewState || m_viewState->switches().blackBackground;
    chart.distinct = m_viewState && m_viewState->switches().distinctLines;
    chart.selection = m_showsAllCells ? VoltageChart::All : choice().selection;
    chart.oneCell = m_showsAllCells ? -1 : choice().oneCell;
    if (m_source)
        chart.packs = m_source->packs();
    QPalette colours = palette();
    colours.setColor(QPalette::Window, chart.blackGround ? Qt::black : Qt::white);
    colours.setColor(QPalette::WindowText, ChartPaint::textColour(chart.blackGround));
    setPalette(colours);
    m_hint->setPalette(colours); // does not inherit it under a style sheet
    showChart(chart);
    showChoice();
}

/// What was seen first stays where it is, however wide the groups become.
void VoltageComparison::showChart(const VoltageChart &chart)
{
    const int width = m_canvas->width();
    const int scroll = m_scrollBar->value();
    const int pack = m_canvas->chart().firstSeen(width, scroll);
    const int before = pack < 0 ? 0 : m_canvas->chart().groupStart(pack, width);
    m_canvas->setChart(chart);
    updateScrollBar(); // may shorten the range below what was scrolled
    if (pack >= 0 && pack < chart.packs.size())
        m_scrollBar->setValue(scroll + chart.groupStart(pack, width) - before);
}

void VoltageComparison::showChoice()
{
    const SelectionText &texts = selectionTexts[choice().selection];
    m_selectionButton->setText(QLatin1String(texts.button));
    m_selectionButton->setToolTip(tr(texts.toolTip));
    m_selectionButton->setAccessibleName(tr(texts.toolTip));
    if (choice().oneCell >= 0)
        m_hint->setText(tr("Cell %1 of every window (arrow keys: another; click or Esc: all cells)")
                            .arg(choice().oneCell + 1));
    else
        m_hint->setText(tr(texts.toolTip));
}

void VoltageComparison::updateScrollBar()
{
    const int content = m_canvas->chart().contentWidth(m_canvas->width());
    m_scrollBar->setRange(0, content - m_canvas->width());
    m_scrollBar->setPageStep(m_canvas->chart().groupsWidth(m_canvas->width()));
    m_scrollBar->setSingleStep(scaled(40));
    m_scrollBar->setVisible(content > m_canvas->width());
}

void VoltageComparison::cycleSelection()
{
    choice().selection = VoltageChart::Selection((choice().selection + 1) % VoltageChart::selectionCount);
    refresh();
}

void VoltageComparison::setOneCell(int cell)
{
    choice().oneCell = cell;
    if (cell >= 0)
        choice().lastCell = cell;
    refresh();
}

void VoltageComparison::onCellPressed(int pack, int cell, bool toggle)
{
    const QVector<PackVoltages> &packs = m_canvas->chart().packs;
    if (!toggle) {
        setOneCell(choice().oneCell < 0 ? cell : -1);
    } else if (pack >= 0 && m_source) {
        m_source->toggleCell(packs[pack].windowNumber, cell);
        refresh();
    }
}

int VoltageComparison::cellsAtMost() const
{
    int count = 0;
    for (const PackVoltages &pack : m_canvas->chart().packs)
        count = qMax(count, pack.cellCount);
    return count;
}

void VoltageComparison::keyPressEvent(QKeyEvent *event)
{
    const bool one = choice().oneCell >= 0;
    const int last = qMax(0, cellsAtMost() - 1);
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        setOneCell(one ? -1 : qBound(0, choice().lastCell, last));
        break;
    case Qt::Key_Escape:
        if (one)
            setOneCell(-1);
        else
            close();
        break;
    case Qt::Key_Asterisk:
        cycleSelection();
        break;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int direction = event->key() == Qt::Key_Left ? -1 : 1;
        if (one)
            setOneCell(qBound(0, choice().oneCell + direction, last));
        else
            m_scrollBar->setValue(m_scrollBar->value() + direction * m_scrollBar->singleStep());
        break;
    }
    case Qt::Key_Home:
        m_scrollBar->triggerAction(QAbstractSlider::SliderToMinimum);
        break;
    case Qt::Key_End:
        m_scrollBar->triggerAction(QAbstractSlider::SliderToMaximum);
        break;
    case Qt::Key_PageUp:
        m_scrollBar->triggerAction(QAbstractSlider::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        m_scrollBar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void VoltageComparison::wheelEvent(QWheelEvent *event)
{
    const QPoint turn = event->angleDelta();
    const int steps = turn.y() != 0 ? turn.y() : turn.x();
    m_scrollBar->setValue(
        m_scrollBar->value() - steps * m_scrollBar->singleStep() / QWheelEvent::DefaultDeltasPerStep);
}

QString VoltageComparison::spokenText() const
{
    QStringList lines = {windowTitle()};
    const VoltageChart &chart = m_canvas->chart();
    for (const PackVoltages &pack : chart.packs) {
        QStringList cells;
        const QVector<int> shown = chart.shownCells(pack);
        for (const int cell : shown)
            cells.append(tr("cell %1: %2 volts")
                             .arg(QString::number(cell + 1), FigureText::volts(pack.voltages[cell], 0, 3)));
        if (cells.isEmpty())
            cells.append(chart.noCellText(pack));
        lines.append(tr("window %1").arg(pack.windowNumber) + QStringLiteral(", ") + pack.device
            + QStringLiteral(", ") + cells.join(QStringLiteral(", ")));
    }
    return lines.join(QLatin1Char('\n'));
}

void VoltageComparison::print()
{
    refresh();
    PrintJob job;
    job.title = windowTitle();
    QStringList windows;
    for (const PackVoltages &pack : m_canvas->chart().packs)
        windows.append(printedName(pack.windowNumber, pack.device, pack.source));
    job.details = printDetails(windows);
    job.size = m_canvas->chart().pageSize();
    VoltageChart chart = m_canvas->chart();
    chart.blackGround = false;
    for (PackVoltages &pack : chart.packs)
        pack.staleSince = QDateTime();
    job.paint = [chart](QPainter &painter) { chart.paintPage(painter); };
    printWithDialog(job, isVisible() ? this : parentWidget());
}

void VoltageComparison::closeEvent(QCloseEvent *)
{
    emit closed();
}
