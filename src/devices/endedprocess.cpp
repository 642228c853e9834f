#include "devices/endedprocess.h"

#include "data/timetext.h"
#include "data/figuretext.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

constexpr double milli = 1000.0;

} // namespace

QString EndedProcess::facts() const
{
    if (portName.isEmpty())
        return {};
    QStringList parts(portName);
    if (last.cellCount > 0)
        parts.append(QStringLiteral("%1 x %2").arg(
            QString::number(last.cellCount), Varnel3Data::cellTypeName(last.cellType)));
    if (last.time > 0)
        parts.append(QCoreApplication::translate("EndNotice", "%1 Ah in %2")
                         .arg(FigureText::fixed(last.energy / milli, 3), clockText(last)));
    return parts.join(QStringLiteral(", "));
}
