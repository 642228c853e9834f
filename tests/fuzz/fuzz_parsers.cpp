#include "protocol/fixedlayout.h"
#include "protocol/lineparsers.h"
#include "fuzzcheck.h"
#include "support/records.h"

#include <QByteArrayList>

// Lines as the framing gives them, parsed one after the other into one record.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    Varnel3Data record;
    const QByteArrayList lines = input.split('\n');
    for (const QByteArray &line : lines) {
        Varnel3Data usual = record;
        usual.device = Varnel3Data::Varnel3;
        const bool good = record.parseLine(QLatin1String(line.constData(), line.size()));
        if (Varnel3Data quick; parseFixedLayout(quick, textOf(line)))
            check(parseVarnel3(usual, LineFields(textOf(line))) && fieldsOf(usual) == fieldsOf(record),
                "the quick way comes to the same");
        const bool resistances = record.parseResistanceLine(QString::fromLatin1(line));
        check(!good || !resistances, "no line is both");
        if (!good)
            continue;
        const QByteArray own = written(record);
        check(own.size() + 2 <= maxRecordLineLength, "a record line fits its buffer");
        Varnel3Data again;
        const bool taken = again.parseLine(QLatin1String(own.constData(), own.size()));
        check(taken == isRecordLineReadable(record), "what can be read again is known beforehand");
        check(!taken || written(again) == own, "a line that was read is written as it was");
    }
    check(!record.toString().isEmpty(), "a log has words for it");
    return 0;
}
