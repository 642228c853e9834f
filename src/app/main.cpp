#include "app/mainwindow.h"
#include "app/stylesheet.h"
#include "resources/resources.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("VarnelGraph"));
    QCoreApplication::setApplicationVersion(QStringLiteral("V4.60"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("varnelgraph.example"));
    QCoreApplication::setOrganizationName(QStringLiteral("VarnelGraph"));
    initResources();
    installStyleSheet(&application, QCoreApplication::applicationDirPath());
    QObject::connect(&application, SIGNAL(lastWindowClosed()), &application, SLOT(quit()));
    MainWindow window;
    window.show();
    return QApplication::exec();
}
