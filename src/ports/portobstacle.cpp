#include "ports/portobstacle.h"

#include <QCoreApplication>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("PortObstacle", text);
}

QString processText(const PortObstacle &obstacle)
{
    return translated("\"%1\", process %2").arg(obstacle.program, QString::number(obstacle.process));
}

QString busyText(const PortObstacle &obstacle)
{
    if (obstacle.program.isEmpty())
        return translated("Another program holds the port.");
    if (obstacle.user.isEmpty())
        return translated("Another program holds the port: %1.").arg(processText(obstacle));
    return translated("Another program holds the port: %1 of the user \"%2\".")
        .arg(processText(obstacle), obstacle.user);
}

QString rightsText(const PortObstacle &obstacle)
{
    if (obstacle.group.isEmpty())
        return translated("You have no right to use the port.");
    return translated("You have no right to use the port. Join the group \"%1\" and log in again.")
        .arg(obstacle.group);
}

QString ownText(const PortObstacle &obstacle)
{
    if (obstacle.names.isEmpty())
        return translated("This program listens on the port already.");
    return translated("This program listens on the same device already, under another name: %1.")
        .arg(obstacle.names.join(QStringLiteral(", ")));
}

QString lockText(const PortObstacle &obstacle)
{
    const QString cause = obstacle.program.isEmpty()
        ? translated("A program that has ended has left its lock behind.")
        : translated("A program that has ended has left its lock behind: %1.").arg(processText(obstacle));
    return cause + QLatin1Char('\n')
        + translated("The user \"%1\" or an administrator has to remove the file %2.")
              .arg(obstacle.user, obstacle.file);
}

QString thingText(PortObstacle::Thing thing)
{
    switch (thing) {
    case PortObstacle::Pipe:
        break;
    case PortObstacle::Socket:
        return translated("a socket");
    case PortObstacle::Link:
        return translated("a link");
    case PortObstacle::Folder:
        return translated("a folder");
    case PortObstacle::Device:
        return translated("a device");
    }
    return translated("a pipe");
}

QString strangeText(const PortObstacle &obstacle)
{
    return translated("%1 should be the port's lock file and is %2.\n"
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
        return translated("You have no right to make lock files in %1.").arg(obstacle.file);
    }
    return busyText(obstacle);
}
