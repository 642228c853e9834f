#include "data/balanceintegrator.h"
#include "data/recordline.h"
#include "data/varnel3data.h"
#include "fuzzcheck.h"

#include <QByteArray>
#include <QList>

namespace {

QByteArray recordLine(const Varnel3Data &record)
{
    char line[maxRecordLineLength];
    const char *end = writeRecordLine(line, record);
    check(end - line <= maxRecordLineLength, "a record line fits its buffer");
    return QByteArray(line, int(end - line));
}

void checkRoundTrip(const Varnel3Data &record)
{
    const QByteArray line = recordLine(record);
    Varnel3Data again;
    const bool taken = again.parseLine(QLatin1String(line));
    check(taken == isRecordLineReadable(record), "what can be read again is known beforehand");
    if (taken)
        check(recordLine(again) == line, "a line that was read is written as it was");
}

} // namespace

// Lines as the framing gives them, parsed one after the other into one record.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    Varnel3Data record;
    Varnel3Data fromText;
    const QList<QByteArray> lines = input.split('\n');
    for (const QByteArray &line : lines) {
        const bool good = record.parseLine(QLatin1String(line));
        check(fromText.parseLine(QString::fromLatin1(line)) == good, "bytes and text are parsed alike");
        const bool resistances = record.parseResistanceLine(QLatin1String(line));
        check(fromText.parseResistanceLine(QString::fromLatin1(line)) == resistances, "'!' lines too");
        check(record.toString() == fromText.toString(), "with the same result");
        check(!good || !resistances, "no line is both");
        record.maxBalanceChargeMah();
        record.totalBalanceCharge();
        if (good)
            checkRoundTrip(record);
    }
    return 0;
}
