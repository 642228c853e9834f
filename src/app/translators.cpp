#include "app/translators.h"

#include "resources/resources.h"

#include <QCoreApplication>
#include <QTranslator>

namespace {

// Of the toolkit's own texts those that users meet and that its Polish lacks.
[[maybe_unused]] constexpr const char *lacking[] = {
    QT_TRANSLATE_NOOP("QCommandLineParser", "Displays help on commandline options."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Displays help including Qt specific options."),
    QT_TRANSLATE_NOOP("QPrintSettingsOutput", "Double Sided Printing"),
    QT_TRANSLATE_NOOP("QPrintSettingsOutput", "Off"),
    QT_TRANSLATE_NOOP("QPrintSettingsOutput", "Long side binding"),
    QT_TRANSLATE_NOOP("QPrintSettingsOutput", "Short side binding"),
    QT_TRANSLATE_NOOP("QPrintSettingsOutput", "Pages"),
    QT_TRANSLATE_NOOP("QPrintPropertiesWidget", "Advanced"),
    QT_TRANSLATE_NOOP("QPrintDialog", "Invalid Pages Definition"),
};

} // namespace

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
