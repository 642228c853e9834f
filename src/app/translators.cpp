#include "app/translators.h"

#include "resources/resources.h"

#include <QCoreApplication>
#include <QTranslator>

void installLanguage(const QString &language)
{
    initResources();
    QCoreApplication *const application = QCoreApplication::instance();
    const auto before = application->findChildren<QTranslator *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTranslator *translator : before)
        delete translator; // uninstalls it
    for (const char *module : {"qtbase", "qtserialport", "varnelgraph"}) { // the last one is asked first
        auto *translator = new QTranslator(application);
        if (translator->load(QStringLiteral(":/translations/%1_%2.qm").arg(QLatin1String(module), language)))
            QCoreApplication::installTranslator(translator);
        else
            delete translator; // Qt's own texts are English
    }
}
