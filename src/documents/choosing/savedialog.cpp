#include "documents/choosing/savedialog.h"

#include "documents/choosing/datafilesmodel.h"
#include "documents/choosing/folderview.h"
#include "documents/choosing/windowsnames.h"

#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QOperatingSystemVersion>
#include <QRegularExpression>

namespace {

QString endingOf(const QString &filter)
{
    return QLatin1Char('.') + filter.section(QStringLiteral("*."), 1, 1).section(QLatin1Char(')'), 0, 0);
}

bool isWindows()
{
    return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;
}

} // namespace

SaveDialog::SaveDialog(QWidget *parent, const QString &title, const QStringList &filters)
    : QFileDialog(parent, title)
    , m_ending(endingOf(filters.first()))
{
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setNameFilters(filters);
    m_files = new DataFilesModel({m_ending}, this);
    new FolderView(this, m_files);
    connect(this, SIGNAL(filterSelected(QString)), this, SLOT(changeEnding(QString)));
}

void SaveDialog::suggest(const QString &name)
{
    selectFile(name.isEmpty() ? name : name + m_ending);
}

void SaveDialog::refuse(const QStringList &endings, const QString &reason)
{
    m_refused = endings;
    m_reason = reason;
}

// Before the dialog looks whether there is such a file.
void SaveDialog::accept()
{
    QString name = nameEdit()->text().remove(QLatin1Char('"')); // in which the toolkit takes several names
    if (!name.isEmpty() && !QFileInfo(directory(), name).isDir() && !hasEnding(name))
        name += m_ending;
    nameEdit()->setText(name);
    for (const QString &ending : qAsConst(m_refused)) {
        if (name.endsWith(ending, Qt::CaseInsensitive)) {
            QMessageBox::warning(this, windowTitle(), m_reason);
            return;
        }
    }
    if (isWindows() && !isNameForWindows(QFileInfo(QDir::fromNativeSeparators(name)).fileName())) {
        QMessageBox::warning(
            this, windowTitle(), tr("Windows has no files of this name. Choose another one."));
        return;
    }
    QFileDialog::accept();
}

void SaveDialog::changeEnding(const QString &filter)
{
    const QString name = nameEdit()->text();
    const bool had = name.endsWith(m_ending, Qt::CaseInsensitive);
    const QString stem = had ? name.chopped(m_ending.size()) : name;
    m_ending = endingOf(filter);
    m_files->setEndings({m_ending});
    if (had)
        nameEdit()->setText(stem + m_ending);
}

QLineEdit *SaveDialog::nameEdit() const
{
    return findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
}

// What stands behind a dot may be part of a name: "Pack 1.5Ah", "after 12.06.".
bool SaveDialog::hasEnding(const QString &name) const
{
    static const QRegularExpression ending(QStringLiteral("\\.[a-zA-Z][a-zA-Z0-9]{1,3}$"));
    return name.endsWith(m_ending, Qt::CaseInsensitive) || ending.match(name).hasMatch();
}
