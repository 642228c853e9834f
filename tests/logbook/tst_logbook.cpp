#include "logbook/logbook.h"
#include "logbook/logbookcsv.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookfile.h"
#include "logbook/logbookkeeper.h"
#include "logbook/logbookschema.h"
#include "entries.h"
#include "support/asnobody.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/limits.h"

#include <QBuffer>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <cerrno>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

Q_DECLARE_METATYPE(LogbookFilter)

namespace {

constexpr int longTime = 60000; // ms

/// All that a logbook holds, a row or pack a line.
QStringList dump(const Logbook &logbook)
{
    QStringList lines;
    for (const LogbookPack &pack : logbook.packs())
        lines += QStringLiteral("pack %1 %2 %3 %4 %5")
                     .arg(pack.name)
                     .arg(pack.cellType)
                     .arg(pack.cells)
                     .arg(pack.capacity)
                     .arg(pack.note);
    for (int i = 0; i < logbook.size(); ++i) {
        const LogbookEntry &row = logbook.entryAt(i);
        const LogbookRecording &r = row.recording;
        lines += QStringList{r.file, r.start.toString(Qt::ISODate), QString::number(r.isStartApproximate),
            r.port, logbook.packName(r.pack), r.note, QString::number(row.stamp.size),
            QString::number(row.stamp.modified), QString(row.beginning), QString::number(r.figures.records)}
                     .join('|');
    }
    lines.sort();
    return lines;
}

/// A logbook on its file, open.
struct OpenLogbook {
    explicit OpenLogbook(const QString &folder)
        : editor(&logbook)
    {
        QSignalSpy opened(&logbook, SIGNAL(opened()));
        QObject::connect(&logbook, &Logbook::told, &logbook, [this](const QString &text) { told = text; });
        logbook.open(folder);
        QVERIFY(opened.wait(longTime));
        QCoreApplication::processEvents();
    }
    Logbook logbook;
    LogbookEditor editor;
    QString told;
};

QString onFile(const QString &folder, const char *question)
{
    QString answer;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "test");
        database.setDatabaseName(folder + "/logbook.sqlite");
        QSqlQuery query(database.open() ? database : QSqlDatabase());
        answer = query.exec(question) && query.next() ? query.value(0).toString() : query.lastError().text();
    }
    QSqlDatabase::removeDatabase("test");
    return answer;
}

/// Another program at the file, which none can write to meanwhile.
class OtherWriter {
public:
    explicit OtherWriter(const QString &folder)
        : m_name(QUuid::createUuid().toString())
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", m_name);
        database.setDatabaseName(folder + "/logbook.sqlite");
        m_has = database.open() && QSqlQuery(database).exec("BEGIN IMMEDIATE");
    }
    ~OtherWriter()
    {
        QSqlQuery(QSqlDatabase::database(m_name)).exec("COMMIT");
        QSqlDatabase::removeDatabase(m_name);
    }
    OtherWriter(const OtherWriter &) = delete;
    OtherWriter &operator=(const OtherWriter &) = delete;
    bool has() const { return m_has; }

private:
    QString m_name;
    bool m_has = false;
};

std::atomic<off64_t> scratch = -1; // where no file can be read

} // namespace

// In the place of the system's.
extern "C" ssize_t pread64(int descriptor, void *bytes, size_t size, off64_t offset)
{
    if (offset != scratch)
        return ::syscall(SYS_pread64, descriptor, bytes, size, offset);
    errno = EIO;
    return -1;
}

