#pragma once

#include <QByteArray>

namespace sim {

/// The front panel of a charger as the remote control works it: commands in, replies out.
class FrontPanel {
public:
    /// As the device numbers its menus.
    enum State { Setup = 0, Memory = 1, Cells = 2, Running = 3, Disconnect = 4 };
    enum class Event { None, MemoryKey, Start, Stop, ClockSet, Beep };

    struct Answer {
        QByteArray reply; ///< with line end; empty: the device says nothing
        Event event = Event::None;
    };
    /// `text` is one command without its line end.
    Answer command(const QByteArray &text);

    State state() const { return m_state; }
    void setState(State state) { m_state = state; }
    int memory() const { return m_memory; } ///< 1..20
    int cells() const { return m_cells; } ///< 1..16, as chosen
    void setCells(int cells);
    QByteArray clock() const { return m_clock; } ///< as last set, "ss:mm:HH:dd:MM:yy"; empty before
    bool poweredBySupply() const { return m_supply; } ///< else by a battery
    int beeps() const { return m_beeps; }

private:
    Answer tryb(const QByteArray &argument);
    Answer memoryCommand(const QByteArray &argument);
    Answer cellCommand(const QByteArray &argument);
    Answer start(const QByteArray &argument);
    Answer stop(const QByteArray &argument);
    Answer setClock(const QByteArray &argument);
    Answer beep(const QByteArray &argument);

    State m_state = Setup;
    int m_memory = 1;
    int m_cells = 1;
    bool m_supply = true;
    int m_beeps = 0;
    QByteArray m_clock;
};

} // namespace sim
