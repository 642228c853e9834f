#include "machine/soundplayer.h"
#include "machine/soundserver.h"
#include "support/columns.h"
#include "support/files.h"

#include <QLocalServer>
#include <QTemporaryDir>

#include <unistd.h>

/// Which file is played, and whether there is anything to play it on.
class TestSounds : public QObject {
    Q_OBJECT
private slots:
    void fileIsTheCountrys_data();
    void fileIsTheCountrys();
    void noServerIsNoNoise();
};

void TestSounds::fileIsTheCountrys_data()
{
    columns<int, QStringList, QString>({"country", "there", "file"});
    const QStringList all{"end.wav", "end_pl.wav", "end_de.wav"};
    QTest::newRow("Poland") << int(QLocale::Poland) << all << "end_pl.wav";
    QTest::newRow("Germany") << int(QLocale::Germany) << all << "end_de.wav";
    QTest::newRow("elsewhere") << int(QLocale::France) << all << "end.wav";
    QTest::newRow("no variant") << int(QLocale::Poland) << QStringList{"end.wav"} << "end.wav";
    QTest::newRow("nothing") << int(QLocale::Germany) << QStringList() << "end.wav";
}

void TestSounds::fileIsTheCountrys()
{
    QFETCH(int, country);
    QFETCH(QStringList, there);
    QFETCH(QString, file);
    QTemporaryDir sounds;
    for (const QString &name : there)
        QVERIFY(writeFile(sounds.filePath(name), QByteArray()));
    QCOMPARE(SoundPlayer::filePath(sounds.path(), QStringLiteral("end"), QLocale::Country(country)),
        QDir::toNativeSeparators(sounds.filePath(file)));
}

// The sound library's own list would be waited for, and complained of where there is none. A server that has
// ended leaves its socket behind.
void TestSounds::noServerIsNoNoise()
{
    if (QDir(QStringLiteral("/dev/snd")).exists() || QFile::exists(QStringLiteral("/run/pulse/native")))
        QSKIP("this machine has sound");
    QTemporaryDir runtime;
    for (const char *variable : {"XDG_RUNTIME_DIR", "PULSE_SERVER", "PULSE_RUNTIME_PATH"})
        qunsetenv(variable);
    QVERIFY(!hasSoundOutput());
    qputenv("PULSE_SERVER", "elsewhere");
    QVERIFY(hasSoundOutput());
    qunsetenv("PULSE_SERVER");
    QVERIFY(QDir(runtime.path()).mkdir(QStringLiteral("pulse")));
    for (const char *variable : {"XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH"}) {
        qputenv(variable, QFile::encodeName(runtime.path()));
        QVERIFY(!hasSoundOutput());
        const QString socket = runtime.filePath(QLatin1String(*variable == 'X' ? "pulse/native" : "native"));
        QLocalServer server;
        QVERIFY(server.listen(runtime.filePath(QStringLiteral("server"))));
        QCOMPARE(link(QFile::encodeName(server.fullServerName()), QFile::encodeName(socket)), 0);
        QVERIFY2(hasSoundOutput(), variable);
        QVERIFY(SoundPlayer().hasOutput());
        server.close();
        QVERIFY(QFile::exists(socket) && !hasSoundOutput());
        qunsetenv(variable);
    }
}

QTEST_GUILESS_MAIN(TestSounds)
#include "tst_sounds.moc"
