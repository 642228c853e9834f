#include "data/varnel3data.h"

#include "data/saturated.h"

namespace {

constexpr int secondsPerHour = 3600;
constexpr int secondsPerMinute = 60;

} // namespace

void Varnel3Data::setTime(int seconds)
{
    time = seconds;
    hour = seconds / secondsPerHour;
    minute = seconds % secondsPerHour / secondsPerMinute;
    second = seconds % secondsPerHour % secondsPerMinute;
}

bool Varnel3Data::hasCellData() const
{
    return cellCount != 0 && mode != NoMode && hasBalancingData();
}

int Varnel3Data::maxBalanceChargeMah() const
{
    if (cellCount < 1)
        return 0;
    int highest = cells[0].balanceCharge;
    for (int i = 1; i < cellsPresent(); ++i)
        highest = qMax(highest, cells[i].balanceCharge);
    return highest / chargePerMah;
}

int Varnel3Data::totalBalanceCharge() const
{
    qint64 sum = 0;
    for (int i = 0; i < cellsPresent(); ++i)
        sum += cells[i].balanceCharge;
    return saturated(sum);
}

QString Varnel3Data::toString() const
{
    QString text = QStringLiteral("Varnel3Data [device=") + deviceName(device);
    const auto append = [&text](const char *name, const QString &value) {
        text += QLatin1String(", ") + QLatin1String(name) + QLatin1Char('=') + value;
    };
    const auto appendFlag
        = [&append](const char *name, char flag) { append(name, QString(QLatin1Char(flag))); };
    const auto appendNumber
        = [&append](const char *name, int number) { append(name, QString::number(number)); };
    append("mode", modeName(mode));
    append("cellType", cellTypeName(cellType));
    appendFlag("flag1", flag1);
    appendFlag("flag2", flag2);
    appendFlag("flag3", flag3);
    appendFlag("flag4", flag4);
    appendFlag("flag5", flag5);
    appendNumber("ballansingCurrent", ballansingCurrent);
    appendNumber("time", time);
    appendNumber("hour", hour);
    appendNumber("minute", minute);
    appendNumber("second", second);
    appendNumber("voltage", voltage);
    appendNumber("current", current);
    appendNumber("temperature", temperature);
    appendNumber("energy", energy);
    appendNumber("internalResistance", internalResistance);
    appendNumber("cellCount", cellCount);
    return text;
}
