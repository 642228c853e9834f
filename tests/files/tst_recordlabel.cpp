#include "journal/recordinglength.h"
#include "files/recordlabel.h"
#include "files/varelstyleditemdelegate.h"
#include "support/columns.h"
#include "support/files.h"

#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>

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
    void labels_data();
    void labels();
    void lengths_data();
    void lengths();
    void readsOnceAndFailsOnce();
    void neverWaitsForPipes();
    void delegate();
};

void TestRecordLabel::labels_data()
{
    columns<QString, QByteArray, QString>({"name", "bytes", "label"});
    const auto acp = [](const char *what, const QByteArray &bytes, const char *label) {
        QTest::newRow(what) << QStringLiteral("x.acp") << bytes << QString::fromLatin1(label);
    };
    const auto abp = [](const char *what, const QByteArray &bytes, const char *label) {
        QTest::newRow(what) << QStringLiteral("x.Abp") << bytes << QString::fromLatin1(label);
    };
    acp("charge", recordLine("#06C05_____0"), " [Cha 6xLiPo]");
    acp("discharge, mark", "\xef\xbb\xbf" + recordLine("#12D07_____0"), " [Dis 12xLiFe]");
    acp("balancing", recordLine("#03B12_____0"), " [Bal 3xLTO]");
    acp("format", recordLine("#03F00_____0"), " [3xNiCd]");
    acp("two plus", "#C0606 00123,25200,+2000,025,01234\r\n", " [Cha 6xLiPo]");
    acp("damaged record", "#06C05\n", "");
    acp("charger", "6\ncharge\n3\n", " [Cha 3xLiPol]");
    acp("charger, forming", "8\r\nform\r\n10\r\n", " [For 10xLiPh]");
    acp("charger, unknown chemistry", "9\nd\n3\n", " [Dis 3x");
    acp("charger, hostile count", "5\nd\n-5", " [Dis -5xLiIon]");
    acp("charger, no count", "5\nd\n", "");
    acp("charger, mode", "5\nt\n3\n", "");
    abp("balancer", "7\ne\n4\n", " [Tandor 4xLiPh]");
    abp("balancer, test", "5\nt\n12\n", " [Test 12xLiIon]");
    abp("balancer, unknown chemistry", "8\nf\n12\n", " [Fast 12x");
    abp("balancer, count no number", "5\nt\nx\n", " [Test 0xLiIon]");
    abp("balancer, no count", "5\nt\n", "");
    abp("balancer, record line", recordLine("#06C05_____0"), "");
    acp("empty", QByteArray(), "");
    acp("one long line", QByteArray(100000, '6'), "");
    acp("header beyond 4 KiB", "6\ncharge" + QByteArray(5000, ' ') + "\n3\n", "");
}

void TestRecordLabel::labels()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath(name), bytes));
    QCache<QString, QString> cache;
    QTEST(recordLabel(cache, folder.filePath(name)), "label");
}

void TestRecordLabel::lengths_data()
{
    columns<QByteArray, int>({"bytes", "seconds"});
    const auto record
        = [](int time) { return recordLine("#06C05_____0").replace("00123", QByteArray::number(time)); };
    QTest::newRow("two records") << record(60) + record(4000) << 3940;
    QTest::newRow("longer than what is read")
        << record(60) + record(61).repeated(200) + record(400000) << 399940;
    QTest::newRow("other lines, a cut end")
        << "junk\n" + record(5) + record(9) + "!1,2\n" + record(99).left(30) << 4;
    QTest::newRow("clock set back") << record(60) + record(4) << -1;
    QTest::newRow("columns") << QByteArray("6\nc\n3\n0 1 1 1 1\n60 1 1 1 1\n") << -1;
}

void TestRecordLabel::lengths()
{
    QFETCH(QByteArray, bytes);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.acp"));
    QVERIFY(writeFile(path, bytes));
    QTEST(recordingLength(path), "seconds");
}

void TestRecordLabel::readsOnceAndFailsOnce()
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
    QCOMPARE(failures.values(), QStringList{bad});

    QVERIFY(QFile::rename(good, bad)); // neither is looked at again
    QCOMPARE(recordLabel(cache, good, &fromCache, &failures), QStringLiteral(" [Cha 6xLiPo]"));
    QVERIFY(fromCache);
    QVERIFY(recordLabel(cache, bad, &fromCache, &failures).isEmpty());
    failures.clear();
    QCOMPARE(recordLabel(cache, bad, &fromCache, &failures), QStringLiteral(" [Cha 6xLiPo]"));
}

void TestRecordLabel::neverWaitsForPipes()
{
    QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe.acp"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QCache<QString, QString> cache;
    QVERIFY(recordLabel(cache, pipe).isEmpty());
    QVERIFY(recordLabel(cache, folder.path()).isEmpty());
}

void TestRecordLabel::delegate()
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

QTEST_MAIN(TestRecordLabel)
#include "tst_recordlabel.moc"
