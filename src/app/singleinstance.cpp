#include "app/singleinstance.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>
#include <QThread>

namespace {

constexpr int settleTime = 10000; // ms that the first program has to take the files or to be gone
constexpr int answerTime = 3000; // ms, of one attempt
constexpr int retryTime = 50; // ms
constexpr quint32 magic = 0x564e4c31;
constexpr char received = '+';

QString runtimeFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return folder.isEmpty() ? QDir::tempPath() : folder;
}

} // namespace

SingleInstance::SingleInstance(const QString &identity, QObject *parent)
    : QObject(parent)
    , m_server(new QLocalServer(this))
{
    const QByteArray hash
        = QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    m_path = runtimeFolder() + QStringLiteral("/varnelgraph-") + QString::fromLatin1(hash);
    m_lock = std::make_unique<QLockFile>(m_path + QStringLiteral(".lock"));
    m_lock->setStaleLockTime(0); // held as long as the program runs; a dead one's is taken over
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, SIGNAL(newConnection()), this, SLOT(onConnection()));
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Role SingleInstance::settle(const QStringList &files)
{
    QElapsedTimer timer;
    timer.start();
    do {
        if (claim())
            return Role::First;
        if (handOver(files))
            return Role::HandedOver;
        QThread::msleep(retryTime); // the first one may just be starting, or leaving
    } while (timer.elapsed() < settleTime);
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
    if (!m_lock->tryLock() && m_lock->error() == QLockFile::LockFailedError)
        return false;
    // Without a lock (a runtime folder that can't be written) the program runs all the same, alone or not.
    QLocalServer::removeServer(m_path);
    m_server->listen(m_path);
    return true;
}

bool SingleInstance::handOver(const QStringList &files) const
{
    QLocalSocket socket;
    socket.connectToServer(m_path);
    if (!socket.waitForConnected(retryTime))
        return false;
    QDataStream stream(&socket);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << magic << files;
    socket.flush();
    return socket.waitForReadyRead(answerTime) && socket.read(1) == QByteArray(1, received);
}

void SingleInstance::onConnection()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, SIGNAL(readyRead()), this, SLOT(onReadyRead()));
        connect(socket, SIGNAL(disconnected()), socket, SLOT(deleteLater()));
    }
}

void SingleInstance::onReadyRead()
{
    auto *socket = qobject_cast<QLocalSocket *>(sender());
    QDataStream stream(socket);
    stream.setVersion(QDataStream::Qt_5_15);
    stream.startTransaction();
    quint32 mark = 0;
    QStringList files;
    stream >> mark >> files;
    if (!stream.commitTransaction())
        return; // the rest is still on its way
    if (mark != magic) {
        socket->abort();
        return;
    }
    socket->write(&received, 1);
    socket->flush();
    emit called(files);
}
