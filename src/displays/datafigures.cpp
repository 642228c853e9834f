#include "displays/datafigures.h"

#include "data/timetext.h"
#include "data/varnel3data.h"
#include "data/voltageslope.h"
#include "data/figuretext.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using Item = DataFigures::Item;

constexpr QRgb green = qRgb(0, 255, 0);
constexpr QRgb cyan = qRgb(0, 255, 255);
constexpr QRgb yellow = qRgb(255, 255, 0);
constexpr QRgb red = qRgb(255, 0, 0);
constexpr QRgb orange = qRgb(255, 127, 0);
constexpr QRgb magenta = qRgb(255, 0, 255);
constexpr QRgb white = qRgb(255, 255, 255);

constexpr int slopeSettled = 90; // s; earlier the slope means nothing
constexpr double chargePerAmpereHour = 1000.0 * Varnel3Data::chargePerMah;

struct Colouring {
    Item item;
    QRgb normal;
    QRgb statistics;
};

constexpr Colouring colourings[] = {
    {DataFigures::Time, yellow, yellow},
    {DataFigures::Voltage, green, green},
    {DataFigures::VoltageUnit, green, green},
    {DataFigures::VoltageNote, green, green},
    {DataFigures::Current, cyan, yellow},
    {DataFigures::CurrentUnit, cyan, yellow},
    {DataFigures::MaxCellNote, yellow, yellow},
    {DataFigures::Temperature, red, cyan},
    {DataFigures::TemperatureUnit, red, cyan},
    {DataFigures::Capacity, orange, orange},
    {DataFigures::CapacityUnit, orange, orange},
    {DataFigures::MinCellNote, orange, orange},
    {DataFigures::Slope, yellow, cyan},
    {DataFigures::SlopeUnit, yellow, cyan},
    {DataFigures::Resistance, magenta, orange},
    {DataFigures::ResistanceUnit, magenta, orange},
    {DataFigures::Mode, white, white},
    {DataFigures::Cells, white, white},
};

constexpr const char *modeTexts[] = {
    QT_TRANSLATE_NOOP("DataDisplay", "Charge"),
    QT_TRANSLATE_NOOP("DataDisplay", "Discharge"),
    QT_TRANSLATE_NOOP("DataDisplay", "Balance"),
};

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(DataDisplay)
};

QString slopeText(int slope)
{
    return slope == noVoltageSlope ? FigureText::shortDashes() : QString::number(slope);
}

/// Index of the first cell at `voltage`, 0 when none is.
int cellAt(int voltage, const Varnel3Data &record)
{
    const auto end = record.cells + record.cellsPresent();
    const auto found = std::find_if(
        record.cells + 0, end, [voltage](const CellData &cell) { return cell.voltage == voltage; });
    return found == end ? 0 : int(found - record.cells);
}

QString cellNote(int index)
{
    return Texts::tr("cell %1").arg(index + 1);
}

} // namespace

DataFigures::DataFigures()
    : m_cellColour(white)
{
    clear();
}

void DataFigures::clear()
{
    m_texts.fill(QString());
    m_cellTexts.fill(QString());
    m_cellCount = 0;
    enterNormalView();
}

void DataFigures::show(const Varnel3Data &record, const View &view, const CellResistances &resistances)
{
    if (record.cellCount == 0 || record.mode == Varnel3Data::NoMode) {
        clear();
        return;
    }
    m_cellCount = record.cellCount;
    m_voltage = record.voltage;
    m_texts[Time] = elapsedTimeText(qMax(0, record.time));
    m_texts[Cells] = FigureText::cells(record.cellCount, record.cellType);
    // A device that forms or tests a pack goes through charges and discharges:
    // the display keeps the last of them.
    if (record.mode >= 0 && record.mode < int(std::size(modeTexts)))
        m_texts[Mode] = Texts::tr(modeTexts[record.mode]);
    m_cellTexts.fill(QString());

    if (!view.statistics || !record.hasCellData()) {
        showNormal(record);
        return;
    }
    showStatistics(record);
    if (view.cellValue != CellValue::Resistance)
        showCells(record, view.cellValue);
    else
        showResistances(record, resistances);
}

void DataFigures::setPerCellVoltage(bool on)
{
    m_perCellVoltage = on;
    if (m_statistics)
        return;
    m_texts[VoltageUnit] = on ? QStringLiteral("Vc") : QStringLiteral("V");
    if (m_cellCount != 0)
        showVoltage();
}

void DataFigures::showNormal(const Varnel3Data &record)
{
    enterNormalView();
    showVoltage();
    m_texts[Current] = FigureText::amperes(record.current);
    m_texts[Temperature] = FigureText::degrees(record.temperature);
    m_texts[Capacity] = FigureText::ampereHours(record.energy);
    m_texts[Resistance] = FigureText::ohms(record.internalResistance);
    m_texts[Slope] = record.time >= slopeSettled ? slopeText(record.voltageSlope) : QString();
}

