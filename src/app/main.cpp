#include "app/batch.h"
#include "app/commandline.h"
#include "app/mainwindow.h"
#include "app/stylesheet.h"
#include "resources/resources.h"

#include <QApplication>
#include <QLoggingCategory>

int main(int argc, char **argv)
{
    if (asksForBatch(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // there may be no display, and none is needed
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setApplicationVersion(QStringLiteral("V4.60"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("varnelgraph.example"));
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (line.isBatch()) {
        QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false")); // standard error is for what goes wrong
        return runBatch(line);
    }
    initResources();
    installStyleSheet(&application, QCoreApplication::applicationDirPath());
    QObject::connect(&application, SIGNAL(lastWindowClosed()), &application, SLOT(quit()));
    MainWindow window;
    window.show();
    return QApplication::exec();
}
