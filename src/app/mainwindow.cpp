#include "app/mainwindow.h"

#include "app/actionset.h"
#include "desk/datatoolbar.h"
#include "desk/deskarea.h"
#include "devices/devicecommands.h"
#include "desk/dialogsontop.h"
#include "desk/displaywindows.h"
#include "documents/documents.h"
#include "devices/endnotice.h"
#include "desk/shownrecord.h"
#include "app/filedrops.h"
#include "app/tools/logbookhost.h"
#include "app/tools/logbookparts.h"
#include "documents/filewriter.h"
#include "documents/graphexports.h"
#include "desk/graphwindows.h"
#include "desk/livewindows.h"
#include "documents/journalnotice.h"
#include "devices/listenedports.h"
#include "desk/packsource.h"
#include "documents/progressstrip.h"
#include "desk/windowfiles.h"
#include "devices/remotecontrols.h"
#include "app/tools/overlaycommands.h"
#include "app/sessionend.h"
#include "app/shellmenus.h"
#include "app/shellplace.h"
#include "devices/deskreaderhost.h"
#include "devices/devicetargets.h"
#include "machine/sleepinhibitor.h"
#include "machine/soundplayer.h"
#include "desk/stalewatch.h"
#include "desk/statusfacts.h"
#include "app/toolscommands.h"
#include "documents/unsavedwindows.h"
#include "devices/unseenends.h"
#include "app/viewswitchboard.h"
#include "graph/mdigraphchild.h"
#include "ports/portwatcher.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "widgets/mnemonics.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>

MainWindow::MainWindow()
{
    createParts();
    createMenus();
    createToolBars();
    createStatusBar();
    connectParts();
    updateMenus();
    setWindowIcon(QIcon(QStringLiteral(":/Icons/varnel.png")));
    setUnifiedTitleAndToolBarOnMac(true);
    readSettings();
    switches->disableViews();
    ports->noteStartupPorts();
    QTimer::singleShot(0, this, SLOT(recordingOnStart()));
    setWindowTitle(tr("Varnel Graph %1").arg(QCoreApplication::applicationVersion()));
}

// What is written reads from the graph windows. Then readers, then graph windows: each tells those that it
// talks to, which must still be there.
MainWindow::~MainWindow()
{
    writer->cancel();
    ports->closeAll();
    graphs->setEnding();
    delete mdiArea;
}

void MainWindow::createParts()
{
    state = new ViewState(this);
    displays = new DisplayWindows(this, state);
    new DialogsOnTop(this);
    mdiArea = new DeskArea(this);
    setCentralWidget(mdiArea);
    windowMapper = new QSignalMapper(this);
    actions = new ActionSet(this, mdiArea);
    dataToolBar = new DataToolBar(this);
    shownRecord = new ShownRecord(dataToolBar, displays, this);
    switches = new ViewSwitchboard(actions, state, displays, shownRecord, this);
    displays->setKeys(actions->viewSwitches());
    graphs = new GraphWindows(this, mdiArea, state, displays, shownRecord);
    facts = new StatusFacts(statusBar());
    windowFiles = new WindowFiles(this);
    new JournalNotice(windowFiles->keeper(), facts, this);
    live = std::make_unique<LiveWindows>(graphs, windowFiles);
    readerHost = new DeskReaderHost(this, live.get(), facts);
    ports = new ListenedPorts(this, readerHost, live.get(), facts);
    watcher = new PortWatcher(this);
    staleWatch = new StaleWatch(graphs, shownRecord, facts, this);
    packs = std::make_unique<PackSource>(graphs, staleWatch);
    displays->setVoltageSource(packs.get());
    auto *strip = new ProgressStrip(statusBar());
    writer = new FileWriter(strip, &windowFiles->syncer(), this);
    documents = new Documents(this, strip, writer, graphs, displays, windowFiles);
    unsaved = new UnsavedWindows(this, graphs, documents, windowFiles, writer);
    graphs->setCloseGuard(unsaved);
    new SessionEnd(this, {writer, unsaved, ports});
    logbookParts = new LogbookParts(this, windowFiles->keeper(), documents);
    logbookHost
        = new LogbookHost({logbookParts, state, writer, windowFiles}, (*actions)[ActionId::Logbook], this);
    tools = new ToolsCommands(this, actions, graphs, documents, writer, windowFiles);
    overlay = new OverlayCommands(this, (*actions)[ActionId::Overlay],
        {state, graphs, documents, windowFiles, new GraphExports(this, writer, windowFiles)});
    targets = std::make_unique<DeviceTargets>(ports, live.get());
    commands = new DeviceCommands(targets.get(), this);
    sounds = new SoundPlayer(this);
    endNotice = new EndNotice(this, ports, sounds, QCoreApplication::applicationDirPath());
    endNotice->connectHost(readerHost);
    auto *unseenEnds = new UnseenEnds(readerHost, endNotice, live.get(), facts, this);
    connect(graphs, SIGNAL(currentChanged()), unseenEnds, SLOT(look()));
    remoteControls = new RemoteControls(this, targets.get(), (*actions)[ActionId::RemoteControl]);
    sleepInhibitor = new SleepInhibitor([this] { return ports->isRecording(); }, this);
}

