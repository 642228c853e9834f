#include "logbook/window/logbookcommands.h"

#include "files/disk/lockedfile.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookreader.h"
#include "logbook/window/logbookactions.h"
#include "logbook/window/dialogs/notedialog.h"
#include "logbook/window/dialogs/packchoice.h"
#include "logbook/window/dialogs/packdialog.h"
#include "logbook/window/table/recordingcolumns.h"
#include "widgets/warningbox.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace {

constexpr int messageTime = 5000; // ms

} // namespace

LogbookCommands::LogbookCommands(const Parts &parts, const LogbookActions *actions, QWidget *window)
    : QObject(window)
    , m_parts(parts)
    , m_actions(actions)
    , m_window(window)
    , m_pack(LogbookFilter::everyPack)
    , m_jobs(this)
{
    struct Served {
        LogbookCommand id;
        const char *slot;
    };
    const Served all[] = {{LogbookCommand::Open, SLOT(open())},
        {LogbookCommand::Overlay, SLOT(overlay())},
            {LogbookCommand::ShowInFolder, SLOT(showInFolder())},
                {LogbookCommand::Note, SLOT(editNote())},
                    {LogbookCommand::DeleteFiles, SLOT(deleteFiles())},
                        {LogbookCommand::RemoveRows, SLOT(removeRows())},
                            {LogbookCommand::Assign, SLOT(assign())},
                                {LogbookCommand::AssignOffered, SLOT(assignOffered())},
                                    {LogbookCommand::Unassign, SLOT(unassign())},
                                        {LogbookCommand::NewPack, SLOT(newPack())},
                                            {LogbookCommand::ChangePack, SLOT(changePack())},
                                                {LogbookCommand::MergePacks, SLOT(mergePacks())},
                                                    {LogbookCommand::TakeApart, SLOT(takeApart())},
                                                        {LogbookCommand::RemovePack, SLOT(removePack())}};
    for (const Served &served : all)
        connect((*m_actions)[served.id], SIGNAL(triggered()), this, served.slot);
    connect((*m_actions)[LogbookCommand::Undo], SIGNAL(triggered()), m_parts.editor, SLOT(undo()));
    connect((*m_actions)[LogbookCommand::Redo], SIGNAL(triggered()), m_parts.editor, SLOT(redo()));
    connect(m_parts.editor, SIGNAL(changed()), this, SLOT(refresh()));
    connect(m_parts.logbook, SIGNAL(troubleChanged()), this, SLOT(refresh()));
}

void LogbookCommands::choose(const QVector<qint64> &recordings, qint64 pack)
{
    m_recordings = recordings;
    m_pack = pack;
    refresh();
}

QStringList LogbookCommands::presentFiles() const
{
    QStringList files;
    for (const qint64 id : m_recordings) {
        const LogbookRecording *recording = m_parts.logbook->recording(id);
        if (recording && !recording->isGone)
            files.append(recording->file);
    }
    return files;
}

bool LogbookCommands::anyGone() const
{
    return std::any_of(m_recordings.begin(), m_recordings.end(), [this](qint64 id) {
        const LogbookRecording *recording = m_parts.logbook->recording(id);
        return recording && recording->isGone;
    });
}

// Of those chosen recordings that have none, each pack once.
QVector<qint64> LogbookCommands::offeredPacks() const
{
    const QHash<qint64, qint64> offered = m_parts.logbook->packsToOffer(m_recordings);
    QVector<qint64> packs;
    for (const qint64 pack : offered)
        if (!packs.contains(pack))
            packs.append(pack);
    return packs;
}

void LogbookCommands::refresh()
{
    offerRecordings();
    offerPacks();
    offerUndo();
}

