#include "machine/sleepblock.h"
#include "machine/soundplayer.h"
#include "machine/soundserver.h"
#include "support/files.h"

#include <QLocalServer>
#include <QSound>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

namespace {

QStringList &heard()
{
    static QStringList calls;
    return calls;
}

} // namespace

// In the library's stead, whose threads would look for a server until the end and after: there need be
// nothing to hear it with.
QSound::QSound(const QString &filename, QObject *parent)
    : QObject(parent)
{
    setObjectName(filename);
}

QString QSound::fileName() const
{
    return objectName();
}

void QSound::play()
{
    heard() << QStringLiteral("play ") + QFileInfo(fileName()).fileName();
}

void QSound::stop()
{
    heard() << QStringLiteral("stop");
}

/// Which file is played, and whether there is anything to play it on; what a program may do to the machine.
class TestSounds : public QObject {
    Q_OBJECT
private slots:
    // Of Poland, Germany and France, as more and more files are there.
    void fileIsTheCountrys()
    {
        const QTemporaryDir sounds;
        const std::pair<const char *, const char *> rows[]
            = {{"end_pl", "end_pl end end"}, {"end_de", "end_pl end_de end"}, {"end", "end_pl end_de end"}};
        for (const auto &[there, files] : rows) {
            QVERIFY(writeFile(sounds.filePath(QLatin1String(there) + QStringLiteral(".wav")), QByteArray()));
            QStringList found;
            for (const QLocale::Country country : {QLocale::Poland, QLocale::Germany, QLocale::France}) {
                const QString file = SoundPlayer::filePath(sounds.path(), QStringLiteral("end"), country);
                QCOMPARE(file, QDir::toNativeSeparators(sounds.filePath(QFileInfo(file).fileName())));
                found << QFileInfo(file).completeBaseName();
            }
            QCOMPARE(found.join(QLatin1Char(' ')), QLatin1String(files));
        }
    }

    // A program that has not said that it can be one is not started as its own helper.
    void sleepIsNotBlockedUnasked()
    {
        const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).count(); };
        const uint filesBefore = openFiles();
        SleepBlock block;
        block.acquire(QStringLiteral("charging"));
        QCOMPARE(openFiles(), filesBefore);
    }

    // And only what is there, whole or not.
    void oneSoundAtATime()
    {
        const QTemporaryDir sounds;
        const QString file = sounds.filePath(QStringLiteral("end.wav"));
        QVERIFY(writeFile(file, QByteArray()));
        {
            SoundPlayer player;
            player.stop();
            player.play(sounds.filePath(QStringLiteral("none.wav")));
            QCOMPARE(heard(), QStringList());
            player.play(file);
            player.stop();
            player.stop();
            QCOMPARE(heard().size(), 2); // before the next is heard
            player.play(file);
        }
        QCOMPARE(heard().join(QLatin1Char(' ')), QStringLiteral("play end.wav stop play end.wav stop"));
    }

    // The sound library's own list would be waited for, and complained of where there is none. A server that
    // has ended leaves its socket behind.
    void noServerIsNoNoise()
    {
        if (QDir(QStringLiteral("/dev/snd")).exists() || QFile::exists(QStringLiteral("/run/pulse/native")))
            QSKIP("this machine has sound");
        const QTemporaryDir runtime;
        for (const char *variable : {"XDG_RUNTIME_DIR", "PULSE_SERVER", "PULSE_RUNTIME_PATH"})
            qunsetenv(variable);
        const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).count(); };
        const uint filesBefore = openFiles();
        QVERIFY(!hasSoundOutput());
        QCOMPARE(openFiles(), filesBefore);
        qputenv("PULSE_SERVER", "elsewhere");
        QVERIFY(hasSoundOutput());
        qunsetenv("PULSE_SERVER");
        const QString deep = runtime.filePath(QString(100, QLatin1Char('x'))); // no address has room for it
        QVERIFY(QDir().mkpath(runtime.filePath(QStringLiteral("pulse"))) && QDir().mkpath(deep));
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(deep));
        QVERIFY(!hasSoundOutput());
        QVERIFY(writeFile(deep + QStringLiteral("/native"), QByteArray()) && hasSoundOutput());
        qunsetenv("XDG_RUNTIME_DIR");
        for (const char *variable : {"XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH"}) {
            qputenv(variable, QFile::encodeName(runtime.path()));
            QVERIFY(!hasSoundOutput());
            const QString socket
                = runtime.filePath(QLatin1String(*variable == 'X' ? "pulse/native" : "native"));
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
};

QTEST_GUILESS_MAIN(TestSounds)
#include "tst_sounds.moc"
