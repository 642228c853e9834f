#include "devices/listenedports.h"

#include "devices/portquestions.h"
#include "devices/portretries.h"
#include "devices/deskreaderhost.h"
#include "desk/livewindows.h"
#include "desk/statusfacts.h"
#include "link/serialreader.h"
#include "ports/portinfo.h"
#include "settings/messagetime.h"
#include "settings/varnelsettings.h"

#include <QCoreApplication>
#include <QDebug>
#include <QWidget>

#include <algorithm>

namespace {

const QLatin1String portPrefix("COM");

QString reasonAgainstPause(bool hasWindow, bool listens)
{
    if (hasWindow)
        return ListenedPorts::tr("The current window receives no data: there is nothing to pause.");
    return listens ? ListenedPorts::tr("No graph window is open: there is nothing to pause.")
                   : ListenedPorts::tr("No port is listened on: choose one in the preferences.");
}

} // namespace

ListenedPorts::ListenedPorts(
    QWidget *window, DeskReaderHost *host, const LiveWindows *windows, StatusFacts *facts)
    : QObject(window)
    , m_window(window)
    , m_host(host)
    , m_windows(windows)
    , m_facts(facts)
    , m_questions(new PortQuestions(window))
    , m_retries(new PortRetries(this))
{
    connect(m_questions, SIGNAL(answered(QString,bool)), this, SLOT(onAnswered(QString,bool)));
    connect(m_retries, SIGNAL(attempt(QString,bool)), this, SLOT(onRetry(QString,bool)));
    connect(m_host, SIGNAL(lost(QString)), this, SLOT(onLost(QString)));
}

ListenedPorts::~ListenedPorts() = default;

QStringList ListenedPorts::portNames() const
{
    QStringList names;
    for (const SerialReader *reader : m_readers)
        names.append(reader->portName());
    return names;
}

bool ListenedPorts::isRecording() const
{
    return std::any_of(m_readers.cbegin(), m_readers.cend(),
        [](const SerialReader *reader) { return reader->isRecording(); });
}

SerialReader *ListenedPorts::readerFor(const QString &portName) const
{
    for (SerialReader *reader : m_readers) {
        if (reader->portName() == portName)
            return reader;
    }
    return nullptr;
}

void ListenedPorts::noteStartupPorts()
{
    const QStringList names = listPortNames();
    for (const QString &name : names) {
        if (name.startsWith(portPrefix))
            m_startupPorts.append(name);
    }
}

