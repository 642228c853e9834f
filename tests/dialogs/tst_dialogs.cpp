#include "dialogs/about.h"
#include "dialogs/checkboxcomport.h"
#include "dialogs/dialogpreferences.h"
#include "ports/portinfo.h"
#include "support/literal.h"
#include "support/shellrig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollArea>

/// The box that says what this is, and the choosing of ports while they come and go.
class TestDialogs : public ShellRig {
    Q_OBJECT

private slots:
    void aboutSaysWhatItIs()
    {
        About about;
        QCOMPARE(about.windowTitle(), "About"_s);
        QVERIFY(about.minimumSize() == QSize(300, 300) && about.maximumSize() == QSize(300, 300));
        about.show();
        QStringList said;
        for (const QLabel *label : constant(about.findChildren<QLabel *>())) {
            QVERIFY2(label->size().expandedTo(label->minimumSizeHint()) == label->size()
                    && label->alignment() == Qt::AlignCenter,
                qPrintable(label->text())); // nothing is cut off
            const bool isLink = label->openExternalLinks()
                && label->textInteractionFlags().testFlag(Qt::LinksAccessibleByKeyboard);
            said.append(label->pixmap(Qt::ReturnByValue).width() > 150 ? label->accessibleName()
                    : isLink ? label->text().section('"', 1, 1) + label->toolTip()
                             : label->text());
        }
        QCOMPARE(said.join(' '),
            "Picture of a charger Version V4.60 https://varnel.example.com/varnel.example.com "
            "https://shop.varnel.example.com/shop.varnel.example.com"_s);
        about.findChild<QPushButton *>()->click();
        QVERIFY(!about.isVisible());
        QCOMPARE(about.exec(1), int(QDialog::Rejected)); // by itself
    }

    void preferencesAreStoredOnOk()
    {
        plug("COM3"_s);
        plug("COM10"_s);
        VarnelSettings().setPorts({"COM3", "COM9"});
        DialogPreferences dialog(nullptr);
        QCOMPARE(dialog.windowTitle(), "Varnel - preferences"_s);
        QVERIFY(dialog.minimumSize() == QSize(425, 345) && dialog.maximumSize() == dialog.minimumSize());
        QVERIFY(dialog.findChild<QPushButton *>("preferencesButtonOk"_s)->isDefault());
        const auto *area = dialog.findChild<QScrollArea *>();
        QVERIFY(area->widgetResizable() && area->widget());
        QCOMPARE(placesIn(dialog),
            QStringList({" 20,10 381x191", "Set varnel3's time while starting 20,210 355x20",
                "OK 20,250 120x23", "Cancel 150,250 120x23", "Refresh 280,250 120x23", "Reset 280,280 120x23",
                "Reset all settings to default: 20,280 251x20 Reset",
                "Language (from next start): 20,312 251x20 ", "System 280,310 120x23"}));
        const auto back = qScopeGuard([usual = QApplication::font()] { QApplication::setFont(usual); });
        for (const double factor : {1.3, 3.0}) {
            QFont large = dialog.font();
            large.setPointSizeF(large.pointSizeF() * factor);
            QApplication::setFont(large);
            const DialogPreferences larger(nullptr); // in proportion
            const double scale = larger.width() / 425.0;
            const QRect reset = larger.findChild<QPushButton *>("preferencesButtonReset"_s)->geometry();
            QVERIFY(scale > factor * 0.8 && scale < factor * 1.4 && qAbs(larger.height() - 345 * scale) < 2);
            QVERIFY((reset.topLeft() - QPoint(280, 280) * scale).manhattanLength() <= 2);
            QVERIFY((reset.bottomRight() - QPoint(399, 302) * scale).manhattanLength() <= 10);
        }
        VarnelSettings().setPorts({"COM3", "COM7", "COM9"}); // by an answer meanwhile
        QCOMPARE(ticks(dialog), "COM10 COM3*"_s);
        tickAll(dialog);
        dialog.findChild<QComboBox *>("language"_s)->setCurrentText("Polski"_s);
        QVERIFY(!VarnelSettings().ports().contains("COM10"));
        click(dialog, "Ok");
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(VarnelSettings().ports(), QStringList({"COM10", "COM3", "COM7"})); // the absent is forgotten
        QVERIFY(VarnelSettings().sendTime());
        QCOMPARE(VarnelSettings().language(), "pl"_s);
    }

