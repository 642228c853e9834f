#include "simulator/devicesettings.h"

#include "simulator/chemistry.h"

namespace sim {

namespace {

struct Named {
    const char *name;
    int value;
};

constexpr Named models[] = {{"varnel3", int(Model::Varnel3)}, {"varnel2plus", int(Model::Varnel2Plus)},
    {"varnel2", int(Model::Varnel2)}, {"tandor", int(Model::Tandor)}};
constexpr Named tasks[] = {{"charge", int(Task::Charge)}, {"discharge", int(Task::Discharge)},
    {"balance", int(Task::Balance)}, {"format", int(Task::Format)}, {"test", int(Task::Test)}};
constexpr Named starts[]
    = {{"now", int(Start::Now)}, {"open", int(Start::OnOpen)}, {"remote", int(Start::Remote)}};
constexpr Named balances[] = {{"off", 0}, {"250", 250}, {"500", 500}, {"750", 750}, {"1000", 1000}};
constexpr Named switches[] = {{"on", true}, {"off", false}};

template <size_t count>
QString nameOf(const Named (&table)[count], int value)
{
    for (const Named &one : table)
        if (one.value == value)
            return QLatin1String(one.name);
    return {};
}

template <typename Value, size_t count>
bool choose(const Named (&table)[count], const QString &text, Value *value)
{
    for (const Named &one : table)
        if (text == QLatin1String(one.name)) {
            *value = Value(one.value);
            return true;
        }
    return false;
}

struct Number {
    const char *name;
    int DeviceSettings::*member;
    int least, most;
    const char *help;
};

constexpr Number numbers[] = {
    {"cells", &DeviceSettings::cells, 1, maxCells, "1..16 in series (tandor 12)"},
    {"capacity", &DeviceSettings::capacity, 50, 500000, "mAh"},
    {"current", &DeviceSettings::current, 10, 99999, "mA; else one capacity an hour"},
    {"weak", &DeviceSettings::weak, 0, maxCells, "number of a weak cell"},
    {"age", &DeviceSettings::age, 0, 5000, "charges that the pack has been through"},
    {"failing", &DeviceSettings::failing, 0, maxCells, "number of a cell that ages six times as fast"},
    {"soc", &DeviceSettings::charge, 0, 100, "per cent charged at the start"},
    {"spread", &DeviceSettings::spread, 0, 200, "differences between the cells, tenths of a per cent"},
    {"ambient", &DeviceSettings::ambient, 1, 60, "degrees Celsius"},
    {"ri", &DeviceSettings::resistanceEvery, 0, 99999, "device seconds between '!' lines, 0 none"},
    {"rigaps", &DeviceSettings::resistanceGaps, 0, 1000, "lines of 1000 without the pack's resistance"},
    {"processes", &DeviceSettings::processes, 0, 1000000, "how many one after another, 0 without end"},
    {"pause", &DeviceSettings::pause, 1, 86400, "s between them; above 20 not shortened by --speed"},
    {"endlines", &DeviceSettings::endLines, 1, 5, "how often the line with the end letter is sent"},
    {"cycles", &DeviceSettings::cycles, 1, 20, "of formatting"},
    {"duration", &DeviceSettings::duration, 0, 10000000, "device seconds until the process ends"},
    {"fail", &DeviceSettings::failAfter, 0, 10000000, "device seconds until it ends with an error"},
    {"detect", &DeviceSettings::detect, 0, 600, "s after the last key until the charger sees its pack"},
};

struct Flag {
    const char *name;
    bool DeviceSettings::*member;
    const char *help;
};

constexpr Flag flags[] = {
    {"sensor", &DeviceSettings::sensor, "temperature sensor fitted (on)"},
    {"energy10", &DeviceSettings::coarse, "energy counted in steps of 10 mAh (of itself from 50 Ah)"},
    {"endless", &DeviceSettings::endless, "a finished process goes on"},
    {"zero", &DeviceSettings::fromZero, "first line says 0 s instead of 1 s"},
    {"remote", &DeviceSettings::remote, "answers the remote control (on)"},
    {"pack", &DeviceSettings::packOn, "a pack is connected (on)"},
    {"loop", &DeviceSettings::loop, "a replay begins again at its end"},
};

bool setNumber(DeviceSettings *settings, const QString &key, const QString &value)
{
    for (const Number &number : numbers) {
        if (key != QLatin1String(number.name))
            continue;
        bool good = false;
        const int read = value.toInt(&good);
        settings->*number.member = read;
        return good && read >= number.least && read <= number.most;
    }
    return false;
}

bool setFlag(DeviceSettings *settings, const QString &key, const QString &value)
{
    for (const Flag &flag : flags)
        if (key == QLatin1String(flag.name))
            return choose(
                switches, value.isEmpty() ? QStringLiteral("on") : value, &(settings->*flag.member));
    return false;
}

bool setFault(DeviceSettings *settings, const QString &key, const QString &value)
{
    const Fault fault = findFault(key);
    if (fault == Fault::None)
        return false;
    bool good = false;
    const double rate = value.toDouble(&good);
    settings->faults[size_t(fault)] = rate;
    return good && rate >= 0 && rate <= 1;
}

bool setOption(DeviceSettings *settings, const QString &key, const QString &value)
{
    if (key == QLatin1String("chemistry"))
        return (settings->chemistry = findChemistry(value)) >= 0;
    if (key == QLatin1String("mode"))
        return choose(tasks, value, &settings->task);
    if (key == QLatin1String("balance"))
        return choose(balances, value.isEmpty() ? QStringLiteral("250") : value, &settings->balance);
    if (key == QLatin1String("start"))
        return choose(starts, value, &settings->start);
    if (key == QLatin1String("replay"))
        return !(settings->replay = value).isEmpty();
    return setNumber(settings, key, value) || setFlag(settings, key, value) || setFault(settings, key, value);
}

/// What a model can't do, as text; empty when it can do all of `settings`.
QString impossible(const DeviceSettings &settings)
{
    const auto &chemistry = chemistries().at(settings.chemistry);
    const bool older = settings.model == Model::Varnel2 || settings.model == Model::Varnel2Plus;
    const bool balancer = settings.model == Model::Tandor;
    if ((older && chemistry.oldCode == 0) || (balancer && chemistry.balancerCode == 0))
        return QStringLiteral("knows no %1 cells").arg(QLatin1String(chemistry.name));
    if (balancer && settings.cells > 12)
        return QStringLiteral("has room for 12 cells");
    if (older && (settings.task == Task::Balance || settings.task == Task::Test))
        return QStringLiteral("can only charge, discharge and format");
    if (older && settings.balance > 0)
        return QStringLiteral("has no balancer");
    return {};
}

/// A balancer does nothing but balance; balancing needs a balancer.
void settle(DeviceSettings *settings)
{
    if (settings->model == Model::Tandor) {
        settings->task = Task::Balance;
        settings->endless = settings->endless || settings->duration == 0;
    }
    if (settings->task == Task::Balance && settings->balance == 0)
        settings->balance = 250;
    settings->coarse = settings->coarse || settings->capacity >= 50000;
}

QString defaultText(const Number &number)
{
    static const DeviceSettings defaults;
    const int value = defaults.*number.member;
    return value < 0 ? QString() : QStringLiteral(" (%1)").arg(value);
}

} // namespace

DeviceSettings DeviceSettings::parse(const QString &text, QString *error)
{
    DeviceSettings settings;
    const int colon = text.indexOf(QLatin1Char(':'));
    settings.port = text.left(colon).trimmed();
    QStringList words
        = (colon < 0 ? QString() : text.mid(colon + 1)).split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (!settings.port.startsWith(QLatin1String("COM")) || settings.port.contains(QLatin1Char('/'))) {
        *error = QStringLiteral("'%1': a port's name begins with COM").arg(settings.port);
        return settings;
    }
    if (!words.isEmpty() && choose(models, words.first().trimmed(), &settings.model))
        words.removeFirst();
    for (const QString &word : qAsConst(words)) {
        const QString key = word.section(QLatin1Char('='), 0, 0).trimmed();
        if (!setOption(&settings, key, word.section(QLatin1Char('='), 1).trimmed())) {
            *error = QStringLiteral("%1: '%2' is not understood").arg(settings.port, word);
            return settings;
        }
    }
    settle(&settings);
    const QString obstacle = impossible(settings);
    if (!obstacle.isEmpty())
        *error = QStringLiteral("%1: a %2 %3").arg(settings.port, modelName(settings.model), obstacle);
    return settings;
}

QStringList DeviceSettings::options()
{
    const auto joined = [](const auto &table) {
        QStringList names;
        for (const Named &one : table)
            names.append(QLatin1String(one.name));
        return names.join(QLatin1Char('|'));
    };
    QStringList kinds;
    for (const Chemistry &chemistry : chemistries())
        kinds.append(QLatin1String(chemistry.name));
    QStringList lines = {QStringLiteral("first word          %1 (varnel3)").arg(joined(models)),
        QStringLiteral("mode=               %1 (charge)").arg(joined(tasks)),
        QStringLiteral("chemistry=          %1 (LiPo)").arg(kinds.join(QLatin1Char('|'))),
        QStringLiteral("balance=            %1 mA; 'balance' alone is 250 (off)").arg(joined(balances)),
        QStringLiteral("start=              %1 (now)").arg(joined(starts)),
        QStringLiteral("replay=FILE         lines of a file instead of a simulated process")};
    for (const Number &number : numbers)
        lines.append(QString(QLatin1String(number.name)).append(QLatin1String("=N")).leftJustified(20)
            + QLatin1String(number.help) + defaultText(number));
    for (const Flag &flag : flags)
        lines.append(QString(QLatin1String(flag.name)).append(QLatin1String("=on|off")).leftJustified(20)
            + QLatin1String(flag.help));
    for (int i = 0; i < faultKinds; ++i)
        lines.append((faultName(Fault(i)) + QLatin1String("=RATE")).leftJustified(20)
            + QLatin1String("probability of this fault for each line"));
    return lines;
}

int DeviceSettings::effectiveCurrent() const
{
    return qBound(10, current > 0 ? current : qMin(capacity, 20000), mostCurrent());
}

QString modelName(Model model)
{
    return nameOf(models, int(model));
}

} // namespace sim
