#pragma once

#include <QObject>
#include <QRandomGenerator>
#include <QStringList>

class MainWindow;
class QDialog;
class QMdiSubWindow;
class QWidget;
class QWindow;

namespace sim {
class Rack;
}

namespace soak {

class Program;

/// Somebody who does anything at any moment: clicks, drags, types, gives commands, opens, closes, resizes,
/// pulls adapters. Steps come from a timer, so that they go on while a box or a dialog waits in an event loop
/// of its own. The same seed gives the same choices; what they meet depends on time.
class RandomUser : public QObject {
    Q_OBJECT

public:
    /// `program` and `rack`, with devices on its ports, outlive this.
    RandomUser(Program *program, sim::Rack *rack, quint32 seed);

    /// Opens the program, does so many steps, opens it again where they have ended it, and ends it. True when
    /// all held that always holds; what did not is printed, with the newest steps.
    bool run(int steps);

private slots:
    void step();

private:
    int below(int end) { return m_random.bounded(end); }
    template <typename List>
    auto anyOf(const List &list)
    {
        return list.isEmpty() ? typename List::value_type() : list[below(list.size())];
    }
    Qt::KeyboardModifiers heldKeys();
    MainWindow *window() const;
    QList<QMdiSubWindow *> graphs() const;
    void look();
    void answer(QDialog *dialog);
    void useMouse(QWindow *target);
    void type(QWindow *target);
    void command();
    void arrange(QWidget *one);
    void useDevice();

    Program *m_program;
    sim::Rack *m_rack;
    QRandomGenerator m_random;
    int m_steps = 0; // to be done
    int m_time = 0; // ms, of the mouse
    int m_records = 0; // most seen in one window
    QStringList m_noted; // steps, the newest last
    QStringList m_broken; // what did not hold
};

} // namespace soak
