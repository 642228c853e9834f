#include "support/warningcollector.h"

namespace {

Q_GLOBAL_STATIC(QStringList, collected)
QtMessageHandler previous = nullptr;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    // The offscreen platform's own, of any window with a smallest size.
    if (text.contains(QLatin1String("propagateSizeHints")))
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