void LogbookCommands::offerRecordings()
{
    const QString none = m_recordings.isEmpty() ? tr("No recording is chosen.") : QString();
    const bool present = m_recordings.isEmpty() || !presentFiles().isEmpty();
    const QString noFile = present ? none : tr("The files of the chosen recordings have gone.");
    m_actions->offer(LogbookCommand::Open, noFile);
    m_actions->offer(LogbookCommand::Overlay, noFile);
    m_actions->offer(LogbookCommand::ShowInFolder, noFile);
    m_actions->offer(LogbookCommand::DeleteFiles, noFile);
    const QString kept
        = m_parts.logbook->isReadOnly() ? tr("The logbook can't be kept: nothing can be changed.") : none;
    m_actions->offer(LogbookCommand::Note,
        kept.isEmpty() && m_recordings.size() > 1 ? tr("More than one recording is chosen.") : kept);
    m_actions->offer(LogbookCommand::Assign, kept);
    m_actions->offer(LogbookCommand::Unassign, kept);
    m_actions->offer(LogbookCommand::RemoveRows,
        kept.isEmpty() && !anyGone() ? tr("The files of the chosen recordings are there.") : kept);
    const QVector<qint64> offered = offeredPacks();
    QAction *action = (*m_actions)[LogbookCommand::AssignOffered];
    action->setText(offered.size() == 1 ? tr("Assign to %1").arg(m_parts.logbook->packName(offered[0]))
                                        : tr("Assign to offered pack"));
    m_actions->offer(LogbookCommand::AssignOffered,
        kept.isEmpty() && offered.isEmpty() ? tr("No pack is offered for the chosen recordings.") : kept);
}

void LogbookCommands::offerPacks()
{
    const QString kept = m_parts.logbook->isReadOnly()
        ? tr("The logbook can't be kept: nothing can be changed.")
        : QString();
    const bool isPack = m_parts.logbook->pack(m_pack) != nullptr;
    const QString one = kept.isEmpty() && !isPack ? tr("No pack is chosen on the left.") : kept;
    m_actions->offer(LogbookCommand::NewPack, kept);
    m_actions->offer(LogbookCommand::ChangePack, one);
    m_actions->offer(LogbookCommand::RemovePack, one);
    m_actions->offer(LogbookCommand::MergePacks,
        one.isEmpty() && m_parts.logbook->packs().size() < 2 ? tr("There is no other pack.") : one);
    m_actions->offer(LogbookCommand::TakeApart,
        one.isEmpty() && m_recordings.isEmpty() ? tr("No recording of the pack is chosen.") : one);
}

void LogbookCommands::offerUndo()
{
    const LogbookEditor &editor = *m_parts.editor;
    const auto name = [](const QString &command, const QString &what) {
        return what.isEmpty() ? command : command + QStringLiteral(": ") + what;
    };
    (*m_actions)[LogbookCommand::Undo]->setText(name(tr("Undo"), editor.undoText()));
    (*m_actions)[LogbookCommand::Redo]->setText(name(tr("Redo"), editor.redoText()));
    m_actions->offer(LogbookCommand::Undo, editor.canUndo() ? QString() : tr("Nothing has been changed."));
    m_actions->offer(LogbookCommand::Redo, editor.canRedo() ? QString() : tr("Nothing has been taken back."));
}

// All rows are chosen by one key.
bool LogbookCommands::mayOpen(int count) const
{
    constexpr int few = 20;
    return count <= few
        || QMessageBox::question(
               m_window, tr("Open"), tr("Open %n recording(s), each in a window of its own?", nullptr, count))
        == QMessageBox::Yes;
}

void LogbookCommands::open()
{
    const QStringList files = presentFiles();
    if (!files.isEmpty() && mayOpen(files.size()))
        emit openWanted(files);
}

void LogbookCommands::overlay()
{
    QStringList files;
    QStringList labels;
    for (const qint64 id : qAsConst(m_recordings)) {
        const LogbookRecording *recording = m_parts.logbook->recording(id);
        if (!recording || recording->isGone)
            continue;
        files.append(recording->file);
        labels.append(RecordingColumns::label(*m_parts.logbook, *recording));
    }
    emit overlayWanted(files, labels);
}

void LogbookCommands::showInFolder()
{
    const QString folder = QFileInfo(presentFiles().value(0)).path();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        showWarningBox(m_window, "noFolder", tr("Show in folder"),
            tr("No program shows the folder:") + QLatin1Char('\n') + QDir::toNativeSeparators(folder));
}

