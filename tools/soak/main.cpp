#include "settings/varnelsettings.h"
#include "simulator/rack.h"
#include "soak/burstload.h"
#include "soak/deviceside.h"
#include "soak/program.h"
#include "soak/rackload.h"
#include "soak/randomuser.h"
#include "soak/soakrun.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLoggingCategory>
#include <QRandomGenerator>

#include <cstdio>

namespace {

using namespace soak;

void addOptions(QCommandLineParser *parser)
{
    parser->setApplicationDescription(
        QStringLiteral("The program under load, listening on simulated devices. Prints a table; ends with 1 "
                       "where a line was lost "
                       "or a limit not held."));
    parser->addHelpOption();
    parser->addOptions({
        {QStringLiteral("minutes"), QStringLiteral("How long."), QStringLiteral("number"),
            QStringLiteral("10")},
        {QStringLiteral("ports"), QStringLiteral("How many devices."), QStringLiteral("number"),
            QStringLiteral("32")},
        {QStringLiteral("burst"),
            QStringLiteral("Instead: so many lines over one port, as fast as they are taken."),
            QStringLiteral("lines")},
        {QStringLiteral("rest"),
            QStringLiteral("Instead: three devices, so many of their seconds in one; then all minimised."),
            QStringLiteral("speed")},
        {QStringLiteral("user"),
            QStringLiteral("Instead: somebody who does anything at any moment, so many steps."),
            QStringLiteral("steps")},
        {QStringLiteral("seed"), QStringLiteral("Of the choices of this user."), QStringLiteral("number")},
        {QStringLiteral("only-count"), QStringLiteral("No limit but that no line is lost.")},
        {QStringLiteral("show"), QStringLiteral("On the screen.")},
        {QStringLiteral("devices"), QStringLiteral("The process of the devices, their ports in this folder."),
            QStringLiteral("folder")},
    });
}

int playDevices(const QCommandLineParser &parser)
{
    const QString folder = parser.value(QStringLiteral("devices"));
    const qint64 lines = parser.value(QStringLiteral("burst")).toLongLong();
    std::unique_ptr<Load> load;
    if (lines > 0)
        load = std::make_unique<BurstLoad>(folder, lines);
    else
        load = std::make_unique<RackLoad>(folder, parser.value(QStringLiteral("ports")).toInt(),
            parser.value(QStringLiteral("rest")).toDouble());
    DeviceSide side(load.get());
    return side.begin() ? QCoreApplication::exec() : 1;
}

/// The offscreen platform complains of each thing that it has no screen for.
void dropPlatformComplaints(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

constexpr int restPorts = 3;

int putUnderLoad(const QCommandLineParser &parser)
{
    SoakPlan plan;
    plan.minutes = parser.value(QStringLiteral("minutes")).toDouble();
    plan.ports = parser.value(QStringLiteral("ports")).toInt();
    plan.burst = parser.value(QStringLiteral("burst")).toLongLong();
    plan.restSpeed = parser.value(QStringLiteral("rest")).toDouble();
    if (plan.restSpeed > 0 && !parser.isSet(QStringLiteral("ports")))
        plan.ports = restPorts;
    plan.onlyCount = parser.isSet(QStringLiteral("only-count"));
    if (plan.minutes <= 0 || plan.ports < 1) {
        std::fprintf(stderr, "varnelsoak: a number is not understood\n");
        return 2;
    }
    qInstallMessageHandler(dropPlatformComplaints);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    return SoakRun(plan).run() ? 0 : 1;
}

/// Of the program all but the last are listened on.
constexpr const char *userDevices[] = {"COM1:varnel3,cells=6,balance,processes=0,pause=2,noise=0.01",
    "COM2:varnel2plus,processes=0,pause=2,cut=0.01",
    "COM3:varnel3,cells=16,balance,duration=500,processes=0,endlines=3,join=0.01", "COM4:tandor,fields=0.01",
    "COM5:varnel3,start=remote,cells=4,detect=1", "COM6:varnel2,processes=0,duration=300"};

int letAnybodyUse(const QCommandLineParser &parser)
{
    bool given = false;
    quint32 seed = parser.value(QStringLiteral("seed")).toUInt(&given);
    if (!given)
        seed = QRandomGenerator::global()->generate();
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    Program program;
    sim::RunSettings run;
    run.folder = program.portFolder();
    run.speed = 100;
    run.seed = seed;
    sim::Rack rack(run);
    QString error;
    for (const char *device : userDevices)
        if (!rack.add(QString::fromLatin1(device), &error))
            qFatal("%s", qPrintable(error));
    VarnelSettings().setSendTime(true);
    return RandomUser(&program, &rack, seed).run(parser.value(QStringLiteral("user")).toInt()) ? 0 : 1;
}

bool isAsked(int argc, char **argv, const char *option)
{
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], option) == 0)
            return true;
    }
    return false;
}

template <typename Application>
int start(int argc, char **argv, int (*work)(const QCommandLineParser &))
{
    Application application(argc, argv);
    QCommandLineParser parser;
    addOptions(&parser);
    parser.process(application);
    return work(parser);
}

} // namespace

int main(int argc, char **argv)
{
    if (isAsked(argc, argv, "--devices"))
        return start<QCoreApplication>(argc, argv, playDevices);
    if (!isAsked(argc, argv, "--show"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return start<QApplication>(argc, argv, isAsked(argc, argv, "--user") ? letAnybodyUse : putUnderLoad);
}
