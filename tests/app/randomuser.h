#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QRandomGenerator>
#include <QStringList>
#include <QTimer>

class MainWindow;
class QMdiSubWindow;
class QWindow;

namespace sim {
class Rack;
class SimDevice;
} // namespace sim

/// Somebody who does anything at any moment: clicks, drags, types, opens, closes, resizes, changes what is
/// listened on, pulls adapters. The same seed gives the same choices; what they meet depends on time. Steps
/// come from a timer, so that they go on while a box or a dialog waits in an event loop of its own.
class RandomUser : public QObject {
    Q_OBJECT

public:
    /// `rack` is not owned and outlives this. Files are opened and saved in
    /// `folder` only, and nothing is printed.
    RandomUser(quint32 seed, sim::Rack *rack, const QString &folder);

    /// Uses `window` from now on; null: rests.
    void use(MainWindow *window);

    int steps() const { return m_steps; }
    /// The newest steps, the last one last.
    QStringList newestSteps() const { return m_newest; }
    /// Longest time between two steps in ms: for that long the event loop answered nobody.
    qint64 longestWait() const { return m_longestWait; }

private slots:
    void step();

private:
    struct Choice;
    static const QVector<Choice> &choices();

    int below(int end) { return m_random.bounded(end); }
    template <typename List>
    auto anyOf(const List &list)
    {
        return list.isEmpty() ? typename List::value_type() : list[below(list.size())];
    }
    void note(const QString &text);
    /// A window that takes the user's input now; a dialog that could print or lose files is none.
    QWidget *reachableWindow();
    QWidget *delicateDialog() const;
    QMdiSubWindow *subWindow();

    void click();
    void drag();
    void turnWheel();
    void type();
    void command();
    void reshape();
    void closeWindow();
    void closeProgram();
    void choosePorts();
    void device();
    void answerDelicate();
    void deviceSays(sim::SimDevice *one);

    QRandomGenerator m_random;
    sim::Rack *m_rack; // not owned
    QString m_folder;
    QPointer<MainWindow> m_window;
    QTimer m_timer;
    QElapsedTimer m_sinceStep;
    QStringList m_newest;
    int m_steps = 0;
    qint64 m_longestWait = 0;
};
