#include "simulator/console.h"

#include "simulator/rack.h"

#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace sim {

namespace {

using Words = QStringList;

QString plug(SimDevice *device, const Words &)
{
    QString error;
    device->plug(&error);
    return error;
}

QString unplug(SimDevice *device, const Words &)
{
    device->unplug();
    return {};
}

QString hangUp(SimDevice *device, const Words &words)
{
    device->hangUp(words.value(2, QStringLiteral("3")).toInt());
    return {};
}

QString start(SimDevice *device, const Words &)
{
    device->startProcess();
    return {};
}

QString end(SimDevice *device, const Words &words)
{
    const QString letter = words.value(2, QStringLiteral("E"));
    if (letter.size() != 1 || !QStringLiteral("EMS").contains(letter))
        return QStringLiteral("an end is E, M or S");
    device->endProcess(letter.at(0).toLatin1());
    return {};
}

QString silence(SimDevice *device, const Words &words)
{
    device->silence(words.value(2, QStringLiteral("30")).toInt());
    return {};
}

QString connectPack(SimDevice *device, const Words &)
{
    device->connectPack();
    return {};
}

QString disconnectPack(SimDevice *device, const Words &)
{
    device->disconnectPack();
    return {};
}

QString fault(SimDevice *device, const Words &words)
{
    const QString name = words.value(2).section(QLatin1Char('='), 0, 0);
    const Fault which = findFault(name);
    if (which == Fault::None)
        return QStringLiteral("no fault '%1'").arg(name);
    if (words.value(2).contains(QLatin1Char('=')))
        device->faults().setRate(which, words.at(2).section(QLatin1Char('='), 1).toDouble());
    else
        device->faults().force(which);
    return {};
}

QString send(SimDevice *device, const Words &words)
{
    device->sendRaw(words.mid(2).join(QLatin1Char(' ')).toLatin1() + "\r\n");
    return {};
}

QString status(SimDevice *device, const Words &)
{
    return device->status();
}

struct Command {
    const char *word;
    QString (*handler)(SimDevice *device, const Words &words);
    const char *help;
};

constexpr Command commands[] = {
    {"plug", plug, "PORT               plug it in again"},
    {"unplug", unplug, "PORT             unplug it between two lines"},
    {"hangup", hangUp, "PORT [SECONDS]   unplug it in the middle of a line, back after 3 s (0: stays away)"},
    {"start", start, "PORT              begin a process"},
    {"end", end, "PORT [E|M|S]        end the process: done, stopped by hand, error"},
    {"silence", silence, "PORT [SECONDS]  send nothing; above 20 s not shortened by the speed (30)"},
    {"connect", connectPack, "PORT            connect the pack"},
    {"disconnect", disconnectPack, "PORT         take the pack off"},
    {"fault", fault, "PORT NAME[=RATE]  spoil the next line, or lines at this rate"},
    {"send", send, "PORT TEXT          send this line as it stands"},
    {"status", status, "PORT             what it does now"},
};

} // namespace

Console::Console(Rack *rack, QObject *parent)
    : QObject(parent)
    , m_rack(rack)
{
}

void Console::listen()
{
    std::signal(SIGTTIN, SIG_IGN); // in the background reading fails instead of stopping the devices
    auto *notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(notifier, SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), SLOT(onReadable()));
}

QString Console::help()
{
    QString text;
    for (const Command &command : commands)
        text += QLatin1String(command.word) + QLatin1Char(' ') + QLatin1String(command.help)
            + QLatin1Char('\n');
    return text
        + QLatin1String("speed FACTOR            device seconds in a second\n"
                        "help, quit\n"
                        "PORT may be 'all'.");
}

QString Console::execute(const QString &line)
{
    const QStringList words = line.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    if (words.first() == QLatin1String("help"))
        return help();
    if (words.first() == QLatin1String("quit")) {
        emit quitRequested();
        return {};
    }
    if (words.first() == QLatin1String("speed")) {
        const double speed = words.value(1).toDouble();
        if (speed <= 0)
            return QStringLiteral("a speed is a number above 0");
        m_rack->setSpeed(speed);
        return {};
    }
    QStringList answers;
    const QString port = words.value(1, QStringLiteral("all"));
    for (const auto &device : m_rack->devices())
        if (port == QLatin1String("all") || port == device->port())
            answers << executeFor(device.get(), words);
    answers.removeAll(QString());
    if (port != QLatin1String("all") && !m_rack->device(port))
        return QStringLiteral("no device at %1").arg(port);
    answers.removeDuplicates();
    return answers.join(QLatin1Char('\n'));
}

QString Console::executeFor(SimDevice *device, const QStringList &words)
{
    for (const Command &command : commands)
        if (words.first() == QLatin1String(command.word))
            return command.handler(device, words);
    return QStringLiteral("'%1' is not understood; try help").arg(words.first());
}

void Console::onReadable()
{
    char buffer[4096];
    const ssize_t size = read(STDIN_FILENO, buffer, sizeof buffer);
    if (size <= 0) {
        sender()->deleteLater();
        return;
    }
    m_input.append(buffer, int(size));
    for (int end = m_input.indexOf('\n'); end >= 0; end = m_input.indexOf('\n')) {
        const QString answer = execute(QString::fromLocal8Bit(m_input.left(end)));
        m_input.remove(0, end + 1);
        if (!answer.isEmpty())
            std::fprintf(stdout, "%s\n", qPrintable(answer));
        std::fflush(stdout);
    }
}

} // namespace sim
