#include "documents/unsavedwindows.h"

#include "documents/documents.h"
#include "documents/filewriter.h"
#include "desk/graphwindows.h"
#include "desk/windowfiles.h"
#include "files/datafilepieces.h"
#include "files/wholefile.h"
#include "journal/journalfolder.h"
#include "graph/mdigraphchild.h"
#include "settings/messagetime.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>

#include <algorithm>
#include <utility>

namespace {

constexpr int mostTries = 3; // to save all of a recording that goes on
constexpr int leastRecords = 2; // a file of fewer holds no data; a journal of fewer goes with its recording

QString nameOf(const MdiGraphChild *child)
{
    const QString name = QString::number(child->windowNumber());
    return child->portName().isEmpty() ? name
                                       : name + QStringLiteral(" (") + child->portName() + QLatin1Char(')');
}

/// Neither need exist. Systems differ on case: told apart by it alone they count as the same.
bool isSameFile(const QString &one, const QString &other)
{
    const QFileInfo first(one);
    const QFileInfo second(other);
    return (first.exists() && first == second)
        || first.absoluteFilePath().compare(second.absoluteFilePath(), Qt::CaseInsensitive) == 0;
}

} // namespace

UnsavedWindows::UnsavedWindows(
    QWidget *shell, GraphWindows *graphs, Documents *documents, WindowFiles *windowFiles, FileWriter *writer)
    : QObject(shell)
    , m_shell(shell)
    , m_graphs(graphs)
    , m_documents(documents)
    , m_windowFiles(windowFiles)
    , m_writer(writer)
{
    connect(m_writer, SIGNAL(finished(bool)), this, SLOT(onWritten(bool)));
}

bool UnsavedWindows::mayClose(MdiGraphChild *child)
{
    if (m_end == End::Held)
        return false;
    if (m_writer->isBusy()) {
        if (!m_waiting.contains(child))
            m_waiting.append(child);
        return false;
    }
    if (!m_settled && m_end == End::Unsaid && isInDanger(child) && !settle({child}, child->parentWidget()))
        return false;
    const bool reopenable
        = child->hasUnsavedData() && m_windowFiles->keepsAll(child) && child->store().size() >= leastRecords;
    if (reopenable) {
        const QString name = QFileInfo(m_windowFiles->fileOf(child)).fileName();
        emit message(
            tr("The recording is kept as %1: Tools > Reopen closed recording.").arg(name), usualMessageTime);
    }
    m_windowFiles->noteClosed(child, reopenable);
    return true;
}

bool UnsavedWindows::mayCloseAll()
{
    if (m_end != End::Unsaid)
        return m_end == End::Released;
    m_shellWaits = m_writer->isBusy();
    if (m_shellWaits) {
        emit message(tr("The program closes when the file is written. Cancel gives the file up."), 0);
        return false;
    }
    return m_settled || settle(endangered(), m_shell);
}

void UnsavedWindows::rescueAll()
{
    const QList<MdiGraphChild *> children = endangered();
    for (MdiGraphChild *child : children)
        rescue(child, rescueFolders());
}

void UnsavedWindows::rescueAtOnce()
{
    const QList<MdiGraphChild *> children = endangered();
    const QStringList folders = rescueFolders();
    for (MdiGraphChild *child : children) {
        for (const QString &folder : folders) {
            QDir().mkpath(folder);
            DataFilePieces lines(child->store().records(), child->store().markedFrom());
            if (writeWholeFile(nameToRescue(child, folder), lines).written)
                break;
        }
    }
}

QStringList UnsavedWindows::rescueFolders() const
{
    return {m_windowFiles->folder().path(), QDir::homePath(), QDir::tempPath()};
}

void UnsavedWindows::rescue(MdiGraphChild *child, QStringList folders)
{
    if (folders.isEmpty()) {
        qWarning() << "The recording in window" << nameOf(child) << "could not be kept.";
        return;
    }
    const QString folder = folders.takeFirst();
    QDir().mkpath(folder);
    const QString fileName = nameToRescue(child, folder);
    auto lines = std::make_unique<DataFilePieces>(child->store().records(), child->store().markedFrom());
    const int count = lines->recordCount();
    m_writer->add(fileName, std::move(lines), [=](const WriteOutcome &outcome) {
        if (outcome.written)
            child->markSaved(fileName, count);
        else if (!outcome.cancelled)
            rescue(child, folders);
    });
}