/// The logbook in memory and in its file.
class TestLogbook : public QObject {
    Q_OBJECT

private slots:
    void keepsAll()
    {
        const QTemporaryDir folder;
        const QString names[] = {"/a/plain.acp", "/a/it's \"quoted\"; DROP TABLE pack; --.acp",
            "/a/two\nlines\r.acp", QString::fromUtf8("/a/żółć \xf0\x9f\x94\x8b.acp"), "/a/%1 ?1 :a.acp"};
        LogbookEntry full = entry(names[0]);
        LogbookFigures &figures = full.recording.figures;
        figures.device = Varnel3Data::Tandor;
        figures.duration = 3601;
        figures.charge = 4711;
        figures.energy = 0.1 + 0.2;
        figures.startVoltage = 25100;
        figures.endVoltage = 19900;
        figures.highestTemperature = 412;
        figures.resistance = 23;
        figures.cellResistances[15] = 1.7F;
        figures.spread = 0;
        figures.lowestCell = 3;
        figures.end = Varnel3Data::Failed;
        figures.curve = QByteArray(LogbookFigures::curvePoints, '\0');
        LogbookEntry most = full; // the last that each may be
        most.recording.file = "/a/most.acp";
        most.recording.isStartApproximate = true;
        most.stamp = FileStamp();
        LogbookFigures &last = most.recording.figures;
        last.records = last.duration = last.spread = std::numeric_limits<int>::max();
        last.charge = last.resistance = std::numeric_limits<int>::min();
        last.device = Varnel3Data::NoDevice;
        last.mode = Varnel3Data::NoMode;
        last.cellType = 1000;
        last.cells = Varnel3Data::maxCells;
        last.lowestCell = Varnel3Data::maxCells - 1;
        last.end = Varnel3Data::Completed;
        last.curve.clear();
        QStringList before;
        {
            OpenLogbook book(folder.path());
            for (const QString &name : names)
                book.logbook.take(name == names[0] ? full : entry(name));
            book.logbook.take(most);
            book.logbook.take(entry("/a/no start.acp", "", 5, QDateTime()));
            for (const QString &name : names) {
                const qint64 pack = book.editor.addPack(namedPack(name));
                book.editor.assign({book.logbook.recordingOf(name)->id}, pack);
                book.editor.setNote(book.logbook.recordingOf(name)->id, name);
            }
            book.logbook.setFolders({"/b'", "/a\n"});
            book.logbook.addRefused({-1, std::numeric_limits<qint64>::max()});
            before = dump(book.logbook);
            QVERIFY(!book.logbook.isReadOnly() && book.logbook.trouble().isEmpty());
        }
        const OpenLogbook book(folder.path());
        QCOMPARE(dump(book.logbook), before);
        QVERIFY(book.logbook.recordingOf(names[0])->figures == figures);
        QVERIFY(book.logbook.recordingOf("/a/most.acp")->figures == last);
        QCOMPARE(book.logbook.folders(), (QStringList{"/b'", "/a\n"}));
        QCOMPARE(book.logbook.refused(), (QSet<qint64>{-1, std::numeric_limits<qint64>::max()}));
        QCOMPARE(onFile(folder.path(), "PRAGMA journal_mode"), QString("wal"));
        QCOMPARE(QDir(folder.path()).entryList({"logbook-*.sqlite"}).size(), 1);
    }

    // What no program has written reads as not known.
    void nonsense()
    {
        const QTemporaryDir folder;
        {
            OpenLogbook book(folder.path());
            book.logbook.take(entry("/1.acp"));
            book.editor.addPack(namedPack("A"));
        }
        for (const char *statement : {"UPDATE pack SET chemistry = 1001, cells = 17, capacity = -1",
                 "UPDATE reading SET records = -1, device = 5, mode = -1, chemistry = -1, cells = 17, "
                 "duration = -1, charge = 3000000000, energy = 9e999, start_voltage = 'x', "
                 "cell_resistances = 'nan 1e99 2.5 x', spread = -2, lowest_cell = 16, ending = 3, "
                 "curve = 'short'"})
            onFile(folder.path(), statement);
        const OpenLogbook book(folder.path());
        const LogbookPack pack = book.logbook.packs().value(0);
        QVERIFY(pack.cellType == Varnel3Data::noCellType && pack.cells == 0 && pack.capacity == 0);
        LogbookFigures none;
        none.cellResistances[2] = 2.5F;
        QVERIFY(book.logbook.recordingOf("/1.acp")->figures == none);
    }

