#pragma once

#include <QStringList>

/// Collects the warnings that Qt and the program write while it lives; other messages pass as before.
class WarningCollector {
public:
    WarningCollector()
    {
        collected().clear();
        previous = qInstallMessageHandler(collect);
    }
    ~WarningCollector() { qInstallMessageHandler(previous); }
    Q_DISABLE_COPY(WarningCollector)

    QStringList warnings() const { return collected(); }

private:
    static QStringList &collected()
    {
        static QStringList texts;
        return texts;
    }
    static void collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        // The offscreen platform's own, of any window with a smallest size or raised to the front.
        if (text.startsWith(QLatin1String("This plugin does not support")))
            return;
        if (type == QtWarningMsg || type == QtCriticalMsg)
            collected().append(text);
        else if (previous)
            previous(type, context, text);
    }

    static inline QtMessageHandler previous = nullptr;
};
