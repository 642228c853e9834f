#include "app/listenedports.h"

#include "app/portquestions.h"
#include "app/portretries.h"
#include "app/shellreaderhost.h"
#include "app/statusfacts.h"
#include "graph/mdigraphchild.h"
#include "link/serialreader.h"
#include "ports/portinfo.h"
#include "settings/varnelsettings.h"

#include <QCoreApplication>
#include <QDebug>
#include <QWidget>

namespace {

constexpr int messageTime = 5000; // ms
const QLatin1String portPrefix("COM");

} // namespace

ListenedPorts::ListenedPorts(QWidget *shellWindow, ShellReaderHost *readerHost, StatusFacts *statusFacts)
    : QObject(shellWindow)
    , shell(shellWindow)
    , host(readerHost)
    , facts(statusFacts)
    , questions(new PortQuestions(shellWindow))
    , retries(new PortRetries(this))
{
    connect(this, SIGNAL(message(QString,int)), shell, SLOT(showMessageStatusBar(QString,int)));
    connect(questions, SIGNAL(answered(QString,bool)), this, SLOT(onAnswered(QString,bool)));
    connect(retries, SIGNAL(attempt(QString,bool)), this, SLOT(onRetry(QString,bool)));
    connect(host, SIGNAL(lost(QString)), this, SLOT(onLost(QString)));
}

ListenedPorts::~ListenedPorts()
{
    closeAll();
}

QStringList ListenedPorts::portNames() const
{
    QStringList names;
    for (const SerialReader *reader : m_readers)
        names.append(reader->portName());
    return names;
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
    startupPorts.clear();
    const QStringList names = listPortNames();
    for (const QString &name : names) {
        if (name.startsWith(portPrefix))
            startupPorts.append(name);
    }
}

void ListenedPorts::startRecording()
{
    shell->setCursor(Qt::WaitCursor);
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
        emit message(tr("No port has been selected."), messageTime);
        listening = false;
    } else {
        emit message(tr("Start listening on port(s): ") + opened.join(QLatin1Char(',')), messageTime);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    emit changed();
    shell->unsetCursor();
}

void ListenedPorts::stopRecording()
{
    if (m_readers.isEmpty())
        return;
    closeAll();
    listening = false;
    emit message(tr("Stop listen on port(s)."), messageTime);
    emit changed();
}

void ListenedPorts::pauseOrResume(MdiGraphChild *active)
{
    if (pendingPort.isEmpty())
        pause(active);
    else
        resume();
    emit changed();
}

void ListenedPorts::pause(MdiGraphChild *active)
{
    if (!active || m_readers.isEmpty() || !active->isLive() || active->fileName().isEmpty()) {
        emit message(tr("The current window receives no data: there is nothing to pause."), messageTime);
        return;
    }
    pendingPort = active->fileName();
    if (SerialReader *reader = readerFor(pendingPort))
        remove(reader, true);
    facts->set(StatusFacts::Paused, pendingPort);
}

void ListenedPorts::resume()
{
    const QString port = pendingPort;
    if (readerFor(port))
        emit message(tr("Already listening on port %1.").arg(port), messageTime);
    else
        listenOn(port);
    pendingPort.clear();
    facts->clear(StatusFacts::Paused, port);
}

void ListenedPorts::synchronise(const QStringList &ports)
{
    const QVector<SerialReader *> before = m_readers;
    for (SerialReader *reader : before) {
        const QString port = reader->portName();
        if (ports.contains(port))
            continue;
        remove(reader, false);
        emit message(tr("Stop listening on port %1.").arg(port), messageTime);
    }
    forgetTroubleExcept(ports);
    for (const QString &port : ports) {
        if (readerFor(port) || !listenOn(port))
            continue;
        qDebug() << "Włącznie" << port;
        emit message(tr("Start listening on port %1.").arg(port), messageTime);
    }
    emit changed();
}

void ListenedPorts::arrive(const PortInfo &port)
{
    if (!port.name.startsWith(portPrefix))
        return;
    qDebug() << "Nowe urządzenie:" << port.name;
    if (startupPorts.contains(port.name))
        return;
    if (VarnelSettings().ports().contains(port.name))
        listenOnArrival(port.name);
    else
        questions->ask(port.name, port.description);
}

void ListenedPorts::leave(const PortInfo &port)
{
    qDebug() << "Wylaczane urzadzenie:" << port.description;
    questions->withdraw(port.name);
    retries->stop(port.name);
    host->forgetFailure(port.name);
    if (SerialReader *reader = readerFor(port.name)) {
        remove(reader, true);
        facts->set(StatusFacts::Lost, port.name);
        emit message(tr("Stop listening on port %1. Port is removed.").arg(port.name), messageTime);
    }
    startupPorts.removeAll(port.name);
    if (pendingPort == port.name) {
        pendingPort.clear();
        facts->clear(StatusFacts::Paused, port.name);
    }
    emit changed();
}

void ListenedPorts::closeAll()
{
    while (!m_readers.isEmpty())
        remove(m_readers.first(), false);
}

void ListenedPorts::onAnswered(const QString &portName, bool remember)
{
    VarnelSettings settings;
    QStringList ports = settings.ports();
    if (remember && !ports.contains(portName)) {
        ports.append(portName);
        settings.setPorts(ports);
    }
    // Answering No listens all the same, until the program ends or the port goes: the answer only
    // decides whether the port is remembered.
    listenOnArrival(portName);
}

void ListenedPorts::onRetry(const QString &portName, bool last)
{
    if (readerFor(portName)) {
        retries->stop(portName);
        return;
    }
    if (!listenOn(portName, last ? Tell : Ignore))
        return;
    retries->stop(portName);
    emit message(tr("Start listening on new port %1.").arg(portName), messageTime);
    emit changed();
}

void ListenedPorts::onLost(const QString &portName)
{
    if (SerialReader *reader = readerFor(portName))
        remove(reader, true);
    emit message(tr("Stop listening on port %1. Port is removed.").arg(portName), messageTime);
    emit changed();
}

bool ListenedPorts::listenOn(const QString &portName, Failure failure)
{
    auto *reader = new SerialReader(shell, portName, host);
    if (!(failure == Tell ? reader->start() : reader->tryStart())) {
        delete reader;
        return false;
    }
    m_readers.append(reader);
    host->forgetFailure(portName);
    facts->clear(StatusFacts::Lost, portName);
    return true;
}

void ListenedPorts::listenOnArrival(const QString &portName)
{
    if (!readerFor(portName))
        retries->start(portName);
}

void ListenedPorts::forgetTroubleExcept(const QStringList &wanted)
{
    const QStringList troubled = facts->ports(StatusFacts::Failing) + facts->ports(StatusFacts::Lost);
    for (const QString &port : troubled) {
        if (wanted.contains(port))
            continue;
        host->forgetFailure(port);
        facts->clear(StatusFacts::Lost, port);
    }
}

void ListenedPorts::remove(SerialReader *reader, bool later)
{
    m_readers.removeOne(reader);
    facts->clear(StatusFacts::Unwatched, reader->portName());
    reader->stop();
    if (later)
        reader->deleteLater();
    else
        delete reader;
}
