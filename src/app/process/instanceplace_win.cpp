#include "app/process/instanceplace.h"

#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

// The user's profile, which the system keeps others out of.
QString ownFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    return QDir().mkpath(folder) ? folder : QString();
}

// A pipe is made so that only its user may open it.
bool isOwnPeer(qintptr)
{
    return true;
}

class PlaceLock::Private {
public:
    explicit Private(const QString &fileName)
        : file(fileName)
    {
    }
    QLockFile file;
};

PlaceLock::PlaceLock(const QString &fileName)
    : d(std::make_unique<Private>(fileName))
{
    d->file.setStaleLockTime(0); // held as long as the program runs; a dead one's is taken over
}

PlaceLock::~PlaceLock() = default;

PlaceLock::Outcome PlaceLock::take()
{
    if (d->file.tryLock())
        return Outcome::Held;
    return d->file.error() == QLockFile::LockFailedError ? Outcome::Taken : Outcome::Impossible;
}

void PlaceLock::giveBack()
{
    d->file.unlock();
}

qint64 PlaceLock::holder() const
{
    qint64 process = 0;
    QString host;
    QString program;
    return d->file.getLockInfo(&process, &host, &program) ? process : 0;
}
