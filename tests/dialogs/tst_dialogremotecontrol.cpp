#include "dialogs/dialogremotecontrol.h"

#include "link/serialreader.h"
#include "support/columns.h"
#include "support/ptypair.h"
#include "support/fakeshell.h"

#include <QApplication>
#include <QAbstractItemView>
#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

/// Drives the dialog over a real line; the test is the charger at the far end.
class TestDialogRemoteControl : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void asksForStateAtOnce();
    void followsReplies_data();
    void followsReplies();
    void buttonsSend_data();
    void buttonsSend();
    void choosingMemoryPolls();
    void firstMemoryCanBeChosen();
    void cellCountIsAskedFor();
    void memoryPageIsReachedByButton();
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
    int page() const { return part<QStackedWidget>("pages")->currentIndex(); }
    /// The charger says `text`; returns when the dialog has heard it.
    void reply(const QByteArray &text);
    /// Whether exactly `commands` arrive at the charger, in time for the delayed ones.
    bool arrives(const QByteArray &commands);
    /// What arrives while `milliseconds` pass.
    QByteArray heardIn(int milliseconds);
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
    dialog = std::make_unique<DialogRemoteControl>(reader.get());
    dialog->show();
    QCOMPARE(page(), 3);
    QVERIFY(arrives("#TRYB?\r\n"));
}

void TestDialogRemoteControl::cleanup()
{
    if (box())
        box()->close();
    dialog.reset();
    reader.reset();
    line.reset();
}

void TestDialogRemoteControl::reply(const QByteArray &text)
{
    bool heard = false;
    const auto connection = connect(reader.get(), &SerialReader::control_data, this,
        [&heard] { heard = true; }); // clazy:exclude=lambda-in-connect (disconnected below)
    line->send(text + '\n');
    QTRY_VERIFY(heard);
    disconnect(connection);
}

bool TestDialogRemoteControl::arrives(const QByteArray &commands)
{
    QByteArray heard;
    return QTest::qWaitFor([&] { return (heard += line->received()) == commands; }, 600);
}

QByteArray TestDialogRemoteControl::heardIn(int milliseconds)
{
    QTest::qWait(milliseconds);
    return line->received();
}

void TestDialogRemoteControl::asksForStateAtOnce()
{
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Remote control"));
    QCOMPARE(part<QComboBox>("cbTryb0_nc")->itemText(19), QStringLiteral("Memory 20"));
    QCOMPARE(part<QComboBox>("cbTryb2_nr")->itemText(15), QStringLiteral("Cells 16"));
    reply("#TRYB00");
    QCOMPARE(heardIn(1200), QByteArray());
    QVERIFY(dialog->isVisible());
}

void TestDialogRemoteControl::followsReplies_data()
{
    columns<QList<QByteArray>, int>({"replies", "shown"});
    using Replies = QList<QByteArray>;
    QTest::newRow("setup") << Replies{"#TRYB00"} << 0;
    QTest::newRow("memory keeps the page") << Replies{"#TRYB00", "#TRYB01"} << 0;
    QTest::newRow("cells") << Replies{"#TRYB02"} << 2;
    QTest::newRow("process") << Replies{"#TRYB00", "#TRYB03"} << 3;
    QTest::newRow("disconnect") << Replies{"#TRYB04"} << 4;
    QTest::newRow("started") << Replies{"#TRYB02", "#START"} << 3;
    QTest::newRow("stopped, in blanks") << Replies{"#TRYB03", "  #STOP "} << 4;
    QTest::newRow("unknown state") << Replies{"#TRYB00", "#TRYB05"} << 0;
    QTest::newRow("longer than a state") << Replies{"#TRYB00", "#TRYB022"} << 0;
    QTest::newRow("unknown reply") << Replies{"#TRYB02", "#TRAB00"} << 2;
}

void TestDialogRemoteControl::followsReplies()
{
    QFETCH(QList<QByteArray>, replies);
    for (const QByteArray &text : replies)
        reply(text);
    QTEST(page(), "shown");
}

void TestDialogRemoteControl::buttonsSend_data()
{
    columns<QByteArray, QByteArray, bool>({"state", "sent", "polls"});
    QTest::newRow("pbTryb0_battery") << QByteArray("#TRYB00") << QByteArray("#MEM-\r\n#MEM?\r\n") << true;
    QTest::newRow("pbTryb0_ps") << QByteArray("#TRYB00") << QByteArray("#MEM+\r\n#MEM?\r\n") << true;
    QTest::newRow("pbTryb2_mm") << QByteArray("#TRYB02") << QByteArray("#NRC-\r\n") << false;
    QTest::newRow("pbTryb2_mp") << QByteArray("#TRYB02") << QByteArray("#NRC+\r\n") << false;
    QTest::newRow("pbTryb2_start") << QByteArray("#TRYB02") << QByteArray("#START\r\n") << true;
    QTest::newRow("pbTryb3_stop") << QByteArray("#TRYB03") << QByteArray("#STOP\r\n") << false;
    QTest::newRow("pbTryb4_stop") << QByteArray("#TRYB04") << QByteArray("#STOP\r\n") << false;
}

