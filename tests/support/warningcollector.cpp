#include "support/warningcollector.h"

namespace {

Q_GLOBAL_STATIC(QStringList, collected)
QtMessageHandler previous = nullptr;

void collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
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