void MainWindow::createMenus()
{
    fileMenu = ShellMenus::fill(menuBar()->addMenu(tr("&File")), ShellMenus::file, *actions);
    windowMenu = menuBar()->addMenu(tr("&Window"));
    updateWindowMenu();
    ShellMenus::fill(menuBar()->addMenu(tr("&Print")), ShellMenus::print, *actions);
    toolsMenu = ShellMenus::fill(menuBar()->addMenu(tr("&Tools")), ShellMenus::tools, *actions);
    toolsMenu->setToolTipsVisible(true);
    ShellMenus::fill(toolsMenu->addMenu(tr("&View switches")), ShellMenus::view, *actions);
    menuBar()->addSeparator();
    helpMenu = ShellMenus::fill(menuBar()->addMenu(tr("&Help")), ShellMenus::help, *actions);
}

void MainWindow::createToolBars()
{
    mainToolBar = ShellMenus::createMainToolBar(this, *actions);
    addToolBar(dataToolBar);
}

void MainWindow::createStatusBar()
{
    statusBar()->showMessage(tr("Ready"));
}

void MainWindow::connectParts()
{
    connect(windowMapper, SIGNAL(mapped(QWidget*)), this, SLOT(setActiveSubWindow(QWidget*)));
    connect(windowMenu, SIGNAL(aboutToShow()), this, SLOT(updateWindowMenu()));
    connect(mdiArea, SIGNAL(subWindowActivated(QMdiSubWindow*)), this, SLOT(updateMenus()));
    connect(graphs, SIGNAL(recordShown(Varnel3Data,int,bool)), this, SLOT(showRecord(Varnel3Data,int,bool)));
    connect(graphs, SIGNAL(renumberNeeded()), this, SLOT(renumerateWindows()));
    connect(graphs, SIGNAL(selectedCellsChanged()), this, SLOT(updateVoltage()));
    connect(logbookHost,
        SIGNAL(overlayWanted(QStringList,QStringList)), overlay, SLOT(showFiles(QStringList,QStringList)));
    connect(logbookHost, SIGNAL(openWanted(QStringList)), this, SLOT(comeForward(QStringList)));
    connect(documents, SIGNAL(opened()), this, SLOT(renumerateWindows()));
    for (const QObject *teller : std::initializer_list<const QObject *>{
             graphs, documents, unsaved, tools, commands, readerHost, ports, logbookParts})
        connect(teller, SIGNAL(message(QString,int)), this, SLOT(showMessageStatusBar(QString,int)));
    connect(graphs, SIGNAL(currentChanged()), this, SLOT(updateMenus()));
    connect(graphs, SIGNAL(currentChanged()), staleWatch, SLOT(look()));
    connect(graphs, SIGNAL(recordShown(Varnel3Data,int,bool)), staleWatch, SLOT(lookWhileStale()));
    connect(graphs, SIGNAL(opened()), switches, SLOT(enableViews()));
    connect(switches, SIGNAL(repaintNeeded()), this, SLOT(repaintAllWindows()));
    connect(switches, SIGNAL(switched()), this, SIGNAL(toolBarChanged()));
    connect(ports, SIGNAL(changed()), this, SLOT(listenedPortsChanged()));
    connect(ports, SIGNAL(changed()), remoteControls, SLOT(refresh()));
    // Queued: a new window is current before its reader is attached.
    connect(graphs, SIGNAL(currentChanged()), remoteControls, SLOT(refresh()), Qt::QueuedConnection);
    connect(toolsMenu, SIGNAL(aboutToShow()), remoteControls, SLOT(refresh()));
    connect(readerHost, SIGNAL(lost(QString)), watcher, SLOT(noteLost(QString)));
    connect(watcher, SIGNAL(arrived(PortInfo)), ports, SLOT(arrive(PortInfo)));
    connect(watcher, SIGNAL(removed(PortInfo)), ports, SLOT(leave(PortInfo)));
    const auto menus = menuBar()->findChildren<QMenu *>();
    for (QMenu *menu : menus) // after what fills them
        new MenuMnemonics(menu);
    connect(new FileDrops(this), SIGNAL(dropped(QStringList)), this, SLOT(openFiles(QStringList)));
}

void MainWindow::readSettings()
{
    const VarnelSettings settings;
    ShellPlace::restore(this, settings);
    displays->readPlaces(settings);
    actions->setChecked(ActionId::DistinctLines, settings.value(SettingsKey::distinctLines).toBool());
    settings.value(SettingsKey::blackBackground, true).toBool() ? setBlackBack() : setWhiteBack();
}

void MainWindow::writeSettings() const
{
    VarnelSettings settings;
    ShellPlace::save(*this, &settings);
    settings.setValue(SettingsKey::blackBackground, state->switches().blackBackground);
    settings.setValue(SettingsKey::distinctLines, state->switches().distinctLines);
    displays->writePlaces(&settings);
    overlay->writePlace(&settings);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if ((!unsaved->isHeld() && !logbookParts->mayClose()) || !unsaved->mayCloseAll()) {
        event->ignore();
        return;
    }
    ports->readRest();
    logbookHost->close();
    writeSettings();
    documents->cancelOpening();
    graphs->setEnding();
    mdiArea->closeAllSubWindows();
    ports->closeAll();
}

void MainWindow::resizeEvent(QResizeEvent *)
{
    dataToolBar->fitTo(width());
    ShellMenus::fitToolBars(this, mainToolBar, dataToolBar);
}

MdiGraphChild *MainWindow::activeMdiChild() const
{
    return graphs->current();
}

int MainWindow::activeWindowNumber() const
{
    return graphs->currentNumber();
}

QList<MdiGraphChild *> MainWindow::mdiChildren() const
{
    return graphs->all();
}

MdiGraphChild *MainWindow::createMdiChild()
{
    return graphs->create();
}
