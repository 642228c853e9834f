#include "displays/datadisplay.h"

#include "displays/clickedlabel.h"
#include "widgets/displayscale.h"
#include "widgets/fittedtext.h"
#include "widgets/refreshgate.h"
#include "settings/viewstate.h"

#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>

namespace {

constexpr int defaultAlignment = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int captionAlignment = Qt::AlignLeft | Qt::AlignBottom;
constexpr int figureWidth = 180;
constexpr int figureHeight = 60;
constexpr int captionWidth = 55;
constexpr int captionHeight = 29;
constexpr int cellHeight = 20;
constexpr int badgeSize = 18;
constexpr QSize windowSize{470, 280};
constexpr int figurePoints = 35;
constexpr int cellPoints = 10;
constexpr QSize cellValueBox{36, cellHeight};

struct LabelSpec {
    DataFigures::Item item;
    const char *name;
    QSize box; // pixels at scale 1 that the text has; also the label's size where `fixed`
    bool fixed;
    int alignment;
    int points; // before the font scale
};

// The units and notes stand beside their figures in what the window leaves them.
constexpr LabelSpec labelSpecs[] = {
    {DataFigures::Time, "timeLabel", {220, figureHeight}, true, Qt::AlignCenter, figurePoints},
    {DataFigures::Voltage, "voltageLabel", {figureWidth, figureHeight}, true, Qt::AlignCenter, figurePoints},
    {DataFigures::Current, "currentLabel", {figureWidth, figureHeight}, true, Qt::AlignCenter, figurePoints},
    {DataFigures::Temperature, "temperatureLabel", {figureWidth, figureHeight}, true, Qt::AlignCenter,
        figurePoints},
    {DataFigures::Capacity, "capacityLabel", {figureWidth, figureHeight}, true, Qt::AlignCenter,
        figurePoints},
    {DataFigures::Slope, "slopeLabel", {120, 30}, true, Qt::AlignRight | Qt::AlignVCenter, 17},
    {DataFigures::Resistance, "resistanceLabel", {120, 30}, true, Qt::AlignRight | Qt::AlignVCenter, 17},
    {DataFigures::VoltageUnit, "voltageUnit", {captionWidth, captionHeight}, false, captionAlignment, 13},
    {DataFigures::VoltageNote, "voltageNote", {captionWidth, captionHeight}, false, captionAlignment, 13},
    {DataFigures::CurrentUnit, "currentUnit", {captionWidth, captionHeight}, false, captionAlignment, 13},
    {DataFigures::MaxCellNote, "maxCellNote", {captionWidth, captionHeight}, false, captionAlignment, 13},
    {DataFigures::CapacityUnit, "capacityUnit", {captionWidth, captionHeight}, false, captionAlignment, 13},
    {DataFigures::MinCellNote, "minCellNote", {captionWidth, captionHeight}, false, captionAlignment, 13},
    {DataFigures::TemperatureUnit, "temperatureUnit", {captionWidth, 40}, true, defaultAlignment, 13},
    {DataFigures::SlopeUnit, "slopeUnit", {105, 30}, false, defaultAlignment, 13},
    {DataFigures::ResistanceUnit, "resistanceUnit", {105, 30}, false, defaultAlignment, 13},
    {DataFigures::Mode, "modeLabel", {225, 56}, false, Qt::AlignCenter, 33},
    {DataFigures::Cells, "cellsLabel", {225, 56}, false, Qt::AlignCenter, 31},
};

QSize scaledSize(const QSize &size)
{
    return {scaled(size.width()), scaled(size.height())};
}

void setColour(QLabel *label, const QColor &colour)
{
    if (label->palette().color(QPalette::WindowText) == colour)
        return;
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

void prepare(QLabel *label)
{
    label->setTextFormat(Qt::PlainText);
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(palette);
}

} // namespace

DataDisplay::DataDisplay(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint)
    , m_gate(new RefreshGate(this))
{
    setWindowTitle(tr("Varnel - Data Display"));
    setAutoFillBackground(true);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    setFixedSize(scaledSize(windowSize));
    connect(m_gate, SIGNAL(refresh()), this, SLOT(refresh()));
}

// Its 50 labels, each with the letters that fit, are made when it is shown first: a start does without.
void DataDisplay::setVisible(bool visible)
{
    if (visible && !m_windowNumberLabel)
        build();
    QWidget::setVisible(visible);
}

void DataDisplay::build()
{
    setWindowIcon(QIcon(QStringLiteral(":/Icons/Varnel.ico")));
    createLabels();
    fitFigures();
    createCellTable();
    createLayout();
    createWindowNumber();
    m_labels[DataFigures::Voltage]->setToolTip(
        tr("Voltage of the pack or the mean cell: click, or press Space"));
    connect(m_labels[DataFigures::Voltage], SIGNAL(clicked()), this, SLOT(onClikVoltage()));
    showFigures();
}

void DataDisplay::setViewState(ViewState *state)
{
    m_viewState = state;
    connect(state, SIGNAL(changed()), this, SLOT(onViewChanged()));
}

void DataDisplay::setStaleSince(const QDateTime &since)
{
    if (since == m_staleSince)
        return;
    m_staleSince = since;
    m_gate->request();
}

void DataDisplay::updateData(Varnel3Data &record, int nrWin, bool useKeptRi)
{
    // One table for the process: a line that came without resistances shows those of the line before it,
    // whichever display that one reached.
    static CellResistances keptResistances{};

    if (nrWin != m_windowNumber)
        clear();
    m_windowNumber = nrWin;
    m_record = record;
    m_hasRecord = true;
    m_resistances = useKeptRi ? keptResistances : resistancesOf(record);
    if (record.hasCellData() && m_viewState && m_viewState->switches().balancer
        && m_viewState->switches().cellValue == CellValue::Resistance)
        keptResistances = resistancesOf(record);
    m_gate->request();
}

void DataDisplay::onClikVoltage()
{
    m_figures.setPerCellVoltage(!m_figures.perCellVoltage());
    if (m_windowNumberLabel)
        showFigures();
}

void DataDisplay::clear()
{
    m_hasRecord = false;
    m_figures.clear();
    m_gate->request();
}

void DataDisplay::closeEvent(QCloseEvent *)
{
    emit closed();
}

// Space for a click on the voltage.
void DataDisplay::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        onClikVoltage();
    else if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

QString DataDisplay::spokenText() const
{
    QStringList parts = {windowTitle()};
    if (m_hasRecord && m_windowNumber != -1)
        parts.append(tr("window %1").arg(m_windowNumber));
    using Pair = std::pair<DataFigures::Item, DataFigures::Item>;
    for (const Pair &pair :
        {Pair(DataFigures::Mode, DataFigures::Cells), Pair(DataFigures::Voltage, DataFigures::VoltageUnit),
            Pair(DataFigures::Current, DataFigures::CurrentUnit),
            Pair(DataFigures::Temperature, DataFigures::TemperatureUnit),
            Pair(DataFigures::Capacity, DataFigures::CapacityUnit),
            Pair(DataFigures::Slope, DataFigures::SlopeUnit),
            Pair(DataFigures::Resistance, DataFigures::ResistanceUnit)}) {
        if (!m_figures.text(pair.first).isEmpty())
            parts.append(m_figures.text(pair.first).trimmed() + QLatin1Char(' ')
                + m_figures.text(pair.second).simplified());
    }
    parts.append(m_figures.text(DataFigures::Time));
    for (int i = 0; i < DataFigures::cellSlots; ++i) {
        if (!m_figures.cellText(i).isEmpty())
            parts.append(tr("cell %1").arg(i + 1) + QLatin1Char(' ') + m_figures.cellText(i).trimmed());
    }
    parts.append(toolTip());
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

void DataDisplay::refresh()
{
    if (m_hasRecord) {
        DataFigures::View view;
        view.statistics = m_viewState && m_viewState->switches().balancer;
        view.cellValue = m_viewState ? m_viewState->switches().cellValue : CellValue::Voltage;
        m_figures.show(m_record, view, m_resistances);
        showWindowNumber();
    }
    showFigures();
}

void DataDisplay::onViewChanged()
{
    m_gate->request();
}

void DataDisplay::showFigures()
{
    const bool stale = m_staleSince.isValid();
    constexpr int dim = 250; // per cent darker
    const auto shade = [stale](QRgb colour) { return stale ? QColor(colour).darker(dim) : QColor(colour); };

    for (const LabelSpec &spec : labelSpecs) {
        QLabel *label = m_labels[spec.item];
        setColour(label, shade(m_figures.colour(spec.item)));
        setFittedText(label, m_figures.text(spec.item), pointsOf(spec.points), scaledSize(spec.box));
    }
    for (int i = 0; i < DataFigures::cellSlots; ++i) {
        setColour(m_cellValues[i], shade(m_figures.cellColour()));
        setFittedText(
            m_cellValues[i], m_figures.cellText(i), cellPoints * fontScale(), scaledSize(cellValueBox));
    }
    setToolTip(stale ? tr("No line since %1").arg(m_staleSince.time().toString(QStringLiteral("HH:mm:ss")))
                     : QString());
}

void DataDisplay::showWindowNumber()
{
    m_windowNumberLabel->setVisible(m_windowNumber != -1);
    setFittedText(m_windowNumberLabel, QString::number(m_windowNumber), font().pointSizeF(),
        scaledSize({badgeSize, badgeSize}));
}

void DataDisplay::createLabels()
{
    for (const LabelSpec &spec : labelSpecs) {
        QLabel *label = spec.item == DataFigures::Voltage ? new ClickedLabel(this) : new QLabel(this);
        label->setObjectName(QLatin1String(spec.name));
        label->setAlignment(Qt::Alignment(spec.alignment));
        label->setFont(QFont(QStringLiteral("Arial"), spec.points));
        prepare(label);
        if (spec.fixed)
            label->setFixedSize(scaledSize(spec.box));
        else
            label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        m_labels[spec.item] = label;
    }
}

double DataDisplay::pointsOf(int points) const
{
    return points * m_fontScale / 100 * fontScale(); // of whole ones
}

void DataDisplay::fitFigures()
{
    constexpr int smallest = 50; // per cent
    constexpr int step = 5;
    const int roomy = scaled(54);
    QFont font(QStringLiteral("Arial"));
    for (m_fontScale = 100; m_fontScale > smallest; m_fontScale -= step) {
        font.setPointSizeF(pointsOf(figurePoints));
        if (QFontMetrics(font).size(Qt::TextSingleLine, QStringLiteral("0,000")).height() < roomy)
            break;
    }
}

void DataDisplay::createCellTable()
{
    for (int i = 0; i < DataFigures::cellSlots; ++i) {
        m_cellNames[i] = new QLabel(this);
        m_cellNames[i]->setObjectName(QStringLiteral("cellName%1").arg(i + 1));
        m_cellNames[i]->setFont(QFont(QStringLiteral("Arial")));
        m_cellNames[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_cellNames[i]->setFixedSize(scaledSize({cellHeight, cellHeight}));
        prepare(m_cellNames[i]);
        // Sized for the widest name, so that all of them look alike.
        setFittedText(
            m_cellNames[i], QStringLiteral("16: "), cellPoints * fontScale(), m_cellNames[i]->size());
        m_cellNames[i]->setText(QStringLiteral("%1: ").arg(i + 1));

        m_cellValues[i] = new QLabel(this);
        m_cellValues[i]->setObjectName(QStringLiteral("cellValue%1").arg(i + 1));
        m_cellValues[i]->setFont(QFont(QStringLiteral("Arial")));
        m_cellValues[i]->setFixedHeight(scaled(cellHeight));
        m_cellValues[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        prepare(m_cellValues[i]);
    }
}

void DataDisplay::createWindowNumber()
{
    m_windowNumberLabel = new QLabel(QStringLiteral("--"), this);
    m_windowNumberLabel->setObjectName(QStringLiteral("windowNumberLabel"));
    m_windowNumberLabel->setStyleSheet(QStringLiteral("color: black; background: yellow;"));
    m_windowNumberLabel->setAlignment(Qt::AlignCenter);
    m_windowNumberLabel->resize(scaledSize({badgeSize, badgeSize}));
}

QGridLayout *DataDisplay::captionPair(DataFigures::Item upper, DataFigures::Item lower)
{
    auto *pair = new QGridLayout;
    pair->setVerticalSpacing(1);
    pair->addWidget(m_labels[upper], 0, 0);
    pair->addWidget(m_labels[lower], 1, 0);
    return pair;
}

void DataDisplay::createLayout()
{
    auto *slopes = new QGridLayout;
    slopes->setVerticalSpacing(1);
    slopes->setHorizontalSpacing(scaled(6));
    slopes->addWidget(m_labels[DataFigures::Slope], 0, 0);
    slopes->addWidget(m_labels[DataFigures::SlopeUnit], 0, 1);
    slopes->addWidget(m_labels[DataFigures::Resistance], 1, 0);
    slopes->addWidget(m_labels[DataFigures::ResistanceUnit], 1, 1);

    auto *main = new QGridLayout;
    main->addWidget(m_labels[DataFigures::Cells], 0, 0, 1, 2);
    main->addWidget(m_labels[DataFigures::Mode], 0, 2, 1, 2);
    main->addWidget(m_labels[DataFigures::Voltage], 1, 0);
    main->addLayout(captionPair(DataFigures::VoltageUnit, DataFigures::VoltageNote), 1, 1);
    main->addWidget(m_labels[DataFigures::Current], 1, 2);
    main->addLayout(captionPair(DataFigures::CurrentUnit, DataFigures::MaxCellNote), 1, 3);
    main->addLayout(slopes, 2, 0, 1, 2);
    main->addWidget(m_labels[DataFigures::Temperature], 2, 2);
    main->addWidget(m_labels[DataFigures::TemperatureUnit], 2, 3);
    main->addWidget(m_labels[DataFigures::Time], 3, 0, 1, 2, Qt::AlignCenter);
    main->addWidget(m_labels[DataFigures::Capacity], 3, 2);
    main->addLayout(captionPair(DataFigures::CapacityUnit, DataFigures::MinCellNote), 3, 3);
    main->setRowStretch(0, 1);
    main->setColumnStretch(1, 1);
    main->setColumnStretch(3, 1);

    auto *cells = new QGridLayout;
    cells->setSpacing(1);
    constexpr int perRow = DataFigures::cellSlots / 2;
    for (int i = 0; i < DataFigures::cellSlots; ++i) {
        cells->addWidget(m_cellNames[i], i / perRow, 2 * (i % perRow));
        cells->addWidget(m_cellValues[i], i / perRow, 2 * (i % perRow) + 1);
    }

    // The figures fill the window to its edges.
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(main, 1);
    layout->addLayout(cells);
}
