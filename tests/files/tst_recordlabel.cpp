#include "files/recordlabel.h"
#include "files/recordinglength.h"
#include "files/varelstyleditemdelegate.h"
#include "support/files.h"
#include "support/lines.h"

#include <QFileDialog>
#include <QtTest>

#include <sys/stat.h>

using Lines::recordLine;

/// Labels of data files in the open dialog, and what is read for them.
class TestRecordLabel : public QObject {
    Q_OBJECT

private slots:
    void labels()
    {
        const QString acp = path("x.acp");
        const QString abp = path("x.Abp");
        const auto labelOf = [](const QString &name, const QByteArray &bytes) {
            QCache<QString, QString> cache;
            return writeFile(name, bytes) ? recordLabel(cache, name) : QStringLiteral("not written");
        };
        const char *const chemistries[]
            = {"", "NiCd]", "NiMh]", "Pb]", "RAM]", "LiIon]", "LiPol]", "LiTa]", "LiPh]", ""};
        const char *const balanced[] = {"", "", "", "", "", "LiIon]", "LiPol]", "LiPh]", "", ""};
        for (int code = 0; code < 10; ++code) {
            const QByteArray digit = QByteArray::number(code);
            QCOMPARE(labelOf(acp, digit + "\ncharge\n3\n"), QLatin1String(" [Cha 3x") + chemistries[code]);
            QCOMPARE(labelOf(abp, digit + "\ne\n3\n"), QLatin1String(" [Tandor 3x") + balanced[code]);
        }
        const std::tuple<QString, const char *, QByteArrayList> cases[]
            = {{acp, " [Cha 6xLiPo]",
                   {recordLine("#06C05_____0", 123), "#C0606 00123,25200,+2000,025,01234\r\n"}},
                {acp, " [Dis 12xLiFe]", {"\xef\xbb\xbf" + recordLine("#12D07_____0", 123)}},
                {acp, " [Bal 3xLTO]", {recordLine("#03B12_____0", 123)}},
                {acp, " [3xNiCd]", {recordLine("#03F00_____0", 123)}},
                {acp, " [For 10xLiPh]", {"8\r\nform\r\n10\r\n"}}, {acp, " [Dis -5xLiIon]", {"5\nd\n-5"}},
                {abp, " [Test 12xLiIon]", {"5\nt\n12\n"}}, {abp, " [Fast 0xLiPol]", {"6\nf\nx\n"}},
                {abp, "", {"5\nt\n", recordLine("#06C05_____0", 123)}},
                {acp, "",
                    {"", "#06C05\n", "5\nd\n", "5\nt\n3\n", "x\nd\n3\n", QByteArray(100000, '6'),
                        "6\ncharge" + QByteArray(4087, ' ') + "\n3\n"}}, // beyond what is read
                {acp, " [Cha 3xLiPol]", {"6\ncharge" + QByteArray(4086, ' ') + "\n35\n"}}};
        for (const auto &[name, label, files] : cases) {
            for (const QByteArray &bytes : files)
                QCOMPARE(labelOf(name, bytes), QLatin1String(label));
        }
    }

    void lengths()
    {
        const auto record = [](int time) { return recordLine("#06C05_____0", time) + '\n'; };
        const std::pair<QByteArray, int> cases[]
            = {{record(60) + record(4000), 3940}, {record(0), 0}, {record(0) + record(1), 1},
                {record(60) + record(61).repeated(200) + record(400000), 399940}, // longer than what is read
                {"\njunk\n" + record(5) + record(9) + "!1,2\n" + record(99).left(30), 4}, // a cut end
                {record(60) + record(4), -1}, {"6\nc\n3\n0 1 1 1 1\n60 1 1 1 1\n", -1}};
        for (const auto &file : cases) {
            QVERIFY(writeFile(path("x.acp"), file.first));
            QCOMPARE(recordingLength(path("x.acp")), file.second);
        }
        QCOMPARE(recordingLength(folder.path()), -1);
    }

    void readsOnceAndFailsOnce()
    {
        const QString good = path("good.acp");
        const QString bad = path("bad.acp");
        QVERIFY(writeFile(good, recordLine("#06C05_____0", 123)));
        QCache<QString, QString> cache(10000); // bytes
        QSet<QString> failures;
        bool fromCache = true;
        const auto labelOf
            = [&](const QString &name) { return recordLabel(cache, name, &fromCache, &failures); };
        QVERIFY(labelOf(good) == " [Cha 6xLiPo]" && !fromCache);
        QVERIFY(labelOf(bad).isEmpty() && !fromCache);
        QCOMPARE(cache.keys(), QStringList{good});
        QCOMPARE(cache.totalCost(), 2 * (good.size() + 13));
        QCOMPARE(failures.values(), QStringList{bad});
        QVERIFY(QFile::rename(good, bad)); // neither is looked at again
        QVERIFY(labelOf(good) == " [Cha 6xLiPo]" && fromCache && labelOf(bad).isEmpty());
        failures.clear();
        QCOMPARE(recordLabel(cache, bad, nullptr, &failures), QStringLiteral(" [Cha 6xLiPo]"));

        const QString pipe = path("pipe.acp"); // which would wait for ever
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(recordLabel(cache, pipe).isEmpty() && recordLabel(cache, folder.path()).isEmpty());
        QCOMPARE(recordingLength(pipe), -1);
    }

    void delegate()
    {
        QVERIFY(writeFile(path("one.ACP"), recordLine("#06C05_____0", 123)));
        QFileDialog dialog;
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setDirectory(folder.path());
        QCache<QString, QString> cache(10000);
        QObject stranger;
        const auto shown = [](const QVariant &value, QCache<QString, QString> *labels, QObject *parent) {
            return VarelStyledItemDelegate(labels, parent).displayText(value, QLocale());
        };
        QCOMPARE(shown("one.ACP", &cache, &dialog), QStringLiteral("one.ACP [Cha 6xLiPo]"));
        for (const char *plain : {"other.acp", "one.txt", "7"})
            QCOMPARE(shown(plain, &cache, &dialog), QLatin1String(plain));
        QCOMPARE(shown("one.ACP", &cache, &stranger), QStringLiteral("one.ACP"));
        QCOMPARE(shown("one.ACP", nullptr, &dialog), QStringLiteral("one.ACP"));
    }

private:
    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
};

QTEST_MAIN(TestRecordLabel)
#include "tst_recordlabel.moc"
