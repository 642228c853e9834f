#include "entries.h"
#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"

#include <QtTest>

/// What changes in a logbook, and what is told and offered then.
class TestLogbookChanges : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale("en_US")); } // which sorts numbers by their value

    // Each change tells of the rows that it changed, and of nothing else.
    void whatIsTold()
    {
        Logbook logbook;
        LogbookEditor editor(&logbook);
        QStringList told;
        const auto names = [&](const QVector<qint64> &ids) {
            QStringList all;
            for (const qint64 id : ids)
                all += logbook.recording(id) ? logbook.recording(id)->file : QString("?");
            all.sort();
            return all.join(',');
        };
        connect(
            &logbook, &Logbook::recordingsChanged, [&](const QVector<qint64> &ids) { told += names(ids); });
        connect(&logbook, &Logbook::recordingsRemoved,
            [&](const QVector<qint64> &ids) { told += '-' + QString::number(ids.size()); });
        connect(&logbook, &Logbook::packsChanged, [&] { told += "packs"; });
        connect(&logbook, &Logbook::foldersChanged, [&] { told += "folders"; });
        const auto since = [&] { return QStringList(std::exchange(told, {})).join(' '); };
        for (const char *name : {"/1", "/2", "/3"})
            logbook.take(entry(name));
        QCOMPARE(since(), QString("/1 /2 /3"));
        logbook.take(entry("/1"));
        QCOMPARE(since(), QString("/1"));
        logbook.setGone("/2", true);
        logbook.setGone("/2", true);
        logbook.setGone("/9", true);
        QCOMPARE(since(), QString("/2"));
        logbook.setFolders({"/a"});
        QCOMPARE(since(), QString("folders"));
        const qint64 pack = editor.addPack(namedPack("A 10"));
        QCOMPARE(since(), QString("packs"));
        const auto id = [&](const char *file) { return logbook.recordingOf(file)->id; };
        editor.assign({id("/1"), id("/3")}, pack);
        QCOMPARE(since(), QString("/1,/3"));
        editor.assign({id("/1")}, pack); // which it is already
        editor.setNote(id("/1"), "");
        editor.removePack(99);
        editor.mergePacks({pack}, 99);
        logbook.rename("/8", "/9");
        logbook.rename("/1", "/1");
        QCOMPARE(since(), QString());
        LogbookPack other = *logbook.pack(pack);
        other.note = "other";
        editor.changePack(other);
        QCOMPARE(editor.undoText(), QString("Change pack"));
        QCOMPARE(since(), QString("/1,/3 packs"));
        logbook.rename("/2", "/1"); // in its place
        QVERIFY(!logbook.recordingOf("/2") && !logbook.recordingOf("/1")->isGone);
        QCOMPARE(since(), QString("-1 /1"));
        logbook.drop("/1");
        QCOMPARE(since(), QString("-1"));
        QCOMPARE(logbook.entryAt(0).recording.file, QString("/3"));
        QCOMPARE(logbook.recording(id("/3")), logbook.recordingOf("/3"));
        for (const char *name : {"A 9", "a 11"})
            editor.addPack(namedPack(name));
        QStringList order;
        for (const LogbookPack &one : logbook.packs())
            order += one.name;
        QCOMPARE(order.join(','), QString("A 9,A 10,a 11"));
        for (int i = 0; i < 120; ++i)
            editor.setNote(id("/3"), QString::number(i));
        int steps = 0;
        for (; editor.canUndo(); ++steps)
            editor.undo();
        QCOMPARE(steps, 100);
        QCOMPARE(logbook.recordingOf("/3")->note, QString("19"));
    }

    /// The one that was last used at the port, by the start of its recordings, for the same cells.
    void offers()
    {
        Logbook logbook;
        LogbookEditor editor(&logbook);
        qint64 packs[4];
        const auto take = [&](const char *file, int day, int pack, const char *port = "COM3", int cells = 6) {
            LogbookEntry found = entry(file, port, 5, QDateTime(QDate(2026, 3, day), QTime(12, 0)));
            found.recording.figures.cells = cells;
            logbook.take(found);
            if (pack >= 0)
                editor.assign({logbook.recordingOf(file)->id}, packs[pack]);
            return logbook.recordingOf(file)->id;
        };
        for (qint64 &pack : packs)
            pack = editor.addPack(namedPack("A"));
        take("/1", 2, 0);
        take("/2", 3, 1);
        take("/3", 1, 2);
        take("/4", 4, 3, "COM4");
        take("/5", 5, 3, "COM3", 5);
        take("/6", 6, 3, "", 6);
        QCOMPARE(logbook.packToOffer(take("/7", 7, -1)), packs[1]);
        QCOMPARE(logbook.packToOffer(take("/8", 7, -1, "")), qint64(LogbookPack::none));
        QCOMPARE(logbook.packToOffer(99), qint64(LogbookPack::none));
        for (int i = 1; i < 4; ++i) // of one name
            QVERIFY(logbook.packs()[i - 1].id < logbook.packs()[i].id);
    }
};

QTEST_GUILESS_MAIN(TestLogbookChanges)
#include "tst_logbookchanges.moc"
