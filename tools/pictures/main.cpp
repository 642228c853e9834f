// The guide's pictures: the program itself, listening on simulated devices, is led through what the guide
// tells, and each window is kept as it looks then. ./dev pictures gives it settings and folders of its own.
#include "app/actionset.h"
#include "app/tools/logbookhost.h"
#include "app/tools/logbookparts.h"
#include "app/mainwindow.h"
#include "app/tools/overlaycommands.h"
#include "app/stylesheet.h"
#include "app/translators.h"
#include "graph/mdigraphchild.h"
#include "journal/journalfolder.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookreader.h"
#include "logbook/window/logbookwindow.h"
#include "overlay/overlayplot.h"
#include "overlay/overlaywindow.h"
#include "pictures/album.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"
#include "simulator/linewriter.h"
#include "simulator/process.h"
#include "simulator/rack.h"
#include "simulator/year.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSplitter>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

constexpr double speed = 300.0; // seconds of a device in one of ours
constexpr int charged = 3000; // records: constant current is over, cells have parted

const char *const devices[] = {
    "COM1:varnel3,mode=charge,chemistry=LiPo,cells=6,capacity=5000,current=4000,balance,weak=4,ri=1",
    "COM2:varnel2plus,mode=discharge,chemistry=LiIo,cells=3,capacity=2600,current=900",
    "COM3:tandor,chemistry=LiPo,cells=12,capacity=3300",
};
const char *const discharges[] = {
    "COM5:varnel3,mode=discharge,chemistry=LiPo,cells=6,capacity=5000,current=5000,balance",
    "COM5:varnel3,mode=discharge,chemistry=LiPo,cells=6,capacity=4600,current=5000,balance",
    "COM5:varnel3,mode=discharge,chemistry=LiPo,cells=6,capacity=3900,current=5000,balance,weak=2",
};
struct Pack {
    const char *name;
    const char *port;
    int cellType;
    int cells;
    int capacity; ///< mAh
};
constexpr Pack packs[] = {{"Heli 6S A", "COM3", 5, 6, 5000}, {"Heli 6S B", "COM4", 5, 6, 5000},
    {"Receiver LiFe", "COM3", 7, 4, 3000}, {"Glider 3S", "COM4", 5, 3, 2200},
    {"Car NiMH", "COM5", 1, 8, 3300}, {"Starter Pb", "COM5", 2, 6, 7000}};
const char *const waitingDevice = "COM4:varnel3,cells=6,chemistry=LiPo,start=remote";

/// Leads the program through the guide, page by page.
class Tour {
public:
    Tour(MainWindow &window, sim::Rack &rack, const QString &folder)
        : m_window(window)
        , m_rack(rack)
        , m_album(folder)
    {
    }

    bool run()
    {
        return recording() && graphs() && displays() && comparisons() && overlay() && logbook() && dialogs()
            && end();
    }
    QString trouble() const { return m_album.trouble(); }

private:
    QAction *action(ActionId id) const { return m_window.actionSet()[id]; }
    MdiGraphChild *graph(const char *port) const
    {
        const QList<MdiGraphChild *> graphs = m_window.mdiChildren();
        for (MdiGraphChild *child : graphs) {
            if (child->portName() == QLatin1String(port))
                return child;
        }
        return nullptr;
    }
    bool reached(const char *port, int records) const
    {
        const MdiGraphChild *child = graph(port);
        return child && child->store().size() >= records;
    }
    void setView(std::initializer_list<ActionId> wanted) const
    {
        for (const ActionId id : {ActionId::Balancer, ActionId::Average, ActionId::DistinctLines}) {
            const bool on = std::find(wanted.begin(), wanted.end(), id) != wanted.end();
            if (action(id)->isChecked() != on)
                action(id)->trigger();
        }
    }
    void current(const char *port) const
    {
        QWidget *frame = graph(port)->parentWidget();
        frame->setFocus();
        static_cast<QMdiSubWindow *>(frame)->mdiArea()->setActiveSubWindow(
            static_cast<QMdiSubWindow *>(frame));
    }

    bool recording()
    {
        if (!m_album.wait(
                "three windows that draw", [this] { return reached("COM1", charged) && graph("COM3"); }))
            return false;
        m_rack.setSpeed(1.0); // what follows is one moment
        action(ActionId::Tile)->trigger();
        current("COM1");
        return m_album.keep("main", &m_window);
    }

    bool graphs()
    {
        graph("COM1")->parentWidget()->showMaximized();
        setView({});
        Album::point(graph("COM1"), 0.4, 0.3);
        if (!m_album.keep("graph", &m_window))
            return false;
        setView({ActionId::Balancer});
        if (!m_album.keep("cells", &m_window))
            return false;
        setView({ActionId::Balancer, ActionId::DistinctLines});
        action(ActionId::White)->trigger();
        const bool kept = m_album.keep("distinct", &m_window);
        action(ActionId::Black)->trigger();
        setView({});
        return kept;
    }

    bool displays()
    {
        if (!m_album.toggle("data", action(ActionId::Data), "DataDisplay"))
            return false;
        setView({ActionId::Balancer});
        return m_album.toggle("data-cells", action(ActionId::Data), "DataDisplay")
            && m_album.toggle("bars", action(ActionId::Power), "PowerDisplay");
    }

    bool comparisons()
    {
        return m_album.toggle("capacities", action(ActionId::BarGraph), "CapacityDisplay")
            && m_album.toggle("voltages", action(ActionId::Graph), "VoltageComparison");
    }