void LogbookCommands::editNote()
{
    const LogbookRecording *recording = m_parts.logbook->recording(m_recordings.value(0));
    if (!recording)
        return;
    const qint64 id = recording->id; // the choice may change meanwhile
    NoteDialog dialog(RecordingColumns::label(*m_parts.logbook, *recording), recording->note, m_window);
    if (dialog.exec() == QDialog::Accepted)
        m_parts.editor->setNote(id, dialog.note());
}

void LogbookCommands::deleteFiles()
{
    QStringList files = presentFiles();
    const auto isLeaving = [this](const QString &file) { return m_leaving.contains(file); };
    files.erase(std::remove_if(files.begin(), files.end(), isLeaving), files.end());
    if (files.isEmpty() || !isDeletionWanted(files))
        return;
    for (const QString &file : qAsConst(files))
        m_leaving.insert(file);
    moveToBin(files);
}

bool LogbookCommands::isDeletionWanted(const QStringList &files)
{
    QMessageBox box(QMessageBox::Question, tr("Delete file"),
        tr("Move %n file(s) to the waste bin? The rows stay in the logbook.", nullptr, files.size()),
        QMessageBox::Cancel, m_window);
    box.setObjectName(QStringLiteral("deleteFiles"));
    QStringList names;
    for (const QString &file : files)
        names.append(QDir::toNativeSeparators(file));
    if (names.size() == 1)
        box.setInformativeText(names.first());
    else
        box.setDetailedText(names.join(QLatin1Char('\n')));
    box.setTextFormat(Qt::PlainText);
    const QPushButton *sure = box.addButton(tr("Move to waste bin"), QMessageBox::AcceptRole);
    box.exec();
    return box.clickedButton() == sure;
}

/// Some at a time, so that one sees how far it is. The disk may be slow, and does not answer at all now and
/// then.
void LogbookCommands::moveToBin(const QStringList &files)
{
    struct Moved {
        QStringList done;
        QStringList failed;
        QStringList rest;
    };
    tellMoved();
    m_jobs.run(
        [files, time = m_parts.binTime] {
            Moved moved{{}, {}, files};
            const QDeadlineTimer slice(time);
            do {
                const QString file = moved.rest.takeFirst();
                (discardUnlessWritten(file) ? moved.done : moved.failed).append(file);
            } while (!moved.rest.isEmpty() && !slice.hasExpired());
            return moved;
        },
        [this](const Moved &moved) {
            if (!moved.rest.isEmpty())
                moveToBin(moved.rest);
            takeMoved(moved.done, moved.failed);
        });
}

void LogbookCommands::takeMoved(const QStringList &moved, const QStringList &failed)
{
    const QStringList looked = moved + failed;
    for (const QString &file : looked)
        m_leaving.remove(file);
    for (const QString &file : failed)
        m_failed.append(QDir::toNativeSeparators(file));
    m_moved += moved.size();
    m_parts.reader->look(looked);
    tellMoved();
    if (!m_leaving.isEmpty())
        return;
    m_moved = 0;
    const QStringList unmoved = std::exchange(m_failed, {});
    if (!unmoved.isEmpty())
        showWarningBox(m_window, "notDeleted", tr("Delete file"),
            tr("%n file(s) could not be moved to the waste bin: being recorded, or there is no bin for the "
               "disk.",
                nullptr, unmoved.size()),
            unmoved.join(QLatin1Char('\n')));
}

void LogbookCommands::tellMoved()
{
    const int total = m_moved + m_failed.size() + m_leaving.size();
    if (m_leaving.isEmpty())
        emit message(tr("%n file(s) moved to the waste bin.", nullptr, m_moved), messageTime);
    else
        emit message(tr("%1 of %n file(s) moved to the waste bin", nullptr, total).arg(m_moved), 0);
}

void LogbookCommands::removeRows()
{
    QVector<qint64> gone;
    for (const qint64 id : qAsConst(m_recordings)) {
        const LogbookRecording *recording = m_parts.logbook->recording(id);
        if (recording && recording->isGone)
            gone.append(id);
    }
    m_parts.editor->removeRecordings(gone);
}

