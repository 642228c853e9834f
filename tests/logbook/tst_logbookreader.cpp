#include "data/records/recordlist.h"
#include "journal/journalkeeper.h"
#include "link/recordinglog.h"
#include "logbook/logbookreader.h"
#include "openlogbook.h"
#include "series/seriesstore.h"
#include "support/files.h"
#include "support/lines.h"

namespace {

QByteArray line(int second, int voltage = 4100)
{
    return Lines::recordLine(
        "#06C05%____0", second, ',' + QByteArray::number(voltage) + QByteArray(",1,4100,1").repeated(3));
}

/// A recording of `count` records, a second apart, that differs from others by its voltage.
QByteArray recording(int count, int voltage)
{
    QByteArray lines;
    for (int i = 0; i < count; ++i)
        lines += line(i, voltage) + '\n';
    return lines;
}

/// A logbook in `folder` that reads `folder`/recordings, once at rest.
struct Reading {
    explicit Reading(const QString &folder)
        : editor(&logbook)
        , reader(&logbook, folder + "/recordings")
    {
        logbook.open(folder);
        rest();
    }
    void rest()
    {
        QSignalSpy finished(&reader, SIGNAL(finished()));
        QSignalSpy progressed(&reader, SIGNAL(progressed(int,int)));
        QVERIFY(finished.wait(longTime));
        for (const QVariantList &step : qAsConst(progressed))
            progress += step[0].toString() + '/' + step[1].toString() + ' ';
    }
    QString files() const
    {
        QStringList names;
        for (int i = 0; i < logbook.size(); ++i) {
            const LogbookRecording &row = logbook.entryAt(i).recording;
            names += QFileInfo(row.file).fileName() + (row.isGone ? "-" : row.isLive ? "+" : "");
        }
        names.sort();
        return names.join(' ');
    }
    const LogbookRecording *row(const QString &file) const { return logbook.recordingOf(file); }

    Logbook logbook;
    LogbookEditor editor;
    LogbookReader reader;
    QString progress; // "DONE/ALL "
};

} // namespace