    void portsWithoutComName()
    {
        const QString none = "No port is present. Plug a device in and press Refresh."_s;
        const QString folder = "/run/user/7/varnelgraph"_s;
        QVector<PortInfo> ports;
        QCOMPARE(DialogPreferences::noPortText(ports, folder), none);
        for (const char *name : {"ttyS0", "ttyUSB0", "ttyACM0"})
            ports.append({QLatin1String(name), QString(), "/dev/"_s + name});
        QCOMPARE(DialogPreferences::noPortText(ports, QString()), none); // where links give no names
        const auto text = [&folder](const QVector<PortInfo> &present) {
            return DialogPreferences::noPortText(present, folder).split('\n');
        };
        QCOMPARE(text(ports),
            QStringList({"Serial ports without a COM name: ttyS0, ttyUSB0, ttyACM0", "",
                "To be listened on a port needs a COM name. Until you log out it has one by:",
                "mkdir -p /run/user/7/varnelgraph", "ln -s /dev/ttyUSB0 /run/user/7/varnelgraph/COM1", "",
                "Then press Refresh. docs/ports.md tells how ports get their names for good."}));
        const DialogPreferences dialog(nullptr); // without any port
        const auto *note = dialog.findChild<QScrollArea *>()->findChild<QLabel *>();
        QVERIFY(note->wordWrap() && note->textFormat() == Qt::PlainText && !note->text().isEmpty());
        QVERIFY(note->textInteractionFlags() & Qt::TextSelectableByMouse);
        ports += ports + ports; // six are named at most
        QVERIFY(text(ports.mid(0, 6)).at(0).endsWith("ttyACM0"_s));
        QVERIFY(text(ports).at(0).endsWith("ttyACM0, ..."_s));
        QCOMPARE(text({ports[0], ports[2]}).value(4), "ln -s /dev/ttyACM0 /run/user/7/varnelgraph/COM1"_s);
    }

    void refreshKeepsTicks()
    {
        plug("COM3"_s);
        plug("COM4"_s);
        DialogPreferences dialog(nullptr);
        tickAll(dialog);
        plug("COM5"_s);
        plugged.front()->hangUp();
        click(dialog, "Refresh");
        QCOMPARE(ticks(dialog), "COM4* COM5"_s);
        const auto boxes = dialog.findChildren<CheckBoxComPort *>();
        const QWidget *next = dialog.findChild<QScrollArea *>();
        while (!qobject_cast<const QAbstractButton *>(next))
            next = next->nextInFocusChain();
        QCOMPARE(next, boxes.first());
        for (CheckBoxComPort *box : boxes) {
            auto *label = qobject_cast<QLabel *>(dialog.findChild<QFormLayout *>()->labelForField(box));
            QVERIFY(box->toolTip().startsWith("/dev/pts"_s) && box->accessibleDescription() == box->toolTip()
                && box->accessibleName() == box->portName());
            QVERIFY(label->text() == box->portName() && label->textFormat() == Qt::PlainText
                && label->toolTip() == box->toolTip());
            QTest::mouseClick(label, Qt::LeftButton);
        }
        QCOMPARE(ticks(dialog), "COM4 COM5*"_s);
    }

    void resetAndCancel()
    {
        plug("COM3"_s);
        VarnelSettings().setPorts({"COM3"});
        VarnelSettings().setSendTime(true);
        VarnelSettings().setLanguage("de"_s);
        const auto stored = [] {
            const VarnelSettings settings;
            return settings.ports().join(',') + (settings.sendTime() ? " time " : " ") + settings.language();
        };
        for (const char *button : {"Cancel", "Ok"}) {
            DialogPreferences dialog(nullptr);
            QVERIFY(dialog.findChild<QCheckBox *>("sendTime"_s)->isChecked());
            QCOMPARE(dialog.findChild<QComboBox *>("language"_s)->currentData().toString(), "de"_s);
            click(dialog, "Reset");
            QCOMPARE(ticks(dialog), "COM3"_s);
            click(dialog, button);
            QCOMPARE(stored(), *button == 'C' ? "COM3 time de"_s : " "_s);
        }
        QVERIFY(!VarnelSettings().contains("language"_s)); // the system's
    }

private:
    /// The rows from top to bottom, '*' where ticked.
    static QString ticks(const QDialog &dialog)
    {
        QStringList rows;
        for (const CheckBoxComPort *box : constant(dialog.findChildren<CheckBoxComPort *>()))
            rows << box->portName() + (box->isChecked() ? "*" : "");
        rows.sort();
        return rows.join(' ');
    }

    /// Text, place, and what the text is about, of all that lies in the dialog itself.
    static QStringList placesIn(const QDialog &dialog)
    {
        QStringList places;
        const auto parts = dialog.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget *part : parts) {
            const QRect at = part->geometry();
            places << "%1 %2,%3 %4x%5"_s
                          .arg(part->property("text").toString() + part->property("currentText").toString())
                          .arg(at.x())
                          .arg(at.y())
                          .arg(at.width())
                          .arg(at.height());
            if (const auto *label = qobject_cast<const QLabel *>(part))
                places.last() += ' ' + label->buddy()->property("text").toString();
        }
        return places;
    }
    static void tickAll(const QDialog &dialog)
    {
        for (QCheckBox *box : constant(dialog.findChildren<QCheckBox *>()))
            box->setChecked(true);
    }
    static void click(const QDialog &dialog, const char *button)
    {
        dialog.findChild<QPushButton *>("preferencesButton"_s + button)->click();
    }
};

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
