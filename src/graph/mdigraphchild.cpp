#include "graph/mdigraphchild.h"

#include "graph/graphhost.h"
#include "link/devicelink.h"
#include "settings/viewstate.h"

#include <QCloseEvent>
#include <QIcon>
#include <QPainter>

namespace {

constexpr int repaintPause = 100; // ms

struct ProcessEnd {
    const char *icon;
    const char *text;
};

constexpr ProcessEnd processEnds[] = {
    {":/Icons/error.png", QT_TRANSLATE_NOOP("MdiGraphChild", "Error in process !")},
    {":/Icons/cancel.png", QT_TRANSLATE_NOOP("MdiGraphChild", "Process aborted by user.")},
    {":/Icons/finish.png", QT_TRANSLATE_NOOP("MdiGraphChild", "Process completed.")},
};

} // namespace

MdiGraphChild::MdiGraphChild(GraphHost *host, QWidget *parent)
    : QWidget(parent)
    , m_host(host)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(tr("No file name"));
    m_repaintTimer.setSingleShot(true);
    m_repaintTimer.setInterval(repaintPause);
    connectHost();
}

MdiGraphChild::~MdiGraphChild()
{
    if (m_reader != nullptr)
        m_reader->detachGraphChild(this);
}

void MdiGraphChild::connectHost()
{
    connect(this, SIGNAL(updateCapacitySignal(int, char, int, int)), m_host->updateReceiver(),
        SLOT(updateCapacity(int, char, int, int)));
    connect(this, SIGNAL(updateVoltageSignal()), m_host->updateReceiver(), SLOT(updateVoltage()));
    connect(&m_repaintTimer, SIGNAL(timeout()), this, SLOT(update()));
}

QSize MdiGraphChild::sizeHint() const
{
    return {640, 400};
}

void MdiGraphChild::setWindowNumber(int number)
{
    m_windowNumber = number;
    update();
}

bool MdiGraphChild::stopProcess()
{
    if (m_reader == nullptr)
        return false;
    m_reader->sendCommand(QStringLiteral("#STOP\r\n"));
    return true;
}

MdiGraphChild::CapacityEntry MdiGraphChild::capacityEntry() const
{
    const SeriesStore::Capacity capacity = m_store.capacity();
    return {capacity.energyAtMark, capacity.mode, m_windowNumber};
}

void MdiGraphChild::setSelectedCells(const CellSelection &cells)
{
    if (cells == m_selectedCells)
        return;
    m_selectedCells = cells;
    update();
    emit selectedCellsChanged();
}

void MdiGraphChild::showNewest()
{
    if (m_store.isEmpty() || !m_host->isCurrent(this))
        return;
    const Varnel3Data &newest = m_store.records().last();
    const bool useKeptRi = newest.flag5 == 'B' && m_host->viewState()->switches().energyMode == 2
        && m_store.size() >= 3 && m_store.newestLacksResistance();
    m_host->showRecord(newest, m_windowNumber, useKeptRi);
}

void MdiGraphChild::loadRecords(RecordList records, const QString &fileName)
{
    m_store.load(std::move(records));
    m_unsavedData = false;
    if (m_store.size() > 1) {
        m_neverSaved = false;
        m_baseTitle = fileName;
        setTitle(fileName);
        showNewest();
    }
    update();
}

void MdiGraphChild::markSaved(const QString &fileName)
{
    if (m_baseTitle.isEmpty()) {
        m_baseTitle = fileName;
        setTitle(m_baseTitle);
    }
    if (m_unsavedData)
        setTitle(m_baseTitle + QLatin1Char(' ') + m_fileName);
    m_unsavedData = false;
    m_neverSaved = false;
}

void MdiGraphChild::setProcessEnd(int code)
{
    if (code < 0 || code >= int(std::size(processEnds)))
        return;
    setWindowIcon(QIcon(QLatin1String(processEnds[code].icon)));
    setToolTip(tr(processEnds[code].text));
}

void MdiGraphChild::attachReader(DeviceLink *reader)
{
    m_reader = reader;
}

void MdiGraphChild::setFileName(const QString &name)
{
    m_fileName = name;
    if (m_neverSaved)
        setTitle(tr("No file name") + QLatin1Char(' ') + m_fileName + QLatin1Char('*'));
}

void MdiGraphChild::setTitle(const QString &title)
{
    if (title != windowTitle())
        setWindowTitle(title);
}

void MdiGraphChild::addRecord(const Varnel3Data &record)
{
    if (m_store.isEmpty()) {
        m_neverSaved = true;
        m_host->showMessageStatusBar(tr("Device: ") + Varnel3Data::deviceName(record.device), 3000);
    }
    m_store.append(record);
    if (!m_neverSaved)
        setTitle(m_baseTitle + QLatin1Char(' ') + m_fileName + QLatin1Char('*'));
    m_unsavedData = true;
    tellCapacity();
    showNewest();
    emit updateVoltageSignal();
    scheduleRepaint();
}

void MdiGraphChild::tellCapacity()
{
    const SeriesStore::Capacity capacity = m_store.capacity();
    emit updateCapacitySignal(capacity.energyNow, capacity.mode, capacity.energyAtMark, m_windowNumber);
}

void MdiGraphChild::applyResistanceLine(const QString &line)
{
    if (!m_store.applyResistanceLine(line))
        return;
    showNewest();
    emit updateVoltageSignal();
    scheduleRepaint();
}

void MdiGraphChild::finishRecording()
{
    m_reader = nullptr;
}

void MdiGraphChild::scheduleRepaint()
{
    if (!m_repaintTimer.isActive() && !visibleRegion().isEmpty())
        m_repaintTimer.start();
}

void MdiGraphChild::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_painter.paint(&painter, picture(size()));
}

GraphPicture MdiGraphChild::picture(const QSize &pictureSize) const
{
    GraphPicture picture;
    picture.size = pictureSize;
    picture.store = &m_store;
    picture.switches = m_host->viewState()->switches();
    picture.selectedCells = m_selectedCells;
    picture.windowNumber = m_windowNumber;
    return picture;
}

void MdiGraphChild::closeEvent(QCloseEvent *event)
{
    m_host->graphClosing(this);
    if (m_reader != nullptr)
        m_reader->detachGraphChild(this);
    m_reader = nullptr;
    disconnect(m_host->updateReceiver());
    event->accept();
}
