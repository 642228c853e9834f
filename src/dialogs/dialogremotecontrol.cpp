#include "dialogs/dialogremotecontrol.h"

#include "link/serialreader.h"
#include "ui_dialogremotecontrol.h"

#include <QEvent>
#include <QMessageBox>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTimer>

namespace {

constexpr int memoryCount = 20;
constexpr int cellCount = 16;

enum Page { Setup, Memory, Cells, Process, Disconnect };

void fill(QComboBox *combo, const QString &text, int count)
{
    const QSignalBlocker blocker(combo);
    combo->setItemDelegate(new QStyledItemDelegate(combo)); // its own heeds no style sheet
    for (int number = 1; number <= count; ++number)
        combo->addItem(text.arg(number));
}

/// Selects the item whose number stands at characters 4 and 5 of `reply`; none for what is no such number.
void select(QComboBox *combo, const QString &reply)
{
    const QSignalBlocker blocker(combo);
    combo->setCurrentIndex(reply.midRef(4, 2).toInt() - 1);
}

QString numbered(const QString &command, int index)
{
    return command + QString::number(index + 1).rightJustified(2, QLatin1Char('0'));
}

} // namespace

DialogRemoteControl::DialogRemoteControl(SerialReader *serialReader, QWidget *parent)
    : DialogRemoteControl(serialReader, parent, Times())
{
}

DialogRemoteControl::DialogRemoteControl(SerialReader *serialReader, QWidget *parent, const Times &usedTimes)
    : QDialog(parent)
    , ui(std::make_unique<Ui::DialogRemoteControl>())
    , times(usedTimes)
    , reader(serialReader)
    , timeOutTimer(new QTimer(this))
    , pollTimer(new QTimer(this))
{
    ui->setupUi(this);
    QSizePolicy keepsPlace = ui->pbMemory->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    ui->pbMemory->setSizePolicy(keepsPlace);
    setMemoryState(false);
    connectReader();
    connect(timeOutTimer, SIGNAL(timeout()), this, SLOT(timerEventOut()));
    connect(pollTimer, SIGNAL(timeout()), this, SLOT(timerEventTryb()));
    fillCombos();
    timerEventTryb();
    timeOutTimer->start(times.answer);
}

DialogRemoteControl::~DialogRemoteControl() = default;

void DialogRemoteControl::connectReader()
{
    if (!reader)
        return;
    portName = reader->portName();
    ui->portLabel->setText(tr("Port %1").arg(portName));
    connect(reader, SIGNAL(control_data(QString)), this, SLOT(control_data(QString)));
    // Queued: whoever closes the whole program deletes the readers too, and is not to meet a box meanwhile.
    connect(reader, SIGNAL(destroyed()), this, SLOT(onReaderGone()), Qt::QueuedConnection);
}

void DialogRemoteControl::fillCombos()
{
    fill(ui->cbTryb0_nc, tr("Memory %1"), memoryCount);
    fill(ui->cbTryb1_nr, tr("Memory %1"), memoryCount);
    fill(ui->cbTryb2_nr, tr("Cells %1"), cellCount);
}

void DialogRemoteControl::done(int result)
{
    end();
    QDialog::done(result);
}

// A minimised or covered one is hidden by the system and goes on.
bool DialogRemoteControl::event(QEvent *event)
{
    const bool handled = QDialog::event(event);
    const bool closed = event->type() == QEvent::Close && event->isAccepted();
    if (closed || (event->type() == QEvent::Hide && !event->spontaneous()))
        end();
    return handled;
}

void DialogRemoteControl::end()
{
    timeOutTimer->stop();
    pollTimer->stop();
    if (reader)
        reader->disconnect(this);
    reader.clear(); // a shot or a click may still be under way
}

void DialogRemoteControl::send(const QString &command)
{
    if (reader)
        reader->sendCommand(command + QStringLiteral("\r\n"));
}

void DialogRemoteControl::poll()
{
    QTimer::singleShot(times.query, this, SLOT(timerEventMem()));
    pollTimer->start(times.poll);
}

void DialogRemoteControl::control_data(const QString &line)
{
    const QString reply = line.trimmed();
    if (reply.startsWith(QLatin1String("#TRYB"))) {
        timeOutTimer->stop();
        followState(reply);
    }
    if (reply.startsWith(QLatin1String("#MEM")) && ui->pages->currentIndex() == Memory)
        select(ui->cbTryb1_nr, reply);
    if (reply.startsWith(QLatin1String("#NRC")) && ui->pages->currentIndex() == Cells)
        select(ui->cbTryb2_nr, reply);
    if (reply.startsWith(QLatin1String("#START"))) {
        setMemoryState(false);
        ui->pages->setCurrentIndex(Process);
    }
    if (reply.startsWith(QLatin1String("#STOP"))) {
        setMemoryState(false);
        ui->pages->setCurrentIndex(Disconnect);
        pollTimer->stop();
    }
}

