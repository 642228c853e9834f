#include "app/batch.h"
#include "app/commandline.h"
#include "app/mainwindow.h"
#include "app/singleinstance.h"
#include "app/sleepblock.h"
#include "app/stylesheet.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"

#include <QApplication>
#include <QFileInfo>
#include <QLoggingCategory>

#include <cstdio>

namespace {

void identify()
{
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setApplicationVersion(QStringLiteral("V4.60"));
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

int runProgram(const QStringList &files)
{
    SingleInstance instance(VarnelSettings().fileName());
    switch (instance.settle(files)) {
    case SingleInstance::Role::First:
        break;
    case SingleInstance::Role::HandedOver:
        return 0;
    case SingleInstance::Role::Unanswered:
        const QString text
            = QCoreApplication::translate("main", "The program that is running does not answer.");
        std::fprintf(stderr, "%s\n", qPrintable(text));
        return 1;
    }
    initResources();
    installStyleSheet(qApp, QCoreApplication::applicationDirPath());
    QObject::connect(qApp, SIGNAL(lastWindowClosed()), &instance, SLOT(retire()));
    QObject::connect(qApp, SIGNAL(lastWindowClosed()), qApp, SLOT(quit()));
    QObject::connect(qApp, SIGNAL(aboutToQuit()), &instance, SLOT(retire()));
    MainWindow window;
    QObject::connect(&instance, SIGNAL(called(QStringList)), &window, SLOT(comeForward(QStringList)));
    window.show();
    window.openFiles(files);
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (SleepBlock::isHelper(argc, argv))
        return SleepBlock::runHelper(argc, argv);
    if (asksForBatch(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // there may be no display, and none is needed
    QApplication application(argc, argv);
    identify();
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (line.isBatch()) {
        QLoggingCategory::setFilterRules(
            QStringLiteral("*.debug=false")); // standard error is for what goes wrong
        return runBatch(line);
    }
    return runProgram(absolute(line.files));
}
