#include "logbook/window/course/coursepanel.h"

#include "data/figuretext.h"
#include "logbook/logbook.h"
#include "logbook/window/course/coursecanvas.h"
#include "logbook/window/table/recordingcolumns.h"
#include "printing/printrequest.h"
#include "printing/printstamp.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr double percents = 100.0;
constexpr QSize printedSize(900, 590); // px; as a page, whatever the window is like

} // namespace

CoursePanel::CoursePanel(const Logbook *logbook, QWidget *parent)
    : QWidget(parent)
    , m_logbook(logbook)
    , m_pack(LogbookFilter::everyPack)
    , m_headline(new QLabel(this))
    , m_quantity(new QComboBox(this))
    , m_axis(new QComboBox(this))
    , m_canvas(new CourseCanvas(this))
{
    m_headline->setObjectName(QStringLiteral("courseHeadline"));
    m_headline->setTextFormat(Qt::PlainText);
    m_headline->setWordWrap(true);
    m_quantity->setObjectName(QStringLiteral("courseQuantity"));
    m_quantity->addItems(
        {tr("Capacity"), tr("Energy"), tr("Internal resistance"), tr("Spread of the cells")});
    m_quantity->setToolTip(tr("What the chart shows"));
    m_quantity->setAccessibleName(m_quantity->toolTip());
    m_axis->setObjectName(QStringLiteral("courseAxis"));
    m_axis->addItems({tr("by date"), tr("by cycle")});
    m_axis->setToolTip(tr("Against the date, or against the number of the cycle"));
    m_axis->setAccessibleName(m_axis->toolTip());
    for (QComboBox *box : {m_quantity, m_axis}) // whose size hint is a pixel too small with large letters
        for (int i = 0; i < box->count(); ++i)
            box->setMinimumContentsLength(
                std::max(box->minimumContentsLength(), int(box->itemText(i).size())));
    m_canvas->setObjectName(QStringLiteral("courseCanvas"));
    m_canvas->setNamer(
        [this](const CourseLine &line, const CoursePoint &point) { return pointText(line, point); });
    auto *controls = new QHBoxLayout;
    controls->addWidget(m_headline, 1);
    controls->addWidget(m_quantity);
    controls->addWidget(m_axis);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addLayout(controls);
    layout->addWidget(m_canvas, 1);
    connect(m_quantity, SIGNAL(currentIndexChanged(int)), this, SLOT(onChoice()));
    connect(m_axis, SIGNAL(currentIndexChanged(int)), this, SLOT(onChoice()));
    connect(m_canvas, SIGNAL(chosen(qint64)), this, SIGNAL(chosen(qint64)));
    refresh();
}

void CoursePanel::setPack(qint64 pack)
{
    m_pack = pack;
    refresh();
}

void CoursePanel::setGround(bool black, bool distinct)
{
    m_black = black;
    m_distinct = distinct;
    refresh();
}

void CoursePanel::mark(qint64 recording)
{
    m_canvas->mark(recording);
}

CourseChart CoursePanel::chartOn(bool black) const
{
    const PackCourse::Request request{
        PackCourse::Quantity(m_quantity->currentIndex()), isByDate(), black, m_distinct};
    if (const LogbookPack *pack = m_logbook->pack(m_pack))
        return PackCourse::chartOf(*pack, PackCourse::of(*m_logbook, m_pack), request);
    if (m_pack != LogbookPack::none)
        return PackCourse::chartOfAll(*m_logbook, request);
    CourseChart chart;
    chart.blackGround = black;
    chart.emptyText = tr("Assign recordings to a pack to see its course.");
    return chart;
}

void CoursePanel::refresh()
{
    m_title = headline();
    m_canvas->setChart(chartOn(m_black));
    m_canvas->setTitle(title());
    m_headline->setText(m_title);
    m_headline->setToolTip(m_title);
}

QString CoursePanel::headline() const
{
    const LogbookPack *pack = m_logbook->pack(m_pack);
    if (!pack)
        return m_pack == LogbookPack::none ? tr("Not assigned") : tr("All packs");
    QStringList parts = {pack->name};
    if (pack->cells > 0)
        parts.append(FigureText::cells(pack->cells, pack->cellType));
    if (pack->capacity > 0)
        parts.append(FigureText::fixed(pack->capacity, 0) + QStringLiteral(" mAh"));
    const PackCourse::Health health = PackCourse::healthOf(*pack, PackCourse::of(*m_logbook, m_pack));
    if (health.percent)
        parts.append(tr("state of health %1 %").arg(PackCourse::percentText(*health.percent)));
    parts.append(tr("%n cycle(s)", nullptr, health.cycles));
    if (health.hasWeakCell)
        parts.append(tr("cell %1 is weak").arg(health.lowestCell + 1));
    // A line does not break before the sign.
    return parts.join(QStringLiteral(", "))
        .replace(QStringLiteral(" %"), QChar(QChar::Nbsp) + QLatin1Char('%'));
}

QString CoursePanel::title() const
{
    return m_title + QStringLiteral(": ") + m_quantity->currentText();
}

QString CoursePanel::pointText(const CourseLine &line, const CoursePoint &point) const
{
    const LogbookRecording *recording = m_logbook->recording(point.recording);
    if (!recording)
        return {};
    const CourseChart &chart = m_canvas->chart();
    QString value = FigureText::fixed(point.value, 2) + QLatin1Char(' ') + chart.unit;
    if (chart.inPercent)
        value += QStringLiteral(" (") + PackCourse::percentText(point.value * percents / chart.reference)
            + QStringLiteral(" %)");
    QStringList lines
        = {RecordingColumns::label(*m_logbook, *recording), line.name + QStringLiteral(": ") + value};
    if (point.partial)
        lines.append(tr("Not from full to empty, or not to the end: not to be compared with the others."));
    return lines.join(QLatin1Char('\n'));
}

CourseChart CoursePanel::chart() const
{
    return m_canvas->chart();
}

QSize CoursePanel::pictureSize() const
{
    return m_canvas->size();
}

int CoursePanel::quantity() const
{
    return m_quantity->currentIndex();
}

bool CoursePanel::isByDate() const
{
    return m_axis->currentIndex() == 0;
}

void CoursePanel::choose(int quantity, bool byDate)
{
    m_quantity->setCurrentIndex(qBound(0, quantity, m_quantity->count() - 1));
    m_axis->setCurrentIndex(byDate ? 0 : 1);
}

void CoursePanel::onChoice()
{
    refresh();
}

void CoursePanel::print()
{
    PrintJob job;
    const LogbookPack *pack = m_logbook->pack(m_pack);
    job.title = title();
    job.fileName = (pack ? pack->name : m_title) + QStringLiteral(" - ") + m_quantity->currentText();
    job.details = printDetails({});
    job.size = printedSize;
    CourseChart chart = chartOn(false); // white paper
    job.paint = [chart](QPainter &painter) { chart.paint(painter, printedSize); };
    printWithDialog(job, this);
}
