#include "data/processend.h"

#include "data/varnel3data.h"

#include <QCoreApplication>

namespace {

struct ProcessEnd {
    const char *icon;
    const char *text;
};

constexpr ProcessEnd processEnds[] = {
    // by Varnel3Data::End
    {":/Icons/error.png", QT_TRANSLATE_NOOP("ProcessEnd", "Error in process !")},
    {":/Icons/cancel.png", QT_TRANSLATE_NOOP("ProcessEnd", "Process aborted by user.")},
    {":/Icons/finish.png", QT_TRANSLATE_NOOP("ProcessEnd", "Process completed.")},
};

bool isEnd(int end)
{
    return end >= Varnel3Data::Failed && end <= Varnel3Data::Completed;
}

} // namespace

QString processEndText(int end)
{
    return isEnd(end) ? QCoreApplication::translate("ProcessEnd", processEnds[end].text) : QString();
}

QString processEndIcon(int end)
{
    return isEnd(end) ? QLatin1String(processEnds[end].icon) : QString();
}
