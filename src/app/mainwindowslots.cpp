#include "app/mainwindow.h"

#include "app/actionset.h"
#include "app/explanations.h"
#include "app/tools/logbookparts.h"
#include "app/shellmenus.h"
#include "app/viewswitchboard.h"
#include "desk/deskarea.h"
#include "desk/displaywindows.h"
#include "desk/graphwindows.h"
#include "desk/shownrecord.h"
#include "desk/statusfacts.h"
#include "desk/windowfiles.h"
#include "desk/windowplace.h"
#include "devices/devicecommands.h"
#include "devices/endnotice.h"
#include "devices/listenedports.h"
#include "dialogs/about.h"
#include "dialogs/dialogpreferences.h"
#include "documents/documents.h"
#include "documents/graphprinting.h"
#include "graph/mdigraphchild.h"
#include "ports/portinfo.h"
#include "settings/messagetime.h"
#include "settings/varnelsettings.h"

#include <QCoreApplication>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStatusBar>

// The slots that the interface names. Each hands its work to the part that does it.

void MainWindow::setWhiteBack()
{
    mdiArea->setBlack(false);
    switches->setBlackBackground(false);
}

void MainWindow::setBlackBack()
{
    mdiArea->setBlack(true);
    switches->setBlackBackground(true);
}

void MainWindow::updateMenus()
{
    actions->enableWindowCommands(activeMdiChild() != nullptr);
}

void MainWindow::updateWindowMenu()
{
    ShellMenus::SubMenus menus
        = ShellMenus::fillWindowMenu(windowMenu, *actions, mdiArea->currentSubWindow());
    backgroundMenu = std::move(menus.background);
    frameMenu = std::move(menus.frame);
}

void MainWindow::printCapComp()
{
    displays->printCapacity();
}

void MainWindow::printVolComp()
{
    displays->printVoltage();
}

void MainWindow::printBarDisplay()
{
    displays->printPower();
}

void MainWindow::printActivePlot()
{
    if (MdiGraphChild *child = activeMdiChild())
        printGraph(child, windowFiles->nameFor(child), this);
    else
        showMessageStatusBar(tr("There is no graph window to print."), usualMessageTime);
}

void MainWindow::startRecording()
{
    ports->startRecording();
}

void MainWindow::stopRecording()
{
    ports->stopRecording();
}

void MainWindow::updateData(Varnel3Data &record, int nrWin, bool updateRic)
{
    showRecord(record, nrWin, updateRic);
}

void MainWindow::showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi)
{
    const QMutexLocker lock(&dataMutex);
    shownRecord->show(record, windowNumber, useKeptRi);
}

void MainWindow::showMessageStatusBar(QString message, int timeout)
{
    statusBar()->showMessage(message, timeout);
}

void MainWindow::repaintAllWindows()
{
    graphs->repaintAll();
}

void MainWindow::renumerateWindows()
{
    displays->showVoltage(false); // its switch stays
    graphs->renumber();
    if (graphs->isEmpty()) {
        switches->disableViews();
    } else if (actions->isChecked(ActionId::Graph)) {
        displays->showVoltage(true, DisplayWindows::LeavesKeyboard);
    }
    repaintAllWindows();
}

void MainWindow::updateCapacity(int, char, int, int) { }

void MainWindow::updateVoltage()
{
    displays->updateVoltage();
}

void MainWindow::onPlayUserMP3()
{
    endNotice->playUserSound();
}

void MainWindow::endProcess(int mPlayEndId)
{
    endNotice->show(mPlayEndId);
}

void MainWindow::endProcessMessage()
{
    const QMutexLocker lock(&dataMutex);
    endNotice->dismiss();
}

void MainWindow::openFile()
{
    documents->openDialog();
}

// Those that come with the start wait for it: what it tells would hide why a file can't be opened.
void MainWindow::openFiles(const QStringList &files)
{
    if (started)
        documents->open(files);
    else
        filesAtStart += files;
}

void MainWindow::comeForward(const QStringList &files)
{
    WindowPlace::bringForward(this);
    openFiles(files);
}

void MainWindow::saveFile()
{
    if (MdiGraphChild *child = activeMdiChild())
        documents->saveDialog(child);
}

void MainWindow::saveSesion() { }

void MainWindow::about()
{
    About(this).exec();
}

void MainWindow::sendTime()
{
    commands->setTime();
}

void MainWindow::preferences()
{
    DialogPreferences dialog(this);
    if (dialog.exec() == QDialog::Accepted)
        ports->synchronise(VarnelSettings().ports());
}

void MainWindow::setActiveSubWindow(QWidget *window)
{
    if (auto *subWindow = qobject_cast<QMdiSubWindow *>(window))
        mdiArea->setActiveSubWindow(subWindow);
}

void MainWindow::recording()
{
    ports->pauseOrResume();
}

void MainWindow::recording(bool start)
{
    ports->setListening(start);
    if (start)
        startRecording();
    else
        stopRecording();
}

void MainWindow::toolBarData(bool checked)
{
    switches->showData(checked);
}

void MainWindow::toolBarBarGraph(bool checked)
{
    switches->showBarGraph(checked);
}

void MainWindow::toolBarGraph(bool checked)
{
    switches->showGraph(checked);
}

void MainWindow::toolBarTemp(bool)
{
    switches->showCurve();
}

void MainWindow::toolBarDelta(bool checked)
{
    switches->cycleDelta(checked);
}

void MainWindow::toolBarRw(bool)
{
    switches->showCurve();
}

void MainWindow::toolBarBalancer(bool checked)
{
    switches->switchBalancer(checked);
}

void MainWindow::toolBarAvg(bool checked)
{
    switches->switchAverage(checked);
}

void MainWindow::toolBarSelectedCells()
{
    switches->cycleCells();
}

void MainWindow::toolBarPower(bool checked)
{
    switches->showPower(checked);
}

void MainWindow::toolBarEnergy(bool)
{
    switches->cycleEnergy(activeMdiChild() ? activeWindowNumber() : -1);
}

void MainWindow::recordingOnStart()
{
    showMessageStatusBar(tr("Start listening on ports..."));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    recording(true);
    started = true;
    documents->open(filesAtStart);
    logbookParts->open();
}

void MainWindow::toolBarStop()
{
    commands->stopProcess();
}

void MainWindow::explain()
{
    showExplanations(this, *facts, activeMdiChild());
}

void MainWindow::onDeviceDiscovered(QSerialPortInfo portInfo)
{
    ports->arrive({portInfo.portName(), portInfo.description(), QString()});
}

void MainWindow::onDeviceRemoved(QSerialPortInfo portInfo)
{
    ports->leave({portInfo.portName(), portInfo.description(), QString()});
}

void MainWindow::listenedPortsChanged()
{
    mdiArea->tellPorts(ports->portNames());
    actions->showPaused(ports->paused());
}
