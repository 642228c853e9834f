#include "dialogs/dialogremotecontrol.h"

#include "link/serialreader.h"
#include "support/columns.h"
#include "support/fakeshell.h"
#include "support/literal.h"
#include "support/ptypair.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QtTest>

namespace {

constexpr int never = 3600000; // ms

} // namespace

/// Drives the dialog over a real line; the test is the charger at the far end.
class TestDialogRemoteControl : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { qputenv("VARNEL_PORT_DIR", QFile::encodeName(folder.path())); }
    void init()
    {
        line = std::make_unique<PtyPair>(folder.path(), "COM7"_s);
        reader = std::make_unique<SerialReader>(nullptr, line->portName(), &host);
        QVERIFY(reader->start());
        open();
    }

    void cleanup()
    {
        if (box())
            box()->close();
        dialog.reset();
        reader.reset();
        line.reset();
    }

    void isSetUpForTheCharger()
    {
        QCOMPARE(page(), 3);
        QCOMPARE(dialog->windowTitle() + " | " + dialog->findChild<QLabel *>("portLabel"_s)->text(),
            "Remote control | Port COM7"_s);
        QString items;
        for (const char *name : {"cbTryb0_nc", "cbTryb1_nr", "cbTryb2_nr"})
            items
                += combo(name)->itemText(0) + " to " + combo(name)->itemText(combo(name)->count() - 1) + ", ";
        QCOMPARE(items, "Memory 1 to Memory 20, Memory 1 to Memory 20, Cells 1 to Cells 16, "_s);
        QVERIFY(button("pbMemory")->isHidden() && button("pbMemory")->sizePolicy().retainSizeWhenHidden());
        dialog = std::make_unique<DialogRemoteControl>(reader.get());
        QCOMPARE(running(), QVector<int>({1000}));
        QCOMPARE(sent(), QByteArray("#TRYB?\r\n"));
        const DialogRemoteControl::Times usual;
        QVERIFY(usual.poll == 1000 && usual.query == 100); // ms
        open({never, 10, 0}); // the state is asked for again and again
        reply("#TRYB01");
        QByteArray heard;
        QTRY_VERIFY((heard += line->received()).startsWith("#MEM?\r\n#TRYB?\r\n#TRYB?\r\n"));
    }

    void followsDeviceAndUser_data()
    {
        // steps: what the charger says, or a button that is clicked
        const auto row = columnsOf<QString, QString>({"steps", "state"});
        row("#TRYB00,#TRYB01", "page 0, button, polls, #MEM?"); // a memory state keeps the page
        row("#TRYB01,#TRYB01", "page 3, button, polls, #MEM?, #MEM?");
        row("#TRYB01,#TRYB02", "page 2, #MEM?, #NRC?");
        row("#TRYB00,#TRYB01,#TRYB03", "page 3, polls, #MEM?");
        row("#TRYB01,#TRYB00,#TRYB01,#START", "page 3, polls, #MEM?, #MEM?");
        row("#TRYB01,  #STOP ", "page 4, #MEM?");
        row("#TRYB00,#TRYB05", "page 0");
        row("#TRYB00,#TRYB022", "page 0");
        row("#TRYB00,#TRAB02", "page 0");
        row("#TRYB00,pbTryb0_battery", "page 0, polls, #MEM-, #MEM?");
        row("#TRYB00,pbTryb0_ps", "page 0, polls, #MEM+, #MEM?");
        row("#TRYB01,pbMemory,#TRYB01", "page 1, button, polls, #MEM?, #MEM?"); // there already
        row("#TRYB01,pbMemory,pbTryb1_mm", "page 1, button, polls, #MEM?, #MEM?, #MEM-");
        row("#TRYB01,pbMemory,pbTryb1_mp", "page 1, button, polls, #MEM?, #MEM?, #MEM+");
        row("#TRYB02,pbTryb2_mm", "page 2, #NRC?, #NRC-");
        row("#TRYB02,pbTryb2_mp", "page 2, #NRC?, #NRC+");
        row("#TRYB02,pbTryb2_start", "page 2, polls, #NRC?, #START");
        row("#TRYB03,pbTryb3_stop", "page 3, #STOP");
        row("#TRYB04,pbTryb4_stop", "page 4, #STOP");
        // Numbers are shown on their page only; nothing is sent for what the device has said.
        row("#TRYB01,pbMemory,#MEM075,#NRC06", "page 1, button, polls, Memory 7, #MEM?, #MEM?");
        row("#TRYB02,#NRC16,#MEM08", "page 2, Cells 16, #NRC?");
        row("#TRYB02,#NRC06,#NRC99", "page 2, no number, #NRC?");
        row("#TRYB02,#NRC06,#NRCxx", "page 2, no number, #NRC?");
    }

    void followsDeviceAndUser()
    {
        QFETCH(QString, steps);
        const QStringList all = steps.split(',');
        QByteArray heard;
        for (const QString &step : all) {
            if (step.contains('#')) {
                reply(step.toLatin1());
            } else {
                QVERIFY(button(step.toLatin1())->isVisible());
                click(step.toLatin1());
            }
            heard += sent();
        }
        QStringList state("page " + QString::number(page()));
        if (!button("pbMemory")->isHidden())
            state.append("button");
        if (polls())
            state.append("polls");
        for (const char *name : {"cbTryb1_nr", "cbTryb2_nr"}) {
            if (combo(name)->currentIndex() != 0)
                state.append(combo(name)->currentIndex() < 0 ? "no number"_s : combo(name)->currentText());
        }
        state += QString::fromLatin1(heard).split("\r\n"_s, Qt::SkipEmptyParts);
        QTEST(state.join(", "_s), "state");
    }

    // The combo shows the first memory from the start: picking it is still a wish of the user.
    void choicesSend()
    {
        reply("#TRYB00");
        const auto pick = [this](int key) {
            auto *list = combo("cbTryb0_nc");
            list->showPopup();
            QTest::keyClick(list->view(), Qt::Key(key));
            QTest::keyClick(list->view(), Qt::Key_Return);
            return sent();
        };
        QCOMPARE(pick(Qt::Key_Home), QByteArray("#MEM01\r\n#MEM?\r\n"));
        QVERIFY(polls());
        for (int time = 0; time < 2; ++time) { // and again once another was chosen
            QCOMPARE(pick(Qt::Key_Down), QByteArray("#MEM02\r\n#MEM?\r\n"));
            QCOMPARE(pick(Qt::Key_Home), QByteArray("#MEM01\r\n#MEM?\r\n"));
        }
        combo("cbTryb1_nr")->setCurrentIndex(4);
        QMetaObject::invokeMethod(combo("cbTryb1_nr"), "activated", Q_ARG(int, 11));
        QCOMPARE(sent(), QByteArray("#MEM12\r\n#MEM?\r\n"));
        reply("#TRYB02");
        QCOMPARE(sent(), QByteArray("#NRC?\r\n")); // comes from the event loop, in its own time
        combo("cbTryb2_nr")->setCurrentIndex(11);
        QCOMPARE(sent(), QByteArray("#NRC12\r\n"));
    }

    void closesWithText()
    {
        open({10, never, 0});
        QTRY_VERIFY(box());
        QCOMPARE(box()->windowTitle() + ": " + box()->text(), "Information: Time out"_s);
        QVERIFY(box()->textFormat() == Qt::PlainText && box()->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(!dialog->isVisible() && running().isEmpty()); // there is no second box
        box()->close();
        open();
        reply("#TRYB03");
        reader.reset();
        click("pbTryb3_stop"); // nobody is left to send through
        QTRY_VERIFY(box());
        QCOMPARE(box()->text(), "Port COM7 is no longer listened on: the remote control is closed."_s);
        QVERIFY(!dialog->isVisible());
    }

    // It is kept by the test: the question that the click has set going and what the device says late end
    // with it.
    void closedDialogAsksNothing()
    {
        for (const char *slot : {"close", "hide", "reject"}) {
            open(); // not answered yet
            QVERIFY(QMetaObject::invokeMethod(dialog.get(), slot) && running().isEmpty());
            open();
            reply("#TRYB00");
            click("pbTryb0_battery");
            QVERIFY(QMetaObject::invokeMethod(dialog.get(), slot));
            reply("#TRYB01");
            QVERIFY2(!dialog->isVisible() && running().isEmpty(), slot);
            QCOMPARE(sent(), QByteArray("#MEM-\r\n"));
        }
        reader.reset();
        QCoreApplication::processEvents();
        QVERIFY(!box());
    }

private:
    /// Questions follow commands at once, or rather from the event loop.
    void open(const DialogRemoteControl::Times &times = {never, never, 0})
    {
        dialog = std::make_unique<DialogRemoteControl>(reader.get(), nullptr, times);
        dialog->show();
        QCOMPARE(sent(), QByteArray("#TRYB?\r\n"));
    }

    int page() const { return dialog->findChild<QStackedWidget *>()->currentIndex(); }
    QComboBox *combo(const char *name) const { return dialog->findChild<QComboBox *>(QLatin1String(name)); }
    QPushButton *button(const char *name) const
    {
        return dialog->findChild<QPushButton *>(QLatin1String(name));
    }

    void click(const char *name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    /// Periods of the timers that run: for the first answer, for polling. Those of 0 are not of interest.
    QVector<int> running() const
    {
        QVector<int> periods;
        const auto timers = dialog->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QTimer *timer : timers) {
            if (timer->isActive())
                periods.append(timer->interval());
        }
        return periods;
    }
    bool polls() const { return running().contains(never); }
    /// The charger says `text`; returns when the dialog has heard it.
    void reply(const QByteArray &text)
    {
        const QSignalSpy heard(reader.get(), SIGNAL(control_data(QString)));
        line->send(text + '\n');
        QTRY_COMPARE(heard.size(), 1);
    }

    /// What the dialog has sent since the last call.
    QByteArray sent()
    {
        const QByteArray mark = "that is all";
        QCoreApplication::processEvents();
        reader->sendCommand(QString::fromLatin1(mark));
        QByteArray heard;
        const bool whole = QTest::qWaitFor([&] { return (heard += line->received()).endsWith(mark); }, 20000);
        return whole ? heard.chopped(mark.size()) : "cut short: " + heard;
    }

    QMessageBox *box() const { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); }

    QTemporaryDir folder;
    FakeShell host;
    std::unique_ptr<PtyPair> line;
    std::unique_ptr<SerialReader> reader;
    std::unique_ptr<DialogRemoteControl> dialog;
};

QTEST_MAIN(TestDialogRemoteControl)
#include "tst_dialogremotecontrol.moc"