void DataFigures::showStatistics(const Varnel3Data &record)
{
    enterStatisticsView();
    m_texts[Slope] = QString::number(record.balanceMax);
    m_texts[Resistance] = FigureText::fixed(record.maxBalanceChargeMah() / 1000.0, 5, 3);
    m_texts[Voltage] = FigureText::volts(record.cellAverage, 6, 3);
    m_texts[Current] = FigureText::volts(record.cellMax, 5, 3);
    m_texts[Capacity] = FigureText::volts(record.cellMin, 5, 3);
    m_texts[Temperature] = FigureText::fixed((double(record.cellMax) - record.cellMin) / 1000.0, 5, 3);
    m_texts[MaxCellNote] = cellNote(cellAt(record.cellMax, record));
    m_texts[MinCellNote] = cellNote(cellAt(record.cellMin, record));
}

void DataFigures::showCells(const Varnel3Data &record, CellValue value)
{
    m_cellColour = value == CellValue::Voltage ? qRgb(100, 100, 255) : qRgb(140, 120, 100);
    for (int i = 0; i < record.cellsPresent(); ++i)
        m_cellTexts[i] = value == CellValue::Voltage
            ? FigureText::volts(record.cells[i].voltage, 5, 3)
            : FigureText::fixed(record.cells[i].balanceCharge / chargePerAmpereHour, 5, 3);
}

void DataFigures::showResistances(const Varnel3Data &record, const CellResistances &resistances)
{
    const int count = record.cellsPresent();
    const ResistanceSummary summary = ResistanceSummary::of(resistances, count);
    const auto figure = [&summary](double value, int decimals) {
        return summary.complete ? FigureText::fixed(value, 5, decimals) : FigureText::shortDashes();
    };
    m_cellColour = qRgb(255, 165, 0);
    for (int i = 0; i < count; ++i)
        m_cellTexts[i]
            = resistances[i] > 0.0 ? FigureText::fixed(resistances[i], 5, 1) : QStringLiteral("--.-");
    m_texts[VoltageUnit] = Texts::tr("Ri avg");
    m_texts[ResistanceUnit] = QStringLiteral("Ri");
    m_texts[TemperatureUnit] = Texts::tr("%\nRi delta");
    m_texts[CurrentUnit] = Texts::tr("Ri max");
    m_texts[CapacityUnit] = Texts::tr("Ri min");
    m_texts[Voltage] = figure(summary.mean, 2);
    m_texts[Resistance] = figure(summary.sum, 1);
    m_texts[Temperature] = figure(summary.complete ? summary.spreadPercent() : 0.0, 0);
    m_texts[Current] = figure(summary.highest, 1);
    m_texts[Capacity] = figure(summary.lowest, 1);
    m_texts[MaxCellNote] = summary.complete ? cellNote(summary.highestCell) : QString();
    m_texts[MinCellNote] = summary.complete ? cellNote(summary.lowestCell) : QString();
}

void DataFigures::enterNormalView()
{
    m_statistics = false;
    for (const Colouring &colouring : colourings)
        m_colours[colouring.item] = colouring.normal;
    m_texts[VoltageUnit] = m_perCellVoltage ? QStringLiteral("Vc") : QStringLiteral("V");
    m_texts[ResistanceUnit] = QStringLiteral("Ω");
    m_texts[SlopeUnit] = QStringLiteral("mV/min");
    m_texts[CurrentUnit] = QStringLiteral("A");
    m_texts[TemperatureUnit] = QStringLiteral("°C");
    m_texts[CapacityUnit] = QStringLiteral("Ah");
    m_texts[MaxCellNote].clear();
    m_texts[MinCellNote].clear();
}

void DataFigures::enterStatisticsView()
{
    m_statistics = true;
    for (const Colouring &colouring : colourings)
        m_colours[colouring.item] = colouring.statistics;
    m_texts[VoltageUnit] = Texts::tr("V avg");
    m_texts[ResistanceUnit] = Texts::tr("Ah max");
    m_texts[SlopeUnit] = QStringLiteral("%");
    m_texts[CurrentUnit] = Texts::tr("V max");
    m_texts[TemperatureUnit] = Texts::tr("V delta");
    m_texts[CapacityUnit] = Texts::tr("V min");
}

void DataFigures::showVoltage()
{
    if (!m_perCellVoltage)
        m_texts[Voltage] = FigureText::volts(m_voltage, 5, 2);
    else if (m_cellCount >= 1)
        m_texts[Voltage] = FigureText::fixed(double(m_voltage) / m_cellCount / 1000.0, 5, 3);
}
