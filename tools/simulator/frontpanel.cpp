#include "simulator/frontpanel.h"

#include <algorithm>

namespace sim {

namespace {

constexpr int memories = 20;
constexpr int mostCells = 16;

QByteArray numbered(const char *word, int number)
{
    return word + QByteArray::number(number).rightJustified(2, '0') + "\r\n";
}

/// `now` after a key "+" or "-" or a number of two digits; unchanged by anything else.
int changed(int now, int most, const QByteArray &argument)
{
    bool good = false;
    const int number = argument.toInt(&good);
    if (argument == "+")
        return std::min(most, now + 1);
    if (argument == "-")
        return std::max(1, now - 1);
    return good && argument.size() == 2 && number >= 1 && number <= most ? number : now;
}

} // namespace

FrontPanel::Answer FrontPanel::command(const QByteArray &text)
{
    using Handler = Answer (FrontPanel::*)(const QByteArray &);
    struct Word {
        const char *word;
        Handler handler;
    };
    static constexpr Word words[] = {{"#TRYB", &FrontPanel::tryb}, {"#MEM", &FrontPanel::memoryCommand},
        {"#NRC", &FrontPanel::cellCommand}, {"#START", &FrontPanel::start}, {"#STOP", &FrontPanel::stop},
        {"#TIME!", &FrontPanel::setClock}, {"#BIB_!", &FrontPanel::beep}};
    for (const Word &word : words)
        if (text.startsWith(word.word))
            return (this->*word.handler)(text.mid(int(qstrlen(word.word))));
    return {};
}

void FrontPanel::setCells(int cells)
{
    m_cells = std::clamp(cells, 1, mostCells);
}

FrontPanel::Answer FrontPanel::tryb(const QByteArray &argument)
{
    return argument == "?" ? Answer{numbered("#TRYB", m_state)} : Answer();
}

/// In the setup menu '-' and '+' say what feeds the charger; every key there leads on to the memories.
FrontPanel::Answer FrontPanel::memoryCommand(const QByteArray &argument)
{
    const bool key = argument != "?" && (m_state == Setup || m_state == Memory);
    if (key && m_state == Setup && (argument == "-" || argument == "+"))
        m_supply = argument == "+";
    else if (key)
        m_memory = changed(m_memory, memories, argument);
    if (key)
        m_state = Memory;
    return {numbered("#MEM", m_memory), key ? Event::MemoryKey : Event::None};
}

FrontPanel::Answer FrontPanel::cellCommand(const QByteArray &argument)
{
    if (m_state == Cells)
        m_cells = changed(m_cells, mostCells, argument);
    return {numbered("#NRC", m_cells)};
}

FrontPanel::Answer FrontPanel::start(const QByteArray &argument)
{
    if (m_state != Cells || !argument.isEmpty())
        return {};
    m_state = Running;
    return {"#START\r\n", Event::Start};
}

/// Ends the process; once it has ended, silences the buzzer.
FrontPanel::Answer FrontPanel::stop(const QByteArray &argument)
{
    if ((m_state != Running && m_state != Disconnect) || !argument.isEmpty())
        return {};
    const bool running = m_state == Running;
    m_state = Disconnect;
    return {"#STOP\r\n", running ? Event::Stop : Event::None};
}

FrontPanel::Answer FrontPanel::setClock(const QByteArray &argument)
{
    m_clock = argument;
    return {{}, Event::ClockSet};
}

FrontPanel::Answer FrontPanel::beep(const QByteArray &argument)
{
    Q_UNUSED(argument)
    ++m_beeps;
    return {{}, Event::Beep};
}

} // namespace sim
