#include "app/batch/commandline.h"

#include "documents/graphfile.h"
#include "settings/language.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

constexpr int smallestSide = 100; // px, of a drawing
constexpr int largestSide = 32767; // px, what a painter's coordinates bear

/// An option that takes a value.
struct Option {
    const char *name;
    const char *value;
    const char *description;
};

constexpr char languageName[] = "language";
constexpr char exportName[] = "export-csv";
constexpr char renderName[] = "render";
constexpr char logbookName[] = "logbook-csv";
constexpr char sizeName[] = "size";

const Option options[] = {
    {languageName, "code",
        QT_TRANSLATE_NOOP("CommandLine", "Language of the texts: en, pl or de. Numbers follow the system.")},
    {exportName, "out",
        QT_TRANSLATE_NOOP(
            "CommandLine", "Write the recording FILE to <out> as comma-separated values and leave.")},
    {logbookName, "out",
        QT_TRANSLATE_NOOP("CommandLine", "Write the logbook to <out> as comma-separated values and leave.")},
    {renderName, "out",
        QT_TRANSLATE_NOOP("CommandLine", "Draw the recording FILE to <out> (.png, .svg or .pdf) and leave.")},
    {sizeName, "WxH",
        QT_TRANSLATE_NOOP("CommandLine", "Size of the drawing in pixels, for example 1000x600.")},
    {"background", "colour", QT_TRANSLATE_NOOP("CommandLine", "Background of the drawing: black or white.")},
    {"lines", "kind",
        QT_TRANSLATE_NOOP("CommandLine", "Lines of the drawing: usual, or distinct without their hues.")},
    {"view", "view", QT_TRANSLATE_NOOP("CommandLine", "View of the drawing: charger, cells or average.")},
    {"right-axis", "what",
        QT_TRANSLATE_NOOP("CommandLine", "Right axis of the charger view: dv, mah or none.")},
    {"hide", "curve",
        QT_TRANSLATE_NOOP(
            "CommandLine", "Leave out a curve: temperature or resistance. May be given twice.")},
    {"cell-value", "what",
        QT_TRANSLATE_NOOP("CommandLine", "Figure beside a cell's name: voltage, charge or resistance.")},
};

/// A word of an option and the switches that it sets.
struct Choice {
    const char *option;
    const char *word;
    void (*apply)(ViewSwitches &switches);
};

const Choice choices[] = {
    {"background", "black", [](ViewSwitches &s) { s.blackBackground = true; }},
    {"background", "white", [](ViewSwitches &s) { s.blackBackground = false; }},
    {"lines", "usual", [](ViewSwitches &s) { s.distinctLines = false; }},
    {"lines", "distinct", [](ViewSwitches &s) { s.distinctLines = true; }},
    {"view", "charger", [](ViewSwitches &s) { s.balancer = s.average = false; }},
    {"view", "cells", [](ViewSwitches &s) { s.balancer = true, s.average = false; }},
    {"view", "average", [](ViewSwitches &s) { s.balancer = s.average = true; }},
    {"right-axis", "dv", [](ViewSwitches &s) { s.rightAxis = RightAxis::Slope; }},
    {"right-axis", "mah", [](ViewSwitches &s) { s.rightAxis = RightAxis::Energy; }},
    {"right-axis", "none", [](ViewSwitches &s) { s.rightAxis = RightAxis::None, s.delta = false; }},
    {"hide", "temperature", [](ViewSwitches &s) { s.temperature = false; }},
    {"hide", "resistance", [](ViewSwitches &s) { s.resistance = false; }},
    {"cell-value", "voltage", [](ViewSwitches &s) { s.cellValue = CellValue::Voltage; }},
    {"cell-value", "charge", [](ViewSwitches &s) { s.cellValue = CellValue::Charge; }},
    {"cell-value", "resistance", [](ViewSwitches &s) { s.cellValue = CellValue::Resistance; }},
};

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

void refuse(CommandLine &line, const QString &why)
{
    line.task = CommandLine::Refuse;
    line.message = why + QLatin1Char('\n')
        + Texts::tr("Usage: varnelgraph [options] [FILE...]; see varnelgraph --help.") + QLatin1Char('\n');
}

void refuseWord(CommandLine &line, const char *option, const QString &word)
{
    refuse(line, QStringLiteral("--%1: ").arg(QLatin1String(option)) + Texts::tr("unknown word ") + word);
}

bool readSize(const QString &text, QSize *size)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    *size = QSize(sides.value(0).toInt(), sides.value(1).toInt()); // 0 is too small, too
    const auto fits = [](int side) { return side >= smallestSide && side <= largestSide; };
    return sides.size() == 2 && fits(size->width()) && fits(size->height());
}

QString name(const char *option)
{
    return QString::fromLatin1(option);
}

/// Whether a choice of `option` is called `word`; it is applied then.
bool applyChoice(const char *option, const QString &word, ViewSwitches &switches)
{
    for (const Choice &choice : choices) {
        if (qstrcmp(choice.option, option) != 0 || word != QLatin1String(choice.word))
            continue;
        choice.apply(switches);
        return true;
    }
    return false;
}

