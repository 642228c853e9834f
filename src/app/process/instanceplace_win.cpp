#include "app/process/instanceplace.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <windows.h>

// The user's profile, which the system keeps others out of. Not the part of it that goes with the user from
// computer to computer.
QString ownFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    return QDir().mkpath(folder) ? folder : QString();
}

// Pipes lie in one place for all users of the computer and have no folders: slashes, backslashes and colons
// are not for their names. The folder, which is the user's own, tells users apart.
QString serverName(const QString &folder, const QString &place)
{
    const QByteArray user
        = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    return place + QLatin1Char('-') + QString::fromLatin1(user);
}

// A pipe is made so that only its user may open it.
bool isOwnPeer(qintptr)
{
    return true;
}

void letComeForward(qint64 process)
{
    ::AllowSetForegroundWindow(process > 0 ? DWORD(process) : ASFW_ANY);
}

class PlaceLock::Private {
public:
    QString fileName;
    HANDLE file = INVALID_HANDLE_VALUE;
};

PlaceLock::PlaceLock(const QString &fileName)
    : d(std::make_unique<Private>())
{
    d->fileName = fileName;
}

PlaceLock::~PlaceLock()
{
    giveBack();
}

// What keeps others out is the open file, which the system closes with its process: a file that a dead one
// has left is taken over, whatever number stands in it. Others may read it.
PlaceLock::Outcome PlaceLock::take()
{
    const std::wstring name = QDir::toNativeSeparators(d->fileName).toStdWString();
    d->file = ::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
        FILE_ATTRIBUTE_NORMAL, nullptr);
    if (d->file == INVALID_HANDLE_VALUE)
        return ::GetLastError() == ERROR_SHARING_VIOLATION ? Outcome::Taken : Outcome::Impossible;
    const QByteArray self = QByteArray::number(QCoreApplication::applicationPid());
    DWORD written = 0; // without the number of the process all goes on
    ::WriteFile(d->file, self.constData(), DWORD(self.size()), &written, nullptr);
    ::SetEndOfFile(d->file);
    return Outcome::Held;
}

void PlaceLock::giveBack()
{
    if (d->file != INVALID_HANDLE_VALUE)
        ::CloseHandle(d->file);
    d->file = INVALID_HANDLE_VALUE;
}

qint64 PlaceLock::holder() const
{
    constexpr qint64 longestNumber = 20;
    QFile file(d->fileName);
    return file.open(QIODevice::ReadOnly) ? file.read(longestNumber).toLongLong() : 0;
}
