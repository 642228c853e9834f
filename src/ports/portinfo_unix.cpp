#include "ports/portinfo.h"

#include "ports/portscan.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QSerialPortInfo>
#include <QStandardPaths>

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace {

const char deviceFolder[] = "/dev";

QByteArray defaultPortFolder()
{
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return runtime.isEmpty() ? QByteArray() : QFile::encodeName(runtime + QStringLiteral("/varnelgraph"));
}

// Where links to ports stand besides the device folder; may be empty or name no folder.
QByteArray portFolder()
{
    const QByteArray chosen = qgetenv("VARNEL_PORT_DIR");
    if (!chosen.isEmpty())
        return chosen;
    static const QByteArray usual = defaultPortFolder();
    return usual;
}

QVector<QByteArray> linkFolders()
{
    QVector<QByteArray> folders = {deviceFolder};
    const QByteArray chosen = portFolder();
    if (!chosen.isEmpty())
        folders.append(chosen);
    return folders;
}

bool isLinkName(const char *name)
{
    return qstrncmp(name, "COM", 3) == 0;
}

// The beginnings of the names that systems give to serial ports.
bool isPortName(const char *name)
{
    static const char *const beginnings[] = {"COM", "tty", "cu", "rfcomm", "ircomm", "tnt", "ser"};
    return std::any_of(std::begin(beginnings), std::end(beginnings),
        [name](const char *beginning) { return qstrncmp(name, beginning, qstrlen(beginning)) == 0; });
}

/// Calls `visit(entry)` for each entry of `folder`; none where it can't be read.
template <typename Visit>
void visitFolder(const QByteArray &folder, Visit visit)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> dir(opendir(folder.constData()), closedir);
    if (!dir)
        return;
    while (const dirent *entry = readdir(dir.get()))
        visit(*entry);
}

bool statDevice(const QByteArray &path, struct stat *node)
{
    return stat(path.constData(), node) == 0 && S_ISCHR(node->st_mode);
}

/// What a folder says of ports: names and numbers of its nodes, which tell a device from another that follows
/// it under the same name, and the paths of those that may be links.
struct Nodes {
    QByteArray text;
    QList<QByteArray> links;
};

Nodes nodesIn(const QByteArray &folder)
{
    Nodes nodes;
    visitFolder(folder, [&](const dirent &entry) {
        if (!isPortName(entry.d_name))
            return;
        const QByteArray path = folder + '/' + entry.d_name;
        nodes.text += path + ' ' + QByteArray::number(quint64(entry.d_ino)) + '\n';
        if (isLinkName(entry.d_name))
            nodes.links.append(path);
    });
    return nodes;
}

/// When `folder` was changed last; empty where it is none, and where its next change may bear the same time.
QByteArray changeOf(const QByteArray &folder)
{
    constexpr time_t coarsest = 2; // s, of any file system's clock
    struct stat node = {};
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (::stat(folder.constData(), &node) != 0 || now.tv_sec - node.st_ctim.tv_sec <= coarsest)
        return QByteArray();
    return QByteArray::number(qint64(node.st_ctim.tv_sec)) + '.'
        + QByteArray::number(qint64(node.st_ctim.tv_nsec));
}

// The device folder has a hundred nodes and more, is looked at every second and hardly ever changes.
Nodes knownNodesIn(const QByteArray &folder)
{
    struct Seen {
        QByteArray change;
        Nodes nodes;
    };
    static QHash<QByteArray, Seen> folders;
    Seen &seen = folders[folder];
    const QByteArray change = changeOf(folder);
    if (change.isEmpty() || change != seen.change)
        seen = {change, nodesIn(folder)}; // what comes between has another time
    return seen.nodes;
}

QVector<PortInfo> systemPorts()
{
    QVector<PortInfo> ports;
    const auto infos = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : infos)
        ports.append({info.portName(), info.description(), info.systemLocation()});
    return ports;
}

/// By their names; of two that bear one the first folder's.
QMap<QString, PortInfo> linkedPorts(const QVector<PortInfo> &systemPorts)
{
    QHash<QString, QString> descriptions;
    for (const PortInfo &port : systemPorts)
        descriptions.insert(port.location, port.description);
    QMap<QString, PortInfo> ports;
    const auto folders = linkFolders();
    for (const QByteArray &folder : folders) {
        visitFolder(folder, [&](const dirent &entry) {
            const QByteArray path = folder + '/' + entry.d_name;
            const QString name = QFile::decodeName(entry.d_name);
            struct stat node;
            if (!isLinkName(entry.d_name) || ports.contains(name) || !statDevice(path, &node))
                return;
            const QString location = QFileInfo(QFile::decodeName(path)).canonicalFilePath();
            ports.insert(name, {name, descriptions.value(location), location});
        });
    }
    return ports;
}

} // namespace

QVector<PortInfo> askForPorts()
{
    QVector<PortInfo> ports = systemPorts();
    QMap<QString, PortInfo> linked = linkedPorts(ports);
    for (const PortInfo &port : qAsConst(ports))
        linked.remove(port.name);
    for (const PortInfo &port : qAsConst(linked))
        ports.append(port);
    return ports;
}

QString portLinkFolder()
{
    return QFile::decodeName(portFolder());
}

QByteArray portFingerprint()
{
    QByteArray fingerprint;
    QList<QByteArray> links;
    const auto folders = linkFolders();
    for (const QByteArray &folder : folders) {
        const Nodes nodes = knownNodesIn(folder);
        fingerprint += nodes.text;
        links += nodes.links;
    }
    for (const QByteArray &link : qAsConst(links)) {
        struct stat node;
        if (statDevice(link, &node))
            fingerprint += link + ' ' + QByteArray::number(quint64(node.st_rdev)) + ' '
                + QByteArray::number(quint64(node.st_ino)) + '\n';
    }
    return fingerprint;
}

QByteArray portIdentity(const PortInfo &port)
{
    QByteArray identity = QFile::encodeName(port.location);
    struct stat node;
    if (statDevice(identity, &node))
        identity += ' ' + QByteArray::number(quint64(node.st_rdev)) + ' '
            + QByteArray::number(quint64(node.st_ino));
    return identity;
}
