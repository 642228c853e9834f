#include "desk/datatoolbar.h"

#include "data/figuretext.h"
#include "data/timetext.h"
#include "data/varnel3data.h"
#include "widgets/displayscale.h"
#include "widgets/fittedtext.h"

#include <QLabel>

namespace {

constexpr int labelWidths[] = {120, 55, 60, 55, 75, 65};
constexpr int labelHeight = 28;
constexpr int letterHeight = 11; // px, as in the style sheet; the widths are made for it
constexpr int barWidth = 470; // px of the labels and what lies between them

/// The program's sheet has the usual size.
void setLetters(QLabel *label, int height)
{
    label->setStyleSheet(height == letterHeight ? QString() : QStringLiteral("font-size: %1px").arg(height));
}

QLabel *addLabel(QToolBar *bar, const char *name, const QString &toolTip)
{
    auto *label = new QLabel(bar);
    label->setObjectName(QLatin1String(name));
    label->setFrameStyle(QFrame::Box);
    label->setAlignment(Qt::AlignCenter);
    label->setToolTip(toolTip);
    bar->addWidget(label);
    return label;
}

QString modeText(const Varnel3Data &record)
{
    // Appended, not chained: a name may hold what looks like a place marker.
    return Varnel3Data::modeName(record.mode) + QLatin1Char(' ')
        + QStringLiteral("%1").arg(record.cellCount, 2, 10, QLatin1Char(' ')) + QLatin1Char('x')
        + Varnel3Data::cellTypeName(record.cellType);
}

QString energyText(int energy)
{
    const int decimals = energy <= 99999 ? 3 : 2;
    return QStringLiteral("%L1 Ah").arg(energy / 1000.0, 5, 'f', decimals);
}

QString temperatureText(int temperature)
{
    const QChar degree(0x00B0);
    if (temperature == 0) // no sensor is fitted
        return FigureText::shortDashes() + QLatin1Char(' ') + degree + QLatin1Char('C');
    return QStringLiteral("%L1 %2C").arg(temperature / 10.0, 4, 'f', 1).arg(degree);
}

} // namespace

DataToolBar::DataToolBar(QWidget *parent)
    : QToolBar(tr("Data Tool Bar"), parent)
{
    setObjectName(QStringLiteral("dataToolBar"));
    setFloatable(false);
    setMovable(false);
    m_modeLabel = addLabel(this, "modeLabel", tr("Mode and cells type"));
    m_voltageLabel = addLabel(this, "voltageLabel", tr("Voltage"));
    m_currentLabel = addLabel(this, "currentLabel", tr("Current"));
    m_temperatureLabel = addLabel(this, "temperatureLabel", tr("Temperature"));
    m_energyLabel = addLabel(this, "energyLabel", tr("Energy"));
    m_timeLabel = addLabel(this, "timeLabel", tr("Time"));
    fitTo(barWidth);
}

void DataToolBar::fitTo(int width)
{
    const double scale = qBound(1.0, double(width) / barWidth, double(displayScale()));
    if (qFuzzyCompare(scale, m_scale))
        return;
    m_scale = scale;
    const auto all = labels();
    for (int i = 0; i < all.size(); ++i) {
        all[i]->setFixedSize(qRound(labelWidths[i] * scale), qRound(labelHeight * scale));
        setLetters(all[i], int(letterHeight * scale));
    }
    m_modeLetters = int(letterHeight * scale);
    fitModeText();
}

/// What a device does has longer names in some languages.
void DataToolBar::fitModeText()
{
    QFont font = m_modeLabel->font();
    font.setPixelSize(int(letterHeight * m_scale));
    const int letters = fittedFont(font, m_modeLabel->text(), m_modeLabel->contentsRect().size()).pixelSize();
    if (letters == m_modeLetters)
        return;
    m_modeLetters = letters;
    setLetters(m_modeLabel, letters);
}

void DataToolBar::showRecord(const Varnel3Data &record)
{
    if (record.cellCount == 0 || record.mode == Varnel3Data::NoMode) {
        clearFigures();
        return;
    }
    m_modeLabel->setText(modeText(record));
    fitModeText();
    m_voltageLabel->setText(QStringLiteral("%L1 V").arg(record.voltage / 1000.0, 5, 'f', 2));
    m_currentLabel->setText(QStringLiteral("%L1 A").arg(record.current / 1000.0, 5, 'f', 2));
    m_temperatureLabel->setText(temperatureText(record.temperature));
    m_energyLabel->setText(energyText(record.energy));
    m_timeLabel->setText(clockText(record));
    speak();
}

void DataToolBar::clearFigures()
{
    const auto all = labels();
    for (QLabel *label : all)
        label->clear();
    speak();
}

void DataToolBar::speak() const
{
    const auto all = labels();
    for (QLabel *label : all)
        label->setAccessibleName(
            (label->toolTip() + QLatin1Char(' ') + label->text().simplified()).trimmed());
}

void DataToolBar::setStale(bool stale)
{
    const auto all = labels();
    for (QLabel *label : all)
        label->setEnabled(!stale);
}

QList<QLabel *> DataToolBar::labels() const
{
    return {m_modeLabel, m_voltageLabel, m_currentLabel, m_temperatureLabel, m_energyLabel, m_timeLabel};
}
