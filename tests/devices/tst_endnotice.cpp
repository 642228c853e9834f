#include "devices/endnotice.h"

#include "machine/soundplayer.h"
#include "machine/soundserver.h"
#include "data/varnel3data.h"
#include "resources/resources.h"
#include "settings/varnelsettings.h"
#include "support/columns.h"
#include "support/shellfixture.h"
#include "support/targets.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const char recordLine[] = "#c0605 00123,25200+02000,025,01234\n";

/// Notes what would be heard.
class NotingPlayer : public SoundPlayer {
public:
    bool hasOutput() const override { return output; }
    void play(const QString &file) override
    {
        played.append(QFileInfo(file).fileName());
        times.append(clock.elapsed());
    }
    void stop() override { ++stops; }

    bool output = true;
    int stops = 0;
    QStringList played;
    QVector<qint64> times;
    QElapsedTimer clock;
};

QMessageBox *openBox()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

} // namespace

class TestEndNotice : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void init();
    void cleanup();
    void boxSaysHowItEnded_data();
    void boxSaysHowItEnded();
    void soundFileIsTheCountrys_data();
    void soundFileIsTheCountrys();
    void noServerIsNoNoise();
    void soundsFollow_data();
    void soundsFollow();
    void laterBoxHasItsOwnSecondSound();
    void oneBoxAtATime();
    void newProcessTakesBoxAway();
    void deviceIsFreed_data();
    void deviceIsFreed();
    void onlyMinimisedIsLifted_data();
    void onlyMinimisedIsLifted();
    void windowMayGoUnderTheBox();

private:
    /// Shows the notice of `kind`, leaves it for `milliseconds`, runs `then` and closes the box.
    void show(int kind, const std::function<void()> &then = {}, int milliseconds = 0);

    ShellFixture fixture;
    TestTargets targets;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<NotingPlayer> player;
    QPointer<EndNotice> notice;
};

void TestEndNotice::init()
{
    VarnelSettings().clear();
    window = std::make_unique<QWidget>();
    window->show();
    player = std::make_unique<NotingPlayer>();
    player->clock.start();
    notice = new EndNotice(window.get(), &targets, player.get(), fixture.path(QString()));
}

void TestEndNotice::cleanup()
{
    window.reset();
    targets.clear();
}

void TestEndNotice::show(int kind, const std::function<void()> &then, int milliseconds)
{
    notice->show(kind);
    QTest::qWait(milliseconds);
    if (then)
        then();
    if (openBox())
        openBox()->close();
}

void TestEndNotice::boxSaysHowItEnded_data()
{
    columns<int, QString, QString, QString, QString>({"kind", "title", "text", "icon", "sound"});
    const auto row = [](const char *name, int kind, const QStringList &words) {
        QTest::newRow(name) << kind << words[0] << words[1] << words[2] << words[3];
    };
    row("error", 0, {"Error", "Error in process !", ":/Icons/error.png", "error.wav"});
    row("aborted", 1, {"Aborted", "Process aborted by user.", ":/Icons/cancel.png", "aborted.wav"});
    row("completed", 2, {"End", "Process completed.", ":/Icons/finish.png", "end.wav"});
    row("unknown", 3, {"", "", "", ""});
    row("negative", -1, {"", "", "", ""});
}

void TestEndNotice::boxSaysHowItEnded()
{
    QFETCH(int, kind);
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QString, icon);
    QFETCH(QString, sound);
    bool seen = false;
    show(kind, [&] {
        const QMessageBox *box = openBox();
        QVERIFY(box);
        seen = true;
        QCOMPARE(box->text(), text);
        QCOMPARE(box->windowTitle(), title);
        QCOMPARE(box->iconPixmap().toImage(), icon.isEmpty() ? QImage() : QPixmap(icon).toImage());
        QVERIFY(box->windowFlags() & Qt::WindowStaysOnTopHint);
        QCOMPARE(box->standardButtons(), QMessageBox::Close);
        QTRY_COMPARE(player->played, sound.isEmpty() ? QStringList() : QStringList(sound));
    });
    QVERIFY(seen);
    QVERIFY(!notice->isOpen());
}

void TestEndNotice::soundFileIsTheCountrys_data()
{
    columns<int, QStringList, QString>({"country", "there", "file"});
    const QStringList all{
        QStringLiteral("end.wav"), QStringLiteral("end_pl.wav"), QStringLiteral("end_de.wav")};
    QTest::newRow("Poland") << int(QLocale::Poland) << all << "end_pl.wav";
    QTest::newRow("Germany") << int(QLocale::Germany) << all << "end_de.wav";
    QTest::newRow("elsewhere") << int(QLocale::France) << all << "end.wav";
    QTest::newRow("no variant") << int(QLocale::Poland) << QStringList{all.first()} << "end.wav";
    QTest::newRow("nothing") << int(QLocale::Germany) << QStringList() << "end.wav";
}

void TestEndNotice::soundFileIsTheCountrys()
{
    QFETCH(int, country);
    QFETCH(QStringList, there);
    QFETCH(QString, file);
    QTemporaryDir sounds;
    for (const QString &name : there) {
        QFile sound(sounds.filePath(name));
        QVERIFY(sound.open(QIODevice::WriteOnly));
    }
    QCOMPARE(SoundPlayer::filePath(sounds.path(), QStringLiteral("end"), QLocale::Country(country)),
        QDir::toNativeSeparators(sounds.filePath(file)));
}

