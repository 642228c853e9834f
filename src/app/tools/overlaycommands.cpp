#include "app/tools/overlaycommands.h"

#include "app/tools/overlaylabel.h"
#include "data/systemmemory.h"
#include "desk/graphwindows.h"
#include "desk/windowfiles.h"
#include "desk/windowplace.h"
#include "documents/documents.h"
#include "documents/filequeue.h"
#include "documents/graphexports.h"
#include "documents/graphfile.h"
#include "documents/progressstrip.h"
#include "graph/mdigraphchild.h"
#include "overlay/overlayplot.h"
#include "overlay/overlaywindow.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "widgets/displayscale.h"
#include "widgets/warningbox.h"

#include <QAction>
#include <QDir>
#include <QStatusBar>

#include <new>

namespace {

constexpr QSize overlaySize(960, 600);
constexpr QPoint overlayPlace(160, 90);
constexpr int bytesOfPoint = 40; // of a course

/// Of one with records.
double durationOf(const SeriesStore &store)
{
    return store.record(store.size() - 1).time;
}

} // namespace

OverlayCommands::OverlayCommands(QWidget *shell, const QAction *action, const Parts &parts)
    : QObject(shell)
    , m_shell(shell)
    , m_parts(parts)
{
    connect(action, SIGNAL(triggered()), this, SLOT(open()));
    connect(m_parts.exports, SIGNAL(message(QString,int)), this, SLOT(onMessage(QString,int)));
}

void OverlayCommands::show()
{
    if (!m_window) {
        m_window = new OverlayWindow(m_parts.state, m_shell);
        auto *strip = new ProgressStrip(m_window->statusBar());
        m_queue = new FileQueue(strip, m_window);
        connect(m_queue,
            SIGNAL(loaded(QString,SeriesStore*,FileStamp)), this, SLOT(onLoaded(QString,SeriesStore*)));
        connect(m_queue, SIGNAL(finished(QStringList,int)), this, SLOT(onFinished(QStringList)));
        connect(m_queue, SIGNAL(message(QString,int)), this, SLOT(onMessage(QString,int)));
        connect(m_window, SIGNAL(filesWanted()), this, SLOT(addFiles()));
        connect(m_window, SIGNAL(windowsWanted()), this, SLOT(showWindows()));
        connect(m_window, SIGNAL(pictureWanted()), this, SLOT(savePicture()));
        connect(m_window, SIGNAL(closed()), this, SLOT(onClosed()));
        WindowPlace::restore(m_window, SettingsKey::overlayGroup, VarnelSettings(),
            QSize(scaled(overlaySize.width()), scaled(overlaySize.height())), overlayPlace);
    }
    WindowPlace::bringForward(m_window);
}

// What is shown stays: it may have taken some pains.
void OverlayCommands::open()
{
    if (m_window && m_window->isVisible() && !m_window->plot()->shown().entries.isEmpty())
        show();
    else
        showWindows();
}

void OverlayCommands::showWindows()
{
    m_entries.clear();
    const QList<MdiGraphChild *> all = m_parts.graphs->all();
    int count = 0;
    for (const MdiGraphChild *child : all) {
        const SeriesStore &store = child->store();
        if (store.isEmpty() || ++count > OverlayRequest::mostEntries)
            continue;
        // What is named by a journal is not looked for, nor is what was never saved.
        const QString name = overlayLabel(m_parts.windowFiles->nameFor(child), durationOf(store));
        add(store, QStringLiteral("%1: %2").arg(child->windowNumber()).arg(name));
    }
    show();
    m_window->plot()->setEntries(m_entries);
    tellIfTooMany(count);
}

void OverlayCommands::showFiles(const QStringList &files, const QStringList &labels)
{
    m_entries.clear();
    m_labels.clear();
    for (int i = 0; i < files.size(); ++i)
        m_labels.insert(files[i], labels.value(i));
    show();
    m_window->plot()->setEntries(m_entries);
    read(files);
}

void OverlayCommands::addFiles()
{
    const QStringList files = m_parts.documents->chooseFiles(m_window);
    m_entries = m_window->plot()->shown().entries; // some may have been removed or moved
    read(files);
}

void OverlayCommands::read(const QStringList &files)
{
    const int room = OverlayRequest::mostEntries - m_entries.size();
    m_wanted = m_entries.size() + files.size();
    m_queue->add(files.mid(0, room));
}

void OverlayCommands::tellIfTooMany(int count)
{
    if (count > OverlayRequest::mostEntries)
        m_window->statusBar()->showMessage(
            tr("No more than %1 recordings are shown.").arg(OverlayRequest::mostEntries));
}

void OverlayCommands::add(const SeriesStore &store, const QString &label)
{
    try {
        demandMemory(qint64(store.size()) * bytesOfPoint);
        m_entries.append({std::make_shared<const OverlayCourse>(store), label.simplified(), 0.0});
    } catch (const std::bad_alloc &) {
        m_failures.append(label + QStringLiteral(": ") + tr("not enough memory"));
    }
}

void OverlayCommands::onLoaded(const QString &fileName, SeriesStore *store)
{
    if (store->isEmpty()) {
        m_failures.append(QDir::toNativeSeparators(fileName) + QStringLiteral(": ") + tr("no records"));
        return;
    }
    const QString label = m_labels.value(fileName);
    add(*store, label.isEmpty() ? overlayLabel(fileName, durationOf(*store)) : label);
}

void OverlayCommands::onFinished(const QStringList &failures)
{
    m_window->plot()->setEntries(m_entries);
    m_failures = failures + m_failures;
    if (!m_failures.isEmpty())
        showWarningBox(m_window, "overlayFailures", tr("Overlay"), m_failures.join(QLatin1Char('\n')));
    m_failures.clear();
    tellIfTooMany(m_wanted); // reading has its own messages
}

void OverlayCommands::onMessage(const QString &text, int timeout)
{
    if (m_window)
        m_window->statusBar()->showMessage(text, timeout);
}

void OverlayCommands::savePicture()
{
    const QWidget &plot = *m_window->plot();
    const OverlayRequest picture
        = m_window->plot()->picture(plot.size(), m_parts.state->switches().blackBackground);
    m_parts.exports->pictureDialog(
        {plot.size(), [picture](QPainter *painter) { OverlayWindow::paint(painter, picture); }},
        QStringLiteral("overlay"), m_window);
}

void OverlayCommands::onClosed()
{
    m_queue->cancel();
    VarnelSettings settings;
    writePlace(&settings);
    m_entries.clear();
    m_window->plot()->setEntries(m_entries);
}

void OverlayCommands::writePlace(VarnelSettings *settings) const
{
    if (m_window)
        WindowPlace::save(*m_window, SettingsKey::overlayGroup, settings);
}
