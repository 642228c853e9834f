#include "files/recordinglength.h"
#include "files/recordlabel.h"
#include "files/varelstyleditemdelegate.h"
#include "support/columns.h"
#include "support/files.h"

#include <QFileDialog>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

QByteArray recordLine(const char *head)
{
    return head + QByteArray(",00123,25200,02000,025,00150,00045") + QByteArray(",0000,0").repeated(16)
        + '\n';
}

} // namespace

/// Labels of data files in the open dialog, and what is read for them.
class TestRecordLabel : public QObject {
    Q_OBJECT

private slots:
    void labels_data()
    {
        columns<QString, QByteArray, QString>({"name", "bytes", "label"});
        const auto row = [](const char *name, const QByteArray &bytes, const char *label) {
            QTest::newRow(qPrintable(name + QString::fromLatin1(bytes.left(20)).simplified() + label))
                << QString::fromLatin1(name) << bytes << QString::fromLatin1(label);
        };
        const char *const chemistries[]
            = {"", "NiCd]", "NiMh]", "Pb]", "RAM]", "LiIon]", "LiPol]", "LiTa]", "LiPh]", ""};
        for (int code = 0; code < 10; ++code) {
            row("x.acp", QByteArray::number(code) + "\ncharge\n3\n",
                QByteArray(" [Cha 3x").append(chemistries[code]));
            row("x.Abp", QByteArray::number(code) + "\ne\n3\n",
                QByteArray(" [Tandor 3x")
                    .append(code == 7                ? "LiPh]"
                            : code == 5 || code == 6 ? chemistries[code]
                                                     : ""));
        }
        row("x.acp", recordLine("#06C05_____0"), " [Cha 6xLiPo]");
        row("x.acp", "\xef\xbb\xbf" + recordLine("#12D07_____0"), " [Dis 12xLiFe]");
        row("x.acp", recordLine("#03B12_____0"), " [Bal 3xLTO]");
        row("x.acp", recordLine("#03F00_____0"), " [3xNiCd]");
        row("x.acp", "#C0606 00123,25200,+2000,025,01234\r\n", " [Cha 6xLiPo]");
        row("x.acp", "8\r\nform\r\n10\r\n", " [For 10xLiPh]");
        row("x.acp", "5\nd\n-5", " [Dis -5xLiIon]");
        row("x.Abp", "5\nt\n12\n", " [Test 12xLiIon]");
        row("x.Abp", "6\nf\nx\n", " [Fast 0xLiPol]");
        for (const QByteArray &none : {QByteArray(), QByteArray("#06C05\n"), QByteArray("5\nd\n"),
                 QByteArray("5\nt\n3\n"), QByteArray("x\nd\n3\n"), QByteArray(100000, '6'),
                 "6\ncharge" + QByteArray(5000, ' ') + "\n3\n"}) // beyond what is read
            row("x.acp", none, "");
        row("x.Abp", "5\nt\n", "");
        row("x.Abp", recordLine("#06C05_____0"), "");
    }

    void labels()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QTemporaryDir folder;
        QVERIFY(writeFile(folder.filePath(name), bytes));
        QCache<QString, QString> cache;
        QTEST(recordLabel(cache, folder.filePath(name)), "label");
    }

    void lengths()
    {
        const auto record
            = [](int time) { return recordLine("#06C05_____0").replace("00123", QByteArray::number(time)); };
        const std::pair<QByteArray, int> cases[]
            = {{record(60) + record(4000), 3940}, {record(60) + record(60), 0},
                {record(60) + record(61).repeated(200) + record(400000), 399940}, // longer than what is read
                {"junk\n" + record(5) + record(9) + "!1,2\n" + record(99).left(30), 4}, // a cut end
                {record(60) + record(4), -1}, {"6\nc\n3\n0 1 1 1 1\n60 1 1 1 1\n", -1}};
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("x.acp"));
        for (const auto &file : cases) {
            QVERIFY(writeFile(path, file.first));
            QCOMPARE(recordingLength(path), file.second);
        }
        QCOMPARE(recordingLength(folder.path()), -1);
    }

    void readsOnceAndFailsOnce()
    {
        QTemporaryDir folder;
        const QString good = folder.filePath(QStringLiteral("good.acp"));
        const QString bad = folder.filePath(QStringLiteral("bad.acp"));
        QVERIFY(writeFile(good, recordLine("#06C05_____0")));
        QCache<QString, QString> cache(10000); // bytes
        QSet<QString> failures;
        bool fromCache = true;
        QCOMPARE(recordLabel(cache, good, &fromCache, &failures), QStringLiteral(" [Cha 6xLiPo]"));
        QVERIFY(!fromCache);
        QVERIFY(recordLabel(cache, bad, &fromCache, &failures).isEmpty());
        QCOMPARE(cache.keys(), QStringList{good});
        QCOMPARE(cache.totalCost(), 2 * (good.size() + 13));
        QCOMPARE(failures.values(), QStringList{bad});

        QVERIFY(QFile::rename(good, bad)); // neither is looked at again
        QCOMPARE(recordLabel(cache, good, &fromCache, &failures), QStringLiteral(" [Cha 6xLiPo]"));
        QVERIFY(fromCache);
        QVERIFY(recordLabel(cache, bad, &fromCache, &failures).isEmpty());
        failures.clear();
        QCOMPARE(recordLabel(cache, bad, nullptr, &failures), QStringLiteral(" [Cha 6xLiPo]"));

        const QString pipe = folder.filePath(QStringLiteral("pipe.acp")); // which would wait for ever
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(recordLabel(cache, pipe).isEmpty() && recordLabel(cache, folder.path()).isEmpty());
        QCOMPARE(recordingLength(pipe), -1);
    }

    void delegate()
    {
        QTemporaryDir folder;
        QVERIFY(writeFile(folder.filePath(QStringLiteral("one.ACP")), recordLine("#06C05_____0")));
        QFileDialog dialog;
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setDirectory(folder.path());
        QCache<QString, QString> cache(10000);
        const VarelStyledItemDelegate labelling(&cache, &dialog);
        const QLocale locale;
        QCOMPARE(
            labelling.displayText(QStringLiteral("one.ACP"), locale), QStringLiteral("one.ACP [Cha 6xLiPo]"));
        QCOMPARE(labelling.displayText(QStringLiteral("other.acp"), locale), QStringLiteral("other.acp"));
        QCOMPARE(labelling.displayText(QStringLiteral("one.txt"), locale), QStringLiteral("one.txt"));
        QCOMPARE(labelling.displayText(7, locale), QStringLiteral("7"));

        QObject stranger;
        QCOMPARE(VarelStyledItemDelegate(&cache, &stranger).displayText(QStringLiteral("one.ACP"), locale),
            QStringLiteral("one.ACP"));
        QCOMPARE(VarelStyledItemDelegate(nullptr, &dialog).displayText(QStringLiteral("one.ACP"), locale),
            QStringLiteral("one.ACP"));
    }
};

QTEST_MAIN(TestRecordLabel)
#include "tst_recordlabel.moc"
