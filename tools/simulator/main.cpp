#include "simulator/chemistry.h"
#include "simulator/console.h"
#include "simulator/rack.h"
#include "simulator/stopsignals.h"
#include "simulator/year.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <cstdio>

namespace {

void say(const QString &text)
{
    std::fprintf(stdout, "%s\n", qPrintable(text));
    std::fflush(stdout);
}

int fail(const QString &text)
{
    std::fprintf(stderr, "varnelsim: %s\n", qPrintable(text));
    return 1;
}

/// Prints what happens, unless told to be quiet.
class Printer : public QObject {
    Q_OBJECT

public slots:
    void print(const QString &text) { say(text); }
};

void addOptions(QCommandLineParser *parser)
{
    parser->setApplicationDescription(QStringLiteral(
        "Simulated chargers and balancers on ports of their own.\n\n"
        "varnelsim --speed 60 --device COM3:varnel3,cells=6,balance --device COM5:tandor,cells=12"));
    parser->addHelpOption();
    parser->addOptions({
        {QStringLiteral("device"),
            QStringLiteral("PORT:MODEL,OPTION=VALUE,... (see --list); may be repeated."),
            QStringLiteral("description")},
        {QStringLiteral("dir"), QStringLiteral("Folder of the ports' links."), QStringLiteral("folder"),
            sim::Rack::defaultFolder()},
        {QStringLiteral("speed"), QStringLiteral("Device seconds in a second."), QStringLiteral("factor"),
            QStringLiteral("1")},
        {QStringLiteral("rate"), QStringLiteral("'line': as fast as 19200 baud carry the lines."),
            QStringLiteral("rate")},
        {QStringLiteral("fault"), QStringLiteral("NAME=RATE,... for every device; may be repeated."),
            QStringLiteral("faults")},
        {QStringLiteral("replay"), QStringLiteral("Every device sends the lines of this file."),
            QStringLiteral("file")},
        {QStringLiteral("log"), QStringLiteral("Write every line handed over to this file."),
            QStringLiteral("file")},
        {QStringLiteral("seed"), QStringLiteral("The same number gives the same course."),
            QStringLiteral("number"), QStringLiteral("1")},
        {QStringLiteral("year"),
            QStringLiteral("Write a year of six packs that age into this folder, as recordings, and leave."),
            QStringLiteral("folder")},
        {QStringLiteral("quiet"), QStringLiteral("Do not print what happens.")},
        {QStringLiteral("list"),
            QStringLiteral("Print the options of a device and the ports now in the folder.")},
    });
}

void list(const QString &folder)
{
    say(QStringLiteral("--device PORT:OPTION,OPTION=VALUE,...\n"));
    const QStringList options = sim::DeviceSettings::options();
    for (const QString &line : options)
        say(QLatin1String("  ") + line);
    say(QStringLiteral("\nCommands while running:\n\n%1\n\nPorts in %2:").arg(sim::Console::help(), folder));
    const QDir::Filters links = QDir::System | QDir::Files;
    const QFileInfoList ports = QDir(folder).entryInfoList({QStringLiteral("COM*")}, links);
    for (const QFileInfo &port : ports)
        say(QStringLiteral("  %1 -> %2").arg(port.fileName(), port.symLinkTarget()));
}

bool readRun(const QCommandLineParser &parser, sim::RunSettings *run)
{
    bool speedGood = false, seedGood = false;
    run->folder = parser.value(QStringLiteral("dir"));
    run->speed = parser.value(QStringLiteral("speed")).toDouble(&speedGood);
    run->seed = parser.value(QStringLiteral("seed")).toUInt(&seedGood);
    run->lineRate = parser.value(QStringLiteral("rate")) == QLatin1String("line");
    return speedGood && seedGood && run->speed > 0
        && (run->lineRate || !parser.isSet(QStringLiteral("rate")));
}

/// The descriptions with what is given for every device behind them.
QStringList descriptions(const QCommandLineParser &parser)
{
    QStringList all = parser.values(QStringLiteral("device"));
    if (all.isEmpty())
        all = QStringList{QStringLiteral("COM3:varnel3,balance")};
    QString common;
    const QStringList given = parser.values(QStringLiteral("fault"));
    for (const QString &faults : given)
        common += QLatin1Char(',') + faults;
    if (parser.isSet(QStringLiteral("replay")))
        common += QLatin1String(",replay=") + parser.value(QStringLiteral("replay"));
    for (QString &one : all)
        one += (one.contains(QLatin1Char(':')) || common.isEmpty() ? QString() : QStringLiteral(":"))
            + common;
    return all;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    addOptions(&parser);
    parser.process(application);
    sim::RunSettings run;
    if (!readRun(parser, &run))
        return fail(QStringLiteral("--speed, --seed or --rate is not understood"));
    if (parser.isSet(QStringLiteral("list"))) {
        list(run.folder);
        return 0;
    }
    if (parser.isSet(QStringLiteral("year"))) {
        QString error;
        const int files
            = sim::writeYear(parser.value(QStringLiteral("year")), run.seed, QDate::currentDate(), &error);
        if (files < 0)
            return fail(error);
        say(QStringLiteral("%1 recordings").arg(files));
        return 0;
    }
    sim::StopSignals signalsHeard;
    sim::Rack rack(run);
    sim::Console console(&rack);
    Printer printer;
    QString error;
    if (parser.isSet(QStringLiteral("log")) && !rack.openLog(parser.value(QStringLiteral("log")), &error))
        return fail(error);
    if (!parser.isSet(QStringLiteral("quiet")))
        QObject::connect(&rack, SIGNAL(happened(QString)), &printer, SLOT(print(QString)));
    QObject::connect(&signalsHeard, SIGNAL(arrived()), &application, SLOT(quit()));
    QObject::connect(&console, SIGNAL(quitRequested()), &application, SLOT(quit()));
    const QStringList devices = descriptions(parser);
    for (const QString &one : devices)
        if (!rack.add(one, &error))
            return fail(error);
    console.listen();
    return QCoreApplication::exec();
}

#include "main.moc"