    // Each change, taken back and done again, in memory and in the file.
    void undo()
    {
        const QTemporaryDir folder;
        OpenLogbook book(folder.path());
        Logbook &logbook = book.logbook;
        LogbookEditor &editor = book.editor;
        for (const char *name : {"/1.acp", "/2.acp", "/3.acp"})
            logbook.take(entry(name));
        const auto id = [&](const char *name) { return logbook.recordingOf(name)->id; };
        const qint64 a = editor.addPack(namedPack("A"));
        const qint64 b = editor.addPack(namedPack("B"));
        editor.assign({id("/1.acp"), id("/2.acp")}, a);
        editor.assign({id("/3.acp")}, b);
        editor.setNote(id("/1.acp"), "first");
        LogbookPack renamed = *logbook.pack(a);
        renamed.name = "Ä";
        const std::pair<const char *, std::function<void()>> changes[]
            = {{"Rename pack", [&] { editor.changePack(renamed); }},
                {"New pack", [&] { editor.addPack(namedPack("C")); }},
                {"Assign to pack",
                    [&] {
                        editor.assign({id("/1.acp"), id("/3.acp")}, LogbookPack::none);
                    }},
                {"Merge packs",
                    [&] {
                        editor.mergePacks({a, b}, b);
                    }},
                {"Take apart", [&] { editor.takeApart({id("/2.acp")}, "D"); }},
                {"Change note", [&] { editor.setNote(id("/1.acp"), ""); }},
                {"Remove pack", [&] { editor.removePack(a); }},
                {"Remove from logbook", [&] {
                     editor.removeRecordings({id("/1.acp"), 99, id("/3.acp")});
                 }}};
        const auto inFile = [&] {
            if (!QTest::qWaitFor([&] { return logbook.isWritten(); }, longTime))
                return QStringList();
            return dump(OpenLogbook(folder.path()).logbook);
        };
        for (const auto &[text, change] : changes) {
            const QStringList before = dump(logbook);
            change();
            const QStringList after = dump(logbook);
            QVERIFY2(after != before, text);
            QCOMPARE(editor.undoText(), QString(text));
            QCOMPARE(inFile(), after);
            editor.undo();
            QCOMPARE(dump(logbook), before);
            QCOMPARE(editor.redoText(), QString(text));
            QCOMPARE(inFile(), before);
            editor.redo();
            QCOMPARE(dump(logbook), after);
            editor.undo();
        }
        // What has moved meanwhile is found again.
        editor.setNote(id("/2.acp"), "moved");
        for (int looks = 0; looks < 2; ++looks) // at the folder, each of which finds it
            logbook.rename("/2.acp", "/4.acp");
        editor.undo();
        QCOMPARE(logbook.recordingOf("/4.acp")->note, QString());
        QCOMPARE(inFile(), dump(logbook));
    }

    void filters_data()
    {
        columns<LogbookFilter, QString>({"filter", "found"});
        const auto row
            = [](const char *name, const char *found, const std::function<void(LogbookFilter &)> &set) {
                  LogbookFilter filter;
                  set(filter);
                  QTest::newRow(name) << filter << QString(found);
              };
        row("all, the newest first", "cbad", [](LogbookFilter &) {});
        row("chemistry", "ca", [](LogbookFilter &f) { f.cellType = 5; });
        row("process", "", [](LogbookFilter &f) { f.mode = Varnel3Data::Charge; });
        row("not assigned", "bad", [](LogbookFilter &f) { f.pack = LogbookPack::none; });
        row("words in any case", "c", [](LogbookFilter &f) { f.text = "  RED com3 "; });
        row("one word is not there", "", [](LogbookFilter &f) { f.text = "red com4"; });
        row("a note", "b", [](LogbookFilter &f) { f.text = QString::fromUtf8("WĘŻE"); });
        row("from", "cb", [](LogbookFilter &f) { f.from = QDate(2026, 2, 1); });
        row("to, the day included", "ba", [](LogbookFilter &f) { f.to = QDate(2026, 2, 1); });
        row("one day", "b", [](LogbookFilter &f) { f.from = f.to = QDate(2026, 2, 1); });
        row("no day", "", [](LogbookFilter &f) { f.from = f.to = QDate(2026, 2, 2); });
        row("a day in words", "b", [](LogbookFilter &f) { f.text = "2026-02-01"; });
        row("process and device in words", "cbad", [](LogbookFilter &f) { f.text = "none discharge"; });
        row("chemistry and file in words", "a", [](LogbookFilter &f) { f.text = "lipo /a"; });
        row("pack and chemistry", "", [](LogbookFilter &f) {
            f.pack = LogbookPack::none;
            f.cellType = Varnel3Data::noCellType;
        });
    }

