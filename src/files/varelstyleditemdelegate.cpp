#include "files/varelstyleditemdelegate.h"

#include "files/filekind.h"
#include "files/recordlabel.h"

#include <QDir>
#include <QFileDialog>

VarelStyledItemDelegate::VarelStyledItemDelegate(QCache<QString, QString> *cache, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_cache(cache)
{
}

QString VarelStyledItemDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    const QString name = value.toString();
    if (m_label.isValid())
        return QStyledItemDelegate::displayText(name + m_label.toString(), locale);
    const auto *dialog = qobject_cast<const QFileDialog *>(parent());
    if (!FileKind::isDataFile(name) || !dialog || !m_cache)
        return QStyledItemDelegate::displayText(value, locale);
    const QString path = dialog->directory().canonicalPath() + QDir::separator() + name;
    return QStyledItemDelegate::displayText(name + recordLabel(*m_cache, path, nullptr, &m_failures), locale);
}

void VarelStyledItemDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    m_label = index.data(labelRole);
    QStyledItemDelegate::initStyleOption(option, index);
    m_label.clear();
}