// The sound library's own list would be waited for, and complained of where there is none. A server that has
// ended leaves its socket behind.
void TestEndNotice::noServerIsNoNoise()
{
    if (QDir(QStringLiteral("/dev/snd")).exists() || QFile::exists(QStringLiteral("/run/pulse/native")))
        QSKIP("this machine has sound");
    QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    qunsetenv("PULSE_SERVER");
    qunsetenv("PULSE_RUNTIME_PATH");
    QVERIFY(!hasSoundOutput());
    QVERIFY(QDir(runtime.path()).mkdir(QStringLiteral("pulse")));
    const QByteArray path = QFile::encodeName(runtime.filePath(QStringLiteral("pulse/native")));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    QCOMPARE(bind(server, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    QCOMPARE(listen(server, 1), 0);
    QVERIFY(hasSoundOutput());
    close(server);
    QVERIFY(QFile::exists(QFile::decodeName(path)));
    QVERIFY(!hasSoundOutput());
}

void TestEndNotice::soundsFollow_data()
{
    columns<bool, bool, int, QStringList>({"output", "wanted", "openFor", "played"});
    const QString first = QStringLiteral("end.wav");
    const QString second = QStringLiteral("v3_mp3.wav");
    QTest::newRow("both") << true << true << 3800 << QStringList{first, second};
    QTest::newRow("switched off") << true << false << 3800 << QStringList{first};
    QTest::newRow("closed before") << true << true << 1000 << QStringList{first};
    QTest::newRow("no device") << false << true << 3800 << QStringList();
}

void TestEndNotice::soundsFollow()
{
    QFETCH(bool, output);
    QFETCH(bool, wanted);
    QFETCH(int, openFor);
    VarnelSettings().setValue(QStringLiteral("/mp3/user_wave"), wanted);
    player->output = output;
    show(Varnel3Data::Completed, {}, openFor);
    QTest::qWait(qMax(0, 3800 - openFor));
    QTEST(player->played, "played");
    if (player->times.size() == 2)
        QVERIFY(qAbs(player->times[1] - player->times[0] - 3500) < 200);
    QVERIFY(player->stops > 0);
}

// The delay counts from the box that is open, not from one that was closed before.
void TestEndNotice::laterBoxHasItsOwnSecondSound()
{
    show(Varnel3Data::Completed, {}, 1500);
    show(Varnel3Data::Aborted, {}, 3000);
    QCOMPARE(player->played, (QStringList{QStringLiteral("end.wav"), QStringLiteral("aborted.wav")}));
}

void TestEndNotice::oneBoxAtATime()
{
    show(Varnel3Data::Completed, [this] {
        notice->show(Varnel3Data::Failed);
        notice->show(Varnel3Data::Aborted);
        QCOMPARE(openBox()->windowTitle(), QStringLiteral("End"));
        QTRY_COMPARE(player->played, QStringList(QStringLiteral("end.wav")));
    });
    QVERIFY(!openBox());
}

void TestEndNotice::newProcessTakesBoxAway()
{
    targets.add();
    show(Varnel3Data::Completed, [this] {
        notice->dismiss();
        QVERIFY(!notice->isOpen());
        QVERIFY(!openBox());
    });
    QTest::qWait(50);
    QCOMPARE(targets.heard(0), QByteArray()); // the device is in its next process already
    notice->dismiss();
}

void TestEndNotice::deviceIsFreed_data()
{
    columns<int, bool, QByteArray>({"ports", "recording", "heard"});
    QTest::newRow("only device, waiting") << 1 << false << QByteArray("#STOP\r\n");
    QTest::newRow("only device, in its next process") << 1 << true << QByteArray();
    QTest::newRow("one of two devices") << 2 << false << QByteArray();
}

void TestEndNotice::deviceIsFreed()
{
    QFETCH(int, ports);
    QFETCH(bool, recording);
    for (int i = 0; i < ports; ++i)
        targets.add();
    if (recording) {
        targets.say(0, recordLine);
        QTRY_VERIFY(!targets.reader(0)->isNewProcess());
    }
    show(Varnel3Data::Completed);
    QTest::qWait(50);
    QTEST(targets.heard(0), "heard");
}

void TestEndNotice::onlyMinimisedIsLifted_data()
{
    columns<int, int>({"before", "after"});
    const int maximised = Qt::WindowMaximized;
    QTest::newRow("normal") << int(Qt::WindowNoState) << int(Qt::WindowNoState);
    QTest::newRow("maximised") << maximised << maximised;
    QTest::newRow("minimised") << int(Qt::WindowMinimized) << int(Qt::WindowNoState);
    QTest::newRow("both") << (maximised | Qt::WindowMinimized) << maximised;
}

void TestEndNotice::onlyMinimisedIsLifted()
{
    QFETCH(int, before);
    QFETCH(int, after);
    window->setWindowState(Qt::WindowStates(before));
    show(Varnel3Data::Completed);
    QCOMPARE(int(window->windowState()), after);
}

void TestEndNotice::windowMayGoUnderTheBox()
{
    show(Varnel3Data::Completed, [this] { window.reset(); });
    QVERIFY(!notice);
}

QTEST_MAIN(TestEndNotice)
#include "tst_endnotice.moc"
