#include "entries.h"
#include "logbook/logbook.h"
#include "logbook/logbookdifference.h"
#include "logbook/logbookeditor.h"
#include "logbook/logbookqueue.h"
#include "support/columns.h"

#include <QtTest>

#include <functional>

using Change = std::function<void(LogbookContent *)>;
Q_DECLARE_METATYPE(Change)

namespace {

/// What a batch does: "drop" and "read" of files, "assign" with the row's id, "pack" and its name or id.
QString told(const LogbookBatch &batch)
{
    QStringList parts;
    for (const auto &names : batch.renamed)
        parts += "rename " + names.first + names.second;
    for (const QString &file : batch.droppedFiles)
        parts += "drop " + file;
    for (const LogbookPack &pack : batch.packs)
        parts += "pack " + pack.name;
    for (const qint64 id : batch.droppedPacks)
        parts += QString("pack -%1").arg(id);
    for (const LogbookEntry &entry : batch.assigned)
        parts += QString("assign %1#%2").arg(entry.recording.file).arg(entry.recording.id);
    for (const LogbookEntry &entry : batch.read)
        parts += "read " + entry.recording.file + (entry.recording.isLive ? "+" : "")
            + (entry.recording.isGone ? "-" : "");
    return parts.join(", ");
}

QString told(const LogbookQueue &queue)
{
    const LogbookQueue::Lot lot = queue.next();
    QStringList batches;
    for (const LogbookBatch &batch : lot.batches)
        batches += told(batch);
    return (lot.isFirst ? "first: " : "") + batches.join(" | ");
}

} // namespace

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
        editor.undo(); // nothing
        editor.redo();
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
        const auto take = [&](const char *file, int day, int pack, const char *port = "COM3", int cells = 6,
                              int cellType = 5) {
            LogbookEntry found = entry(file, port, cellType, QDateTime(QDate(2026, 3, day), QTime(12, 0)));
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
        const qint64 asked = take("/7", 7, -1);
        const qint64 other = take("/8", 8, -1);
        for (const qint64 none : {take("/9", 7, -1, ""), take("/10", 7, -1, "COM3", 6, 4), qint64(99),
                 logbook.recordingOf("/1")->id})
            QCOMPARE(logbook.packToOffer(none), qint64(LogbookPack::none));
        QCOMPARE(logbook.packToOffer(asked), packs[1]);
        const QHash<qint64, qint64> offered = logbook.packsToOffer(logbook.recordings());
        QCOMPARE(offered, (QHash<qint64, qint64>{{asked, packs[1]}, {other, packs[1]}}));
        editor.assignEach(offered);
        QVERIFY(logbook.recording(asked)->pack == packs[1] && logbook.recording(other)->pack == packs[1]);
        for (int i = 1; i < 4; ++i) // of one name
            QVERIFY(logbook.packs()[i - 1].id < logbook.packs()[i].id);
    }

    void differences_data()
    {
        const auto row = columns<QString, Change>({"batch", "change"});
        using Content = LogbookContent *;
        row("none", "", [](Content) {});
        row("a note", "assign /1#11", [](Content c) { c->entries[0].recording.note = "x"; });
        row("a pack", "assign /2#12", [](Content c) { c->entries[1].recording.pack = 7; });
        row("figures", "read /1+", [](Content c) { c->entries[0].recording.figures.charge = 5; });
        row("size", "read /2-", [](Content c) { c->entries[1].stamp.size = 7000; });
        row("port", "read /2-", [](Content c) { c->entries[1].recording.port = "x"; });
        row("start", "read /2-", [](Content c) { c->entries[1].recording.isStartApproximate = true; });
        row("moved", "drop /2, assign /9#12, read /9",
            [](Content c) { c->entries[1].recording.file = "/9"; });
        row("exchanged", "drop /1, drop /2, assign /2#11, assign /1#12, read /2+, read /1",
            [](Content c) { c->entries[0].recording.file.swap(c->entries[1].recording.file); });
        row("a row less", "drop /2", [](Content c) { c->entries.removeLast(); });
        row("a row more", "assign /3#0, read /3", [](Content c) {
            c->entries += entry("/3");
            c->entries += entry("");
        });
        row("read by another", "", [](Content c) { c->entries[0].recording.id = 21; });
        row("overwritten by another", "drop /1, assign /1#21, read /1", [](Content c) {
            c->entries[0].recording.id = 21;
            c->entries[0].beginning = "other";
        });
        row("a pack's note", "pack A", [](Content c) { c->packs[0].note = "x"; });
        row("a pack's cells", "pack A", [](Content c) { c->packs[0].cells = 1; });
        row("packs", "pack B, pack -7", [](Content c) { c->packs = {namedPack("B")}; });
    }

    /// What has become of a live row and of one whose file has gone; both stay so.
    void differences()
    {
        LogbookContent held;
        held.packs = {namedPack("A")};
        held.packs[0].id = 7;
        for (const char *name : {"/1", "/2"}) {
            held.entries += entry(name);
            held.entries.last().stamp.size = 5000;
            held.entries.last().recording.id = 10 + held.entries.size();
        }
        LogbookContent content = held;
        held.entries[0].recording.isLive = held.entries[1].recording.isGone = true;
        QFETCH(Change, change);
        change(&content);
        QTEST(told(logbookDifference(held, content)), "batch");
    }

    /// What the user changes overtakes what was read; rows that move take that along.
    void queue()
    {
        LogbookQueue queue;
        LogbookBatch reading;
        reading.read = {entry("/1"), entry("/2"), entry("/3"), entry("/4")};
        reading.assigned = {entry("/1")};
        queue.add(reading);
        QVERIFY(!queue.holdsFirst() && !queue.isEmpty());
        QCOMPARE(told(queue), QString("assign /1#0, read /1, read /2, read /3, read /4"));
        LogbookBatch users;
        users.isUsers = true;
        users.packs = {namedPack("A")};
        queue.add(users);
        LogbookBatch moves;
        moves.renamed = {{"/1", "/2"}};
        moves.droppedFiles = QVector<QString>{"/3"};
        queue.add(moves);
        QVERIFY(queue.holdsFirst());
        QCOMPARE(told(queue), QString("first: pack A | rename /1/2, drop /3"));
        queue.drop(queue.next(), 1);
        QCOMPARE(told(queue), QString("first: rename /1/2, drop /3"));
        queue.drop(queue.next(), 1);
        QCOMPARE(told(queue), QString("assign /2#0, read /2, read /4"));
        for (int i = 0; i < LogbookQueue::mostReadings; ++i)
            queue.add(reading);
        QCOMPARE(queue.next().batches.size(), LogbookQueue::mostReadings);
        queue.drop(queue.next(), LogbookQueue::mostReadings);
        QCOMPARE(queue.next().batches.size(), 1);
        queue.drop(queue.next(), 1);
        QVERIFY(queue.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestLogbookChanges)
#include "tst_logbookchanges.moc"
