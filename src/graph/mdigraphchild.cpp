#include "graph/mdigraphchild.h"

#include "data/voltageslope.h"
#include "graph/graphhost.h"
#include "graph/graphinteraction.h"
#include "data/processend.h"
#include "link/devicelink.h"
#include "settings/viewstate.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QIcon>
#include <QMdiSubWindow>
#include <QPainter>
#include <QTextDocument>

#include <new>

namespace {

constexpr int repaintPause = 100; // ms

// Not every device says that its process has ended: then no current flows, or an end was marked.
bool mayHaveEnded(const SeriesStore &store)
{
    return !store.isEmpty() && (store.records().last().current == 0 || store.records().last().flag4 == 'E');
}

// The pixels that the layout counts in.
QMouseEvent inPicture(const QMouseEvent &event, double scale)
{
    return {event.type(), event.localPos() / scale, event.windowPos(), event.screenPos(), event.button(),
        event.buttons(), event.modifiers(), event.source()};
}

} // namespace

MdiGraphChild::MdiGraphChild(GraphHost *host, QWidget *parent)
    : QWidget(parent)
    , m_host(host)
    , m_interaction(new GraphInteraction(this, &m_store, host->viewState()))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(tr("No file name"));
    m_repaintTimer.setSingleShot(true);
    m_repaintTimer.setInterval(repaintPause);
    connectHost();
    connectInteraction();
}

MdiGraphChild::~MdiGraphChild()
{
    if (m_reader != nullptr)
        m_reader->detachGraphChild(this);
}

void MdiGraphChild::connectHost()
{
    QObject *shell = m_host->updateReceiver();
    const char *slot = SLOT(updateCapacity(int,char,int,int));
    connect(this, SIGNAL(updateCapacitySignal(int,char,int,int)), shell, slot);
    connect(this, SIGNAL(updateVoltageSignal()), shell, SLOT(updateVoltage()));
    connect(m_host->viewState(), SIGNAL(changed()), this, SLOT(update()));
    connect(&m_repaintTimer, SIGNAL(timeout()), this, SLOT(update()));
}

void MdiGraphChild::connectInteraction()
{
    connect(m_interaction, SIGNAL(recordPointedAt(int)), this, SLOT(showRecordAt(int)));
    connect(m_interaction, SIGNAL(pointerLeft()), this, SLOT(showNewestPlain()));
    connect(m_interaction->cells(), SIGNAL(changed()), this, SIGNAL(selectedCellsChanged()));
}

void MdiGraphChild::setScale(double scale)
{
    m_scale = scale;
    m_interaction->resize(size() / shownScale());
    update();
}

double MdiGraphChild::shownScale() const
{
    return GraphLayout::fittingScale(size(), m_scale);
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

QString MdiGraphChild::sourceName() const
{
    return (QFileInfo(m_dataFile).fileName() + QLatin1Char(' ') + m_portName).trimmed();
}

bool MdiGraphChild::stopProcess()
{
    if (m_reader == nullptr)
        return false;
    m_reader->sendCommand(QStringLiteral("#STOP\r\n"));
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
    const Varnel3Data shown = shownRecord(newest);
    const bool useKeptRi = shown.flag5 == 'B' && m_host->viewState()->switches().energyMode == 2
        && newest >= 2 && m_store.newestLacksResistance();
    m_host->showRecord(shown, m_windowNumber, useKeptRi);
}

// What is stored and saved is what the device has sent; only the copy that is shown tells dV.
Varnel3Data MdiGraphChild::shownRecord(int record) const
{
    Varnel3Data shown = m_store.records()[record];
    shown.voltageSlope = m_store.slopeAt(record);
    return shown;
}

// A record from the past is shown with the charge balanced so far.
void MdiGraphChild::showRecordAt(int record)
{
    if (!m_host->isCurrent(this))
        return;
    Varnel3Data shown = shownRecord(record);
    shown.balancedMah = m_store.records().last().maxBalanceChargeMah();
    m_host->showRecord(shown, m_windowNumber, false);
}

void MdiGraphChild::showNewestPlain()
{
    showRecordAt(m_store.size() - 1);
}

void MdiGraphChild::load(SeriesStore store, const QString &fileName)
{
    m_store = std::move(store);
    m_interaction->startAnew();
    m_unsavedData = false;
    if (!m_store.isEmpty())
        showProcessEnd(m_store.records().last().processEnd());
    if (m_store.size() > 1) {
        m_neverSaved = false;
        m_dataFile = fileName;
        setTitle(fileName);
        showNewest();
    }
    update();
}

void MdiGraphChild::markSaved(const QString &fileName, int records)
{
    if (m_dataFile.isEmpty()) {
        m_dataFile = fileName;
        setTitle(m_dataFile);
    }
    const bool more = m_store.size() > records;
    if (m_unsavedData)
        setTitle(m_dataFile + QLatin1Char(' ') + m_portName + (more ? QStringLiteral("*") : QString()));
    m_unsavedData = more;
    m_neverSaved = false;
}

// The icon and the tool tip stay until the window is closed, so that no end goes unseen.
void MdiGraphChild::showProcessEnd(int end)
{
    const QString text = processEndText(end);
    if (text.isEmpty())
        return;
    const QIcon icon(processEndIcon(end));
    setWindowIcon(icon);
    setToolTip(text);
    if (auto *frame = qobject_cast<QMdiSubWindow *>(parentWidget()))
        frame->setWindowIcon(icon); // it took the icon over once only
    showTitleTip();
}

void MdiGraphChild::setTitleTip(const QString &text)
{
    m_titleTip = text;
    showTitleTip();
}

// The end of the process is told there, too, where the graph itself is covered or minimised.
void MdiGraphChild::showTitleTip()
{
    QStringList lines = {toolTip(), m_titleTip};
    lines.removeAll(QString());
    const QString tip = lines.join(QLatin1Char('\n'));
    if (auto *frame = qobject_cast<QMdiSubWindow *>(parentWidget()))
        frame->setToolTip(Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip);
}

// Left alone, the title's tool tip would come up over the curves as well.
bool MdiGraphChild::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty())
        return true;
    return QWidget::event(event);
}

