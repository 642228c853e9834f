#include "dialogs/dialogremotecontrol.h"

#include "link/serialreader.h"
#include "support/columns.h"
#include "support/fakeshell.h"
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
    void initTestCase();
    void init();
    void cleanup();
    void isSetUpForTheCharger();
    void followsReplies_data();
    void followsReplies();
    void buttonsSend_data();
    void buttonsSend();
    void choicesSend();
    void numbersAreShownOnTheirPageOnly();
    void asksForTheStateAgainAndAgain();
    void silenceClosesWithText();
    void readerThatGoesClosesWithText();
    void closedDialogAsksNothing_data();
    void closedDialogAsksNothing();

private:
    template <typename Widget>
    Widget *part(const char *name) const
    {
        return dialog->findChild<Widget *>(QLatin1String(name));
    }
    /// Questions follow commands at once, or rather from the event loop.
    void open(const DialogRemoteControl::Times &times = {never, never, 0});
    int page() const { return part<QStackedWidget>("pages")->currentIndex(); }
    bool runs(int period) const;
    bool polls() const { return runs(never); }
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

void TestDialogRemoteControl::initTestCase()
{
    qputenv("VARNEL_PORT_DIR", QFile::encodeName(folder.path()));
}

void TestDialogRemoteControl::init()
{
    line = std::make_unique<PtyPair>(folder.path(), QStringLiteral("COM7"));
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

/// Whether a timer of the dialog with this period is running.
bool TestDialogRemoteControl::runs(int period) const
{
    const auto timers = dialog->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    return std::any_of(timers.begin(), timers.end(),
        [period](const QTimer *timer) { return timer->isActive() && timer->interval() == period; });
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
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Remote control"));
    QCOMPARE(part<QLabel>("portLabel")->text(), QStringLiteral("Port COM7"));
    for (const char *name : {"cbTryb0_nc", "cbTryb1_nr"}) {
        QCOMPARE(part<QComboBox>(name)->count(), 20);
        QCOMPARE(part<QComboBox>(name)->itemText(19), QStringLiteral("Memory 20"));
    }
    QCOMPARE(part<QComboBox>("cbTryb2_nr")->count(), 16);
    QCOMPARE(part<QComboBox>("cbTryb2_nr")->itemText(0), QStringLiteral("Cells 1"));
    QVERIFY(part<QPushButton>("pbMemory")->isHidden());
    QVERIFY(part<QPushButton>("pbMemory")->sizePolicy().retainSizeWhenHidden());
    dialog = std::make_unique<DialogRemoteControl>(reader.get());
    QVERIFY(runs(1000));
    QCOMPARE(DialogRemoteControl::Times().poll, 1000);
    QCOMPARE(DialogRemoteControl::Times().query, 100);
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
    QTEST(!part<QPushButton>("pbMemory")->isHidden(), "memory");
    QTEST(polls(), "polls");
}

void TestDialogRemoteControl::buttonsSend_data()
{
    columns<QByteArray, QByteArray, bool>({"state", "commands", "polling"});
    const auto row = [](const char *button, const char *state, const char *commands, bool polling) {
        QTest::newRow(button) << QByteArray(state) << QByteArray(commands) << polling;
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
        QTest::mouseClick(part<QPushButton>("pbMemory"), Qt::LeftButton);
        QCOMPARE(page(), 1);
        reply(state);
        QCOMPARE(sent(), QByteArray("#MEM?\r\n")); // once: it is there already
    }
    auto *button = part<QPushButton>(QTest::currentDataTag());
    QVERIFY(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QTEST(sent(), "commands");
    QTEST(polls(), "polling");
}

// The combo shows the first memory from the start: picking it is still a wish of the user.
void TestDialogRemoteControl::choicesSend()
{
    reply("#TRYB00");
    auto *combo = part<QComboBox>("cbTryb0_nc");
    const auto pick = [combo](int key) {
        combo->showPopup();
        QTest::keyClick(combo->view(), Qt::Key(key));
        QTest::keyClick(combo->view(), Qt::Key_Return);
    };
    pick(Qt::Key_Home);
    QCOMPARE(sent(), QByteArray("#MEM01\r\n#MEM?\r\n"));
    QVERIFY(polls());
    for (int time = 0; time < 2; ++time) { // and again once another was chosen
        pick(Qt::Key_Down);
        QCOMPARE(sent(), QByteArray("#MEM02\r\n#MEM?\r\n"));
        pick(Qt::Key_Home);
        QCOMPARE(sent(), QByteArray("#MEM01\r\n#MEM?\r\n"));
    }
    part<QComboBox>("cbTryb1_nr")->setCurrentIndex(4);
    QMetaObject::invokeMethod(part<QComboBox>("cbTryb1_nr"), "activated", Q_ARG(int, 11));
    QCOMPARE(sent(), QByteArray("#MEM12\r\n#MEM?\r\n"));
    reply("#TRYB02");
    QCOMPARE(sent(), QByteArray("#NRC?\r\n"));
    part<QComboBox>("cbTryb2_nr")->setCurrentIndex(11);
    QCOMPARE(sent(), QByteArray("#NRC12\r\n"));
}

void TestDialogRemoteControl::numbersAreShownOnTheirPageOnly()
{
    const auto *memory = part<QComboBox>("cbTryb1_nr");
    const auto *cells = part<QComboBox>("cbTryb2_nr");
    reply("#TRYB01");
    QTest::mouseClick(part<QPushButton>("pbMemory"), Qt::LeftButton);
    reply("#NRC06");
    reply("#MEM07");
    QCOMPARE(memory->currentText(), QStringLiteral("Memory 7"));
    QCOMPARE(cells->currentIndex(), 0);
    reply("#TRYB02");
    reply("#MEM08");
    reply("#NRC16");
    QCOMPARE(cells->currentText(), QStringLiteral("Cells 16"));
    QCOMPARE(memory->currentIndex(), 6);
    for (const char *text : {"#NRCxx", "#NRC06", "#NRC99"}) {
        reply(text);
        QCOMPARE(cells->currentIndex(), text[5] == '6' ? 5 : -1);
    }
    QCOMPARE(sent(), QByteArray("#MEM?\r\n#MEM?\r\n#NRC?\r\n")); // nothing for what the device has said
}

void TestDialogRemoteControl::asksForTheStateAgainAndAgain()
{
    open({never, 10, 0});
    reply("#TRYB01");
    QByteArray heard;
    QTRY_VERIFY((heard += line->received()).startsWith("#MEM?\r\n#TRYB?\r\n#TRYB?\r\n"));
}

void TestDialogRemoteControl::silenceClosesWithText()
{
    open({10, never, 0});
    QTRY_VERIFY(box());
    QCOMPARE(box()->text(), QStringLiteral("Time out"));
    QCOMPARE(box()->windowTitle(), QStringLiteral("Information"));
    QVERIFY(!dialog->isVisible());
    QVERIFY(!runs(10)); // there is no second box
}

void TestDialogRemoteControl::readerThatGoesClosesWithText()
{
    reply("#TRYB03");
    reader.reset();
    QTest::mouseClick(part<QPushButton>("pbTryb3_stop"), Qt::LeftButton); // nobody is left to send through
    QTRY_VERIFY(box());
    QCOMPARE(
        box()->text(), QStringLiteral("Port COM7 is no longer listened on: the remote control is closed."));
    QVERIFY(!dialog->isVisible());
}

void TestDialogRemoteControl::closedDialogAsksNothing_data()
{
    columns<QByteArray>({"slot"});
    for (const char *slot : {"close", "hide", "reject"})
        QTest::newRow(slot) << QByteArray(slot);
}

// It is kept by the test: the question that the click has set going and what the device says late end with
// it.
void TestDialogRemoteControl::closedDialogAsksNothing()
{
    QFETCH(QByteArray, slot);
    reply("#TRYB00");
    QTest::mouseClick(part<QPushButton>("pbTryb0_battery"), Qt::LeftButton);
    QVERIFY(QMetaObject::invokeMethod(dialog.get(), slot.constData()));
    QVERIFY(!dialog->isVisible() && !polls());
    reply("#TRYB01");
    QCOMPARE(sent(), QByteArray("#MEM-\r\n"));
    reader.reset();
    QCoreApplication::processEvents();
    QVERIFY(!box());
}

QTEST_MAIN(TestDialogRemoteControl)
#include "tst_dialogremotecontrol.moc"