void ListenedPorts::startRecording()
{
    m_window->setCursor(Qt::WaitCursor);
    const QStringList openPorts = portNames();
    qDebug() << "juz otwarte porty" << openPorts;
    const QStringList available = SerialReader::availablePorts();
    const QStringList wanted = VarnelSettings().listenPorts();
    qDebug() << available << wanted;
    QStringList opened;
    for (const QString &port : wanted) {
        if (available.contains(port) && !openPorts.contains(port) && listenOn(port))
            opened.append(port);
    }
    if (m_readers.isEmpty()) {
        emit message(tr("No port has been selected."), usualMessageTime);
        m_listening = false;
    } else {
        emit message(tr("Start listening on port(s): ") + opened.join(QLatin1Char(',')), usualMessageTime);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    tellChanged();
    m_window->unsetCursor();
}

void ListenedPorts::stopRecording()
{
    const QStringList waiting = m_retries->ports();
    for (const QString &port : waiting)
        giveUp(port);
    if (m_readers.isEmpty())
        return;
    closeAll();
    m_listening = false;
    emit message(tr("Stop listen on port(s)."), usualMessageTime);
    tellChanged();
}

void ListenedPorts::pauseOrResume()
{
    if (m_pendingPort.isEmpty())
        pause();
    else
        resume();
    tellChanged();
}

void ListenedPorts::pause()
{
    const DeviceLink *source = m_windows->currentLink();
    if (!source) {
        emit message(reasonAgainstPause(m_windows->hasCurrent(), !m_readers.isEmpty()), usualMessageTime);
        return;
    }
    m_pendingPort = source->portName();
    if (SerialReader *reader = readerFor(m_pendingPort))
        remove(reader);
    m_facts->set(StatusFacts::Paused, m_pendingPort);
}

void ListenedPorts::resume()
{
    const QString port = m_pendingPort;
    forgetPause();
    listenOn(port);
}

void ListenedPorts::forgetPause()
{
    m_facts->clear(StatusFacts::Paused, m_pendingPort);
    m_pendingPort.clear();
}

void ListenedPorts::synchronise(const QStringList &ports)
{
    // A port whose question still waits stays: nobody has said that it is not wanted.
    const QStringList wanted = ports + m_questions->ports();
    const QVector<SerialReader *> before = m_readers;
    for (SerialReader *reader : before) {
        const QString port = reader->portName();
        if (wanted.contains(port))
            continue;
        remove(reader);
        emit message(tr("Stop listening on port %1.").arg(port), usualMessageTime);
    }
    forgetTroubleExcept(wanted);
    if (!wanted.contains(m_pendingPort))
        forgetPause();
    for (const QString &port : ports) {
        if (readerFor(port) || !listenOn(port))
            continue;
        qDebug() << "Włącznie" << port;
        emit message(tr("Start listening on port %1.").arg(port), usualMessageTime);
    }
    tellChanged();
}

void ListenedPorts::arrive(const PortInfo &port)
{
    if (!port.name.startsWith(portPrefix))
        return;
    qDebug() << "Nowe urządzenie:" << port.name;
    if (m_startupPorts.contains(port.name))
        return;
    // Open first: what the device sends meanwhile waits for no answer.
    if (!readerFor(port.name))
        m_retries->start(port.name);
    if (!VarnelSettings().ports().contains(port.name))
        m_questions->ask(port.name, port.description);
}

void ListenedPorts::leave(const PortInfo &port)
{
    qDebug() << "Wylaczane urzadzenie:" << port.description;
    m_questions->withdraw(port.name);
    giveUp(port.name);
    if (SerialReader *reader = readerFor(port.name)) {
        remove(reader);
        m_facts->set(StatusFacts::Lost, port.name);
        emit message(tr("Stop listening on port %1. Port is removed.").arg(port.name), usualMessageTime);
    }
    m_startupPorts.removeAll(port.name);
    if (m_pendingPort == port.name)
        forgetPause();
    tellChanged();
}

void ListenedPorts::readRest()
{
    const QVector<SerialReader *> readers = m_readers;
    for (SerialReader *reader : readers)
        reader->readRest();
}

void ListenedPorts::closeAll()
{
    const QStringList waiting = m_retries->ports();
    for (const QString &port : waiting)
        m_retries->stop(port);
    while (!m_readers.isEmpty())
        remove(m_readers.first());
}

void ListenedPorts::onAnswered(const QString &portName, bool remember)
{
    VarnelSettings settings;
    QStringList ports = settings.ports();
    if (remember && !ports.contains(portName)) {
        ports.append(portName);
        settings.setPorts(ports);
    }
}

void ListenedPorts::onRetry(const QString &portName, bool tell)
{
    if (!listenOn(portName, tell ? Tell : Ignore))
        return;
    const QString text = m_startupPorts.contains(portName) ? tr("Start listening on port %1.")
                                                           : tr("Start listening on new port %1.");
    emit message(text.arg(portName), usualMessageTime);
    tellChanged();
}

void ListenedPorts::onLost(const QString &portName)
{
    if (SerialReader *reader = readerFor(portName))
        remove(reader);
    emit message(tr("Stop listening on port %1. Port is removed.").arg(portName), usualMessageTime);
    tellChanged();
}

bool ListenedPorts::listenOn(const QString &portName, Failure failure)
{
    auto *reader = new SerialReader(m_window, portName, m_host);
    if (!(failure == Tell ? reader->start() : reader->tryStart())) {
        delete reader;
        if (failure == Tell)
            m_retries->wait(portName);
        return false;
    }
    m_readers.append(reader);
    giveUp(portName);
    m_facts->clear(StatusFacts::Lost, portName);
    if (m_pendingPort == portName)
        forgetPause();
    return true;
}

void ListenedPorts::giveUp(const QString &portName)
{
    m_retries->stop(portName);
    m_host->forgetFailure(portName);
}

void ListenedPorts::forgetTroubleExcept(const QStringList &wanted)
{
    const QStringList troubled
        = m_retries->ports() + m_facts->ports(StatusFacts::Failing) + m_facts->ports(StatusFacts::Lost);
    for (const QString &port : troubled) {
        if (wanted.contains(port))
            continue;
        giveUp(port);
        m_facts->clear(StatusFacts::Lost, port);
    }
}

void ListenedPorts::remove(SerialReader *reader)
{
    m_readers.removeOne(reader);
    m_facts->clear(StatusFacts::Unwatched, reader->portName());
    reader->stop();
    reader->deleteLater();
}

void ListenedPorts::tellChanged()
{
    QMap<QString, QString> listened;
    const QStringList names = portNames();
    for (const QString &name : names)
        listened.insert(name, QString());
    m_facts->replace(StatusFacts::Listening, listened);
    emit changed();
}
