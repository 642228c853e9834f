#pragma once

#include <QString>

class QWidget;

/// What a graph window tells beside its title: how its process has ended, by icon and tool tip, until it is
/// closed, so that no end goes unseen. The title bar tells it too, where the graph is covered or minimised.
class TitleTip {
public:
    /// `window` outlives this; its title bar is that of the MDI frame round it, if it has one.
    explicit TitleTip(QWidget *window);

    /// By Varnel3Data::End; any other code changes nothing.
    void showProcessEnd(int end);
    /// A line for the title bar, below how the process has ended.
    void setLine(const QString &text);

    QString text() const;

private:
    void show();

    QWidget *m_window; // not owned
    QString m_line;
};
