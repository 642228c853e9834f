#include "logbook/logbookcsv.h"
#include "entries.h"
#include "openlogbook.h"
#include "support/columns.h"
#include "support/warningcollector.h"

#include <QtTest>

Q_DECLARE_METATYPE(LogbookFilter)

namespace {

/// Of which every figure is known.
LogbookEntry fullEntry(const QString &file, const QDateTime &start)
{
    LogbookEntry full = entry(file, "", 5, start);
    full.recording.figures
        = {9, Varnel3Data::Tandor, Varnel3Data::Discharge, 5, 6, 3601, 4711, 1.00006, 25100, 19900, 412, 23,
            {}, 0, 3, Varnel3Data::Completed, QByteArray(LogbookFigures::curvePoints, '\0')};
    full.recording.figures.cellResistances[15] = 1.2345F;
    return full;
}

} // namespace

/// The logbook in memory and in its file.
class TestLogbook : public QObject {
    Q_OBJECT

private slots:
    void keepsAll()
    {
        const QTemporaryDir folder;
        const QString names[] = {"/a/plain.acp", "/a/it's \"quoted\"; DROP TABLE pack; --.acp",
            "/a/two\nlines\r.acp", QString::fromUtf8("/a/żółć \xf0\x9f\x94\x8b.acp"), "/a/%1 ?1 :a.acp"};
        const LogbookEntry full = fullEntry(names[0], QDateTime());
        LogbookEntry most = full; // the last that each may be
        most.recording.file = "/a/most.acp";
        most.recording.isStartApproximate = true;
        most.stamp = FileStamp();
        constexpr int top = std::numeric_limits<int>::max();
        most.recording.figures = {top, Varnel3Data::NoDevice, Varnel3Data::NoMode, 1000, 16, top, -top - 1,
            0.1 + 0.2, 1, 2, 3, -top - 1, {}, top, 15, Varnel3Data::Failed, {}};
        LogbookEntry least = full;
        least.recording.file = "/a/least.acp";
        least.recording.figures = {0, 0, 0, 0, 0, 0, 0, 0.0, 0, 0, 0, 0, {}, 0, 0, Varnel3Data::NoEnd, {}};
        QStringList before;
        const WarningCollector collector;
        {
            OpenLogbook book(folder.path());
            for (const QString &name : names)
                book.logbook.take(name == names[0] ? full : entry(name));
            book.logbook.take(most);
            book.logbook.take(least);
            book.editor.addPack({0, "least", 0, 1, 1, ""});
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
        QCOMPARE(collector.warnings(), QStringList());
        const OpenLogbook book(folder.path());
        QCOMPARE(dump(book.logbook), before);
        for (const LogbookEntry &kept : {full, most, least})
            QVERIFY(book.logbook.recordingOf(kept.recording.file)->figures == kept.recording.figures);
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
        for (const char *statement : {"INSERT INTO recording(id, file, note) VALUES(1, '', '')",
                 "UPDATE pack SET chemistry = 1001, cells = 17, capacity = -1",
                 "UPDATE reading SET records = -1, device = 5, mode = -1, chemistry = -1, cells = 17, "
                 "duration = -1, charge = 3000000000, energy = 9e999, start_voltage = 'x', "
                 "cell_resistances = 'nan 1e99 2.5 x', spread = -2, lowest_cell = 16, ending = 3, "
                 "curve = 'short'"})
            onFile(folder.path(), statement);
        const OpenLogbook book(folder.path());
        QCOMPARE(book.logbook.size(), 1);
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
        const QVector<qint64> some = {id("/1.acp"), 99, id("/3.acp")};
        const QVector<qint64> both = {a, b};
        const std::pair<const char *, std::function<void()>> changes[]
            = {{"Rename pack", [&] { editor.changePack(renamed); }},
                {"New pack", [&] { editor.addPack(namedPack("C")); }},
                {"Assign to pack", [&] { editor.assign(some, LogbookPack::none); }},
                {"Merge packs", [&] { editor.mergePacks(both, b); }},
                {"Take apart", [&] { editor.takeApart({id("/2.acp")}, "D"); }},
                {"Change note", [&] { editor.setNote(id("/1.acp"), ""); }},
                {"Remove pack", [&] { editor.removePack(a); }},
                {"Remove from logbook", [&] { editor.removeRecordings(some); }}};
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
        QVERIFY(QDir(folder.path()).entryList({"logbook-*.sqlite"}).isEmpty()); // after a minute
        QCOMPARE(editor.undoText(), QString("Change note"));
        // What has moved meanwhile is found again.
        editor.setNote(id("/2.acp"), "moved");
        for (int looks = 0; looks < 2; ++looks) // at the folder, each of which finds it
            logbook.rename("/2.acp", "/4.acp");
        editor.undo();
        QCOMPARE(logbook.recordingOf("/4.acp")->note, QString());
        LogbookBatch gone; // with one that was put into the pack meanwhile
        gone.droppedPacks = {b};
        gone.isUsers = true;
        logbook.apply(gone);
        editor.assign({id("/3.acp")}, b);
        QCOMPARE(logbook.recordingOf("/3.acp")->pack, qint64(LogbookPack::none));
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
        row("cells, and how it ended", "cbad", [](LogbookFilter &f) { f.text = "no end 6xli"; });
        row("a note", "b", [](LogbookFilter &f) { f.text = QString::fromUtf8("WĘŻE"); });
        row("from", "cb", [](LogbookFilter &f) { f.from = QDate(2026, 2, 1); });
        row("to, the day included", "ba", [](LogbookFilter &f) { f.to = QDate(2026, 2, 1); });
        row("one day", "b", [](LogbookFilter &f) { f.from = f.to = QDate(2026, 2, 1); });
        row("no day", "", [](LogbookFilter &f) { f.to = QDate(2026, 1, 31), f.from = QDate(2026, 1, 2); });
        row("a day in words", "b", [](LogbookFilter &f) { f.text = "2026-02-01"; });
        row("a day as it is shown", "b",
            [](LogbookFilter &f) { f.text = QLocale().toString(QDate(2026, 2, 1), QLocale::ShortFormat); });
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
        const auto day = [](int month) { return QDateTime(QDate(2026, month, 1), QTime(0, 0)); };
        logbook.take(entry("/x", "COM3", 5, day(1)));
        logbook.rename("/x", "/a");
        logbook.take(entry("/b", "COM3", 4, day(2)));
        logbook.take(entry("/c", "COM3", 5, day(3)));
        logbook.take(entry("/d", "COM4", 4, QDateTime()));
        logbook.setGone("/d", true);
        LogbookPack pack = namedPack("Blue one");
        pack.id = editor.addPack(pack);
        editor.assign({logbook.recordingOf("/c")->id}, pack.id);
        pack.name = "Red one";
        editor.changePack(pack);
        editor.setNote(logbook.recordingOf("/b")->id, QString::fromUtf8("Węże"));
        QFETCH(LogbookFilter, filter);
        QString found;
        const auto ids = logbook.recordings(filter);
        for (const qint64 id : ids)
            found += logbook.recording(id)->file.back();
        QTEST(found, "found");
    }

    void csv()
    {
        Logbook logbook;
        LogbookEditor editor(&logbook);
        LogbookEntry found = entry("/it's, \"here\"\n.acp");
        found.recording.figures.energy = 12.5;
        found.recording.figures.end = Varnel3Data::Failed;
        found.recording.figures.cellResistances[0] = 1.3F;
        logbook.take(found);
        editor.assign({logbook.recordings().value(0)}, editor.addPack(namedPack("Red, one")));
        LogbookEntry live = entry("/live", "COM4");
        live.stamp = FileStamp();
        live.recording.start = QDateTime();
        logbook.take(live);
        LogbookEntry full = fullEntry("/full", QDateTime(QDate(2026, 2, 28), QTime(1, 2, 3)));
        full.recording.isStartApproximate = true;
        logbook.take(full);
        LogbookCsv rows(logbook, logbook.recordings());
        QBuffer out;
        QVERIFY(rows.progress() == 0.0 && LogbookCsv(logbook, {}).progress() == 1.0);
        QVERIFY(out.open(QIODevice::WriteOnly) && rows.writeAll(out));
        const QByteArrayList lines = out.data().split('\n');
        LogbookCsv slices(logbook, QVector<qint64>(501, logbook.recordings().value(0)));
        QVERIFY(slices.writeNext(out));
        QCOMPARE(slices.progress(), 500 / 501.0);
        QCOMPARE(lines[0].count(','), 36);
        QCOMPARE(lines[1] + '\n' + lines[2],
            QByteArray("\"Red, one\",2026-03-01 12:00:00,0,None,COM3,Discharge,LiPo,6,"
                       "9,0,0,12.5,0,0,,,,,failed,1.3")
                + QByteArray(15, ',') + ",,\"/it's, \"\"here\"\"\n.acp\"");
        QCOMPARE(lines[3],
            ",2026-02-28 01:02:03,1,Tandor,,Discharge,LiPo,6,9,3601,4711,1.0001,25100,19900,412,23,0,4,"
            "completed"
                + QByteArray(16, ',') + "1.235,,/full");
        QCOMPARE(lines[4], ",,0,None,COM4,Discharge,LiPo,6" + QByteArray(27, ',') + ",,/live");
        QVERIFY(lines[0].startsWith("pack,start,start is approximate,device,") && rows.progress() == 1.0);
        QVERIFY(lines[0].contains(",end,cell 1 resistance [mOhm],cell 2")
            && lines[0].endsWith(",cell 16 resistance [mOhm],note,file"));
    }
};

QTEST_MAIN(TestLogbook)
#include "tst_logbook.moc"
