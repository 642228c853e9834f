#include "documents/choosing/namecompleter.h"

#include "documents/choosing/datafilesmodel.h"

#include <QDir>
#include <QLineEdit>
#include <QListView>

namespace {

QString prefixOf(const QString &text)
{
    return text.left(text.lastIndexOf(QLatin1Char('/')) + 1);
}

} // namespace

NameCompleter::NameCompleter(QLineEdit *edit, const DataFilesModel *model)
    : QCompleter(edit)
    , m_edit(edit)
    , m_model(model)
    , m_jobs(this)
{
    setModel(&m_names);
    setModelSorting(CaseInsensitivelySortedModel); // is searched by halves
    setCaseSensitivity(Qt::CaseInsensitive);
    auto *list = static_cast<QListView *>(popup());
    list->setUniformItemSizes(true);
    list->setLayoutMode(QListView::Batched);
    connect(edit, SIGNAL(textEdited(QString)), this, SLOT(follow(QString)));
    edit->setCompleter(this);
}

QString NameCompleter::pathFromIndex(const QModelIndex &index) const
{
    return m_prefix + index.data().toString();
}

QStringList NameCompleter::splitPath(const QString &path) const
{
    return {path.mid(prefixOf(path).size())};
}

void NameCompleter::follow(const QString &text)
{
    const QString prefix = prefixOf(text);
    if (prefix == m_prefix)
        return;
    m_prefix = prefix;
    if (prefix.isEmpty())
        return refresh();
    m_names.setStringList({});
    FolderQuestion question = m_model->question();
    question.column = FolderQuestion::Name;
    question.folder = prefix.startsWith(QLatin1String("~/")) ? QDir::homePath() + prefix.mid(1)
                                                             : QDir(question.folder).absoluteFilePath(prefix);
    m_jobs.run([question] { return listFolder(question).names; },
        [this, prefix](const QStringList &names) {
            if (prefix != m_prefix)
                return;
            m_names.setStringList(names);
            setCompletionPrefix(m_edit->text());
            if (m_edit->hasFocus())
                complete();
        });
}

void NameCompleter::refresh()
{
    if (m_prefix.isEmpty())
        m_names.setStringList(m_model->listing().names);
}
