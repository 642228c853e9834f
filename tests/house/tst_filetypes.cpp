#include <QtTest>

/// What a file manager makes of the files in packaging/.
class TestFileTypes : public QObject {
    Q_OBJECT

private slots:
    // An editor is offered for the types, too.
    void recordingsHaveATypeThatIsOpened()
    {
        const QTemporaryDir dataHome;
        qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome.path()));
        QVERIFY(QDir(dataHome.path()).mkpath(QStringLiteral("mime/packages")));
        QVERIFY(QFile::copy(QStringLiteral(PACKAGING_DIR "/varnelgraph-mime.xml"),
            dataHome.filePath(QStringLiteral("mime/packages/varnelgraph.xml"))));
        QFile entry(QStringLiteral(PACKAGING_DIR "/varnelgraph.desktop"));
        QVERIFY(entry.open(QIODevice::ReadOnly));
        const QByteArrayList lines = entry.readAll().split('\n');
        const QByteArray recording = "application/x-varnelgraph-recording";
        const QByteArray balancer = "application/x-varnelgraph-balancer";
        QVERIFY(lines.contains("Exec=" PROGRAM_NAME " %F"));
        QVERIFY(lines.contains("MimeType=" + recording + ';' + balancer + ';'));
        for (const auto &[name, type] :
            {std::pair("pack 1.acp", recording), {"PACK.ACP", recording}, {"old.abp", balancer}}) {
            const auto found
                = QMimeDatabase().mimeTypeForFile(QLatin1String(name), QMimeDatabase::MatchExtension);
            QCOMPARE(found.name(), QLatin1String(type));
            QVERIFY(found.inherits(QStringLiteral("text/plain")));
        }
    }
};

QTEST_GUILESS_MAIN(TestFileTypes)
#include "tst_filetypes.moc"

#include <QtTest>