void TestDialogRemoteControl::buttonsSend()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, sent);
    QFETCH(bool, polls);
    reply(state);
    heardIn(200); // on the cells page the count is asked for
    auto *button = part<QPushButton>(QTest::currentDataTag());
    QVERIFY(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY2(arrives(sent), sent.constData());
    QCOMPARE(heardIn(1100).contains("#TRYB?\r\n"), polls);
}

void TestDialogRemoteControl::choosingMemoryPolls()
{
    reply("#TRYB00");
    QElapsedTimer clock;
    clock.start();
    part<QComboBox>("cbTryb0_nc")->setCurrentIndex(6);
    QVERIFY(arrives("#MEM07\r\n"));
    QVERIFY(clock.elapsed() < 100);
    QVERIFY(arrives("#MEM?\r\n"));
    QVERIFY(clock.elapsed() >= 95);
    QCOMPARE(heardIn(2400 - int(clock.elapsed())), QByteArray("#TRYB?\r\n#TRYB?\r\n"));
}

// The combo shows the first memory from the start: picking it is still a wish of the user.
void TestDialogRemoteControl::firstMemoryCanBeChosen()
{
    reply("#TRYB00");
    auto *combo = part<QComboBox>("cbTryb0_nc");
    const auto pick = [combo](int key) {
        combo->showPopup();
        QTest::keyClick(combo->view(), Qt::Key(key));
        QTest::keyClick(combo->view(), Qt::Key_Return);
    };
    pick(Qt::Key_Home);
    QVERIFY(arrives("#MEM01\r\n#MEM?\r\n"));
    pick(Qt::Key_Down);
    QVERIFY(arrives("#MEM02\r\n#MEM?\r\n"));
}

void TestDialogRemoteControl::cellCountIsAskedFor()
{
    reply("#NRC09");
    QCOMPARE(part<QComboBox>("cbTryb2_nr")->currentIndex(), 0);
    reply("#TRYB02");
    QVERIFY(arrives("#NRC?\r\n"));
    reply("#NRC06");
    QCOMPARE(part<QComboBox>("cbTryb2_nr")->currentText(), QStringLiteral("Cells 6"));
    reply("#NRCxx");
    QCOMPARE(part<QComboBox>("cbTryb2_nr")->currentIndex(), -1);
    reply("#NRC99");
    QCOMPARE(part<QComboBox>("cbTryb2_nr")->currentIndex(), -1);
    QCOMPARE(heardIn(150), QByteArray());
    part<QComboBox>("cbTryb2_nr")->setCurrentIndex(11);
    QVERIFY(arrives("#NRC12\r\n"));
}

void TestDialogRemoteControl::memoryPageIsReachedByButton()
{
    auto *button = part<QPushButton>("pbMemory");
    reply("#TRYB00");
    QVERIFY(!button->isVisible());
    reply("#TRYB01");
    QVERIFY(button->isVisible());
    QVERIFY(arrives("#MEM?\r\n"));
    reply("#MEM07");
    QCOMPARE(part<QComboBox>("cbTryb1_nr")->currentIndex(), 0);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(page(), 1);
    QVERIFY(arrives("#MEM?\r\n"));
    reply("#MEM07");
    QCOMPARE(part<QComboBox>("cbTryb1_nr")->currentText(), QStringLiteral("Memory 7"));
    QTest::mouseClick(part<QPushButton>("pbTryb1_mp"), Qt::LeftButton);
    QVERIFY(arrives("#MEM+\r\n"));
    QTest::mouseClick(part<QPushButton>("pbTryb1_mm"), Qt::LeftButton);
    QVERIFY(arrives("#MEM-\r\n"));
    reply("#TRYB02");
    QVERIFY(!button->isVisible());
}

void TestDialogRemoteControl::silenceClosesWithText()
{
    QTRY_VERIFY_WITH_TIMEOUT(box(), 1500);
    QCOMPARE(box()->text(), QStringLiteral("Time out"));
    QCOMPARE(box()->windowTitle(), QStringLiteral("Information"));
    QVERIFY(!dialog->isVisible());
    box()->close();
    QVERIFY(!QTest::qWaitFor([this] { return box() != nullptr; }, 1300));
}

void TestDialogRemoteControl::readerThatGoesClosesWithText()
{
    reply("#TRYB03");
    reader.reset();
    QTest::mouseClick(part<QPushButton>("pbTryb3_stop"), Qt::LeftButton); // nobody is left to send through
    QTRY_VERIFY(box());
    QVERIFY(box()->text().contains(QStringLiteral("COM7")));
    QVERIFY(!dialog->isVisible());
}

void TestDialogRemoteControl::closedDialogAsksNothing_data()
{
    columns<QByteArray>({"slot"});
    for (const char *slot : {"close", "hide", "reject"})
        QTest::newRow(slot) << QByteArray(slot);
}

// It is kept by the test: what the click has set going and what the device says late end with the window.
void TestDialogRemoteControl::closedDialogAsksNothing()
{
    QFETCH(QByteArray, slot);
    reply("#TRYB00");
    QTest::mouseClick(part<QPushButton>("pbTryb0_battery"), Qt::LeftButton);
    QVERIFY(QMetaObject::invokeMethod(dialog.get(), slot.constData()));
    QVERIFY(!dialog->isVisible());
    reply("#TRYB01");
    QCOMPARE(heardIn(1200), QByteArray("#MEM-\r\n"));
}

QTEST_MAIN(TestDialogRemoteControl)
#include "tst_dialogremotecontrol.moc"
