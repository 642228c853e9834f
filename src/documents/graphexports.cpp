#include "documents/graphexports.h"

#include "documents/choosing/savedialog.h"
#include "documents/filewriter.h"
#include "documents/graphfile.h"
#include "desk/windowfiles.h"
#include "settings/messagetime.h"
#include "widgets/warningbox.h"
#include "documents/csvexport.h"
#include "files/filepieces.h"
#include "graph/mdigraphchild.h"
#include "graph/plot/graphpainter.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QPointer>

namespace {

/// Where the last export went, else where data files were opened or saved last.
QString startFolder()
{
    const VarnelSettings settings;
    const QString last = settings.value(SettingsKey::exportDir).toString();
    if (!last.isEmpty())
        return last;
    const QString dataFile = settings.value(SettingsKey::lastDir).toString();
    return dataFile.isEmpty() ? QDir::homePath() : QFileInfo(dataFile).path();
}

} // namespace

GraphExports::GraphExports(QWidget *shell, FileWriter *writer, WindowFiles *windowFiles)
    : QObject(shell)
    , m_shell(shell)
    , m_writer(writer)
    , m_windowFiles(windowFiles)
{
}

void GraphExports::csvDialog(MdiGraphChild *child)
{
    const QPointer<MdiGraphChild> guard(child); // its window may be closed while the dialog is open
    const QString name = askTableName(m_windowFiles->nameFor(child), m_shell);
    if (!name.isEmpty() && guard)
        writeTable(guard, name);
}

void GraphExports::pictureDialog(MdiGraphChild *child)
{
    const QPointer<MdiGraphChild> guard(child);
    const QString name = askPictureName(m_windowFiles->nameFor(child), m_shell);
    if (!name.isEmpty() && guard)
        writePicture(guard, name);
}

void GraphExports::pictureDialog(const Picture &picture, const QString &name, QWidget *window)
{
    const QString fileName = askPictureName(name, window);
    if (!fileName.isEmpty())
        writePicture(picture, fileName);
}

void GraphExports::tableDialog(
    const std::function<std::unique_ptr<FilePieces>()> &pieces, const QString &name, QWidget *window)
{
    const QString fileName = askTableName(name, window);
    if (!fileName.isEmpty())
        write(fileName, pieces());
}

QString GraphExports::askTableName(const QString &suggested, QWidget *window)
{
    return ask(tr("Export as CSV"), {tr("Comma-separated values (*.csv)")}, suggested, window);
}

QString GraphExports::askPictureName(const QString &suggested, QWidget *window)
{
    return ask(tr("Save picture"), {tr("Picture (*.png)"), tr("Drawing (*.svg)"), tr("Document (*.pdf)")},
        suggested, window);
}

void GraphExports::writeTable(const MdiGraphChild *child, const QString &fileName)
{
    write(fileName, std::make_unique<CsvRows>(child->store()));
}

void GraphExports::writePicture(const MdiGraphChild *child, const QString &fileName)
{
    const GraphRequest request = child->request(child->size());
    writePicture(
        {request.size, [&request](QPainter *painter) { GraphPainter().paint(painter, request); }}, fileName);
}

void GraphExports::writePicture(const Picture &picture, const QString &fileName)
{
    const GraphFormat format = graphFormat(fileName);
    if (format == GraphFormat::Unknown) {
        tellFailure(fileName, tr("The name of a picture ends in .png, .svg or .pdf."));
        return;
    }
    // Drawn at once: the window goes on.
    QBuffer drawing;
    drawing.open(QIODevice::WriteOnly);
    if (!::writePicture(picture, format, &drawing)) {
        tellFailure(fileName, tr("There is no room for it in memory."));
        return;
    }
    const QByteArray bytes = drawing.data();
    write(fileName, std::make_unique<OnePiece>([bytes](QIODevice &device) {
        return writeAllBytes(device, bytes.constData(), bytes.size());
    }));
}

QString GraphExports::ask(
    const QString &title, const QStringList &filters, const QString &suggested, QWidget *window)
{
    SaveDialog dialog(window, title, filters);
    dialog.refuse({QStringLiteral(".acp"), QStringLiteral(".abp")},
        tr("Names that end in .acp or .abp are for recordings."));
    dialog.setDirectory(startFolder());
    dialog.suggest(suggested);
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QString name = dialog.selectedFiles().value(0);
    VarnelSettings().setValue(SettingsKey::exportDir, QFileInfo(name).absolutePath());
    return name;
}

void GraphExports::write(const QString &fileName, std::unique_ptr<FilePieces> pieces)
{
    if (m_windowFiles->isBeingRecorded(fileName)) {
        tellFailure(fileName, tr("A recording is being written to this file."));
        return;
    }
    m_writer->add(fileName, std::move(pieces),
        [this, fileName](const WriteOutcome &outcome) { tellOutcome(fileName, outcome); });
}

void GraphExports::tellOutcome(const QString &fileName, const WriteOutcome &outcome)
{
    if (outcome.cancelled)
        emit message(tr("The export was cancelled."), usualMessageTime);
    else if (outcome.written)
        emit message(tr("%1 written.").arg(QDir::toNativeSeparators(fileName)), usualMessageTime);
    else
        tellFailure(fileName, outcome.reason);
}

void GraphExports::tellFailure(const QString &fileName, const QString &reason)
{
    const QString text = tr("Can not save file %1").arg(QDir::toNativeSeparators(fileName));
    emit message(text, usualMessageTime);
    showWarningBox(m_shell, "exportFailed", tr("Export"), text + QLatin1Char('\n') + reason);
}
