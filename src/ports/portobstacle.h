#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct PortInfo;

/// Why a port that exists can't be opened.
struct PortObstacle {
    enum Kind {
        Busy, ///< another program holds it
        NoRights, ///< the user may not use its device
        OwnPort, ///< this program holds the same device already
        LeftOverLock, ///< the lock file of a program that has ended, which nobody but its owner may remove
        StrangeLock, ///< what bears the name of the lock file is none
        NoLockFolder, ///< no lock file can be made
    };
    enum Thing { Pipe, Socket, Link, Folder, Device };

    Kind kind = Busy;
    QString group; ///< NoRights: the one to join; empty where the system knows none
    QStringList names; ///< OwnPort: the other names of the device
    QString program; ///< Busy, LeftOverLock: who holds or held it; empty where that can't be had
    qint64 process = 0; ///< its number; 0 with an empty `program`
    QString user; ///< whose the running program or the lock file is; may be empty
    QString file; ///< LeftOverLock, StrangeLock: to be removed; NoLockFolder: the folder
    Thing thing = Pipe; ///< StrangeLock: what `file` is
};

/// What forbids so much as trying to open `port`: the lock file is read for that, and who reads a pipe may
/// wait for ever.
std::optional<PortObstacle> obstacleToTrying(const PortInfo &port);
/// What keeps `port`, whose opening the system has just refused by "permission denied". Takes milliseconds.
PortObstacle obstacleTo(const PortInfo &port);
/// `obstacle` in the user's language, and what to do about it.
QString adviceAgainst(const PortObstacle &obstacle);