// As a journal is called, so that it is found where journals are; the window's own may be there and lack
// lines. A later rescue of the same window has all that the earlier one had.
QString UnsavedWindows::nameToRescue(MdiGraphChild *child, const QString &folder)
{
    const auto isTaken = [this](const QString &name) {
        return QFileInfo::exists(name)
            || std::any_of(m_rescues.cbegin(), m_rescues.cend(),
                [&name](const Rescue &rescue) { return rescue.fileName == name; });
    };
    const auto before = std::find_if(m_rescues.cbegin(), m_rescues.cend(), [&](const Rescue &rescue) {
        return rescue.child == child && QFileInfo(rescue.fileName).path() == folder;
    });
    if (before != m_rescues.cend())
        return before->fileName;
    const QString base = folder + QLatin1Char('/') + m_windowFiles->nameFor(child);
    const QString ending = QStringLiteral(".acp");
    QString name = base + ending;
    for (int attempt = 2; isTaken(name); ++attempt)
        name = base + QLatin1Char('_') + QString::number(attempt) + ending;
    m_rescues.append({child, name});
    return name;
}

QList<MdiGraphChild *> UnsavedWindows::endangered() const
{
    QList<MdiGraphChild *> children = m_graphs->all();
    children.erase(std::remove_if(children.begin(), children.end(),
                       [this](const MdiGraphChild *child) { return !isInDanger(child); }),
        children.end());
    return children;
}

// Fewer records than make a file go with their window, as they do with their journal.
bool UnsavedWindows::isInDanger(const MdiGraphChild *child) const
{
    return child->hasUnsavedData() && child->store().size() >= leastRecords
        && !m_windowFiles->keepsAll(child);
}

// All is asked before anything is saved: lines go on arriving in the window that was asked about first.
bool UnsavedWindows::settle(const QList<MdiGraphChild *> &children, QWidget *closing)
{
    QVector<Pending> all;
    for (MdiGraphChild *child : children)
        all.append({child, QString()});
    for (Pending &one : all) {
        const Answer answer = one.child ? ask(one.child) : Discard;
        if (answer == Cancel || (answer == Save && !askName(&one, all)))
            return false;
    }
    all.erase(
        std::remove_if(all.begin(), all.end(), [](const Pending &one) { return one.fileName.isEmpty(); }),
        all.end());
    if (all.isEmpty())
        return true;
    m_saves = all;
    m_closing = closing;
    saveNext();
    return false;
}

void UnsavedWindows::saveNext()
{
    if (m_saves.isEmpty())
        closeSettled();
    else if (m_saves.first().child)
        m_documents->save(
            m_saves.first().child, m_saves.first().fileName, [this](bool saved) { onSaved(saved); });
    else
        onSaved(true);
}

// Lines go on arriving while a long file is written, too.
void UnsavedWindows::onSaved(bool saved)
{
    if (!saved) {
        m_saves.clear();
        return;
    }
    Pending &one = m_saves.first();
    const bool again = one.child && isInDanger(one.child) && ++one.tries < mostTries;
    if (!again)
        m_saves.removeFirst();
    saveNext();
}

void UnsavedWindows::closeSettled()
{
    m_settled = true;
    if (m_closing)
        m_closing->close();
    m_settled = false;
}

// What failed is told in a box, which is not to go with the program.
void UnsavedWindows::onWritten(bool good)
{
    const QVector<QPointer<MdiGraphChild>> waiting = std::exchange(m_waiting, {});
    for (const QPointer<MdiGraphChild> &child : waiting)
        if (child)
            child->parentWidget()->close();
    if (std::exchange(m_shellWaits, false) && good)
        m_shell->close();
}

// The first of two recordings under one name would be lost, and not asked about: its file is not there yet.
bool UnsavedWindows::askName(Pending *one, const QVector<Pending> &all)
{
    for (;;) {
        const QString name = m_documents->askSaveName(one->child);
        const bool taken = std::any_of(all.begin(), all.end(),
            [&name](const Pending &other) { return isSameFile(other.fileName, name); });
        if (!taken || name.isEmpty()) {
            one->fileName = name;
            return !name.isEmpty();
        }
        QMessageBox box(QMessageBox::Warning, tr("Recording"),
            tr("Another of the windows is about to be saved as %1.").arg(QDir::toNativeSeparators(name)),
            QMessageBox::Ok, m_shell);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    }
}

UnsavedWindows::Answer UnsavedWindows::ask(const MdiGraphChild *child)
{
    QMessageBox box(QMessageBox::Question, tr("Recording"),
        tr("The recording in window %1 is not saved.").arg(nameOf(child)),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, m_shell);
    box.setObjectName(QStringLiteral("unsavedRecording"));
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(m_windowFiles->fileOf(child).isEmpty()
            ? tr("Nothing else keeps it. Save it before its window closes?")
            : tr("The journal could not keep all of it. Save it before its window closes?"));
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    return answer == QMessageBox::Save ? Save : answer == QMessageBox::Discard ? Discard : Cancel;
}
