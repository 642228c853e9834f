#include "entries.h"
#include "logbook/logbookfile.h"
#include "logbook/logbookkeeper.h"
#include "logbook/logbookschema.h"
#include "openlogbook.h"
#include "support/asnobody.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"

#include <cerrno>
#include <future>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {

/// Another program at the file, which none can write to while it lives.
struct OtherWriter {
    explicit OtherWriter(const QString &folder)
    {
        database.setDatabaseName(folder + "/logbook.sqlite");
        QVERIFY(database.open() && QSqlQuery(database).exec("BEGIN IMMEDIATE"));
    }
    ~OtherWriter()
    {
        QSqlQuery(database).exec("COMMIT");
        database.close();
    }
    Q_DISABLE_COPY(OtherWriter)
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", QUuid::createUuid().toString());
};

std::atomic<off64_t> scratch = -1; // where no file can be read
std::atomic<int> reads = 0;

} // namespace

// In the place of the system's.
extern "C" ssize_t pread64(int descriptor, void *bytes, size_t size, off64_t offset)
{
    ++reads;
    if (offset != scratch)
        return ::syscall(SYS_pread64, descriptor, bytes, size, offset);
    errno = EIO;
    return -1;
}

/// The logbook's file: old ones and sick ones, disks that take nothing, several programs at once.
class TestLogbookFile : public QObject {
    Q_OBJECT

private slots:
    // From every version that there was, and not from one that there will be.
    void migrations()
    {
        for (int version = 0; version <= LogbookSchema::newest() + 1; ++version) {
            const QTemporaryDir folder;
            const bool newer = version > LogbookSchema::newest();
            {
                QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "old");
                database.setDatabaseName(folder.filePath("logbook.sqlite"));
                QSqlError error;
                QVERIFY(!LogbookSchema::migrate(QSqlDatabase(), &error) && error.isValid());
                QVERIFY(database.open()
                    && LogbookSchema::migrate(database, &error, qMin(version, LogbookSchema::newest())));
                QSqlQuery query(database);
                if (version == 0) { // a step that fails half-way leaves nothing
                    QVERIFY(
                        query.exec("CREATE TABLE folder(x)") && !LogbookSchema::migrate(database, &error));
                    QVERIFY(query.exec("DROP TABLE folder") && LogbookSchema::migrate(database, &error));
                }
                QVERIFY(version == 0 || query.exec("INSERT INTO pack VALUES(7, 'old', 5, 6, 5000, 'note')"));
                QVERIFY(!newer || query.exec(QString("PRAGMA user_version = %1").arg(version)));
            }
            QSqlDatabase::removeDatabase("old");
            {
                OpenLogbook book(folder.path());
                QCOMPARE(book.logbook.packs().size(), version == 0 ? 0 : 1);
                QCOMPARE(book.logbook.isReadOnly(), newer);
                QCOMPARE(book.logbook.trouble().contains("newer version"), newer);
                QCOMPARE(book.editor.addPack(namedPack("new")) == LogbookPack::none, newer);
            }
            QCOMPARE(onFile(folder.path(), "PRAGMA user_version").toInt(),
                newer ? version : LogbookSchema::newest());
            QCOMPARE(
                onFile(folder.path(), "SELECT count(*) FROM pack").toInt(), version == 0 || newer ? 1 : 2);
        }
    }

    void damaged_data()
    {
        columns<QByteArray, bool>({"statement", "backup"});
        for (const char *how : {"", "DROP TABLE reading", "ALTER TABLE recording RENAME TO other", "cut",
                 "empty", "gone", "-", "-DROP TABLE reading", "-ALTER TABLE recording RENAME TO other"}) {
            const bool backup = *how != '-'; // is there
            QTest::newRow(how) << QByteArray(how + int(!backup)) << backup;
        }
    }

    void damaged()
    {
        QFETCH(QByteArray, statement);
        QFETCH(bool, backup);
        const QTemporaryDir folder;
        const QString file = folder.filePath("logbook.sqlite");
        {
            OpenLogbook book(folder.path());
            book.logbook.take(entry("/1.acp"));
            book.editor.assign({book.logbook.recordingOf("/1.acp")->id}, book.editor.addPack(namedPack("A")));
        }
        if (statement.isEmpty())
            QVERIFY(writeFile(file, "This is no database, but as long as the beginning of one has to be."));
        else if (statement == "cut")
            QVERIFY(QFile::resize(file, QFileInfo(file).size() / 2));
        else if (statement == "empty")
            QVERIFY(QFile::resize(file, 0));
        else if (statement == "gone")
            QVERIFY(QFile::remove(file));
        else
            onFile(folder.path(), statement);
        const QByteArray bytes = contents(file);
        const QStringList backups = QDir(folder.path()).entryList({"logbook-*.sqlite"});
        QCOMPARE(backups.size(), 1);
        QVERIFY(backup || QFile::remove(folder.filePath(backups[0])));
        QVERIFY(writeFile(folder.filePath("logbook-2099-01-01.sqlite"), "damaged, too"));
        QVERIFY(writeFile(folder.filePath("logbook-2098-01-01.sqlite"), ""));
        OpenLogbook book(folder.path());
        QCOMPARE(book.logbook.packs().size(), backup ? 1 : 0);
        QCOMPARE(book.logbook.size(), backup ? 1 : 0);
        const QStringList aside = QDir(folder.path()).entryList({"damaged-*.sqlite"});
        QCOMPARE(aside.size(), statement == "gone" ? 0 : 1);
        QCOMPARE(aside.isEmpty() ? bytes : contents(folder.filePath(aside[0])), bytes);
        QVERIFY(book.told.contains(aside.value(0)) && book.told.contains(backups[0]) == backup);
        QVERIFY(!book.logbook.isReadOnly() && book.editor.addPack(namedPack("B")) != LogbookPack::none);
    }

    // A medium with a scratch is not a damaged file.
    void unreadable()
    {
        const QTemporaryDir folder;
        OpenLogbook(folder.path()).editor.addPack(namedPack("A"));
        const int page
            = onFile(folder.path(), "SELECT rootpage FROM sqlite_master WHERE name = 'refused'").toInt();
        QVERIFY(page > 1);
        scratch = (page - 1) * onFile(folder.path(), "PRAGMA page_size").toLongLong();
        {
            OpenLogbook book(folder.path());
            scratch = -1;
            QVERIFY(book.logbook.trouble().startsWith("The logbook can't be read: " + folder.path()));
            QVERIFY(book.logbook.isReadOnly() && book.told.isEmpty());
        }
        QCOMPARE(QDir(folder.path()).entryList({"damaged-*"}), QStringList());
        QCOMPARE(OpenLogbook(folder.path()).logbook.packs().size(), 1);
    }

    void backups()
    {
        const QTemporaryDir folder;
        LogbookFile file(folder.path());
        file.open();
        QVERIFY(!file.wasWrittenByOthers());
        onFile(folder.path(), "INSERT INTO folder VALUES('/b')");
        QVERIFY(file.wasWrittenByOthers() && !file.wasWrittenByOthers());
        QString reason;
        QVERIFY(writeFile(folder.filePath("logbook-backup.new"), "left by a kill"));
        for (int day = 1; day <= 7; ++day) {
            LogbookBatch batch;
            batch.packs = {namedPack(QString::number(day))};
            batch.packs[0].id = day;
            QCOMPARE(file.write({batch}, &reason), LogbookFile::Written::Yes);
            QVERIFY(file.backUp(QDate(2026, 5, qMax(2, day))));
        }
        QStringList names = file.backups();
        QCOMPARE(names.size(), LogbookFile::backupsKept);
        QVERIFY(names.first().endsWith("logbook-2026-05-07.sqlite") && names.last().endsWith("-03.sqlite"));
        const QTemporaryDir other;
        QVERIFY(QFile::copy(names.last(), other.filePath("logbook.sqlite")));
        QCOMPARE(LogbookFile(other.path()).open().packs.size(), 3);
        {
            const FileSizeLimit full(100);
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("not copied"));
            QVERIFY(!file.backUp(QDate(2026, 6, 1)) && file.backups() == names);
        }
        QVERIFY(file.backUp(QDate(1970, 1, 1))); // a clock without its battery
        names = file.backups();
        QVERIFY(names.last().endsWith("1970-01-01.sqlite"));
        QCOMPARE(names.size(), LogbookFile::backupsKept);
    }

    void readOnly()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("logbook.sqlite");
        OpenLogbook writing(folder.path()); // what is not in the file yet is beside it
        writing.editor.addPack(namedPack("A"));
        QTRY_VERIFY_WITH_TIMEOUT(writing.logbook.isWritten(), longTime);
        const QStringList names = QDir(folder.path()).entryList(QDir::Files);
        for (const QString &name : names)
            QFile::setPermissions(folder.filePath(name), QFile::Permissions(0x4444));
        QFile::setPermissions(folder.path(), QFile::Permissions(0x5555));
        {
            const AsNobody nobody;
            OpenLogbook book(folder.path());
            QCOMPARE(book.logbook.packs().size(), 1);
            QVERIFY(book.logbook.isReadOnly() && book.logbook.trouble().contains(file));
            book.logbook.take(entry("/1.acp")); // is shown, though not kept
            QCOMPARE(book.logbook.size(), 1);
            QCOMPARE(book.editor.addPack(namedPack("B")), qint64(LogbookPack::none));
            book.editor.setNote(book.logbook.recordingOf("/1.acp")->id, "note");
            QVERIFY(!book.editor.canUndo());
            const OpenLogbook nowhere(folder.filePath("below"));
            QVERIFY(
                nowhere.logbook.isReadOnly() && nowhere.logbook.trouble().contains("nothing can be written"));
        }
        QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
    }

    void fullDisk()
    {
        const QTemporaryDir folder;
        {
            const FileSizeLimit full(100);
            const OpenLogbook book(folder.path());
            QCOMPARE(book.logbook.trouble(), QString("The logbook can't be kept: disk I/O error"));
            QVERIFY(book.logbook.isReadOnly() && book.told.isEmpty());
        }
        {
            OpenLogbook book(folder.path());
            {
                const FileSizeLimit full(1 << 16);
                for (int i = 0; i < 200; ++i)
                    book.editor.addPack(namedPack(QString(1000, 'x')));
                QTRY_VERIFY_WITH_TIMEOUT(!book.logbook.trouble().isEmpty(), longTime);
                QVERIFY(!book.logbook.isWritten() && !book.logbook.isReadOnly());
            }
            book.editor.addPack(namedPack("last"));
            QTRY_VERIFY_WITH_TIMEOUT(book.logbook.trouble().isEmpty(), longTime);
            QTRY_VERIFY_WITH_TIMEOUT(book.logbook.isWritten(), longTime);
        }
        QVERIFY(QFile::remove(folder.filePath("logbook.sqlite")));
        {
            const FileSizeLimit full(1 << 16); // which takes an empty file, but not the copy
            const OpenLogbook book(folder.path());
            QVERIFY(book.logbook.isReadOnly() && book.logbook.trouble().contains("can't be kept"));
        }
        QCOMPARE(OpenLogbook(folder.path()).logbook.packs().size(), 201);
    }

    // Where writing takes its time, what the user says is not behind what was read, nor lost at the end.
    void slowDisk()
    {
        const QTemporaryDir folder;
        OpenLogbook book(folder.path());
        Logbook &logbook = book.logbook;
        onFile(folder.path(), "CREATE TABLE seen(readings INTEGER)");
        onFile(folder.path(),
            "CREATE TRIGGER see AFTER UPDATE OF note ON recording"
            " BEGIN INSERT INTO seen SELECT count(*) FROM reading; END");
        {
            const OtherWriter other(folder.path());
            for (int i = 0; i < 1000; ++i)
                logbook.take(entry(QString("/%1.acp").arg(i)));
            QVERIFY(logbook.isUsersWritten());
            logbook.setFolders({"/b"});
            QVERIFY(!logbook.isUsersWritten());
            book.editor.setNote(logbook.recordingOf("/999.acp")->id, "note");
            logbook.rename("/998.acp", "/other.acp");
            logbook.drop("/997.acp");
        }
        QTRY_VERIFY_WITH_TIMEOUT(logbook.isWritten(), longTime);
        QVERIFY(onFile(folder.path(), "SELECT max(readings) FROM seen").toInt() < 1000);
        QCOMPARE(onFile(folder.path(), "SELECT count(*) FROM seen").toInt(), 1);
        QCOMPARE(dump(OpenLogbook(folder.path()).logbook), dump(logbook));
        // What the file refuses costs nothing else.
        onFile(folder.path(),
            "CREATE TRIGGER no BEFORE INSERT ON pack WHEN NEW.name = 'bad'"
            " BEGIN SELECT RAISE(ABORT, 'not that'); END");
        {
            const OtherWriter other(folder.path());
            for (const char *name : {"good", "bad", "better"})
                book.editor.addPack(namedPack(name));
        }
        QTRY_VERIFY_WITH_TIMEOUT(logbook.isWritten(), longTime);
        QCOMPARE(
            onFile(folder.path(), "SELECT group_concat(name) FROM (SELECT name FROM pack ORDER BY name)"),
            QString("better,good"));
        QTRY_VERIFY_WITH_TIMEOUT(logbook.trouble().contains("not that") && logbook.isReadOnly(), longTime);

        LogbookBatch last;
        last.packs = {namedPack("last")};
        last.packs[0].id = 1;
        last.isUsers = true;
        auto keeper = std::make_unique<LogbookKeeper>(folder.path(), LogbookKeeper::Listener(),
            LogbookKeeper::Patience{std::chrono::milliseconds(longTime), std::chrono::milliseconds(0)});
        QSemaphore held;
        QSemaphore ending;
        std::thread slow([&] {
            const OtherWriter other(folder.path());
            held.release();
            ending.acquire();
            while (!contents("/proc/self/stat").contains(") S ")) // until the end waits
                std::this_thread::yield();
        });
        held.acquire();
        keeper->write(last);
        ending.release();
        keeper.reset();
        const QString kept = onFile(folder.path(), "SELECT name FROM pack WHERE id = 1");
        slow.join();
        QCOMPARE(kept, QString("last"));
    }

    // What one writes, the other shows soon, and keeps what is known only there.
    void twoShow()
    {
        const QTemporaryDir folder;
        OpenLogbook one(folder.path());
        OpenLogbook two(folder.path());
        QSignalSpy removed(&two.logbook, SIGNAL(recordingsRemoved(QVector<qint64>)));
        for (const char *name : {"/1.acp", "/2.acp", "/3.acp", "/4.acp", "/6.acp"})
            one.logbook.take(entry(name));
        const auto idOf = [&one](const char *name) { return one.logbook.recordingOf(name)->id; };
        const qint64 pack = one.editor.addPack(namedPack("A"));
        const qint64 spare = one.editor.addPack(namedPack("spare"));
        one.editor.assign({idOf("/1.acp"), idOf("/2.acp")}, pack);
        one.logbook.setFolders({"/a", "/b"});
        one.logbook.addRefused({7});
        QTRY_COMPARE_WITH_TIMEOUT(dump(two.logbook), dump(one.logbook), longTime);
        QTRY_COMPARE_WITH_TIMEOUT(two.logbook.refused(), one.logbook.refused(), longTime);
        QCOMPARE(two.logbook.folders(), one.logbook.folders());
        QVERIFY(removed.isEmpty());
        two.logbook.setGone("/6.acp", true);
        two.editor.setNote(two.logbook.recordingOf("/1.acp")->id, "of two");
        QTRY_COMPARE_WITH_TIMEOUT(dump(one.logbook), dump(two.logbook), longTime);
        // Names that change places, rows that go, a file that holds another recording now.
        one.logbook.rename("/1.acp", "/5.acp");
        one.logbook.rename("/2.acp", "/1.acp");
        one.editor.removeRecordings({idOf("/4.acp")});
        one.editor.removePack(spare);
        LogbookEntry grown = entry("/6.acp");
        grown.recording.figures.records = 10;
        one.logbook.take(grown);
        LogbookEntry other = entry("/3.acp");
        other.stamp.size = LogbookEntry::beginningLength;
        LogbookEntry before = other;
        before.beginning = "before";
        one.logbook.take(before);
        one.editor.setNote(idOf("/3.acp"), "before");
        one.logbook.takeOther(other);
        LogbookPack renamed = *one.logbook.pack(pack);
        renamed.name = "B";
        one.editor.changePack(renamed);
        QTRY_COMPARE_WITH_TIMEOUT(dump(two.logbook), dump(one.logbook), longTime);
        QVERIFY(two.logbook.recordingOf("/6.acp")->isGone && !removed.isEmpty());
        QCOMPARE(two.logbook.recordingOf("/5.acp")->note, QString("of two"));
        QCOMPARE(two.logbook.recordingOf("/5.acp")->id, idOf("/5.acp"));
    }

    // Both begin with no file at the same time, and give the same recording rows of their own.
    void twoAtOnce()
    {
        const QTemporaryDir folder;
        std::optional<OtherWriter> third(folder.path()); // while the file is made
        reads = 0;
        std::vector<std::future<void>> programs;
        for (const QString &name : {QString("x"), QString("y")})
            programs.push_back(std::async(std::launch::async, [&folder, name] {
                LogbookFile file(folder.path());
                file.open();
                for (int i = 0; i < 30; ++i) {
                    LogbookBatch batch;
                    batch.assigned = {entry(i == 0 ? QString("/both") : name + QString::number(i))};
                    batch.assigned[0].recording.id = Logbook::freshId();
                    batch.read = batch.assigned;
                    QString reason;
                    while (file.write({batch}, &reason) == LogbookFile::Written::NotYet) { }
                }
            }));
        QTRY_VERIFY_WITH_TIMEOUT(reads > 40, 30000);
        third.reset();
        programs.clear(); // waits
        const OpenLogbook book(folder.path());
        QVERIFY(book.told.isEmpty());
        QCOMPARE(book.logbook.size(), 59);
        QCOMPARE(book.logbook.recordingOf("/both")->figures.records, 9);
    }
};

QTEST_MAIN(TestLogbookFile)
#include "tst_logbookfile.moc"