void MdiGraphChild::setSilentSince(const QDateTime &since)
{
    if (since == m_silentSince)
        return;
    m_silentSince = since;
    update();
}

QString MdiGraphChild::silenceText() const
{
    const QString text = mayHaveEnded(m_store) ? tr("Ended or silent since %1") : tr("No line since %1");
    return text.arg(m_silentSince.toString(QStringLiteral("HH:mm:ss")));
}

void MdiGraphChild::attachReader(DeviceLink *reader)
{
    m_reader = reader;
}

void MdiGraphChild::setPortName(const QString &name)
{
    m_portName = name;
    if (m_neverSaved)
        setTitle(tr("No file name") + QLatin1Char(' ') + m_portName + QLatin1Char('*'));
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
    if (!keep(record)) {
        Varnel3Data shown = record;
        shown.voltageSlope = noVoltageSlope;
        if (m_host->isCurrent(this))
            m_host->showRecord(shown, m_windowNumber, false);
        return;
    }
    m_interaction->dataArrived();
    m_silentSince = QDateTime();
    showProcessEnd(record.processEnd());
    if (!m_neverSaved)
        setTitle(m_dataFile + QLatin1Char(' ') + m_portName + QLatin1Char('*'));
    m_unsavedData = true;
    tellCapacity();
    showNewest();
    emit updateVoltageSignal();
    scheduleRepaint();
}

// Where memory ends the curves do, for good, since they would have a gap; the journal and the figures go on.
bool MdiGraphChild::keep(const Varnel3Data &record)
{
    if (m_fullSince.isValid())
        return false;
    try {
        m_store.append(record);
        return true;
    } catch (const std::bad_alloc &) {
        m_fullSince = QDateTime::currentDateTime();
        qWarning("window %d: no memory for another record", m_windowNumber);
        update();
        return false;
    }
}

QString MdiGraphChild::note() const
{
    if (!m_fullSince.isValid())
        return m_silentSince.isValid() ? silenceText() : QString();
    return tr("Out of memory since %1: lines go on in the journal only")
        .arg(m_fullSince.toString(QStringLiteral("HH:mm:ss")));
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

// What can't be seen costs nothing; it is drawn when it comes to sight.
void MdiGraphChild::scheduleRepaint()
{
    if (!m_repaintTimer.isActive() && !window()->isMinimized() && !visibleRegion().isEmpty())
        m_repaintTimer.start();
}

void MdiGraphChild::paintEvent(QPaintEvent *)
{
    GraphPicture shown = picture(size());
    shown.cursorRecord = m_interaction->cursorRecord();
    shown.rubberBand = m_interaction->rubberBand();
    if (isLive() && shown.switches.holdView)
        shown.note
            = tr("View held") + (shown.note.isEmpty() ? QString() : QStringLiteral("   ") + shown.note);
    QPainter painter(this);
    m_painter.paint(&painter, shown);
}

GraphPicture MdiGraphChild::picture(const QSize &pictureSize) const
{
    GraphPicture picture;
    picture.size = pictureSize;
    picture.scale = m_scale;
    picture.store = &m_store;
    picture.switches = m_host->viewState()->switches();
    picture.selectedCells = selectedCells();
    picture.windowNumber = m_windowNumber;
    picture.zoom = m_interaction->zoom();
    picture.rangedRecords = m_interaction->rangedRecords();
    picture.note = note();
    return picture;
}

void MdiGraphChild::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_interaction->resize(size() / shownScale());
}

void MdiGraphChild::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    update(); // records came in while it was out of sight
}

void MdiGraphChild::mousePressEvent(QMouseEvent *event)
{
    QWidget::mousePressEvent(event);
    const QMouseEvent scaled = inPicture(*event, shownScale());
    m_interaction->press(&scaled);
    event->accept();
}

void MdiGraphChild::mouseMoveEvent(QMouseEvent *event)
{
    const QMouseEvent scaled = inPicture(*event, shownScale());
    m_interaction->move(&scaled);
}

void MdiGraphChild::mouseReleaseEvent(QMouseEvent *event)
{
    QWidget::mouseReleaseEvent(event);
    const QMouseEvent scaled = inPicture(*event, shownScale());
    m_interaction->release(&scaled);
    event->accept();
}

void MdiGraphChild::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QMouseEvent scaled = inPicture(*event, shownScale());
    m_interaction->doubleClick(&scaled);
}

void MdiGraphChild::wheelEvent(QWheelEvent *event)
{
    const QWheelEvent scaled(event->position() / shownScale(), event->globalPosition(), event->pixelDelta(),
        event->angleDelta(), event->buttons(), event->modifiers(), event->phase(), event->inverted());
    event->setAccepted(m_interaction->wheel(&scaled));
}

void MdiGraphChild::keyPressEvent(QKeyEvent *event)
{
    if (!m_interaction->key(event))
        QWidget::keyPressEvent(event);
}

void MdiGraphChild::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
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
    event->accept();
}
