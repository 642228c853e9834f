#pragma once

#include <QObject>

#include <array>

class QAction;
class QMenu;
class QMenuBar;

/// The commands of the logbook's window, in the order of its menus.
enum class LogbookCommand {
    Open,
    Overlay,
    ShowInFolder,
    Assign,
    AssignOffered,
    Unassign,
    Note,
    DeleteFiles,
    RemoveRows,
    ExportTable,
    PrintTable,
    Close,
    Undo,
    Redo,
    Find,
    ShowAll,
    Folders,
    ReadAgain,
    NewPack,
    ChangePack,
    MergePacks,
    TakeApart,
    RemovePack,
    SavePicture,
    PrintCourse,
    Explain,
    SortByColumn,
    MoveLeft,
    MoveRight,
    HideColumn,
    ShowAllColumns,
    Count
};

/// Their actions, made from one table.
class LogbookActions : public QObject {
    Q_OBJECT

public:
    explicit LogbookActions(QObject *parent);

    QAction *operator[](LogbookCommand id) const { return m_actions[size_t(id)]; }
    /// Enables the command while `reason` is empty; its tip tells what it does, or why it can't.
    void offer(LogbookCommand id, const QString &reason) const;
    /// Fills `bar`. Each menu has the commands that the mouse finds by its right button, too.
    void fill(QMenuBar *bar);

    QMenu *recordings() const { return m_recordings; }
    QMenu *packs() const { return m_packs; }
    QMenu *columns() const { return m_columns; }
    QMenu *course() const { return m_course; }

private:
    QMenu *addMenu(QMenuBar *bar, const QString &title, LogbookCommand first, LogbookCommand last);

    std::array<QAction *, size_t(LogbookCommand::Count)> m_actions = {};
    QMenu *m_recordings = nullptr;
    QMenu *m_packs = nullptr;
    QMenu *m_columns = nullptr;
    QMenu *m_course = nullptr;
};
