#pragma once

#include <QCache>
#include <QSet>
#include <QStyledItemDelegate>

/// Lists data files in an open dialog with a label of what they hold. The dialog is its
/// parent; both its list and its tree get it.
class VarelStyledItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The role of a model that has labels of its own: their text, empty where there is none (yet). What
    /// gives one is not read.
    static constexpr int labelRole = Qt::UserRole + 64; // beyond those of file models

    /// `cache` (not owned, outlives this) keeps the labels by path; without one names stay plain.
    explicit VarelStyledItemDelegate(QCache<QString, QString> *cache, QObject *parent = nullptr);

    QString displayText(const QVariant &value, const QLocale &locale) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    mutable QVariant m_label; // of the item that is drawn, where its model has one
    QCache<QString, QString> *m_cache;
    mutable QSet<QString> m_failures; // files without a label, not read again while the dialog lives
};
