#include "soak/program.h"

#include "app/actionset.h"
#include "devices/listenedports.h"
#include "app/mainwindow.h"
#include "app/process/screenplatform.h"
#include "app/stylesheet.h"
#include "graph/mdigraphchild.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWindow>

#include <algorithm>

namespace soak {

namespace {

constexpr QSize windowSize(1600, 1000);

QList<QWindow *> windowsSeen()
{
    QList<QWindow *> windows;
    const QWindowList all = QGuiApplication::topLevelWindows();
    for (QWindow *window : all) {
        if (window->isVisible())
            windows.append(window);
    }
    return windows;
}

void useFolder(const char *variable, const QString &folder)
{
    QDir().mkpath(folder);
    qputenv(variable, QFile::encodeName(folder));
}

} // namespace

Program::Program()
{
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    useFolder("HOME", m_folder.path());
    useFolder("XDG_CONFIG_HOME", m_folder.filePath(QStringLiteral("config")));
    useFolder("XDG_DATA_HOME", m_folder.filePath(QStringLiteral("data")));
    useFolder("VARNEL_PORT_DIR", portFolder());
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder.path())); // is the owner's alone, as it must be
    QSettings::setPath(
        QSettings::IniFormat, QSettings::UserScope, m_folder.filePath(QStringLiteral("config")));
}

Program::~Program()
{
    if (m_window)
        m_window->close();
}

void Program::open(int ports)
{
    QStringList names;
    for (int number = 1; number <= ports; ++number)
        names.append(QStringLiteral("COM%1").arg(number));
    VarnelSettings().setPorts(names);
    initResources();
    installStyleSheet(qApp, QCoreApplication::applicationDirPath());
    m_window = std::make_unique<MainWindow>();
    m_window->resize(windowSize);
    const auto openGl = ToolkitChoice::noOpenGl();
    m_window->show();
}

void Program::close()
{
    m_window.reset();
}

int Program::listened() const
{
    return m_window->listenedPorts().readers().size();
}

int Program::recordings() const
{
    int count = 0;
    const QList<MdiGraphChild *> children = m_window->mdiChildren();
    for (const MdiGraphChild *child : children)
        count += !child->store().isEmpty();
    return count;
}

void Program::tile()
{
    m_window->actionSet()[ActionId::Tile]->trigger();
}

void Program::openDisplays()
{
    const ActionSet &actions = m_window->actionSet();
    for (const ActionId id :
        {ActionId::Data, ActionId::BarGraph, ActionId::Graph, ActionId::Balancer, ActionId::Power})
        actions[id]->trigger();
}

void Program::minimise()
{
    const QList<QWindow *> windows = windowsSeen();
    for (QWindow *window : windows)
        window->showMinimized();
}

bool Program::isMinimised() const
{
    const QList<QWindow *> windows = windowsSeen();
    return std::none_of(windows.begin(), windows.end(), [](auto *window) { return window->isExposed(); });
}

LineCounts Program::records() const
{
    LineCounts counts;
    const QList<MdiGraphChild *> children = m_window->mdiChildren();
    for (const MdiGraphChild *child : children)
        counts[child->portName()] += child->store().size();
    return counts;
}

qint64 Program::recordCount() const
{
    qint64 count = 0;
    const LineCounts byPort = records();
    for (const qint64 records : byPort)
        count += records;
    return count;
}

qint64 Program::dataSize() const
{
    qint64 size = 0;
    const QList<MdiGraphChild *> children = m_window->mdiChildren();
    for (const MdiGraphChild *child : children) {
        const SeriesStore &store = child->store();
        size += store.size() * qint64(sizeof(Varnel3Data));
        for (int kind = 0; kind < SeriesStore::kindCount; ++kind)
            size += store.series(kind).size() * qint64(sizeof(double));
    }
    return size;
}

} // namespace soak
