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
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

constexpr int never = 3600000; // ms

} // namespace

/// Drives the dialog over a real line; the test is the charger at the far end.
class TestDialogRemoteControl : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { qputenv("VARNEL_PORT_DIR", QFile::encodeName(folder.path())); }
    void init();
    void cleanup();
    void isSetUpForTheCharger();
    void followsReplies_data();
    void followsReplies();
    void buttonsSend_data();
    void buttonsSend();
    void choicesSend();
    void numbersAreShownOnTheirPageOnly();
    void closesWithText();
    void closedDialogAsksNothing();

private:
    /// Questions follow commands at once, or rather from the event loop.
    void open(const DialogRemoteControl::Times &times = {never, never, 0});
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
    void reply(const QByteArray &text);
    /// What the dialog has sent since the last call.
    QByteArray sent();
    QMessageBox *box() const { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); }

    QTemporaryDir folder;
    FakeShell host;
    std::unique_ptr<PtyPair> line;
    std::unique_ptr<SerialReader> reader;
    std::unique_ptr<DialogRemoteControl> dialog;
};

void TestDialogRemoteControl::init()
{
    line = std::make_unique<PtyPair>(folder.path(), "COM7"_s);
    reader = std::make_unique<SerialReader>(nullptr, line->portName(), &host);
    QVERIFY(reader->start());
    open();
}

void TestDialogRemoteControl::cleanup()
{
    if (box())
        box()->close();
    dialog.reset();
    reader.reset();
    line.reset();
}

void TestDialogRemoteControl::open(const DialogRemoteControl::Times &times)
{
    dialog = std::make_unique<DialogRemoteControl>(reader.get(), nullptr, times);
    QCOMPARE(sent(), QByteArray("#TRYB?\r\n"));
    dialog->show();
}

void TestDialogRemoteControl::reply(const QByteArray &text)
{
    const QSignalSpy heard(reader.get(), SIGNAL(control_data(QString)));
    line->send(text + '\n');
    QTRY_COMPARE(heard.size(), 1);
}

QByteArray TestDialogRemoteControl::sent()
{
    const QByteArray mark = "that is all";
    QCoreApplication::processEvents();
    reader->sendCommand(QString::fromLatin1(mark));
    QByteArray heard;
    const bool whole = QTest::qWaitFor([&] { return (heard += line->received()).endsWith(mark); }, 20000);
    return whole ? heard.chopped(mark.size()) : "cut short: " + heard;
}