/// The logbook follows the files.
class TestLogbookReader : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(folder->path()).mkdir("recordings"));
    }

    void folderIsRead()
    {
        const QString journal = "2026-03-04_05-06-07_COM9.acp";
        QVERIFY(write(journal, recording(31, 3900)) && write("b c.acp", recording(61, 4000)));
        QVERIFY(write("empty.acp", "") && write("broken.acp", "5\nc\n2\n0 8.4 1.5\n") && write("x.txt", "#"));
        QVERIFY(write("binary.acp", QByteArray(100000, '\0')) && write("old.abp", "nothing"));
        QVERIFY(QFile::link("/dev/zero", path("zero.acp")) && QDir(path("")).mkdir("folder.acp"));
        const QDateTime end(QDate(2026, 1, 2), QTime(10, 1));
        QVERIFY(setTime(path("b c.acp"), end));
        {
            Reading book(folder->path());
            QCOMPARE(book.files(), journal + " b c.acp");
            QCOMPARE(book.progress, QString("0/3 1/3 2/3 3/3 0/0 "));
            QCOMPARE(book.reader.findChild<QTimer *>()->interval(), 5000);
            QCOMPARE(book.logbook.refused().size(), 5); // empty, broken, binary, zero and old
            QCOMPARE(book.row(path(journal))->start, QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7)));
            QVERIFY(!book.row(path(journal))->isStartApproximate);
            QCOMPARE(book.row(path(journal))->port, QString("COM9"));
            QCOMPARE(book.row(path(journal))->figures.duration, 30);
            QCOMPARE(book.row(path("b c.acp"))->start, end.addSecs(-60));
            QVERIFY(book.row(path("b c.acp"))->isStartApproximate);
            book.editor.setNote(book.row(path(journal))->id, "note");
            QVERIFY(write(journal, recording(41, 3900)));
            book.reader.look(path(journal));
            QTRY_COMPARE_WITH_TIMEOUT(book.row(path(journal))->figures.duration, 40, longTime);
            QCOMPARE(book.row(path(journal))->note, QString("note"));
            QCOMPARE(book.row(path(journal))->figures.device, int(Varnel3Data::Varnel3));
        }
        // Moved, gone, come: what was read is not read again.
        QVERIFY(QDir(path("")).rename(journal, "renamed.acp") && QFile::remove(path("b c.acp")));
        Reading book(folder->path());
        QCOMPARE(book.progress, QString("0/0 "));
        QCOMPARE(book.files(), QString("b c.acp- renamed.acp"));
        QCOMPARE(book.row(path("renamed.acp"))->note, QString("note"));
        QCOMPARE(book.row(path("renamed.acp"))->start, QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7)));
        QCOMPARE(book.row(path("b c.acp"))->figures.records, 61);
        QVERIFY(write("b c.acp", recording(61, 4000)) && setTime(path("b c.acp"), end)); // as it was
        book.reader.readAgain();
        QTRY_COMPARE_WITH_TIMEOUT(book.files(), QString("b c.acp renamed.acp"), longTime);
    }

    // Pack and note are of the recording, not of the name: another one that is saved over it has none.
    void overwritten()
    {
        const QString name = path("a.acp");
        const QString journal = path("2026-03-04_05-06-07_COM9.acp");
        QVERIFY(writeFile(name, recording(5, 3900)) && writeFile(journal, recording(200, 4000)));
        Reading book(folder->path());
        const auto noted
            = [&] { return book.row(name)->note == "note" && book.row(name)->pack != LogbookPack::none; };
        const auto isRead = [&](int records) { return book.row(name)->figures.records == records; };
        book.editor.setNote(book.row(name)->id, "note");
        book.editor.assign({book.row(name)->id}, book.editor.addPack({0, "A", 5, 6, 0, ""}));
        // The same one, of a few lines at first, grown, written in another way, and both by this program.
        QVERIFY(writeFile(name, recording(210, 3900)));
        book.reader.look(name);
        QTRY_VERIFY_WITH_TIMEOUT(isRead(210) && noted(), longTime);
        QVERIFY(writeFile(name, recording(210, 3900).replace('\n', "\r\n")));
        const FileStamp before = book.logbook.entryOf(name)->stamp;
        book.reader.look(name);
        QTRY_VERIFY_WITH_TIMEOUT(book.logbook.entryOf(name)->stamp != before && noted(), longTime);
        QVERIFY(writeFile(name, recording(215, 3901)));
        book.reader.lookAtCopy(name, name);
        QTRY_VERIFY_WITH_TIMEOUT(isRead(215) && noted(), longTime);
        // Another one, of which what was taken back and done again for the former says nothing.
        const qint64 former = book.row(name)->id;
        QVERIFY(writeFile(name, contents(journal)));
        book.reader.lookAtCopy(name, journal);
        QTRY_VERIFY_WITH_TIMEOUT(isRead(200), longTime);
        const LogbookRecording other = *book.row(name);
        QVERIFY(other.id != former && other.pack == LogbookPack::none && other.note.isEmpty());
        QCOMPARE(other.start, QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7)));
        QCOMPARE(other.port, QString("COM9"));
        book.editor.undo();
        book.editor.redo();
        QCOMPARE(book.row(name)->pack, qint64(LogbookPack::none));
        QTRY_VERIFY_WITH_TIMEOUT(book.logbook.isWritten(), longTime);
        const Reading again(folder->path());
        QVERIFY(again.row(name)->pack == LogbookPack::none && again.row(name)->note.isEmpty());
    }

    /// A file is found by its folder's time; one that was young then is looked at again, though that stands
    /// still.
    void grows()
    {
        QVERIFY(write("a.acp", recording(5, 3900)) && makeOld(path("a.acp"), 1));
        Reading book(folder->path());
        QVERIFY(write("b.acp", recording(5, 3901)));
        QVERIFY(setTime(path("b.acp"), QDateTime::currentDateTime().addSecs(9)));
        QVERIFY(QMetaObject::invokeMethod(&book.reader, "lookAround"));
        QTRY_COMPARE_WITH_TIMEOUT(book.files(), QString("a.acp b.acp"), longTime);
        QVERIFY(write("b.acp", recording(8, 3901)));
        QVERIFY(QMetaObject::invokeMethod(&book.reader, "lookAround"));
        QTRY_COMPARE_WITH_TIMEOUT(book.row(path("b.acp"))->figures.records, 8, longTime);
        const QString more = folder->filePath("more");
        QVERIFY(QDir().mkdir(more) && writeFile(more + "/c.acp", recording(5, 3902)));
        book.logbook.setFolders({more, more});
        QTRY_COMPARE_WITH_TIMEOUT(book.files(), QString("a.acp b.acp c.acp"), longTime);
    }

    /// Of a recording that was killed at once nothing is left but what the user has said of it.
    void killed()
    {
        Reading book(folder->path());
        for (const char *name : {"a.acp", "b.acp", "c.acp"}) {
            LogbookEntry begun;
            begun.recording.file = path(name);
            book.logbook.take(begun);
        }
        book.editor.setNote(book.row(path("b.acp"))->id, "note");
        book.editor.assign({book.row(path("c.acp"))->id}, book.editor.addPack({}));
        book.reader.readAgain();
        book.rest();
        QCOMPARE(book.files(), QString("b.acp- c.acp-"));
    }

    void cancelled()
    {
        for (int i = 0; i < 20; ++i)
            QVERIFY(write(QString("%1.acp").arg(i), recording(50, 3500 + i)));
        QVERIFY(writeFile(folder->filePath("alone.acp"), recording(5, 3000)));
        {
            Logbook logbook;
            LogbookReader reader(&logbook, path(""));
            connect(&reader, &LogbookReader::progressed, [&](int done) {
                if (done == 3)
                    QTimer::singleShot(0, &reader, SLOT(cancel()));
            });
            QSignalSpy finished(&reader, SIGNAL(finished()));
            QSignalSpy progress(&reader, SIGNAL(progressed(int,int)));
            logbook.open(folder->path());
            QVERIFY(finished.wait(longTime));
            QCOMPARE(progress.constFirst(), (QVariantList{0, 20}));
            QVERIFY(logbook.size() >= 3 && logbook.size() < 20 && !reader.isReading());
            const int before = logbook.size();
            QVERIFY(QMetaObject::invokeMethod(&reader, "lookAround")); // in folders that have just changed
            reader.look(folder->filePath("alone.acp")); // one file is read all the same
            QTRY_VERIFY_WITH_TIMEOUT(!reader.isReading(), longTime);
            QVERIFY(logbook.size() == before + 1 && finished.size() == 2);
            // What was begun does not go on with the next.
            const QString longFile = folder->filePath("long.acp");
            QVERIFY(writeFile(longFile, recording(50, 3100).repeated(2000)));
            const QFileInfo info(longFile);
            reader.lookAtOpened(longFile, {info.size(), info.lastModified().toMSecsSinceEpoch()},
                [&]() -> const SeriesStore * {
                    QMetaObject::invokeMethod(&reader, "cancel", Qt::QueuedConnection);
                    return nullptr;
                });
            QTRY_VERIFY_WITH_TIMEOUT(!reader.isReading(), longTime);
            QVERIFY(writeFile(folder->filePath("alone.acp"), recording(6, 3000)));
            reader.look(folder->filePath("alone.acp"));
            QTRY_VERIFY_WITH_TIMEOUT(!reader.isReading(), longTime);
            QCOMPARE(logbook.size(), before + 1);
        }
        QVERIFY(QFile::remove(folder->filePath("alone.acp")));
        Reading book(folder->path());
        QCOMPARE(book.logbook.size(), 21);
        QTRY_VERIFY_WITH_TIMEOUT(book.row(folder->filePath("alone.acp"))->isGone, longTime);
        QVERIFY(book.reader.filesToDo() == 0 && book.reader.filesDone() == 0);
    }

    /// What was opened is not read once more, unless the file has changed since.
    void opened()
    {
        Reading book(folder->path());
        RecordList records;
        Varnel3Data record;
        record.setTime(7);
        for (int i = 0; i < 200000; ++i) // of more than a slice
            records.append(record);
        SeriesStore store;
        store.load(std::move(records));
        for (const auto &[grown, asked, count] :
            {std::tuple(0, 999, 200000), std::tuple(1, 999, 5), std::tuple(0, 3, 5)}) {
            const QString file = folder->filePath(QString("%1 %2.acp").arg(grown).arg(asked));
            QVERIFY(writeFile(file, recording(5, 3900 + grown + asked)));
            const QFileInfo info(file);
            book.reader.lookAtOpened(file, {info.size() + grown, info.lastModified().toMSecsSinceEpoch()},
                [&store, left = asked]() mutable { return left-- > 0 ? &store : nullptr; });
            QTRY_VERIFY_WITH_TIMEOUT(book.row(file), longTime);
            QCOMPARE(book.row(file)->figures.records, count);
            QVERIFY(count < 7 || book.row(file)->start == info.lastModified()); // they take no time
        }
    }

    void live()
    {
        JournalKeeper keeper(path(""), nullptr, std::chrono::milliseconds(20));
        Reading book(folder->path());
        connect(&keeper, &JournalKeeper::began, &book.reader, &LogbookReader::beginLive);
        connect(&keeper, &JournalKeeper::ended, &book.reader, &LogbookReader::endLive);
        connect(&keeper, &JournalKeeper::discarded, &book.reader, &LogbookReader::dropLive);
        auto first = keeper.create("COM3");
        auto second = keeper.create("COM4");
        QCOMPARE(book.logbook.size(), 0);
        send(*first, 0, 1);
        send(*second, 0, 1);
        QCOMPARE(book.logbook.size(), 2);
        const QString file = keeper.currentFile("COM3");
        const LogbookRecording *row = book.row(file);
        QVERIFY(row && row->isLive && row->port == "COM3" && row->start.isValid());
        second.reset(); // not worth a file
        QCOMPARE(book.logbook.size(), 1);
        send(*first, 1, 9);
        book.reader.readAgain(); // leaves it to itself
        book.rest();
        QVERIFY(book.row(file)->isLive && book.row(file)->figures.records == 1);
        QTRY_VERIFY_WITH_TIMEOUT(book.logbook.isWritten(), longTime);
        {
            const Reading killed(folder->path()); // what another start finds after a kill
            QVERIFY(killed.row(file) && killed.row(file)->port == "COM3");
        }
        first.reset();
        QTRY_VERIFY_WITH_TIMEOUT(
            QMetaObject::invokeMethod(&book.reader, "lookAround") && book.row(file)->figures.records == 10,
            longTime);
        book.reader.endLive(path("of nobody.acp"));
        QVERIFY(!book.row(file)->isStartApproximate);
        QCOMPARE(book.row(file)->figures.device, int(Varnel3Data::Tandor));
        // A copy of it, and a file that nobody names.
        book.editor.setNote(book.row(file)->id, "note");
        book.editor.assign({book.row(file)->id}, book.editor.addPack({0, "A", 5, 6, 0, ""}));
        const QString copy = folder->filePath("copy.acp");
        QVERIFY(QFile::copy(file, copy));
        book.reader.lookAtCopy(copy, file);
        QTRY_VERIFY_WITH_TIMEOUT(book.row(copy) && book.logbook.entryOf(copy)->stamp.isKnown(), longTime);
        const LogbookRecording copied = *book.row(copy);
        QVERIFY(copied.figures.records == 10 && copied.start == book.row(file)->start);
        QVERIFY(!copied.isStartApproximate && copied.note.isEmpty() && copied.pack == LogbookPack::none);
        book.reader.beginLive(path("live.acp"), "COM5", {});
        book.reader.lookAtCopy(copy + 2, path("live.acp"));
        book.reader.renameLive(copy + 2, copy + 3);
        QVERIFY(book.row(copy + 3) && !book.row(copy + 3)->isLive);
        book.reader.endLive(path("live.acp")); // of which nothing is left
        QTRY_VERIFY_WITH_TIMEOUT(!book.row(path("live.acp")), longTime);
    }

private:
    QString path(const QString &name) const
    {
        return folder->path() + "/recordings" + (name.isEmpty() ? "" : "/") + name;
    }
    bool write(const QString &name, const QByteArray &bytes) const { return writeFile(path(name), bytes); }
    static void send(RecordingLog &log, int first, int count)
    {
        for (int i = first; i < first + count; ++i) {
            Varnel3Data record;
            QVERIFY(record.parseLine(QLatin1String(line(i))));
            record.device = Varnel3Data::Tandor; // of which the line tells nothing
            log.addRecord(line(i), record);
        }
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_MAIN(TestLogbookReader)
#include "tst_logbookreader.moc"