    /// Discharges of one pack, a year apart.
    bool overlay()
    {
        const QTemporaryDir folder;
        QStringList files;
        for (const char *discharge : discharges) {
            files.append(folder.filePath(QStringLiteral("%1.acp").arg(files.size())));
            if (!write(QLatin1String(discharge), files.last()))
                return m_album.fail(files.last());
        }
        m_window.findChild<OverlayCommands *>()->showFiles(files,
            {QStringLiteral("Pack 3, 2024-05-03 14:20"), QStringLiteral("Pack 3, 2025-04-27 10:05"),
                QStringLiteral("Pack 3, 2026-05-09 17:41")});
        auto *overlay = m_window.findChild<OverlayWindow *>();
        overlay->findChild<QComboBox *>(QStringLiteral("overlayAxis"))->setCurrentIndex(1);
        if (!m_album.wait("three curves",
                [overlay, &files] { return overlay->plot()->shown().entries.size() == files.size(); }))
            return false;
        Album::point(overlay->plot(), 0.35, 0.4);
        return m_album.window("overlay", "OverlayWindow", QSize(960, 600));
    }
    static bool write(const QString &device, const QString &fileName)
    {
        QString error;
        sim::Process process(sim::DeviceSettings::parse(device, &error), 7);
        QFile file(fileName);
        if (!error.isEmpty() || !file.open(QIODevice::WriteOnly))
            return false;
        while (!process.finished())
            file.write(sim::measurementLine(process.next()));
        return true;
    }

    /// A year of six packs, told apart.
    bool logbook()
    {
        QString error;
        const int files = sim::writeYear(JournalFolder::defaultPath(), 1, QDate::currentDate(), &error);
        if (files < 0)
            return m_album.fail(error);
        const auto *parts = m_window.findChild<LogbookParts *>();
        parts->reader()->readAgain();
        if (!m_album.wait("the year's recordings", [=] { return parts->logbook()->size() >= files; }))
            return false;
        for (const Pack &known : packs) {
            LogbookPack pack;
            pack.name = QLatin1String(known.name);
            pack.cellType = known.cellType;
            pack.cells = known.cells;
            pack.capacity = known.capacity;
            QVector<qint64> ids = parts->logbook()->recordings();
            const auto isOther = [&](qint64 id) {
                const LogbookRecording *recording = parts->logbook()->recording(id);
                return recording->port != QLatin1String(known.port) || recording->figures.cells != known.cells
                    || recording->figures.cellType != known.cellType || recording->isLive;
            };
            ids.erase(std::remove_if(ids.begin(), ids.end(), isOther), ids.end());
            parts->editor()->assign(ids, parts->editor()->addPack(pack));
        }
        action(ActionId::Logbook)->trigger();
        LogbookWindow *logbook = m_window.findChild<LogbookHost *>()->window();
        logbook->resize(1720, 900); // what it has room for on most screens, though not on this one
        const auto splitters = logbook->findChildren<QSplitter *>();
        for (QSplitter *splitter : splitters) {
            if (splitter->orientation() == Qt::Horizontal)
                splitter->setSizes({600, 1120});
        }
        return m_album.window("logbook", "LogbookWindow");
    }

    bool dialogs()
    {
        if (!m_album.dialog("preferences", action(ActionId::Preferences))
            || !m_album.dialog("recordings", action(ActionId::OpenRecordings)))
            return false;
        QString error;
        if (!m_rack.add(QLatin1String(waitingDevice), &error))
            return m_album.fail(error);
        if (!m_album.box("new-port", "portQuestion"))
            return false;
        QAction *remote = nullptr;
        const auto offered = [&] {
            const QMenu *menu = action(ActionId::RemoteControl)->menu();
            const QList<QAction *> ports = menu ? menu->actions() : QList<QAction *>();
            for (QAction *port : ports)
                remote = port->text().contains(QLatin1String("COM4")) ? port : remote;
            return remote != nullptr;
        };
        if (!m_album.wait("the port in the menu of the remote control", offered))
            return false;
        remote->trigger();
        return m_album.window("remote", "DialogRemoteControl");
    }

    bool end()
    {
        m_rack.setSpeed(4 * speed);
        return m_album.box("end", "");
    }

    MainWindow &m_window;
    sim::Rack &m_rack;
    Album m_album;
};

bool start(sim::Rack &rack)
{
    QString error;
    QStringList ports;
    for (const char *device : devices) {
        if (!rack.add(QLatin1String(device), &error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return false;
        }
        ports.append(QLatin1String(device).left(4));
    }
    VarnelSettings().setPorts(ports);
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    const QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 2) {
        std::fputs("usage: varnelpictures FOLDER [LANGUAGE]\n", stderr);
        return 2;
    }
    installLanguage(words.value(2, QStringLiteral("en")));
    initResources();
    installStyleSheet(qApp, QCoreApplication::applicationDirPath());
    sim::RunSettings run;
    run.folder = sim::Rack::defaultFolder();
    run.speed = speed;
    run.seed = 1;
    sim::Rack rack(run);
    if (!start(rack))
        return 1;
    MainWindow window;
    window.resize(1200, 760);
    window.show();
    Tour tour(window, rack, words.at(1));
    if (tour.run())
        return 0;
    std::fprintf(stderr, "no picture: %s\n", qPrintable(tour.trouble()));
    return 1;
}
