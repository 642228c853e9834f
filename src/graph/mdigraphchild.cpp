#include "graph/mdigraphchild.h"

#include "data/figuretext.h"
#include "data/voltageslope.h"
#include "graph/graphhost.h"
#include "graph/graphinteraction.h"
#include "link/devicelink.h"
#include "settings/viewstate.h"
#include "widgets/refreshgate.h"

#include <QCloseEvent>
#include <QPainter>

#include <new>

MdiGraphChild::MdiGraphChild(GraphHost *host, QWidget *parent)
    : QWidget(parent)
    , m_host(host)
    , m_interaction(new GraphInteraction(this, &m_store, host->viewState()))
    , m_gate(new RefreshGate(this))
    , m_titleTip(this)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(m_title.text());
    connectParts();
}

MdiGraphChild::~MdiGraphChild()
{
    if (m_reader != nullptr)
        m_reader->detachGraphChild(this);
}

void MdiGraphChild::connectParts()
{
    QObject *shell = m_host->updateReceiver();
    const char *slot = SLOT(updateCapacity(int,char,int,int));
    connect(this, SIGNAL(updateCapacitySignal(int,char,int,int)), shell, slot);
    connect(this, SIGNAL(updateVoltageSignal()), shell, SLOT(updateVoltage()));
    connect(m_host->viewState(), SIGNAL(changed()), this, SLOT(update()));
    connect(m_gate, SIGNAL(refresh()), this, SLOT(update()));
    connect(m_interaction, SIGNAL(recordPointedAt(int)), this, SLOT(showRecordAt(int)));
    connect(m_interaction->cells(), SIGNAL(changed()), this, SIGNAL(selectedCellsChanged()));
}

void MdiGraphChild::setScale(double scale)
{
    m_scale = scale;
    m_interaction->resize(size(), m_scale);
    update();
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
    m_reader->stopProcess();
    return true;
}

const CellSelection &MdiGraphChild::selectedCells() const
{
    return m_interaction->cells()->cells();
}

void MdiGraphChild::setSelectedCells(const CellSelection &cells)
{
    m_interaction->cells()->setCells(cells);
}

void MdiGraphChild::showNewest()
{
    if (m_store.isEmpty() || !m_host->isCurrent(this))
        return;
    const int newest = m_store.size() - 1;
    const Varnel3Data shown = m_store.record(newest);
    const bool useKeptRi = shown.hasBalancingData()
        && m_host->viewState()->switches().cellValue == CellValue::Resistance && newest >= 2
        && m_store.newestLacksResistance();
    m_host->showRecord(shown, m_windowNumber, useKeptRi);
}

// A record from the past is shown with the charge balanced so far.
void MdiGraphChild::showRecordAt(int record)
{
    if (!m_host->isCurrent(this))
        return;
    Varnel3Data shown = m_store.record(record);
    shown.balancedMah = m_store.records().last().maxBalanceChargeMah();
    m_host->showRecord(shown, m_windowNumber, false);
}

void MdiGraphChild::load(SeriesStore store, const QString &fileName)
{
    m_store = std::move(store);
    m_interaction->startAnew();
    if (!m_store.isEmpty())
        m_titleTip.showProcessEnd(m_store.records().last().processEnd());
    if (m_store.size() > 1) {
        m_title.loaded(fileName);
        setWindowTitle(m_title.text());
        showNewest();
    }
    update();
}

void MdiGraphChild::markSaved(const QString &fileName, int records)
{
    m_title.saved(fileName, m_store.size() > records);
    setWindowTitle(m_title.text());
}

// Left alone, the title's tool tip would come up over the curves as well.
bool MdiGraphChild::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty())
        return true;
    return QWidget::event(event);
}

