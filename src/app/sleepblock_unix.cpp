#include "app/sleepblock.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QFile>

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
constexpr int keeperCount = int(sizeof keepers / sizeof *keepers);

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

QDBusPendingCall call(const Keeper &keeper, const char *method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(QLatin1String(keeper.service),
        QLatin1String(keeper.path), QLatin1String(keeper.interface), QLatin1String(method));
    message.setArguments(arguments);
    return busOf(keeper).asyncCall(message);
}

} // namespace

/// One request at a time; what is granted after release() is given back at once.
class SleepBlock::Private : public QObject {
    Q_OBJECT

public:
    void tryNext();
    void giveBack();

    QString reason;
    bool wanted = false;
    int asked = -1; // index of the keeper that was asked last; -1 none
    bool granted = false;
    quint32 cookie = 0;
    QDBusUnixFileDescriptor file;

private slots:
    void onAnswered(QDBusPendingCallWatcher *watcher);
};

void SleepBlock::Private::tryNext()
{
    ++asked;
    while (asked < keeperCount && !hasBus(keepers[asked].system))
        ++asked;
    if (asked == keeperCount)
        return;
    const Keeper &keeper = keepers[asked];
    auto *watcher = new QDBusPendingCallWatcher(
        call(keeper, "Inhibit", keeper.arguments(QCoreApplication::applicationName(), reason)), this);
    const char *finished = SIGNAL(finished(QDBusPendingCallWatcher*));
    connect(watcher, finished, this, SLOT(onAnswered(QDBusPendingCallWatcher*)));
}

void SleepBlock::Private::onAnswered(QDBusPendingCallWatcher *watcher)
{
    watcher->deleteLater();
    const QDBusMessage answer = watcher->reply();
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) {
        if (wanted)
            tryNext();
        else
            asked = -1;
        return;
    }
    const QVariant value = answer.arguments().constFirst();
    if (keepers[asked].releaseMethod)
        cookie = value.toUInt();
    else
        file = value.value<QDBusUnixFileDescriptor>();
    granted = true;
    if (!wanted)
        giveBack();
}

void SleepBlock::Private::giveBack()
{
    const Keeper &keeper = keepers[asked];
    if (keeper.releaseMethod)
        call(keeper, keeper.releaseMethod, {cookie});
    file = QDBusUnixFileDescriptor();
    granted = false;
    asked = -1;
}

SleepBlock::SleepBlock(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

SleepBlock::~SleepBlock()
{
    release();
}

void SleepBlock::acquire(const QString &reason)
{
    d->reason = reason;
    d->wanted = true;
    if (d->asked == -1)
        d->tryNext();
}

void SleepBlock::release()
{
    d->wanted = false;
    if (d->granted)
        d->giveBack();
    else if (d->asked == keeperCount)
        d->asked = -1; // nobody was there; ask anew the next time
}

bool SleepBlock::isHeld() const
{
    return d->granted;
}

#include "sleepblock_unix.moc"
