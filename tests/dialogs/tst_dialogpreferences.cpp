#include "dialogs/checkboxcomport.h"
#include "dialogs/dialogpreferences.h"
#include "ports/portinfo.h"
#include "support/shellrig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

/// Choosing ports while they come and go.
class TestDialogPreferences : public QObject, private ShellRig {
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void storedOnOk();
    void absentPortIsForgotten();
    void portsWithoutComName();
    void refreshKeepsTicks();
    void resetAndCancel();
    void tabOrder();

private:
    static QString ticks(const QDialog &dialog);
    static void click(const QDialog &dialog, const char *button);
};

/// The rows from top to bottom, '*' where ticked.
QString TestDialogPreferences::ticks(const QDialog &dialog)
{
    QStringList rows;
    const auto boxes = dialog.findChildren<CheckBoxComPort *>();
    for (const CheckBoxComPort *box : boxes)
        rows << box->portName() + (box->isChecked() ? "*" : "");
    rows.sort();
    return rows.join(' ');
}

void TestDialogPreferences::click(const QDialog &dialog, const char *button)
{
    dialog.findChild<QPushButton *>(QStringLiteral("preferencesButton") + QLatin1String(button))->click();
}

void TestDialogPreferences::storedOnOk()
{
    plug(QStringLiteral("COM3"));
    plug(QStringLiteral("COM10"));
    VarnelSettings().setPorts({QStringLiteral("COM3")});
    DialogPreferences dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Varnel - preferences"));
    QCOMPARE(dialog.minimumSize(), QSize(425, 345));
    QCOMPARE(dialog.maximumSize(), dialog.minimumSize());
    VarnelSettings().setPorts({QStringLiteral("COM3"), QStringLiteral("COM7")}); // by an answer meanwhile
    QCOMPARE(ticks(dialog), QStringLiteral("COM10 COM3*"));
    const auto boxes = dialog.findChildren<CheckBoxComPort *>();
    for (CheckBoxComPort *box : boxes)
        box->setChecked(true);
    dialog.findChild<QCheckBox *>(QStringLiteral("sendTime"))->setChecked(true);
    dialog.findChild<QComboBox *>(QStringLiteral("language"))->setCurrentText(QStringLiteral("Polski"));
    QVERIFY(!VarnelSettings().ports().contains(QStringLiteral("COM10")));
    click(dialog, "Ok");
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(VarnelSettings().ports(),
        QStringList({QStringLiteral("COM10"), QStringLiteral("COM3"), QStringLiteral("COM7")}));
    QVERIFY(VarnelSettings().sendTime());
    QCOMPARE(VarnelSettings().language(), QStringLiteral("pl"));
    DialogPreferences again(nullptr);
    click(again, "Reset");
    click(again, "Ok");
    QVERIFY(!VarnelSettings().contains(QStringLiteral("language"))); // the system's
}

void TestDialogPreferences::absentPortIsForgotten()
{
    VarnelSettings().setPorts({QStringLiteral("COM9")});
    DialogPreferences dialog(nullptr);
    QCOMPARE(ticks(dialog), QString());
    click(dialog, "Ok");
    QCOMPARE(VarnelSettings().ports(), QStringList());
}

void TestDialogPreferences::portsWithoutComName()
{
    const QString none = QStringLiteral("No port is present. Plug a device in and press Refresh.");
    const QString folder = QStringLiteral("/run/user/7/varnelgraph");
    QVector<PortInfo> ports;
    QCOMPARE(DialogPreferences::noPortText(ports, folder), none);
    for (const char *name : {"ttyS0", "ttyUSB0", "ttyACM0"})
        ports.append({QLatin1String(name), QString(), QStringLiteral("/dev/") + QLatin1String(name)});
    QCOMPARE(DialogPreferences::noPortText(ports, QString()), none); // where links give no names
    const QString text = DialogPreferences::noPortText(ports, folder);
    for (const char *part :
        {"Serial ports without a COM name: ttyS0, ttyUSB0, ttyACM0\n", "mkdir -p /run/user/7/varnelgraph\n",
            "ln -s /dev/ttyUSB0 /run/user/7/varnelgraph/COM1\n", "docs/ports.md"})
        QVERIFY2(text.contains(QLatin1String(part)), qPrintable(text));
    ports += ports + ports; // six are named at most
    QVERIFY(DialogPreferences::noPortText(ports.mid(0, 6), folder).contains(QLatin1String("ttyACM0\n")));
    QVERIFY(DialogPreferences::noPortText(ports, folder).contains(QLatin1String("ttyACM0, ...\n")));
    QVERIFY(DialogPreferences::noPortText({ports[0]}, folder).contains(QLatin1String("ln -s /dev/ttyS0 ")));
}

void TestDialogPreferences::refreshKeepsTicks()
{
    plug(QStringLiteral("COM3"));
    plug(QStringLiteral("COM4"));
    DialogPreferences dialog(nullptr);
    const auto boxes = dialog.findChildren<CheckBoxComPort *>();
    for (CheckBoxComPort *box : boxes)
        box->setChecked(true);
    plug(QStringLiteral("COM5"));
    plugged.front()->hangUp();
    click(dialog, "Refresh");
    QCOMPARE(ticks(dialog), QStringLiteral("COM4* COM5"));
}

void TestDialogPreferences::resetAndCancel()
{
    plug(QStringLiteral("COM3"));
    VarnelSettings().setPorts({QStringLiteral("COM3")});
    VarnelSettings().setSendTime(true);
    DialogPreferences dialog(nullptr);
    click(dialog, "Reset");
    QCOMPARE(ticks(dialog), QStringLiteral("COM3"));
    QVERIFY(!dialog.findChild<QCheckBox *>(QStringLiteral("sendTime"))->isChecked());
    click(dialog, "Cancel");
    QCOMPARE(VarnelSettings().ports(), QStringList(QStringLiteral("COM3")));
    QVERIFY(VarnelSettings().sendTime());
}

/// The Tab key goes from top to bottom, over rows that came later too.
void TestDialogPreferences::tabOrder()
{
    plug(QStringLiteral("COM3"));
    DialogPreferences dialog(nullptr);
    plug(QStringLiteral("COM4"));
    click(dialog, "Refresh");
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList order;
    for (int i = 0; i < 8; ++i) {
        const QWidget *focus = dialog.focusWidget();
        const auto *port = qobject_cast<const CheckBoxComPort *>(focus);
        if (port || qobject_cast<const QAbstractButton *>(focus))
            order << (port ? port->portName() : qobject_cast<const QAbstractButton *>(focus)->text());
        QTest::keyClick(&dialog, Qt::Key_Tab);
    }
    QVERIFY2(order.join(',').startsWith(QStringLiteral("COM3,COM4,Set varnel3's time while starting,OK")),
        qPrintable(order.join(',')));
}

QTEST_MAIN(TestDialogPreferences)
#include "tst_dialogpreferences.moc"
