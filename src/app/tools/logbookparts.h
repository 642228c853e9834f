#pragma once

#include <QObject>

class Documents;
class JournalKeeper;
class Logbook;
class LogbookEditor;
class LogbookReader;
class MdiGraphChild;
class QWidget;
struct FileStamp;

/// The user's logbook with what reads and what changes it, fed by the journals of live recordings and by the
/// files that are opened and saved.
class LogbookParts : public QObject {
    Q_OBJECT

public:
    /// `shell` is the parent of boxes and owns this; `keeper` and `documents` outlive it.
    LogbookParts(QWidget *shell, const JournalKeeper *keeper, const Documents *documents);

    /// Opens the logbook, and reads what has come since.
    void open();

    /// Whether the program may end now. Asks where what the user has changed can't be written.
    bool mayClose();

    Logbook *logbook() const { return m_logbook; }
    LogbookEditor *editor() const { return m_editor; }
    LogbookReader *reader() const { return m_reader; }

signals:
    void message(const QString &text, int timeout);

private slots:
    void onOpened(const QString &fileName, MdiGraphChild *child, const FileStamp &stamp);
    void tellTrouble();
    void tellDamage(const QString &text);

private:
    QWidget *m_shell;
    Logbook *m_logbook; // these are children
    LogbookEditor *m_editor;
    LogbookReader *m_reader;
};
