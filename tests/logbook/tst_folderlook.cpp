#include "logbook/folderlook.h"
#include "support/columns.h"
#include "support/files.h"
#include "support/lines.h"

#include <functional>
#include <memory>

using Change = std::function<void(LookQuestion *)>;
Q_DECLARE_METATYPE(Change)

/// What a look at a folder finds, compared with what is known.
class TestFolderLook : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(folder->path()).mkdir("sub"));
        const std::pair<const char *, QByteArray> files[]
            = {{"a.acp", records(3)}, {"b.acp", records(4)}, {"none.acp", "no recording\n"},
                {"empty.acp", ""}, {"x.txt", records(3)}, {"sub/c.acp", records(3)}};
        for (const auto &[name, bytes] : files)
            QVERIFY(writeFile(path(name), bytes) && makeOld(path(name), 10));
    }

    void looks_data()
    {
        const auto row = columns<QString, QString, Change>({"through", "at", "known"});
        using Question = LookQuestion *;
        const QString all = "found a.acp b.acp, refused 2";
        row("nothing", all, all, [](Question) {});
        row("all of it", "", "", [this](Question q) {
            for (const char *name : {"a.acp", "b.acp"})
                q->known.insert(path(name), known(name));
            for (const char *name : {"none.acp", "empty.acp"})
                q->refused.insert(refusalKey(path(name), known(name).stamp));
        });
        row("another size and time", all, all, [this](Question q) {
            q->known.insert(path("a.acp"), {{1, known("a.acp").stamp.modified}, {}});
            q->known.insert(path("b.acp"), {{known("b.acp").stamp.size, 1}, {}});
        });
        row("another recording", "found a.acp! b.acp, refused 2", "found a.acp! b.acp, refused 2",
            [this](Question q) {
                q->known.insert(path("a.acp"), {{50, 1}, "hash"});
                q->known.insert(path("b.acp"), {known("a.acp").stamp, known("a.acp").beginning}); // has grown
            });
        row("rows without files", all + ", gone old.acp", all + ", gone old.acp", [this](Question q) {
            for (const char *name : {"old.acp", "older.acp", "sub/d.acp", "../e.acp"})
                q->known.insert(path(name), {{5, 5}, "hash"});
            q->gone.insert(path("older.acp"));
        });
        row("is there again", "found b.acp, refused 2, back a.acp", "found b.acp, refused 2, back a.acp",
            [this](Question q) {
                q->known.insert(path("a.acp"), known("a.acp"));
                q->gone.insert(path("a.acp"));
            });
        row("another name", "found b.acp, refused 2, moved old.acp a.acp, gone old.acp x.txt",
            "found b.acp, refused 2, moved old.acp a.acp, gone old.acp", [this](Question q) {
                for (const char *name : {"old.acp", "x.txt"})
                    q->beginnings.insert(known("a.acp").beginning, path(name));
                q->known.insert(path("old.acp"), known("a.acp"));
                q->known.insert(path("x.txt"), known("a.acp")); // is there
                q->beginnings.insert(known("b.acp").beginning, path("old.acp")); // of another size
            });
        row("changed just now", all + ", unsettled", all + ", unsettled", [this](Question q) {
            QVERIFY(makeNew(path("a.acp")));
            q->live.insert(path("b.acp"));
        });
        row("live", all, all, [this](Question q) {
            QVERIFY(makeNew(path("a.acp")));
            q->live.insert(path("a.acp"));
        });
        row("in a year", all, all, [this](Question) { QVERIFY(makeOld(path("a.acp"), -365)); });
    }

    void looks()
    {
        LookQuestion question;
        question.folder = folder->path();
        question.holdsJournals = true;
        QFETCH(Change, known);
        known(&question);
        const FolderNews news = lookThrough(question);
        QTEST(told(news), "through");
        QCOMPARE(news.folder, folder->path());
        QCOMPARE(news.modified, QFileInfo(folder->path()).lastModified().toMSecsSinceEpoch());
        QStringList files;
        for (const char *name :
            {"a.acp", "b.acp", "empty.acp", "none.acp", "old.acp", "older.acp", "new.acp"})
            files += path(name);
        QTEST(told(lookAt(question, files)), "at");
    }

    void times()
    {
        QCOMPARE(folderTime(path("nowhere")), qint64(0));
        QCOMPARE(folderTime(path("a.acp")), qint64(0));
        QVERIFY(folderTime(path("sub")) > 0);
    }

private:
    QString path(const char *name) const { return folder->filePath(name); }
    static QByteArray records(int count)
    {
        QByteArray lines;
        for (int i = 0; i < count; ++i)
            lines += Lines::charger(i);
        return lines;
    }
    /// For as long as can be.
    static bool makeNew(const QString &name)
    {
        QFile file(name);
        const QDateTime soon = QDateTime::currentDateTime().addSecs(9);
        return file.open(QIODevice::ReadWrite) && file.setFileTime(soon, QFileDevice::FileModificationTime);
    }
    /// As a look finds it.
    KnownFile known(const char *name) const
    {
        const QVector<FoundFile> found = lookAt({}, {path(name)}).found;
        const QFileInfo info(path(name));
        return {{info.size(), info.lastModified().toMSecsSinceEpoch()},
            found.isEmpty() ? QByteArray() : found[0].beginning};
    }
    QString told(const FolderNews &news) const
    {
        const auto names = [this](QStringList files) {
            for (QString &file : files)
                file = QDir(folder->path()).relativeFilePath(file);
            files.sort();
            return files.join(' ');
        };
        QStringList found;
        for (const FoundFile &file : news.found)
            found += file.file + (file.isOther ? "!" : "");
        QStringList parts;
        if (!found.isEmpty())
            parts += "found " + names(found);
        if (!news.refused.isEmpty())
            parts += QString("refused %1").arg(news.refused.size());
        for (const auto &moved : news.moved)
            parts += "moved " + names({moved.first}) + ' ' + names({moved.second});
        if (!news.gone.isEmpty())
            parts += "gone " + names(news.gone);
        if (!news.back.isEmpty())
            parts += "back " + names(news.back);
        return (parts + (news.isUnsettled ? QStringList("unsettled") : QStringList())).join(", ");
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(TestFolderLook)
#include "tst_folderlook.moc"
