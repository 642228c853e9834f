#include "app/tools/logbookhost.h"

#include "app/tools/logbookparts.h"
#include "desk/windowplace.h"
#include "documents/choosing/dialogplaces.h"
#include "documents/graphexports.h"
#include "documents/graphfile.h"
#include "journal/journalfolder.h"
#include "logbook/logbook.h"
#include "logbook/logbookcsv.h"
#include "logbook/window/course/coursepanel.h"
#include "logbook/window/dialogs/foldersdialog.h"
#include "logbook/window/logbookwindow.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"
#include "widgets/displayscale.h"

#include <QAction>
#include <QFileDialog>
#include <QStatusBar>

namespace {

constexpr QSize logbookSize(1260, 760);
constexpr QPoint logbookPlace(60, 40);

} // namespace

LogbookHost::LogbookHost(const Works &works, const QAction *action, QObject *parent)
    : QObject(parent)
    , m_works(works)
{
    connect(action, SIGNAL(triggered()), this, SLOT(show()));
}

LogbookHost::~LogbookHost() = default;

void LogbookHost::create()
{
    const LogbookParts &parts = *m_works.logbook;
    m_window = std::make_unique<LogbookWindow>(
        LogbookCommands::Parts{parts.logbook(), parts.editor(), parts.reader()}, m_works.state,
        JournalFolder::defaultPath());
    m_exports = new GraphExports(m_window.get(), m_works.writer, m_works.windowFiles);
    connect(m_exports, SIGNAL(message(QString,int)), m_window->statusBar(), SLOT(showMessage(QString,int)));
    connect(m_window.get(), SIGNAL(openWanted(QStringList)), this, SIGNAL(openWanted(QStringList)));
    connect(m_window.get(),
        SIGNAL(overlayWanted(QStringList,QStringList)), this, SIGNAL(overlayWanted(QStringList,QStringList)));
    connect(m_window.get(), SIGNAL(tableWanted()), this, SLOT(writeTable()));
    connect(m_window.get(), SIGNAL(pictureWanted()), this, SLOT(writePicture()));
    connect(m_window.get(), SIGNAL(folderWanted(QWidget*)), this, SLOT(askFolder(QWidget*)));
    connect(m_window.get(), SIGNAL(closed()), this, SLOT(onClosed()));
    const VarnelSettings settings;
    m_window->readState(settings);
    const QSize size(scaled(logbookSize.width()), scaled(logbookSize.height()));
    WindowPlace::restore(m_window.get(), SettingsKey::logbookGroup, settings, size, logbookPlace);
}

void LogbookHost::show()
{
    if (!m_window)
        create();
    WindowPlace::bringForward(m_window.get());
}

void LogbookHost::close()
{
    if (m_window && m_window->isVisible())
        m_window->close();
}

void LogbookHost::onClosed()
{
    VarnelSettings settings;
    m_window->writeState(&settings);
    WindowPlace::save(*m_window, SettingsKey::logbookGroup, &settings);
}

void LogbookHost::writeTable()
{
    const QVector<qint64> ids = m_window->shownIds();
    m_exports->tableDialog(
        [this, ids] { return std::make_unique<LogbookCsv>(*m_works.logbook->logbook(), ids); },
        QStringLiteral("logbook"), m_window.get());
}

void LogbookHost::writePicture()
{
    const CourseChart chart = m_window->course().chart();
    const QSize size = m_window->course().pictureSize();
    m_exports->pictureDialog({size, [chart, size](QPainter *painter) { chart.paint(*painter, size); }},
        tr("pack course"), m_window.get());
}

void LogbookHost::askFolder(QWidget *dialog)
{
    const DialogPlaces places(JournalFolder::defaultPath());
    QFileDialog asking(dialog, tr("Folder of recordings"), places.first());
    asking.setFileMode(QFileDialog::Directory);
    asking.setOption(QFileDialog::ShowDirsOnly);
    if (asking.exec() == QDialog::Accepted)
        qobject_cast<FoldersDialog *>(dialog)->add(asking.selectedFiles().value(0));
}
