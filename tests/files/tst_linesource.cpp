#include "files/linesource.h"

#include <QBuffer>
#include <QTest>

/// Lines out of bytes: ends, byte-order marks, chunk borders, lines too long to keep.
class TestLineSource : public QObject {
    Q_OBJECT

private slots:
    void cuts_data();
    void cuts();
    void longLineIsCutAndSkipped();
    void deviceFailure();
};

namespace {

QByteArrayList allLines(QIODevice &device, int chunk)
{
    LineSource source(device, chunk);
    QByteArrayList lines;
    QLatin1String line;
    for (;;) {
        const LineSource::Found found = source.next(&line);
        if (found == LineSource::Found::Line)
            lines += QByteArray(line.data(), line.size());
        else if (found == LineSource::Found::Error)
            return {"error"};
        else if (found == LineSource::Found::End)
            return lines;
    }
}

QByteArray utf16(const QString &text, bool little)
{
    QByteArray bytes;
    for (const QChar c : QChar(0xfeff) + text) {
        bytes += char(little ? c.cell() : c.row());
        bytes += char(little ? c.row() : c.cell());
    }
    return bytes;
}

} // namespace

void TestLineSource::cuts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArrayList>("lines");
    const QByteArrayList three = {"one", "", "three"};
    QTest::newRow("empty") << QByteArray() << QByteArrayList();
    QTest::newRow("unix") << QByteArray("one\n\nthree\n") << three;
    QTest::newRow("windows") << QByteArray("one\r\n\r\nthree\r\n") << three;
    QTest::newRow("mixed, no last end") << QByteArray("one\r\n\nthree") << three;
    QTest::newRow("mark") << QByteArray("\xef\xbb\xbfone\n\nthree\n") << three;
    QTest::newRow("only a mark") << QByteArray("\xef\xbb\xbf") << QByteArrayList();
    QTest::newRow("utf-16 little") << utf16(QStringLiteral("one\r\n\r\nthree"), true) << three;
    QTest::newRow("utf-16 big") << utf16(QStringLiteral("one\n\nthree\n"), false) << three;
    QTest::newRow("utf-16 beyond") << utf16(QStringLiteral("a\u0142\u00e9\n"), true)
                                   << QByteArrayList{QByteArray("a\0\xe9", 3)};
    QTest::newRow("zero bytes") << QByteArray("a\0b\nc", 5) << QByteArrayList{QByteArray("a\0b", 3), "c"};
}

// Every chunk size, so that each border falls everywhere.
void TestLineSource::cuts()
{
    QFETCH(QByteArray, bytes);
    for (int chunk = 16; chunk < 40; ++chunk) {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QTEST(allLines(buffer, chunk), "lines");
    }
}

void TestLineSource::longLineIsCutAndSkipped()
{
    QByteArray bytes = "first\n" + QByteArray(1000, 'x') + "\nlast\n";
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    LineSource source(buffer, 64);
    QLatin1String line;
    QCOMPARE(source.next(&line), LineSource::Found::Line);
    LineSource::Found found = source.next(&line);
    for (; found == LineSource::Found::Nothing; found = source.next(&line)) { }
    QCOMPARE(found, LineSource::Found::Line);
    QVERIFY(source.wasCut());
    QCOMPARE(line, QLatin1String(QByteArray(64, 'x')));
    for (found = source.next(&line); found == LineSource::Found::Nothing; found = source.next(&line)) { }
    QCOMPARE(line, QLatin1String("last"));
    QVERIFY(!source.wasCut());
    QCOMPARE(source.lineNumber(), 3);
    QCOMPARE(source.next(&line), LineSource::Found::End);
    QCOMPARE(source.bytesRead(), qint64(bytes.size()));
}

void TestLineSource::deviceFailure()
{
    QBuffer closed;
    QTest::ignoreMessage(QtWarningMsg, "QIODevice::read (QBuffer): device not open");
    QCOMPARE(allLines(closed, 64), QByteArrayList{"error"});
}

QTEST_GUILESS_MAIN(TestLineSource)
#include "tst_linesource.moc"
