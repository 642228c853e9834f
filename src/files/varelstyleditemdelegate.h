#pragma once

#include <QCache>
#include <QSet>
#include <QStyledItemDelegate>

/// Lists data files in an open dialog with a label of what they hold. The dialog is its
/// parent; both its list and its tree get it.
class VarelStyledItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `cache` (not owned, outlives this) keeps the labels by path; without one names stay plain.
    explicit VarelStyledItemDelegate(QCache<QString, QString> *cache, QObject *parent = nullptr);

    QString displayText(const QVariant &value, const QLocale &locale) const override;

private:
    QCache<QString, QString> *m_cache;
    mutable QSet<QString> m_failures; // files without a label, not read again while the dialog lives
};
