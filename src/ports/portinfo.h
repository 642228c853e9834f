#pragma once

#include <QString>
#include <QVector>

/// One serial port as the host offers it.
struct PortInfo {
    QString name; ///< as users and settings know it, for example "COM3"
    QString description; ///< the system's text for it; may be empty
    QString location; ///< what is opened: a device path, or the name itself where the system opens names
};

/// Ports of the host now, in the system's order, linked ports after them in the order of their names. Takes
/// milliseconds when a port has come or gone since the last call, and a fraction of one otherwise.
QVector<PortInfo> listPorts();
/// The next listPorts() asks the system whatever has changed: a driver may be late in telling of its port.
void forgetListedPorts();
/// Names of listPorts().
QStringList listPortNames();
/// The port called `name` now; its location is empty when there is none.
PortInfo findPort(const QString &name);
/// Folder in which a user may link a port under a name; empty where ports have the system's names only.
QString portLinkFolder();
