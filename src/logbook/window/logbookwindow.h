#pragma once

#include "logbook/window/logbookcommands.h"

#include <QMainWindow>

class ColumnsMenu;
class CoursePanel;
class FilterLine;
class LogbookActions;
class LogbookStatus;
class PackList;
class QLabel;
class QSplitter;
class QTimer;
class QTreeView;
class RecordingTable;
class RecordingView;
class VarnelSettings;
class ViewState;

/// The window of the logbook: the packs on the left, the recordings in the middle, and below them how the
/// chosen pack fares. Follows the logbook while it is shown.
class LogbookWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `state` says what is behind the chart. `ownFolder`: that of the journals, which is always read. All
    /// outlive this.
    LogbookWindow(const LogbookCommands::Parts &parts, const ViewState *state, const QString &ownFolder);
    ~LogbookWindow() override;

    QVector<qint64> shownIds() const; ///< the rows, from the first on
    const CoursePanel &course() const { return *m_course; }

    /// Columns, widths of the parts, and what the chart shows.
    void readState(const VarnelSettings &settings);
    void writeState(VarnelSettings *settings) const;

signals:
    void openWanted(const QStringList &files);
    void overlayWanted(const QStringList &files, const QStringList &labels);
    /// The rows are to be written as a table.
    void tableWanted();
    /// The chart is to be written as a picture.
    void pictureWanted();
    /// A folder is to be asked for, and given to add() of `dialog`.
    void folderWanted(QWidget *dialog);
    void closed();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void changeLater();
    void refresh();
    void showTrouble();
    void onPackChosen();
    void onFilter();
    void onSelected();
    void onPointChosen(qint64 recording);
    void onGround();
    void choosePack(qint64 pack);
    void printTable();
    void chooseFolders();
    void showColumnsMenu(const QPoint &place);
    void onMenuWanted(const QPoint &place);
    void spanFixedRows();

private:
    void createParts();
    void arrange();
    void connectParts();
    void connectCommands();
    void fitPacks();

    LogbookCommands::Parts m_parts;
    const ViewState *m_state;
    QString m_ownFolder;
    LogbookActions *m_actions;
    LogbookCommands *m_commands = nullptr;
    QLabel *m_trouble = nullptr;
    FilterLine *m_filter = nullptr;
    PackList *m_packList = nullptr;
    QTreeView *m_packs = nullptr;
    RecordingTable *m_table = nullptr;
    RecordingView *m_view = nullptr;
    CoursePanel *m_course = nullptr;
    ColumnsMenu *m_columnsMenu = nullptr;
    LogbookStatus *m_status = nullptr;
    QSplitter *m_sideBySide = nullptr;
    QSplitter *m_oneAboveOther = nullptr;
    QTimer *m_later;
    bool m_isRefreshing = false;
    bool m_isFitted = false; ///< the parts have their widths, be it the user's
    qint64 m_pack;
};
