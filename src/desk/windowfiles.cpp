#include "desk/windowfiles.h"

#include "files/disk/lockedfile.h"
#include "journal/journalkeeper.h"
#include "graph/mdigraphchild.h"
#include "link/recordinglog.h"
#include "settings/varnelsettings.h"

#include <QFileInfo>

#include <utility>

WindowFiles::WindowFiles(QObject *parent)
    : QObject(parent)
    , m_keeper(new JournalKeeper(JournalFolder::defaultPath(), this))
{
    connect(m_keeper, SIGNAL(replaced(QString,QString)), this, SLOT(rename(QString,QString)));
    m_keeper->tidy(VarnelSettings().journalMaxAgeDays());
}

const JournalFolder &WindowFiles::folder() const
{
    return m_keeper->folder();
}

DiskSyncer &WindowFiles::syncer() const
{
    return m_keeper->syncer();
}

std::unique_ptr<RecordingLog> WindowFiles::begin(const QString &portName)
{
    m_begunName = folder().fileName(QDateTime::currentDateTime(), portName, 1);
    if (!VarnelSettings().journalEnabled())
        return nullptr;
    std::unique_ptr<RecordingLog> log = m_keeper->create(portName);
    m_begun = m_keeper->currentFile(portName);
    return log;
}

void WindowFiles::attach(const MdiGraphChild *child)
{
    m_names.insert(child, std::exchange(m_begunName, QString()));
    const QString fileName = std::exchange(m_begun, QString());
    if (!fileName.isEmpty())
        watch(child, fileName);
}

void WindowFiles::attachFile(const MdiGraphChild *child, const QString &fileName)
{
    watch(child, fileName);
}

QString WindowFiles::fileOf(const MdiGraphChild *child) const
{
    return m_files.value(child);
}

QString WindowFiles::nameFor(const MdiGraphChild *child) const
{
    const QString fileName = fileOf(child);
    const QString name = QFileInfo(fileName.isEmpty() ? m_names.value(child) : fileName).completeBaseName();
    return name.isEmpty() ? child->portName() : name;
}

bool WindowFiles::keepsAll(const MdiGraphChild *child) const
{
    const QString fileName = fileOf(child);
    return !fileName.isEmpty() && m_keeper->holdsAll(fileName);
}

// Only what lies in the folder is looked at: opening anything else might wait or have effects.
bool WindowFiles::isBeingRecorded(const QString &fileName) const
{
    const QFileInfo target(fileName);
    return target.isFile()
        && QFileInfo(target.canonicalFilePath()).path() == QFileInfo(folder().path()).canonicalFilePath()
        && isBeingWritten(target.canonicalFilePath());
}

void WindowFiles::noteClosed(const MdiGraphChild *child, bool unsaved)
{
    m_names.remove(child);
    const QString fileName = m_files.take(child);
    if (!unsaved || fileName.isEmpty())
        return;
    m_closed.append(fileName);
    emit closedChanged();
}

QString WindowFiles::takeClosed()
{
    QString fileName;
    while (fileName.isEmpty() && !m_closed.isEmpty()) {
        fileName = m_closed.takeLast();
        if (!QFileInfo::exists(fileName))
            fileName.clear();
    }
    emit closedChanged();
    return fileName;
}

void WindowFiles::forget(QObject *child)
{
    m_files.remove(child);
}

void WindowFiles::rename(const QString &fileName, const QString &newName)
{
    for (QString &name : m_files) {
        if (name == fileName)
            name = newName;
    }
    for (QString &name : m_closed) {
        if (name == fileName)
            name = newName;
    }
    emit renamed();
}

void WindowFiles::watch(const MdiGraphChild *child, const QString &fileName)
{
    m_files.insert(child, fileName);
    connect(child, SIGNAL(destroyed(QObject*)), this, SLOT(forget(QObject*)));
}
