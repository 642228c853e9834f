#include "app/graphexports.h"

#include "app/graphfile.h"
#include "app/recordings.h"
#include "app/warningbox.h"
#include "graph/csvexport.h"
#include "graph/mdigraphchild.h"
#include "settings/varnelsettings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

namespace {

constexpr int messageTime = 5000; // ms

QString folderKey()
{
    return QStringLiteral("export/lastDir");
}

/// Where the last export went, else where data files were opened or saved last.
QString startFolder()
{
    const VarnelSettings settings;
    const QString last = settings.value(folderKey()).toString();
    if (!last.isEmpty())
        return last;
    const QString dataFile = settings.value(QStringLiteral("global/lastDir")).toString();
    return dataFile.isEmpty() ? QDir::homePath() : QFileInfo(dataFile).path();
}

/// Of the data file that the window's records are in, without its ending; else of the device.
QString suggestedName(const QString &dataFile, const MdiGraphChild *child)
{
    const QString name = QFileInfo(dataFile).completeBaseName();
    return !name.isEmpty() || child->fileName().isEmpty() ? name : child->fileName();
}

/// The ending that a name filter such as "Picture (*.png)" stands for.
QString suffixOf(const QString &filter)
{
    return filter.section(QStringLiteral("*."), 1, 1).section(QLatin1Char(')'), 0, 0);
}

} // namespace

GraphExports::GraphExports(QWidget *shell, Recordings *recordings)
    : QObject(shell)
    , m_shell(shell)
    , m_recordings(recordings)
{
    connect(this, SIGNAL(message(QString,int)), m_shell, SLOT(showMessageStatusBar(QString,int)));
}

void GraphExports::csvDialog(MdiGraphChild *child)
{
    const QPointer<MdiGraphChild> guard(child); // its window may be closed while the dialog is open
    QFileDialog dialog(m_shell, tr("Export as CSV"), QString(), tr("Comma-separated values (*.csv)"));
    const QString name = ask(dialog, child);
    if (!name.isEmpty() && guard)
        writeTable(guard, name);
}

void GraphExports::pictureDialog(MdiGraphChild *child)
{
    const QPointer<MdiGraphChild> guard(child);
    QFileDialog dialog(m_shell, tr("Save picture"));
    dialog.setNameFilters({tr("Picture (*.png)"), tr("Drawing (*.svg)"), tr("Document (*.pdf)")});
    const QString name = ask(dialog, child);
    if (!name.isEmpty() && guard)
        writePicture(guard, name);
}

void GraphExports::writeTable(const MdiGraphChild *child, const QString &fileName)
{
    const SeriesStore &store = child->store();
    write(fileName, [&store](QIODevice &device) { return writeCsv(store, &device); });
}

void GraphExports::writePicture(const MdiGraphChild *child, const QString &fileName)
{
    const GraphFormat format = graphFormat(fileName);
    if (format == GraphFormat::Unknown) {
        tellFailure(fileName, tr("The name of a picture ends in .png, .svg or .pdf."));
        return;
    }
    const GraphPicture picture = child->picture(child->size());
    write(fileName, [&picture, format](QIODevice &device) { return writeGraph(picture, format, &device); });
}

// A name without an ending gets that of the chosen format.
QString GraphExports::ask(QFileDialog &dialog, const MdiGraphChild *child)
{
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setDirectory(startFolder());
    dialog.selectFile(suggestedName(m_recordings->fileOf(child), child));
    dialog.setDefaultSuffix(suffixOf(dialog.selectedNameFilter()));
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
        [&dialog](const QString &filter) { dialog.setDefaultSuffix(suffixOf(filter)); });
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    const QString name = dialog.selectedFiles().value(0);
    VarnelSettings().setValue(folderKey(), QFileInfo(name).absolutePath());
    return name;
}

void GraphExports::write(const QString &fileName, const FileContent &content)
{
    if (m_recordings->isBeingRecorded(fileName)) {
        tellFailure(fileName, tr("A recording is being written to this file."));
        return;
    }
    const WriteOutcome outcome = writeWholeFile(fileName, content);
    if (outcome.written)
        emit message(tr("%1 written.").arg(QDir::toNativeSeparators(fileName)), messageTime);
    else
        tellFailure(fileName, outcome.reason);
}

void GraphExports::tellFailure(const QString &fileName, const QString &reason)
{
    const QString text = tr("Can not save file %1").arg(QDir::toNativeSeparators(fileName));
    emit message(text, messageTime);
    showWarningBox(m_shell, "exportFailed", tr("Export"), text + QLatin1Char('\n') + reason);
}
