#include "app/batch/batch.h"
#include "app/batch/commandline.h"
#include "app/process/console.h"
#include "app/process/logoutput.h"
#include "app/process/screenplatform.h"
#include "app/mainwindow.h"
#include "app/settingsnotice.h"
#include "app/process/singleinstance.h"
#include "app/process/stopsignals.h"
#include "app/sessionend.h"
#include "machine/sleepblock.h"
#include "app/stylesheet.h"
#include "app/translators.h"
#include "settings/language.h"
#include "settings/settingskeeper.h"
#include "settings/varnelsettings.h"

#include <QApplication>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMessageBox>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace {

void identify()
{
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setApplicationVersion(QStringLiteral("V" VARNELGRAPH_VERSION));
    // The settings lie under the organisation's name; the domain is reserved
    // for examples and belongs to nobody.
    QCoreApplication::setOrganizationDomain(QStringLiteral("varnelgraph.example"));
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
}

/// Relative names mean nothing to a program that was started elsewhere.
QStringList absolute(const QStringList &files)
{
    QStringList paths;
    for (const QString &file : files)
        paths.append(QFileInfo(file).absoluteFilePath());
    return paths;
}

/// Told in a box too: somebody who has clicked on an icon reads no standard error.
int tellUnanswered(qint64 process)
{
    QString text = QCoreApplication::translate("main", "The program that is running does not answer.");
    if (process > 0)
        text += QLatin1Char('\n')
            + QCoreApplication::translate("main", "Its process has the number %1.").arg(process);
    std::fprintf(stderr, "%s\n", qPrintable(text));
    QMessageBox box(QMessageBox::Critical, QCoreApplication::applicationName(), text);
    box.setInformativeText(
        QCoreApplication::translate("main", "End it, or wait for its end, and start again."));
    box.exec();
    return 1;
}

/// What waits for the disk may wait for ever; the lines of the devices are with the system by now.
int leave(int code)
{
    if (!SettingsKeeper::waitForWritten(SettingsKeeper::patience))
        std::_Exit(code);
    return code;
}

int runProgram(const QStringList &files)
{
    SingleInstance instance(VarnelSettings().fileName());
    switch (instance.settle(files)) {
    case SingleInstance::Role::First:
        break;
    case SingleInstance::Role::HandedOver:
        return 0;
    case SingleInstance::Role::Unanswered:
        return tellUnanswered(instance.holder());
    }
    installStyleSheet(qApp, QCoreApplication::applicationDirPath());
    QObject::connect(qApp, SIGNAL(lastWindowClosed()), qApp, SLOT(quit()));
    QObject::connect(qApp, SIGNAL(aboutToQuit()), &instance, SLOT(retire()));
    auto window = std::make_unique<MainWindow>();
    QObject::connect(&instance, SIGNAL(called(QStringList)), window.get(), SLOT(comeForward(QStringList)));
    new SettingsNotice(window.get());
    QObject::connect(
        new StopSignals(qApp), SIGNAL(arrived()), window->findChild<SessionEnd *>(), SLOT(end()));
    {
        const auto openGl = ToolkitChoice::noOpenGl();
        window->show();
    }
    window->openFiles(files);
    const int code = QApplication::exec();
    window->stopRecording(); // where something else than its closing has ended the program
    instance.giveBack(); // ports are closed and lines are with the system; the disk may take its time
    window.reset();
    return leave(code);
}

/// Letters, lines and pictures have the size that each screen asks for, in its own pixels. Before there is
/// any graphical application object.
void followScreens()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

/// The program speaks the user's language from here on, and so does what the command line is answered.
CommandLine understood(const QStringList &words)
{
    installLanguage(Language::chosen(parseCommandLine(words).language, VarnelSettings().language()));
    return parseCommandLine(words);
}

/// Looked at before there is a graphical application object: that ends the program where no display is.
CommandLine lookAhead(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return understood(withoutToolkitWords(QCoreApplication::arguments()));
}

} // namespace

int main(int argc, char **argv)
{
    if (SleepBlock::isHelper(argc, argv))
        return SleepBlock::runHelper(argc, argv);
    identify();
    const CommandLine ahead = lookAhead(argc, argv);
    if (ahead.isBatch())
        joinConsole();
    if (ahead.task == CommandLine::Print || ahead.task == CommandLine::Refuse)
        return runBatch(ahead);
    // Qt may have something to say at once. Of a command, standard error is for what goes wrong.
    if (ahead.isBatch())
        QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\ndefault.warning=false"));
    else
        protectLog();
    followScreens();
    std::optional<QApplication> application;
    {
        const auto platform
            = ToolkitChoice::platform(ahead.isBatch() ? screenlessPlatforms() : screenPlatforms());
        application.emplace(argc, argv);
    }
    const CommandLine line = understood(QCoreApplication::arguments());
    if (line.isBatch())
        return runBatch(line);
    return runProgram(absolute(line.files));
}
