#include "dialogs/dialogremotecontrol.h"
#include "fuzzcheck.h"
#include "link/lineframer.h"
#include "link/serialreader.h"
#include "support/fakeshell.h"

#include <QApplication>
#include <QComboBox>
#include <QMap>
#include <QStackedWidget>

namespace {

/// The page after `reply` where `page` was shown before.
int pageAfter(const QString &reply, int page)
{
    static const QMap<QString, int> states = {{QStringLiteral("#TRYB00"), 0}, {QStringLiteral("#TRYB02"), 2},
        {QStringLiteral("#TRYB03"), 3}, {QStringLiteral("#TRYB04"), 4}};
    if (reply.startsWith(QLatin1String("#START")))
        return 3;
    return reply.startsWith(QLatin1String("#STOP")) ? 4 : states.value(reply, page);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QApplication application(*argc, *argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

// Bytes of a device that is asked for its panel's state; short lines are replies.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    static FakeShell host;
    static SerialReader reader(nullptr, QStringLiteral("COM1"), &host);
    static DialogRemoteControl dialog(&reader);
    static const auto *pages = dialog.findChild<QStackedWidget *>();
    LineFramer framer;
    framer.feed(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    QByteArray line;
    while (framer.next(&line)) {
        if (line.size() >= 10)
            continue;
        const QString reply = QString::fromLatin1(line);
        const int page = pageAfter(reply.trimmed(), pages->currentIndex());
        QMetaObject::invokeMethod(&reader, "control_data", Q_ARG(QString, reply));
        check(pages->currentIndex() == page, "a reply leads to its page");
        const auto combos = dialog.findChildren<QComboBox *>();
        for (const QComboBox *combo : combos)
            check(combo->currentIndex() >= -1 && combo->currentIndex() < combo->count(), "an item or none");
    }
    QCoreApplication::removePostedEvents(nullptr);
    return 0;
}