void DialogRemoteControl::followState(const QString &reply)
{
    setMemoryState(reply == QLatin1String("#TRYB01"));
    if (reply == QLatin1String("#TRYB00")) {
        ui->pages->setCurrentIndex(Setup);
    } else if (reply == QLatin1String("#TRYB01")) {
        if (ui->pages->currentIndex() != Memory)
            poll();
    } else if (reply == QLatin1String("#TRYB02")) {
        ui->pages->setCurrentIndex(Cells);
        pollTimer->stop();
        QTimer::singleShot(times.query, this, SLOT(timerEventCell()));
    } else if (reply == QLatin1String("#TRYB03")) {
        ui->pages->setCurrentIndex(Process);
    } else if (reply == QLatin1String("#TRYB04")) {
        ui->pages->setCurrentIndex(Disconnect);
    }
}

void DialogRemoteControl::setMemoryState(bool on)
{
    ui->pbMemory->setVisible(on);
}

void DialogRemoteControl::timerEventOut()
{
    tell(tr("Time out"));
    close(); // which ends the timers
}

void DialogRemoteControl::timerEventMem()
{
    send(QStringLiteral("#MEM?"));
}

void DialogRemoteControl::timerEventCell()
{
    send(QStringLiteral("#NRC?"));
}

void DialogRemoteControl::timerEventTryb()
{
    send(QStringLiteral("#TRYB?"));
}

void DialogRemoteControl::on_pbTryb0_battery_clicked()
{
    send(QStringLiteral("#MEM-"));
    poll();
}

void DialogRemoteControl::on_cbTryb0_nc_currentIndexChanged(int index)
{
    askedMemory = index;
    send(numbered(QStringLiteral("#MEM"), index));
    poll();
}

// Picking the item that is shown already changes no index, yet the user asked for it.
void DialogRemoteControl::on_cbTryb0_nc_activated(int index)
{
    if (askedMemory != index)
        on_cbTryb0_nc_currentIndexChanged(index);
    askedMemory = -1;
}

void DialogRemoteControl::on_pbTryb0_ps_clicked()
{
    send(QStringLiteral("#MEM+"));
    poll();
}

void DialogRemoteControl::on_pbTryb1_mm_clicked()
{
    send(QStringLiteral("#MEM-"));
}

void DialogRemoteControl::on_pbTryb1_mp_clicked()
{
    send(QStringLiteral("#MEM+"));
}

void DialogRemoteControl::on_pbTryb2_mm_clicked()
{
    send(QStringLiteral("#NRC-"));
}

void DialogRemoteControl::on_pbTryb2_mp_clicked()
{
    send(QStringLiteral("#NRC+"));
}

void DialogRemoteControl::on_pbTryb2_start_clicked()
{
    send(QStringLiteral("#START"));
    pollTimer->start(times.poll);
}

void DialogRemoteControl::on_cbTryb2_nr_currentIndexChanged(int index)
{
    send(numbered(QStringLiteral("#NRC"), index));
}

void DialogRemoteControl::on_pbTryb3_stop_clicked()
{
    send(QStringLiteral("#STOP"));
}

void DialogRemoteControl::on_pbTryb4_stop_clicked()
{
    send(QStringLiteral("#STOP"));
}

// The device's own answer to #MEM? tells afterwards whether it took the number.
void DialogRemoteControl::on_cbTryb1_nr_activated(int index)
{
    send(numbered(QStringLiteral("#MEM"), index));
    QTimer::singleShot(times.query, this, SLOT(timerEventMem()));
}

void DialogRemoteControl::on_pbMemory_clicked()
{
    ui->pages->setCurrentIndex(Memory);
    poll();
}

void DialogRemoteControl::onReaderGone()
{
    const QWidget *owner = parentWidget();
    if (!isVisible() || (owner && !owner->isVisible()))
        return;
    tell(tr("Port %1 is no longer listened on: the remote control is closed.").arg(portName));
    close();
}

// The box is the parent window's, because the dialog closes behind it, and nobody waits for its answer.
void DialogRemoteControl::tell(const QString &text)
{
    auto *box
        = new QMessageBox(QMessageBox::Information, tr("Information"), text, QMessageBox::Ok, parentWidget());
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