void TestDialogRemoteControl::isSetUpForTheCharger()
{
    QCOMPARE(page(), 3);
    QCOMPARE(dialog->windowTitle() + " | " + dialog->findChild<QLabel *>("portLabel"_s)->text(),
        "Remote control | Port COM7"_s);
    QString items;
    for (const char *name : {"cbTryb0_nc", "cbTryb1_nr", "cbTryb2_nr"})
        items += combo(name)->itemText(0) + " to " + combo(name)->itemText(combo(name)->count() - 1) + ", ";
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

void TestDialogRemoteControl::followsReplies_data()
{
    // asked: by the dialog thereupon; memory: the button that leads to the memory page is there
    columns<QByteArrayList, int, QByteArray, bool, bool>({"replies", "shown", "asked", "memory", "polls"});
    const auto row = [](const char *name, const QByteArrayList &replies, int shown, const char *asked = "",
                         bool memory = false, bool polls = false) {
        QTest::newRow(name) << replies << shown << QByteArray(asked) << memory << polls;
    };
    row("setup", {"#TRYB00"}, 0);
    row("memory keeps the page", {"#TRYB00", "#TRYB01"}, 0, "#MEM?\r\n", true, true);
    row("memory twice", {"#TRYB01", "#TRYB01"}, 3, "#MEM?\r\n#MEM?\r\n", true, true);
    row("cells", {"#TRYB01", "#TRYB02"}, 2, "#MEM?\r\n#NRC?\r\n");
    row("process", {"#TRYB00", "#TRYB01", "#TRYB03"}, 3, "#MEM?\r\n", false, true);
    row("disconnect", {"#TRYB04"}, 4);
    row("started", {"#TRYB01", "#TRYB00", "#TRYB01", "#START"}, 3, "#MEM?\r\n#MEM?\r\n", false, true);
    row("stopped, in blanks", {"#TRYB01", "  #STOP "}, 4, "#MEM?\r\n");
    row("unknown state", {"#TRYB00", "#TRYB05"}, 0);
    row("longer than a state", {"#TRYB00", "#TRYB022"}, 0);
    row("unknown reply", {"#TRYB00", "#TRAB02"}, 0);
}

void TestDialogRemoteControl::followsReplies()
{
    QFETCH(QByteArrayList, replies);
    for (const QByteArray &text : replies)
        reply(text);
    QTEST(page(), "shown");
    QTEST(sent(), "asked");
    QTEST(!button("pbMemory")->isHidden(), "memory");
    QTEST(polls(), "polls");
}

void TestDialogRemoteControl::buttonsSend_data()
{
    columns<QByteArray, QByteArray, bool>({"state", "commands", "polling"});
    const auto row = [](const char *name, const char *state, const QByteArray &commands, bool polling) {
        QTest::newRow(name) << QByteArray(state) << commands << polling;
    };
    row("pbTryb0_battery", "#TRYB00", "#MEM-\r\n#MEM?\r\n", true);
    row("pbTryb0_ps", "#TRYB00", "#MEM+\r\n#MEM?\r\n", true);
    row("pbTryb1_mm", "#TRYB01", "#MEM-\r\n", true);
    row("pbTryb1_mp", "#TRYB01", "#MEM+\r\n", true);
    row("pbTryb2_mm", "#TRYB02", "#NRC-\r\n", false);
    row("pbTryb2_mp", "#TRYB02", "#NRC+\r\n", false);
    row("pbTryb2_start", "#TRYB02", "#START\r\n", true);
    row("pbTryb3_stop", "#TRYB03", "#STOP\r\n", false);
    row("pbTryb4_stop", "#TRYB04", "#STOP\r\n", false);
}

void TestDialogRemoteControl::buttonsSend()
{
    QFETCH(QByteArray, state);
    reply(state);
    sent(); // a page asks for what it shows
    if (state == "#TRYB01") {
        click("pbMemory");
        QCOMPARE(page(), 1);
        reply(state);
        QCOMPARE(sent(), QByteArray("#MEM?\r\n")); // once: it is there already
    }
    QVERIFY(button(QTest::currentDataTag())->isVisible());
    click(QTest::currentDataTag());
    QTEST(sent(), "commands");
    QTEST(polls(), "polling");
}

// The combo shows the first memory from the start: picking it is still a wish of the user.
void TestDialogRemoteControl::choicesSend()
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
    combo("cbTryb2_nr")->setCurrentIndex(11);
    QCOMPARE(sent(), QByteArray("#NRC?\r\n#NRC12\r\n"));
}

void TestDialogRemoteControl::numbersAreShownOnTheirPageOnly()
{
    const auto shown
        = [this] { return combo("cbTryb1_nr")->currentText() + combo("cbTryb2_nr")->currentText(); };
    reply("#TRYB01");
    click("pbMemory");
    reply("#NRC06");
    reply("#MEM07");
    QCOMPARE(shown(), "Memory 7Cells 1"_s);
    reply("#TRYB02");
    reply("#MEM08");
    reply("#NRC16");
    QCOMPARE(shown(), "Memory 7Cells 16"_s);
    for (const char *text : {"#NRCxx", "#NRC06", "#NRC99"}) {
        reply(text);
        QCOMPARE(shown(), text[5] == '6' ? "Memory 7Cells 6"_s : "Memory 7"_s);
    }
    QCOMPARE(sent(), QByteArray("#MEM?\r\n#MEM?\r\n#NRC?\r\n")); // nothing for what the device has said
}

void TestDialogRemoteControl::closesWithText()
{
    open({10, never, 0});
    QTRY_VERIFY(box());
    QCOMPARE(box()->windowTitle() + ": " + box()->text(), "Information: Time out"_s);
    QCOMPARE(box()->textFormat(), Qt::PlainText);
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

// It is kept by the test: the question that the click has set going and what the device says late end with
// it.
void TestDialogRemoteControl::closedDialogAsksNothing()
{
    for (const char *slot : {"close", "hide", "reject"}) {
        open();
        reply("#TRYB00");
        click("pbTryb0_battery");
        QVERIFY(QMetaObject::invokeMethod(dialog.get(), slot));
        QVERIFY2(!dialog->isVisible() && running().isEmpty(), slot);
        reply("#TRYB01");
        QCOMPARE(sent(), QByteArray("#MEM-\r\n"));
    }
    reader.reset();
    QCoreApplication::processEvents();
    QVERIFY(!box());
}

QTEST_MAIN(TestDialogRemoteControl)
#include "tst_dialogremotecontrol.moc"
