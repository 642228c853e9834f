#include "ports/portinfo.h"

#include "ports/portscan.h"

#include <QFile>
#include <QFileInfo>
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
    QList<QByteArray> entries;
    visitFolder(folder, [&](const dirent &entry) {
        if (!isPortName(entry.d_name))
            return;
        const QByteArray path = folder + '/' + entry.d_name;
        entries.append(path + ' ' + QByteArray::number(quint64(entry.d_ino)) + '\n');
        if (isLinkName(entry.d_name))
            nodes.links.append(path);
    });
    std::sort(entries.begin(), entries.end());
    std::sort(nodes.links.begin(), nodes.links.end());
    nodes.text = entries.join();
    return nodes;
}

/// Whether a folder that was changed at `changed` tells of its next change by another time.
bool isLongSince(const timespec &changed)
{
    constexpr time_t coarsest = 2; // s, of any file system's clock
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec - changed.tv_sec > coarsest;
}

// It has a hundred nodes and more, is looked at every second and hardly ever changes.
const Nodes &deviceNodes()
{
    struct Seen {
        Nodes nodes;
        struct stat folder = {};
        bool settled = false;
    };
    static Seen seen;
    struct stat now = {};
    const bool isThere = ::stat(deviceFolder, &now) == 0;
    const bool same = isThere && seen.settled && now.st_dev == seen.folder.st_dev
        && now.st_ino == seen.folder.st_ino && now.st_ctim.tv_sec == seen.folder.st_ctim.tv_sec
        && now.st_ctim.tv_nsec == seen.folder.st_ctim.tv_nsec;
    if (!same) {
        const bool settled = isThere && isLongSince(now.st_ctim);
        seen = {nodesIn(deviceFolder), now, settled}; // what comes between has another time
    }
    return seen.nodes;
}

QString descriptionOf(const QString &location, const QVector<PortInfo> &ports)
{
    const auto found = std::find_if(
        ports.begin(), ports.end(), [&location](const PortInfo &port) { return port.location == location; });
    return found == ports.end() ? QString() : found->description;
}

QVector<PortInfo> systemPorts()
{
    QVector<PortInfo> ports;
    const auto infos = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : infos)
        ports.append({info.portName(), info.description(), info.systemLocation()});
    return ports;
}

QVector<PortInfo> linkedPorts(const QVector<PortInfo> &systemPorts)
{
    QVector<PortInfo> ports;
    const auto folders = linkFolders();
    for (const QByteArray &folder : folders) {
        visitFolder(folder, [&](const dirent &entry) {
            const QByteArray path = folder + '/' + entry.d_name;
            struct stat node;
            if (!isLinkName(entry.d_name) || !statDevice(path, &node))
                return;
            const QString location = QFileInfo(QFile::decodeName(path)).canonicalFilePath();
            ports.append({QFile::decodeName(entry.d_name), descriptionOf(location, systemPorts), location});
        });
    }
    std::stable_sort(
        ports.begin(), ports.end(), [](const PortInfo &a, const PortInfo &b) { return a.name < b.name; });
    return ports;
}

} // namespace

QVector<PortInfo> askForPorts()
{
    QVector<PortInfo> ports = systemPorts();
    const QVector<PortInfo> linked = linkedPorts(ports);
    for (const PortInfo &port : linked) {
        const bool known = std::any_of(
            ports.begin(), ports.end(), [&port](const PortInfo &other) { return other.name == port.name; });
        if (!known)
            ports.append(port);
    }
    return ports;
}

QString portLinkFolder()
{
    return QFile::decodeName(portFolder());
}

QByteArray portFingerprint()
{
    const Nodes &devices = deviceNodes();
    QByteArray fingerprint = devices.text;
    QList<QByteArray> links = devices.links;
    const QByteArray chosen = portFolder();
    if (!chosen.isEmpty()) {
        const Nodes nodes = nodesIn(chosen);
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