bool isChoice(const Option &option)
{
    return std::any_of(std::begin(choices), std::end(choices),
        [&](const Choice &choice) { return qstrcmp(choice.option, option.name) == 0; });
}

void readDrawing(const QCommandLineParser &parser, CommandLine &line)
{
    const QString size = parser.value(name(sizeName));
    if (!size.isEmpty() && !readSize(size, &line.size))
        return refuse(line,
            Texts::tr("Not a size between %1x%1 and %2x%2: ").arg(smallestSide).arg(largestSide) + size);
    for (const Option &option : options) {
        if (!isChoice(option))
            continue;
        const QStringList words = parser.values(name(option.name));
        for (const QString &word : words)
            if (!applyChoice(option.name, word, line.switches))
                return refuseWord(line, option.name, word);
    }
}

/// "*.acp" becomes the name of the output and that of the input, should there be two.
bool isRecording(const QString &fileName)
{
    for (const QString &path : {fileName, QFileInfo(fileName).canonicalFilePath()})
        for (const char *ending : {".acp", ".abp"})
            if (path.endsWith(QLatin1String(ending), Qt::CaseInsensitive))
                return true;
    return false;
}

/// Words of which each asks for another batch.
struct BatchWord {
    const char *option;
    CommandLine::Task task;
    int files; ///< that it needs
};

const BatchWord batchWords[] = {{exportName, CommandLine::ExportCsv, 1}, {renderName, CommandLine::Render, 1},
    {logbookName, CommandLine::LogbookCsv, 0}};

void readBatch(const QCommandLineParser &parser, const BatchWord &word, CommandLine &line)
{
    if (line.isBatch())
        return refuse(line, Texts::tr("Only one of --export-csv, --logbook-csv and --render."));
    if (line.files.size() != word.files)
        return refuse(line,
            word.files == 1 ? Texts::tr("One recording FILE is needed.")
                            : Texts::tr("The logbook needs no recording FILE."));
    line.task = word.task;
    line.output = parser.value(name(word.option));
    const bool same = QFileInfo::exists(line.output) && !line.files.isEmpty()
        && QFileInfo(line.output) == QFileInfo(line.files.first());
    if (same || isRecording(line.output))
        return refuse(line, Texts::tr("A recording is not written over: ") + line.output);
    if (word.task == CommandLine::Render && graphFormat(line.output) == GraphFormat::Unknown)
        refuse(line, Texts::tr("The drawing's name must end in .png, .svg or .pdf: ") + line.output);
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        Texts::tr("Records what battery chargers and balancers send over serial ports, and draws it."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("FILE..."), Texts::tr("Recordings (.acp, .abp) to open."),
        QStringLiteral("[FILE...]"));
    for (const Option &option : options)
        parser.addOption({name(option.name), Texts::tr(option.description), name(option.value)});

    CommandLine line;
    if (!parser.parse(arguments)) {
        refuse(line, parser.errorText());
        return line;
    }
    line.language = parser.value(name(languageName));
    if (parser.isSet(name(languageName)) && !Language::isKnown(line.language)) {
        refuseWord(line, languageName, line.language);
        return line;
    }
    line.files = parser.positionalArguments();
    const bool helps = parser.isSet(help) || parser.isSet(QStringLiteral("help-all"));
    if (helps || parser.isSet(version)) {
        line.task = CommandLine::Print;
        line.message = helps ? parser.helpText()
                             : QStringLiteral("VarnelGraph %1\n").arg(QCoreApplication::applicationVersion());
        return line;
    }
    readDrawing(parser, line);
    for (const BatchWord &word : batchWords) {
        if (line.task != CommandLine::Refuse && parser.isSet(name(word.option)))
            readBatch(parser, word, line);
    }
    return line;
}

QStringList withoutToolkitWords(const QStringList &arguments)
{
    static const QStringList alone = {QStringLiteral("reverse"), QStringLiteral("nograb"),
        QStringLiteral("dograb"), QStringLiteral("widgetcount")};
    static const QStringList withValue
        = {QStringLiteral("platform"), QStringLiteral("platformpluginpath"), QStringLiteral("platformtheme"),
            QStringLiteral("plugin"), QStringLiteral("qwindowgeometry"), QStringLiteral("geometry"),
            QStringLiteral("qwindowicon"), QStringLiteral("icon"), QStringLiteral("qwindowtitle"),
            QStringLiteral("title"), QStringLiteral("session"), QStringLiteral("style"),
            QStringLiteral("stylesheet"), QStringLiteral("display"), QStringLiteral("name")};
    QStringList words;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &word = arguments[i];
        if (word == QLatin1String("--"))
            return words + arguments.mid(i);
        const int dashes = word.startsWith(QLatin1String("--")) ? 2 : word.startsWith(QLatin1Char('-'));
        const QString option = dashes > 0 ? word.mid(dashes).section(QLatin1Char('='), 0, 0) : QString();
        if (withValue.contains(option))
            i += !word.contains(QLatin1Char('='));
        else if (!alone.contains(option))
            words += word;
    }
    return words;
}
