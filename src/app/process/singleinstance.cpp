#include "app/process/singleinstance.h"

#include "app/process/instanceplace.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QSysInfo>
#include <QThread>
#include <QTimer>
#include <QtEndian>

namespace {

constexpr int settleTime = 10000; // ms that the first program has to take the files or to be gone
constexpr int answerTime = 3000; // ms, of one attempt
constexpr int connectionTime = 10000; // ms, the longest that a start may take to say what it wants
constexpr int retryTime = 50; // ms
constexpr char received = '+';

// What a start says: four letters, the number of bytes that follow, most significant first, and the files in
// UTF-8, each ended by a null. No count of anything else stands in it that would have to be believed.
const QByteArray greeting = QByteArrayLiteral("VNL2");
constexpr int headLength = 8;
constexpr quint32 longestList = 16U << 20; // bytes; more than a command line can hold

QByteArray callMessage(const QStringList &files)
{
    QByteArray names;
    for (const QString &file : files)
        names += file.toUtf8() + '\0';
    const quint32 length = qToBigEndian(quint32(names.size()));
    return greeting + QByteArray(reinterpret_cast<const char *>(&length), sizeof length) + names;
}

QStringList namesOf(const QByteArray &list)
{
    QStringList files;
    const auto names = list.split('\0');
    for (const QByteArray &name : names) {
        if (!name.isEmpty())
            files.append(QString::fromUtf8(name));
    }
    return files;
}

// A home folder may be on several computers at once, and each has ports of its own.
QString placeName(const QString &identity)
{
    const QByteArray what = identity.toUtf8() + '\0' + QSysInfo::machineHostName().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(what, QCryptographicHash::Sha1).toHex().left(16);
    return QStringLiteral("varnelgraph-") + QString::fromLatin1(hash);
}

} // namespace

SingleInstance::SingleInstance(const QString &identity, QObject *parent)
    : QObject(parent)
    , m_server(new QLocalServer(this))
{
    const QString folder = ownFolder();
    const QString place = placeName(identity);
    if (!folder.isEmpty())
        m_serverName = serverName(folder, place);
    m_lock = std::make_unique<PlaceLock>(folder + QLatin1Char('/') + place + QStringLiteral(".lock"));
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, SIGNAL(newConnection()), this, SLOT(onConnection()));
}

SingleInstance::~SingleInstance() = default;

qint64 SingleInstance::holder() const
{
    return m_lock->holder();
}

void SingleInstance::giveBack()
{
    retire();
    m_lock->giveBack();
}

SingleInstance::Role SingleInstance::settle(const QStringList &files)
{
    const QDeadlineTimer deadline(settleTime);
    do {
        if (claim())
            return Role::First;
        if (handOver(files))
            return Role::HandedOver;
        QThread::msleep(retryTime); // the first one may just be starting, or leaving
    } while (!deadline.hasExpired());
    return Role::Unanswered;
}

void SingleInstance::retire()
{
    m_server->close();
    const auto connections = m_server->findChildren<QLocalSocket *>();
    for (QLocalSocket *socket : connections)
        socket->abort();
}

bool SingleInstance::claim()
{
    // Without a lock (no folder, or one that can't be written) the program runs all the same, alone or not.
    const PlaceLock::Outcome outcome
        = m_serverName.isEmpty() ? PlaceLock::Outcome::Impossible : m_lock->take();
    if (outcome != PlaceLock::Outcome::Held)
        return outcome == PlaceLock::Outcome::Impossible;
    QLocalServer::removeServer(m_serverName);
    m_server->listen(m_serverName);
    return true;
}

bool SingleInstance::handOver(const QStringList &files) const
{
    QLocalSocket socket;
    socket.connectToServer(m_serverName);
    if (!socket.waitForConnected(retryTime) || !isOwnPeer(socket.socketDescriptor()))
        return false;
    letComeForward(holder());
    socket.write(callMessage(files));
    socket.waitForReadyRead(answerTime);
    return socket.readAll() == QByteArray(1, received);
}

void SingleInstance::onConnection()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        if (!isOwnPeer(socket->socketDescriptor())) {
            socket->deleteLater();
            continue;
        }
        connect(socket, SIGNAL(readyRead()), this, SLOT(onReadyRead()));
        connect(socket, SIGNAL(disconnected()), socket, SLOT(deleteLater()));
        auto *patience = new QTimer(socket);
        connect(patience, SIGNAL(timeout()), socket, SLOT(deleteLater()));
        patience->start(connectionTime);
    }
}

// Anybody may talk here who runs under this user's name: what does not begin as a start does is not read on.
void SingleInstance::onReadyRead()
{
    auto *socket = qobject_cast<QLocalSocket *>(sender());
    const QByteArray head = socket->peek(headLength);
    if (!head.startsWith(greeting.left(head.size())))
        return socket->abort();
    if (head.size() < headLength)
        return; // the rest is still on its way
    const auto length = qFromBigEndian<quint32>(head.constData() + greeting.size());
    if (length > longestList)
        return socket->abort();
    if (socket->bytesAvailable() < qint64(headLength) + length)
        return;
    socket->skip(headLength);
    const QStringList files = namesOf(socket->read(length));
    socket->write(&received, 1);
    socket->flush();
    emit called(files);
}
