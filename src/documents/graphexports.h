#pragma once

#include <QObject>

#include <functional>
#include <memory>

class FileWriter;
class MdiGraphChild;
class FilePieces;
struct Picture;
class QWidget;
class WindowFiles;
struct WriteOutcome;

/// Writes what a graph window holds for other programs: its records as a table, its graph as a picture.
class GraphExports : public QObject {
    Q_OBJECT

public:
    /// `shell` is the parent of dialogs. All outlive this.
    GraphExports(QWidget *shell, FileWriter *writer, WindowFiles *windowFiles);

    /// Asks for a name and writes the records and derived series of `child`.
    void csvDialog(MdiGraphChild *child);
    /// Asks for a name, whose ending says the format, and draws the graph of `child` as its window shows it.
    void pictureDialog(MdiGraphChild *child);
    /// The same for any picture, `name` being offered, above `window`.
    void pictureDialog(const Picture &picture, const QString &name, QWidget *window);
    /// Asks for a name, `name` being offered, above `window`, and writes what `pieces` makes as a table.
    void tableDialog(
        const std::function<std::unique_ptr<FilePieces>()> &pieces, const QString &name, QWidget *window);
    void writeTable(const MdiGraphChild *child, const QString &fileName);
    void writePicture(const MdiGraphChild *child, const QString &fileName);

signals:
    void message(const QString &text, int timeout);

private:
    QString ask(const QString &title, const QStringList &filters, const QString &suggested, QWidget *window);
    QString askPictureName(const QString &suggested, QWidget *window);
    QString askTableName(const QString &suggested, QWidget *window);
    void writePicture(const Picture &picture, const QString &fileName);
    void write(const QString &fileName, std::unique_ptr<FilePieces> pieces);
    void tellOutcome(const QString &fileName, const WriteOutcome &outcome);
    void tellFailure(const QString &fileName, const QString &reason);

    QWidget *m_shell;
    FileWriter *m_writer;
    WindowFiles *m_windowFiles;
};
