#include "support/warningcollector.h"

namespace {

Q_GLOBAL_STATIC(QStringList, collected)
QtMessageHandler previous = nullptr;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // The offscreen platform's own, of any window with a smallest size or raised to the front.
    if (text.startsWith(QLatin1String("This plugin does not support")))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg)
        collected->append(text);
    else if (previous)
        previous(type, context, text);
}

} // namespace

WarningCollector::WarningCollector()
{
    collected->clear();
    previous = qInstallMessageHandler(collect);
}

WarningCollector::~WarningCollector()
{
    qInstallMessageHandler(previous);
}

QStringList WarningCollector::warnings() const
{
    return *collected;
}