QString MdiGraphChild::spokenText() const
{
    QStringList parts = {tr("Graph %1").arg(m_windowNumber), sourceName()};
    if (m_store.isEmpty()) {
        parts.append(tr("no data"));
    } else {
        const Varnel3Data newest = m_store.record(m_store.size() - 1);
        parts << Varnel3Data::modeName(newest.mode).toLower()
              << FigureText::cells(newest.cellCount, newest.cellType)
              << tr("%1 volts").arg(FigureText::volts(newest.voltage, 0, 1));
    }
    parts.append(m_note.text(m_store));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

void MdiGraphChild::setSilentSince(const QDateTime &since)
{
    if (m_note.setSilentSince(since))
        update();
}

void MdiGraphChild::attachReader(DeviceLink *reader)
{
    m_reader = reader;
}

void MdiGraphChild::setPortName(const QString &port)
{
    m_title.setPortName(port);
    setWindowTitle(m_title.text());
}

void MdiGraphChild::addRecord(const Varnel3Data &record)
{
    const bool isFirst = m_store.isEmpty();
    if (isFirst)
        m_host->showMessageStatusBar(tr("Device: ") + Varnel3Data::deviceName(record.device), 3000);
    if (!keep(record)) {
        Varnel3Data shown = record;
        shown.voltageSlope = noVoltageSlope;
        if (m_host->isCurrent(this))
            m_host->showRecord(shown, m_windowNumber, false);
        return;
    }
    m_interaction->dataArrived();
    m_note.setSilentSince(QDateTime());
    m_titleTip.showProcessEnd(record.processEnd());
    m_title.recordCame(isFirst);
    setWindowTitle(m_title.text());
    const SeriesStore::Capacity capacity = m_store.capacity();
    emit updateCapacitySignal(capacity.energyNow, capacity.mode, capacity.energyAtMark, m_windowNumber);
    showNewest();
    emit updateVoltageSignal();
    scheduleRepaint();
}

// Where memory ends the curves do, for good, since they would have a gap; the journal and the figures go on.
bool MdiGraphChild::keep(const Varnel3Data &record)
{
    if (m_note.isFull())
        return false;
    try {
        m_store.append(record);
        return true;
    } catch (const std::bad_alloc &) {
        m_note.setFullSince(QDateTime::currentDateTime());
        qWarning("window %d: no memory for another record", m_windowNumber);
        update();
        return false;
    }
}

void MdiGraphChild::applyResistanceLine(const QByteArray &line)
{
    if (m_note.isFull() || !m_store.applyResistanceLine(line)) // the record that it belongs to was not kept
        return;
    showNewest();
    emit updateVoltageSignal();
    scheduleRepaint();
}

void MdiGraphChild::finishRecording()
{
    m_reader = nullptr;
}

// What can't be seen costs nothing; it is drawn when it comes to sight.
void MdiGraphChild::scheduleRepaint()
{
    if (!window()->isMinimized() && !visibleRegion().isEmpty())
        m_gate->request();
}

void MdiGraphChild::paintEvent(QPaintEvent *)
{
    GraphRequest shown = request(size());
    shown.cursorRecord = m_interaction->cursorRecord();
    shown.markedRecord = m_interaction->markedRecord();
    shown.rubberBand = m_interaction->rubberBand();
    if (isLive() && shown.switches.holdView)
        shown.note
            = tr("View held") + (shown.note.isEmpty() ? QString() : QStringLiteral("   ") + shown.note);
    QPainter painter(this);
    m_painter.paint(&painter, shown);
}

GraphRequest MdiGraphChild::request(const QSize &pictureSize) const
{
    GraphRequest picture;
    picture.size = pictureSize;
    picture.scale = m_scale;
    picture.store = &m_store;
    picture.switches = m_host->viewState()->switches();
    picture.selectedCells = selectedCells();
    picture.windowNumber = m_windowNumber;
    picture.zoom = m_interaction->zoom();
    picture.rangedRecords = m_interaction->rangedRecords();
    picture.note = m_note.text(m_store);
    return picture;
}

void MdiGraphChild::resizeEvent(QResizeEvent *)
{
    m_interaction->resize(size(), m_scale);
}

void MdiGraphChild::showEvent(QShowEvent *)
{
    update(); // records came in while it was out of sight
}

void MdiGraphChild::mousePressEvent(QMouseEvent *event)
{
    m_interaction->press(event);
}

void MdiGraphChild::mouseMoveEvent(QMouseEvent *event)
{
    m_interaction->move(event);
}

void MdiGraphChild::mouseReleaseEvent(QMouseEvent *event)
{
    m_interaction->release(event);
}

void MdiGraphChild::mouseDoubleClickEvent(QMouseEvent *event)
{
    m_interaction->doubleClick(event);
}

void MdiGraphChild::wheelEvent(QWheelEvent *event)
{
    event->setAccepted(m_interaction->wheel(event));
}

void MdiGraphChild::keyPressEvent(QKeyEvent *event)
{
    if (!m_interaction->key(event))
        QWidget::keyPressEvent(event);
}

void MdiGraphChild::leaveEvent(QEvent *)
{
    m_interaction->leave();
}

void MdiGraphChild::closeEvent(QCloseEvent *event)
{
    if (!m_host->mayClose(this)) {
        event->ignore();
        return;
    }
    m_host->graphClosing(this);
    if (m_reader != nullptr)
        m_reader->detachGraphChild(this);
    m_reader = nullptr;
    disconnect(m_host->updateReceiver());
}
