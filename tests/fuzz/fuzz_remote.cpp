#include "dialogs/dialogremotecontrol.h"
#include "fuzzcheck.h"
#include "link/lineframer.h"
#include "link/serialreader.h"
#include "support/fakeshell.h"

#include <QApplication>
#include <QComboBox>

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
    LineFramer framer;
    framer.feed(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    QByteArray line;
    while (framer.next(&line)) {
        if (line.size() >= 10)
            continue;
        QMetaObject::invokeMethod(&reader, "control_data", Q_ARG(QString, QString::fromLatin1(line)));
        const auto combos = dialog.findChildren<QComboBox *>();
        for (const QComboBox *combo : combos)
            check(combo->currentIndex() >= -1 && combo->currentIndex() < combo->count(), "an item or none");
    }
    QCoreApplication::removePostedEvents(nullptr);
    return 0;
}
