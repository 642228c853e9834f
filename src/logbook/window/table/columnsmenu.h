#pragma once

#include <QMenu>

class RecordingView;

/// Says of each column of the recordings whether it is shown.
class ColumnsMenu : public QMenu {
    Q_OBJECT

public:
    /// `view` outlives this.
    ColumnsMenu(RecordingView *view, QWidget *parent);

private slots:
    void refresh();
    void onTriggered(QAction *action);

private:
    RecordingView *m_view;
};
