#pragma once

#include <QObject>
#include <QString>

class JournalKeeper;
class QWidget;
class StatusFacts;

/// Tells the user what the journals have to tell: that the disk takes no
/// more, that a file was taken away, that their folder has grown large.
class JournalNotice : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of the box. All outlive this.
    JournalNotice(const JournalKeeper *keeper, StatusFacts *facts, QWidget *window);

public slots:
    void showStalled(const QString &reason);
    void showResumed();
    void showReplaced(const QString &fileName, const QString &newName);
    /// Offers to open the folder, unless that was done when it was less than 1 GB smaller.
    void showLarge(const QString &path, qint64 bytes);

private slots:
    void openFolder();

private:
    StatusFacts *m_facts;
    QWidget *m_window;
    QString m_folder;
};