    void filters()
    {
        Logbook logbook;
        LogbookEditor editor(&logbook);
        const auto day = [](int month) { return QDateTime(QDate(2026, month, 1), QTime(23, 59)); };
        logbook.take(entry("/a", "COM3", 5, day(1)));
        logbook.take(entry("/b", "COM3", 4, day(2)));
        logbook.take(entry("/c", "COM3", 5, day(3)));
        logbook.take(entry("/d", "COM4", 4, QDateTime()));
        logbook.setGone("/d", true);
        QCOMPARE(logbook.packToOffer(logbook.recordingOf("/a")->id), qint64(LogbookPack::none));
        const qint64 pack = editor.addPack(namedPack("Red one"));
        editor.assign({logbook.recordingOf("/c")->id}, pack);
        editor.setNote(logbook.recordingOf("/b")->id, QString::fromUtf8("Węże"));
        QFETCH(LogbookFilter, filter);
        QString found;
        const auto ids = logbook.recordings(filter);
        for (const qint64 id : ids)
            found += logbook.recording(id)->file.back();
        QTEST(found, "found");
        // The same port, chemistry and cells offer the pack.
        QCOMPARE(logbook.packToOffer(logbook.recordingOf("/a")->id), pack);
        QCOMPARE(logbook.packToOffer(logbook.recordingOf("/b")->id), qint64(LogbookPack::none));
        QCOMPARE(logbook.packToOffer(logbook.recordingOf("/c")->id), qint64(LogbookPack::none));
    }

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
                QVERIFY(database.open()
                    && LogbookSchema::migrate(database, &error, qMin(version, LogbookSchema::newest())));
                QSqlQuery query(database);
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
        for (const bool backup : {true, false}) {
            const char *how = backup ? "with a copy" : "without";
            QTest::addRow("no database, %s", how) << QByteArray() << backup;
            QTest::addRow("a table is missing, %s", how) << QByteArray("DROP TABLE reading") << backup;
            QTest::addRow("other tables, %s", how)
                << QByteArray("ALTER TABLE recording RENAME TO other") << backup;
        }
        for (const char *what : {"cut", "empty", "gone"})
            QTest::addRow("%s", what) << QByteArray(what) << true;
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
            QVERIFY2(book.logbook.trouble().startsWith("The logbook can't be read: " + folder.path()),
                qPrintable(book.logbook.trouble()));
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
        QString reason;
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
            QVERIFY(nowhere.logbook.isReadOnly() && !nowhere.logbook.trouble().isEmpty());
        }
        QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
    }

    void fullDisk()
    {
        const QTemporaryDir folder;
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
            QVERIFY(other.has());
            for (int i = 0; i < 1000; ++i)
                logbook.take(entry(QString("/%1.acp").arg(i)));
            book.editor.setNote(logbook.recordingOf("/999.acp")->id, "note");
            logbook.rename("/998.acp", "/other.acp");
            logbook.drop("/997.acp");
        }
        QTRY_VERIFY_WITH_TIMEOUT(logbook.isWritten(), longTime);
        QVERIFY(onFile(folder.path(), "SELECT max(readings) FROM seen").toInt() < 1000);
        QCOMPARE(onFile(folder.path(), "SELECT count(*) FROM seen").toInt(), 1);
        QCOMPARE(dump(OpenLogbook(folder.path()).logbook), dump(logbook));

        LogbookBatch last;
        last.packs = {namedPack("last")};
        last.packs[0].id = 1;
        last.isUsers = true;
        auto keeper = std::make_unique<LogbookKeeper>(folder.path(), LogbookKeeper::Listener(),
            LogbookKeeper::Patience{std::chrono::milliseconds(longTime), std::chrono::milliseconds(0)});
        QSemaphore held;
        std::thread slow([&folder, &held] {
            const OtherWriter other(folder.path());
            held.release();
            QTest::qSleep(300); // long enough to be waited for
        });
        held.acquire();
        keeper->write(last);
        keeper.reset();
        const QString kept = onFile(folder.path(), "SELECT name FROM pack");
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
        QVERIFY(two.logbook.recordingOf("/6.acp")->isGone);
        QCOMPARE(two.logbook.recordingOf("/5.acp")->note, QString("of two"));
        QCOMPARE(two.logbook.recordingOf("/5.acp")->id, idOf("/5.acp"));
    }

    // Both begin with no file at the same time, and give the same recording rows of their own.
    void twoAtOnce()
    {
        const QTemporaryDir folder;
        std::vector<std::thread> programs;
        for (const QString &name : {QString("x"), QString("y")})
            programs.emplace_back([&folder, name] {
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
            });
        for (std::thread &program : programs)
            program.join();
        const OpenLogbook book(folder.path());
        QVERIFY(book.told.isEmpty());
        QCOMPARE(book.logbook.size(), 59);
        QCOMPARE(book.logbook.recordingOf("/both")->figures.records, 9);
    }

    void csv()
    {
        Logbook logbook;
        LogbookEditor editor(&logbook);
        LogbookEntry found = entry("/it's, \"here\"\n.acp");
        found.recording.figures.energy = 12.5;
        found.recording.figures.end = Varnel3Data::Aborted;
        found.recording.figures.cellResistances[0] = 1.3F;
        logbook.take(found);
        editor.assign({logbook.recordings().value(0)}, editor.addPack(namedPack("Red, one")));
        LogbookEntry live = entry("/live", "COM4");
        live.stamp = FileStamp();
        live.recording.start = QDateTime();
        logbook.take(live);
        LogbookEntry full = entry("/full", "", 5, QDateTime(QDate(2026, 2, 28), QTime(1, 2, 3)));
        full.recording.isStartApproximate = true;
        LogbookFigures &figures = full.recording.figures;
        figures.device = Varnel3Data::Tandor;
        figures.energy = 1.00006;
        figures.startVoltage = 25100;
        figures.endVoltage = 19900;
        figures.highestTemperature = 412;
        figures.resistance = 23;
        figures.spread = 0;
        figures.lowestCell = 3;
        figures.end = Varnel3Data::Completed;
        figures.cellResistances[15] = 1.2345F;
        logbook.take(full);
        LogbookCsv rows(logbook, logbook.recordings());
        QBuffer out;
        QCOMPARE(rows.progress(), 0.0);
        QVERIFY(out.open(QIODevice::WriteOnly) && rows.writeAll(out));
        const QByteArrayList lines = out.data().split('\n');
        QCOMPARE(lines[0].count(','), 36);
        QCOMPARE(lines[1] + '\n' + lines[2],
            QByteArray("\"Red, one\",2026-03-01 12:00:00,0,None,COM3,Discharge,LiPo,6,"
                       "9,0,0,12.5,0,0,,,,,aborted,1.3")
                + QByteArray(15, ',') + ",,\"/it's, \"\"here\"\"\n.acp\"");
        QCOMPARE(lines[3],
            ",2026-02-28 01:02:03,1,Tandor,,Discharge,LiPo,6,9,0,0,1.0001,25100,19900,412,23,0,4,completed"
                + QByteArray(16, ',') + "1.235,,/full");
        QCOMPARE(lines[4], ",,0,None,COM4,Discharge,LiPo,6" + QByteArray(27, ',') + ",,/live");
        QVERIFY(lines[0].startsWith("pack,start,start is approximate,device,") && rows.progress() == 1.0);
        QVERIFY(lines[0].contains(",end,cell 1 resistance [mOhm],cell 2")
            && lines[0].endsWith(",cell 16 resistance [mOhm],note,file"));
    }
};

QTEST_MAIN(TestLogbook)
#include "tst_logbook.moc"
