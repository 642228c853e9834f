#include "ports/portobstacle.h"

#include <QCoreApplication>

namespace {

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(PortObstacle)
};

QString processText(const PortObstacle &obstacle)
{
    return Texts::tr("\"%1\", process %2").arg(obstacle.program, QString::number(obstacle.process));
}

QString busyText(const PortObstacle &obstacle)
{
    if (obstacle.program.isEmpty())
        return Texts::tr("Another program holds the port.");
    if (obstacle.user.isEmpty())
        return Texts::tr("Another program holds the port: %1.").arg(processText(obstacle));
    return Texts::tr("Another program holds the port: %1 of the user \"%2\".")
        .arg(processText(obstacle), obstacle.user);
}

QString rightsText(const PortObstacle &obstacle)
{
    if (obstacle.group.isEmpty())
        return Texts::tr("You have no right to use the port.");
    return Texts::tr("You have no right to use the port. Join the group \"%1\" and log in again.")
        .arg(obstacle.group);
}

QString ownText(const PortObstacle &obstacle)
{
    if (obstacle.names.isEmpty())
        return Texts::tr("This program listens on the port already.");
    return Texts::tr("This program listens on the same device already, under another name: %1.")
        .arg(obstacle.names.join(QStringLiteral(", ")));
}

QString lockText(const PortObstacle &obstacle)
{
    const QString cause = obstacle.program.isEmpty()
        ? Texts::tr("A program that has ended has left its lock behind.")
        : Texts::tr("A program that has ended has left its lock behind: %1.").arg(processText(obstacle));
    return cause + QLatin1Char('\n')
        + Texts::tr("The user \"%1\" or an administrator has to remove the file %2.")
              .arg(obstacle.user, obstacle.file);
}

QString thingText(PortObstacle::Thing thing)
{
    switch (thing) {
    case PortObstacle::Pipe:
        break;
    case PortObstacle::Socket:
        return Texts::tr("a socket");
    case PortObstacle::Link:
        return Texts::tr("a link");
    case PortObstacle::Folder:
        return Texts::tr("a folder");
    case PortObstacle::Device:
        return Texts::tr("a device");
    }
    return Texts::tr("a pipe");
}

QString strangeText(const PortObstacle &obstacle)
{
    return Texts::tr("%1 should be the port's lock file and is %2.\n"
                     "The user \"%3\" or an administrator has to remove it.")
        .arg(obstacle.file, thingText(obstacle.thing), obstacle.user);
}

} // namespace

QString adviceAgainst(const PortObstacle &obstacle)
{
    switch (obstacle.kind) {
    case PortObstacle::Busy:
        break;
    case PortObstacle::NoRights:
        return rightsText(obstacle);
    case PortObstacle::OwnPort:
        return ownText(obstacle);
    case PortObstacle::LeftOverLock:
        return lockText(obstacle);
    case PortObstacle::StrangeLock:
        return strangeText(obstacle);
    case PortObstacle::NoLockFolder:
        return Texts::tr("You have no right to make lock files in %1.").arg(obstacle.file);
    }
    return busyText(obstacle);
}
