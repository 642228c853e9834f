#include <QDir>
#include <QFile>
#include <QMap>
#include <QMimeDatabase>
#include <QTemporaryDir>
#include <QTest>

/// What a file manager makes of the files in packaging/.
class tst_filetypes : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void typeOfName_data();
    void typeOfName();
    void desktopEntryOpensEachType();

private:
    QTemporaryDir dataHome;
};

void tst_filetypes::initTestCase()
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome.path()));
    QVERIFY(QDir(dataHome.path()).mkpath(QStringLiteral("mime/packages")));
    QVERIFY(QFile::copy(QStringLiteral(PACKAGING_DIR "/varnelgraph-mime.xml"),
        dataHome.filePath(QStringLiteral("mime/packages/varnelgraph.xml"))));
}

void tst_filetypes::typeOfName_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("pack 1.acp") << "application/x-varnelgraph-recording";
    QTest::newRow("PACK.ACP") << "application/x-varnelgraph-recording";
    QTest::newRow("old.abp") << "application/x-varnelgraph-balancer";
}

void tst_filetypes::typeOfName()
{
    QFETCH(QString, type);
    const auto found = QMimeDatabase().mimeTypeForFile(
        QLatin1String(QTest::currentDataTag()), QMimeDatabase::MatchExtension);
    QCOMPARE(found.name(), type);
    QVERIFY2(found.inherits(QStringLiteral("text/plain")), "an editor is offered too");
}

void tst_filetypes::desktopEntryOpensEachType()
{
    QFile file(QStringLiteral(PACKAGING_DIR "/varnelgraph.desktop"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QMap<QByteArray, QByteArray> entry;
    while (!file.atEnd()) {
        const auto line = file.readLine().trimmed();
        entry.insert(line.left(line.indexOf('=')), line.mid(line.indexOf('=') + 1));
    }
    QCOMPARE(entry["Exec"], QByteArray(PROGRAM_NAME " %F"));
    QCOMPARE(entry["MimeType"].count(';'), 2);
    for (const auto &type : {"application/x-varnelgraph-recording", "application/x-varnelgraph-balancer"}) {
        QVERIFY(QMimeDatabase().mimeTypeForName(QLatin1String(type)).isValid());
        QVERIFY2(entry["MimeType"].contains(QByteArray(type) + ';'), type);
    }
}

QTEST_GUILESS_MAIN(tst_filetypes)

#include "tst_filetypes.moc"
