#include "files/recordlabel.h"
#include "files/varelstyleditemdelegate.h"

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

bool writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

/// Labels of data files in the open dialog, and what is read for them.
class TestRecordLabel : public QObject {
    Q_OBJECT

private slots:
    void labels_data();
    void labels();
    void readsOnceAndFailsOnce();
    void neverWaitsForPipes();
    void delegate();
};

void TestRecordLabel::labels_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("label");
    const QString acp = QStringLiteral("x.acp");
    const QString abp = QStringLiteral("x.Abp");
    QTest::newRow("charge") << acp << recordLine("#06C05_____0") << " [Cha 6xLiPo]";
    QTest::newRow("discharge, mark") << acp << "\xef\xbb\xbf" + recordLine("#12D07_____0")
                                     << " [Dis 12xLiFe]";
    QTest::newRow("balancing") << acp << recordLine("#03B12_____0") << " [Bal 3xLTO]";
    QTest::newRow("format") << acp << recordLine("#03F00_____0") << " [3xNiCd]";
    QTest::newRow("two plus") << acp << QByteArray("#C0606 00123,25200,+2000,025,01234\r\n")
                              << " [Cha 6xLiPo]";
    QTest::newRow("damaged record") << acp << QByteArray("#06C05\n") << "";
    QTest::newRow("charger") << acp << QByteArray("6\ncharge\n3\n") << " [Cha 3xLiPol]";
    QTest::newRow("charger, forming") << acp << QByteArray("8\r\nform\r\n10\r\n") << " [For 10xLiPh]";
    QTest::newRow("charger, unknown chemistry") << acp << QByteArray("9\nd\n3\n") << " [Dis 3x";
    QTest::newRow("charger, hostile count") << acp << QByteArray("5\nd\n-5") << " [Dis -5xLiIon]";
    QTest::newRow("charger, no count") << acp << QByteArray("5\nd\n") << "";
    QTest::newRow("charger, mode") << acp << QByteArray("5\nt\n3\n") << "";
    QTest::newRow("balancer") << abp << QByteArray("7\ne\n4\n") << " [Tandor 4xLiPh]";
    QTest::newRow("balancer, test") << abp << QByteArray("5\nt\n12\n") << " [Test 12xLiIon]";
    QTest::newRow("balancer, unknown chemistry") << abp << QByteArray("8\nf\n12\n") << " [Fast 12x";
    QTest::newRow("balancer, count no number") << abp << QByteArray("5\nt\nx\n") << " [Test 0xLiIon]";
    QTest::newRow("balancer, no count") << abp << QByteArray("5\nt\n") << "";
    QTest::newRow("balancer, record line") << abp << recordLine("#06C05_____0") << "";
    QTest::newRow("empty") << acp << QByteArray() << "";
    QTest::newRow("one long line") << acp << QByteArray(100000, '6') << "";
    QTest::newRow("header beyond 4 KiB") << acp << "6\ncharge" + QByteArray(5000, ' ') + "\n3\n"
                                         << "";
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

void TestRecordLabel::readsOnceAndFailsOnce()
{
    QTemporaryDir folder;
    const QString good = folder.filePath(QStringLiteral("good.acp"));
    const QString bad = folder.filePath(QStringLiteral("bad.acp"));
    QVERIFY(writeFile(good, recordLine("#06C05_____0")));
    QCache<QString, QString> cache;
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
    QCache<QString, QString> cache;
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
