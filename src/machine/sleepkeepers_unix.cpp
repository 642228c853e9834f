#include "machine/sleepkeepers.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QVariant>

#include <chrono>
#include <cstdio>
#include <iterator>
#include <optional>
#include <thread>
#include <unistd.h>

namespace {

/// Someone who keeps the computer awake on request: answers with a number to give back, or with a file that
/// keeps the block as long as it is open.
struct Keeper {
    bool system; // on the system's bus, else on the session's
    const char *service;
    const char *path;
    const char *interface;
    const char *releaseMethod; // null: closing the file releases
    QVariantList (*arguments)(const QString &program, const QString &reason);
};

constexpr quint32 gnomeSuspend = 4; // flag of the session manager: the session is not to be suspended

QVariantList programAndReason(const QString &program, const QString &reason)
{
    return {program, reason};
}

QVariantList gnomeArguments(const QString &program, const QString &reason)
{
    return {program, quint32(0), reason, gnomeSuspend};
}

QVariantList loginArguments(const QString &program, const QString &reason)
{
    return {QStringLiteral("sleep:idle"), program, reason, QStringLiteral("block")};
}

// In the order in which they are tried; the last also keeps the screen on.
const Keeper keepers[] = {
    {false, "org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager", "Uninhibit",
        gnomeArguments},
    {false, "org.freedesktop.PowerManagement", "/org/freedesktop/PowerManagement/Inhibit",
        "org.freedesktop.PowerManagement.Inhibit", "UnInhibit", programAndReason},
    {true, "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager", nullptr,
        loginArguments},
    {false, "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver",
        "UnInhibit", programAndReason},
};

constexpr std::chrono::seconds farewell(2); // for giving the block back when a bus does not answer

// Without a bus the library would start one of its own, which nobody listens on.
bool hasBus(bool system)
{
    if (system)
        return !qEnvironmentVariableIsEmpty("DBUS_SYSTEM_BUS_ADDRESS")
            || QFile::exists(QStringLiteral("/run/dbus/system_bus_socket"));
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

QDBusConnection busOf(const Keeper &keeper)
{
    return keeper.system ? QDBusConnection::systemBus() : QDBusConnection::sessionBus();
}

// A call to a bus that is not there is never said to have failed.
bool isReachable(const Keeper &keeper)
{
    return hasBus(keeper.system) && busOf(keeper).isConnected();
}

QDBusPendingCall call(const Keeper &keeper, const char *method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(QLatin1String(keeper.service),
        QLatin1String(keeper.path), QLatin1String(keeper.interface), QLatin1String(method));
    message.setArguments(arguments);
    return busOf(keeper).asyncCall(message);
}

// The program that wants the block holds the other end, and with it this process: a bus that accepts and
// never answers holds up everything here but this.
void leaveWithStandardInput()
{
    char byte;
    while (::read(STDIN_FILENO, &byte, sizeof byte) > 0) { }
    QMetaObject::invokeMethod(QCoreApplication::instance(), "quit", Qt::QueuedConnection);
    std::this_thread::sleep_for(farewell);
    ::_exit(0);
}

} // namespace

/// Asks one keeper after the other until one grants the block.
class SleepKeepers : public QObject {
    Q_OBJECT

public:
    explicit SleepKeepers(const QString &reason)
        : m_reason(reason)
    {
    }
    ~SleepKeepers() override;

public slots:
    void askNext();

private slots:
    void onAnswered(QDBusPendingCallWatcher *watcher);

private:
    void ask(const Keeper &keeper);

    QString m_reason;
    int m_asked = -1; // index of the keeper that was asked last; -1 none
    std::optional<quint32> m_cookie; // to give back
    QDBusUnixFileDescriptor m_file;
};

// What is granted only after this has gone with its process.
SleepKeepers::~SleepKeepers()
{
    if (m_cookie)
        call(keepers[m_asked], keepers[m_asked].releaseMethod, {*m_cookie}).waitForFinished();
}

void SleepKeepers::askNext()
{
    while (++m_asked < int(std::size(keepers))) {
        if (isReachable(keepers[m_asked]))
            return ask(keepers[m_asked]);
    }
}

void SleepKeepers::ask(const Keeper &keeper)
{
    auto *watcher = new QDBusPendingCallWatcher(
        call(keeper, "Inhibit", keeper.arguments(QCoreApplication::applicationName(), m_reason)), this);
    const char *finished = SIGNAL(finished(QDBusPendingCallWatcher*));
    connect(watcher, finished, this, SLOT(onAnswered(QDBusPendingCallWatcher*)));
}

void SleepKeepers::onAnswered(QDBusPendingCallWatcher *watcher)
{
    const QDBusMessage answer = watcher->reply();
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) {
        askNext();
        return;
    }
    const Keeper &keeper = keepers[m_asked];
    const QVariant value = answer.arguments().constFirst();
    if (keeper.releaseMethod) {
        m_cookie = value.toUInt();
        // With the bus its keepers lose the block, but for one that is held by a file: who wants it asks
        // anew.
        busOf(keeper).connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
            QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
            QCoreApplication::instance(), SLOT(quit()));
    } else {
        m_file = value.value<QDBusUnixFileDescriptor>();
    }
    std::putchar('+'); // whoever reads it no more has closed standard input, too
    std::fflush(stdout);
}

int keepAwake(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    QCoreApplication::setApplicationName(words.at(words.size() - 2));
    std::thread(leaveWithStandardInput).detach();
    SleepKeepers sleepKeepers(words.last());
    QMetaObject::invokeMethod(&sleepKeepers, "askNext", Qt::QueuedConnection);
    return QCoreApplication::exec();
}

#include "sleepkeepers_unix.moc"
