#pragma once

#include <QObject>

class QWidget;

/// Tells the user, once a run each, that the settings can't be read and that they can't be written.
class SettingsNotice : public QObject {
    Q_OBJECT

public:
    /// Has the keeper look whether the settings can be written. `window` is the parent of the boxes and
    /// outlives this.
    explicit SettingsNotice(QWidget *window);

public slots:
    void look();

private:
    QWidget *m_window;
    bool m_readTold = false;
    bool m_writeTold = false;
};
