#include "files/disk/lockedfile.h"
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
            = {{"a.acp", records(3)}, {"b.acp", records(4)}, {"none.acp", "# no recording\n"},
                {"empty.acp", ""}, {"x.txt", records(3)}, {"sub/c.acp", records(3)}};
        for (const auto &[name, bytes] : files)
            QVERIFY(writeFile(path(name), bytes) && makeOld(path(name), 10));
    }

    void looks_data()
    {
        const auto row = columns<QString, Change>({"news", "known"});
        using Question = LookQuestion *;
        const QString all = "? ? a.acp b.acp";
        const QDateTime soon = QDateTime::currentDateTime().addSecs(9); // is new for as long as can be
        row("nothing", all, [](Question) {});
        row("all of it", "", [this](Question q) {
            for (const char *name : {"a.acp", "b.acp"})
                q->known.insert(path(name), known(name));
            for (const char *name : {"none.acp", "empty.acp"})
                q->refused.insert(refusalKey(path(name), known(name).stamp));
        });
        row("another size and time", all, [this](Question q) {
            const FileStamp refused = known("none.acp").stamp;
            q->refused = {refusalKey(path("none.acp"), {1, refused.modified}),
                refusalKey(path("none.acp"), {refused.size, 1})};
            q->known.insert(path("a.acp"), {{1, known("a.acp").stamp.modified}, {}});
            q->known.insert(path("b.acp"), {{known("b.acp").stamp.size, 1}, {}});
        });
        row("another recording", "!a.acp ? ? b.acp", [this](Question q) {
            q->known.insert(path("a.acp"), {{50, 1}, "hash"});
            q->known.insert(path("b.acp"), {known("a.acp").stamp, known("a.acp").beginning}); // has grown
        });
        row("rows without files", "-old.acp " + all, [this](Question q) {
            for (const char *name : {"old.acp", "older.acp", "sub/d.acp", "../e.acp"})
                q->known.insert(path(name), {{5, 5}, "hash"});
            q->gone.insert(path("older.acp"));
        });
        row("is there again", "+a.acp ? ? b.acp", [this](Question q) {
            q->known.insert(path("a.acp"), known("a.acp"));
            q->gone.insert(path("a.acp"));
        });
        row("another name", "-old.acp <old.acp >a.acp ? ? b.acp", [this](Question q) {
            for (const char *name : {"old.acp", "sub/c.acp"}) { // of which the second is there
                q->beginnings.insert(known("a.acp").beginning, path(name));
                q->known.insert(path(name), known("a.acp"));
            }
            q->beginnings.insert(known("b.acp").beginning, path("old.acp")); // of another size
        });
        row("changed just now", all + " unsettled", [this, soon](Question q) {
            QVERIFY(setTime(path("a.acp"), soon));
            q->live.insert(path("b.acp"));
        });
        const QString older = "? a.acp b.acp none.acp";
        row("the older form, whole and cut off", older, [this](Question) {
            QVERIFY(writeFile(path("none.acp"), "5\nc\n2\n") && makeOld(path("none.acp"), 10));
            QVERIFY(writeFile(path("empty.acp"), "5\nc\n") && makeOld(path("empty.acp"), 10));
        });
        for (const bool isLive : {false, true})
            row(isLive ? "being recorded" : "being written", all + (isLive ? "" : " unsettled"),
                [this, isLive](Question q) {
                    held = createLockedFile(path("new.acp"));
                    QVERIFY(makeOld(path("new.acp"), 10));
                    if (isLive)
                        q->live.insert(path("new.acp"));
                });
        row("live", all, [this, soon](Question q) {
            QVERIFY(setTime(path("a.acp"), soon));
            q->live.insert(path("a.acp"));
        });
        row("in a year", all, [this](Question) { QVERIFY(makeOld(path("a.acp"), -365)); });
    }

    void looks()
    {
        LookQuestion question;
        question.folder = folder->path();
        question.holdsJournals = true;
        QFETCH(Change, known);
        known(&question);
        const FolderNews news = lookThrough(question);
        QTEST(told(news), "news");
        QCOMPARE(news.folder, folder->path());
        QCOMPARE(news.modified, QFileInfo(folder->path()).lastModified().toMSecsSinceEpoch());
        QCOMPARE(folderTime(path("a.acp")), qint64(0));
        QStringList files;
        for (const char *name :
            {"a.acp", "b.acp", "empty.acp", "none.acp", "old.acp", "older.acp", "new.acp"})
            files += path(name);
        QTEST(told(lookAt(question, files)), "news");
        if (held.descriptor >= 0)
            closeFile(std::exchange(held, {}).descriptor);
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
    /// As a look finds it.
    KnownFile known(const char *name) const
    {
        const QVector<FoundFile> found = lookAt({}, {path(name)}).found;
        const QFileInfo info(path(name));
        return {{info.size(), info.lastModified().toMSecsSinceEpoch()},
            found.isEmpty() ? QByteArray() : found[0].beginning};
    }
    /// What is found; '!': another one there; '?': refused; '+' back, '-' gone, '<' moved from, '>' moved to.
    QString told(const FolderNews &news) const
    {
        QStringList all;
        const auto add = [this, &all](const char *what, const QString &file) {
            all += what + QDir(folder->path()).relativeFilePath(file);
        };
        for (const FoundFile &file : news.found)
            add(file.isOther ? "!" : "", file.file);
        for (const QString &file : news.back)
            add("+", file);
        for (const QString &file : news.gone)
            add("-", file);
        for (const auto &[from, to] : news.moved) {
            add("<", from);
            add(">", to);
        }
        for (int i = 0; i < news.refused.size(); ++i)
            all += "?";
        all.sort();
        return all.join(' ') + (news.isUnsettled ? " unsettled" : "");
    }

    std::unique_ptr<QTemporaryDir> folder;
    CreatedFile held; // being written
};

QTEST_GUILESS_MAIN(TestFolderLook)
#include "tst_folderlook.moc"
