#include "data/processend.h"

#include "data/varnel3data.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

struct ProcessEnd {
    char letter;
    const char *icon;
    const char *text;
    const char *title;
    const char *sound;
};

constexpr ProcessEnd processEnds[] = {
    // by Varnel3Data::End
    {'S', ":/Icons/error.png", QT_TRANSLATE_NOOP("ProcessEnd", "Error in process !"),
        QT_TRANSLATE_NOOP("ProcessEnd", "Error"), "error"},
    {'M', ":/Icons/cancel.png", QT_TRANSLATE_NOOP("ProcessEnd", "Process aborted by user."),
        QT_TRANSLATE_NOOP("ProcessEnd", "Aborted"), "aborted"},
    {'E', ":/Icons/finish.png", QT_TRANSLATE_NOOP("ProcessEnd", "Process completed."),
        QT_TRANSLATE_NOOP("ProcessEnd", "End"), "end"},
    {'_', "", "", "", ""},
};

constexpr std::size_t noEnd = std::size(processEnds) - 1; // its row

const ProcessEnd &entry(int end)
{
    return processEnds[std::min(std::size_t(end), noEnd)];
}

QString translated(const char *text)
{
    return *text ? QCoreApplication::translate("ProcessEnd", text) : QString();
}

} // namespace

int Varnel3Data::processEnd() const
{
    const auto *const last = processEnds + noEnd;
    const auto *const found
        = std::find_if(processEnds, last, [this](const ProcessEnd &end) { return end.letter == flag3; });
    return found == last ? int(NoEnd) : int(found - processEnds);
}

QString processEndText(int end)
{
    return translated(entry(end).text);
}

QString processEndTitle(int end)
{
    return translated(entry(end).title);
}

QString processEndIcon(int end)
{
    return QLatin1String(entry(end).icon);
}

QString processEndSound(int end)
{
    return QLatin1String(entry(end).sound);
}