LogbookPack LogbookCommands::packLikeChosen() const
{
    LogbookPack pack;
    if (const LogbookRecording *recording = m_parts.logbook->recording(m_recordings.value(0))) {
        pack.cellType = recording->figures.cellType;
        pack.cells = recording->figures.cells;
    }
    return pack;
}

// Those of its chemistry and cells first.
QVector<qint64> LogbookCommands::packsLike(const LogbookPack &like, qint64 without) const
{
    QVector<qint64> fitting;
    QVector<qint64> others;
    for (const LogbookPack &pack : m_parts.logbook->packs())
        if (pack.id != without)
            (pack.cellType == like.cellType && pack.cells == like.cells ? fitting : others).append(pack.id);
    return fitting + others;
}

void LogbookCommands::assign()
{
    const QVector<qint64> ids = m_recordings;
    const LogbookPack like = packLikeChosen();
    PackChoice::Question question;
    question.title = tr("Assign to pack");
    question.text = tr("Pack of the %n chosen recording(s):", nullptr, ids.size());
    const QVector<qint64> offered = offeredPacks();
    question.first = offered.size() == 1 ? offered[0] : qint64(LogbookPack::none);
    question.offersNew = true;
    question.packs = packsLike(like);
    PackChoice choice(*m_parts.logbook, question, m_window);
    if (!question.packs.isEmpty() && choice.exec() != QDialog::Accepted)
        return;
    qint64 pack = choice.chosen();
    if (pack == PackChoice::newPack) {
        PackDialog dialog(tr("New pack"), like, m_window);
        if (dialog.exec() != QDialog::Accepted)
            return;
        pack = m_parts.editor->addPack(dialog.pack());
    }
    if (pack != LogbookPack::none)
        m_parts.editor->assign(ids, pack);
}

void LogbookCommands::assignOffered()
{
    m_parts.editor->assignEach(m_parts.logbook->packsToOffer(m_recordings));
}

void LogbookCommands::unassign()
{
    m_parts.editor->assign(m_recordings, LogbookPack::none);
}

void LogbookCommands::newPack()
{
    PackDialog dialog(tr("New pack"), packLikeChosen(), m_window);
    if (dialog.exec() == QDialog::Accepted)
        emit packWanted(m_parts.editor->addPack(dialog.pack()));
}

void LogbookCommands::changePack()
{
    const LogbookPack *pack = m_parts.logbook->pack(m_pack);
    if (!pack)
        return;
    PackDialog dialog(tr("Change pack"), *pack, m_window);
    if (dialog.exec() == QDialog::Accepted)
        m_parts.editor->changePack(dialog.pack());
}

void LogbookCommands::mergePacks()
{
    const qint64 into = m_pack;
    PackChoice::Question question;
    question.title = tr("Merge packs");
    question.text
        = tr("Pack whose recordings become those of %1. It goes then.").arg(m_parts.logbook->packName(into));
    if (const LogbookPack *pack = m_parts.logbook->pack(into))
        question.packs = packsLike(*pack, into);
    PackChoice choice(*m_parts.logbook, question, m_window);
    if (choice.exec() == QDialog::Accepted && choice.chosen() != LogbookPack::none)
        m_parts.editor->mergePacks({choice.chosen()}, into);
}

void LogbookCommands::takeApart()
{
    const LogbookPack *pack = m_parts.logbook->pack(m_pack);
    if (!pack)
        return;
    const QVector<qint64> ids = m_recordings;
    LogbookPack like = *pack;
    like.name = tr("%1 (2)").arg(pack->name);
    PackDialog dialog(tr("Take apart"), like, m_window);
    dialog.showNameOnly(tr("Pack of the %n chosen recording(s):", nullptr, ids.size()));
    if (dialog.exec() == QDialog::Accepted)
        emit packWanted(m_parts.editor->takeApart(ids, dialog.pack().name));
}

void LogbookCommands::removePack()
{
    m_parts.editor->removePack(m_pack);
}
