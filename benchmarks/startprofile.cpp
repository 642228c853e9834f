#include "startprofile.h"

#include "startsteps.h"
#include "app/mainwindow.h"
#include "app/process/screenplatform.h"
#include "app/process/singleinstance.h"
#include "app/stylesheet.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"

#include <QApplication>

int profileStart(int argc, char **argv, long long begun)
{
    const StartSteps steps(begun);
    steps.done("libraries loaded");
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    steps.done("connected to the screen");
    SingleInstance instance(VarnelSettings().fileName());
    if (instance.settle({}) != SingleInstance::Role::First)
        return 1;
    initResources();
    installStyleSheet(&application, QCoreApplication::applicationDirPath());
    steps.done("the only one, style sheet read");
    MainWindow window;
    steps.done("window built");
    PaintWatch watch;
    window.installEventFilter(&watch);
    {
        const auto openGl = ToolkitChoice::noOpenGl();
        window.show();
    }
    steps.done("window shown");
    QApplication::exec();
    steps.done("window painted");
    return 0;
}
