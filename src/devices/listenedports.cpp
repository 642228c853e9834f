#include "devices/listenedports.h"

#include "devices/portquestions.h"
#include "devices/portretries.h"
#include "devices/deskreaderhost.h"
#include "desk/statusfacts.h"
#include "graph/mdigraphchild.h"
#include "link/serialreader.h"
#include "ports/portinfo.h"
#include "settings/varnelsettings.h"

#include <QCoreApplication>
#include <QDebug>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int messageTime = 5000; // ms
const QLatin1String portPrefix("COM");

QString reasonAgainstPause(bool hasWindow, bool listens)
{
    if (hasWindow)
        return ListenedPorts::tr("The current window receives no data: there is nothing to pause.");
    return listens ? ListenedPorts::tr("No graph window is open: there is nothing to pause.")
                   : ListenedPorts::tr("No port is listened on: choose one in the preferences.");
}

} // namespace

ListenedPorts::ListenedPorts(QWidget *shellWindow, DeskReaderHost *readerHost, StatusFacts *statusFacts)
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
    tellChanged();
    shell->unsetCursor();
}

void ListenedPorts::stopRecording()
{
    const QStringList waiting = retries->ports();
    for (const QString &port : waiting)
        giveUp(port);
    if (m_readers.isEmpty())
        return;
    closeAll();
    listening = false;
    emit message(tr("Stop listen on port(s)."), messageTime);
    tellChanged();
}

void ListenedPorts::pauseOrResume(MdiGraphChild *active)
{
    if (pendingPort.isEmpty())
        pause(active);
    else
        resume();
    tellChanged();
}

void ListenedPorts::pause(MdiGraphChild *active)
{
    if (!active || m_readers.isEmpty() || !active->isLive() || active->portName().isEmpty()) {
        emit message(reasonAgainstPause(active != nullptr, !m_readers.isEmpty()), messageTime);
        return;
    }
    pendingPort = active->portName();
    if (SerialReader *reader = readerFor(pendingPort))
        remove(reader, true);
    facts->set(StatusFacts::Paused, pendingPort);
}

void ListenedPorts::resume()
{
    const QString port = pendingPort;
    forgetPause();
    listenOn(port);
}

void ListenedPorts::forgetPause()
{
    facts->clear(StatusFacts::Paused, pendingPort);
    pendingPort.clear();
}

void ListenedPorts::synchronise(const QStringList &ports)
{
    // A port whose question still waits stays: nobody has said that it is not wanted.
    const QStringList wanted = ports + questions->ports();
    const QVector<SerialReader *> before = m_readers;
    for (SerialReader *reader : before) {
        const QString port = reader->portName();
        if (wanted.contains(port))
            continue;
        remove(reader, false);
        emit message(tr("Stop listening on port %1.").arg(port), messageTime);
    }
    forgetTroubleExcept(wanted);
    if (!wanted.contains(pendingPort))
        forgetPause();
    for (const QString &port : ports) {
        if (readerFor(port) || !listenOn(port))
            continue;
        qDebug() << "Włącznie" << port;
        emit message(tr("Start listening on port %1.").arg(port), messageTime);
    }
    tellChanged();
}

void ListenedPorts::arrive(const PortInfo &port)
{
    if (!port.name.startsWith(portPrefix))
        return;
    qDebug() << "Nowe urządzenie:" << port.name;
    if (startupPorts.contains(port.name))
        return;
    // Open first: what the device sends meanwhile waits for no answer.
    if (!readerFor(port.name))
        retries->start(port.name);
    if (!VarnelSettings().ports().contains(port.name))
        questions->ask(port.name, port.description);
}

void ListenedPorts::leave(const PortInfo &port)
{
    qDebug() << "Wylaczane urzadzenie:" << port.description;
    questions->withdraw(port.name);
    giveUp(port.name);
    if (SerialReader *reader = readerFor(port.name)) {
        remove(reader, true);
        facts->set(StatusFacts::Lost, port.name);
        emit message(tr("Stop listening on port %1. Port is removed.").arg(port.name), messageTime);
    }
    startupPorts.removeAll(port.name);
    if (pendingPort == port.name)
        forgetPause();
    tellChanged();
}

void ListenedPorts::closeAll()
{
    const QStringList waiting = retries->ports();
    for (const QString &port : waiting)
        retries->stop(port);
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
}

void ListenedPorts::onRetry(const QString &portName, bool tell)
{
    if (!listenOn(portName, tell ? Tell : Ignore))
        return;
    const QString text = startupPorts.contains(portName) ? tr("Start listening on port %1.")
                                                         : tr("Start listening on new port %1.");
    emit message(text.arg(portName), messageTime);
    tellChanged();
}

void ListenedPorts::onLost(const QString &portName)
{
    if (SerialReader *reader = readerFor(portName))
        remove(reader, true);
    emit message(tr("Stop listening on port %1. Port is removed.").arg(portName), messageTime);
    tellChanged();
}

bool ListenedPorts::listenOn(const QString &portName, Failure failure)
{
    auto *reader = new SerialReader(shell, portName, host);
    if (!(failure == Tell ? reader->start() : reader->tryStart())) {
        delete reader;
        if (failure == Tell)
            retries->wait(portName);
        return false;
    }
    m_readers.append(reader);
    giveUp(portName);
    facts->clear(StatusFacts::Lost, portName);
    if (pendingPort == portName)
        forgetPause();
    return true;
}

void ListenedPorts::giveUp(const QString &portName)
{
    retries->stop(portName);
    host->forgetFailure(portName);
}

void ListenedPorts::forgetTroubleExcept(const QStringList &wanted)
{
    const QStringList troubled
        = retries->ports() + facts->ports(StatusFacts::Failing) + facts->ports(StatusFacts::Lost);
    for (const QString &port : troubled) {
        if (wanted.contains(port))
            continue;
        giveUp(port);
        facts->clear(StatusFacts::Lost, port);
    }
}

void ListenedPorts::remove(SerialReader *reader, bool later)
{
    m_readers.removeOne(reader);
    retries->stop(reader->portName());
    facts->clear(StatusFacts::Unwatched, reader->portName());
    reader->stop();
    if (later)
        reader->deleteLater();
    else
        delete reader;
}

void ListenedPorts::tellChanged()
{
    QMap<QString, QString> listened;
    const QStringList names = portNames();
    for (const QString &name : names)
        listened.insert(name, QString());
    facts->replace(StatusFacts::Listening, listened);
    emit changed();
}
