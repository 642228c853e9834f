#include "app/batch/logbookexport.h"

#include "documents/fileconversion.h"
#include "journal/journalfolder.h"
#include "logbook/logbook.h"
#include "logbook/logbookcsv.h"
#include "logbook/logbookreader.h"

#include <QEventLoop>

QString exportLogbook(const QString &output, QString *notice)
{
    Logbook logbook;
    LogbookReader reader(&logbook, JournalFolder::defaultPath());
    QObject::connect(&logbook, &Logbook::told, [notice](const QString &text) { *notice = text; });
    QEventLoop reading;
    QObject::connect(&reader, SIGNAL(finished()), &reading, SLOT(quit()));
    logbook.open(Logbook::defaultFolder());
    reading.exec();
    if (!logbook.trouble().isEmpty())
        *notice = logbook.trouble();
    LogbookCsv rows(logbook, logbook.recordings());
    return writeOutput(output, rows);
}
