#pragma once

#include "logbook/logbook.h"
#include "logbook/logbookeditor.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

constexpr int longTime = 60000; // ms

/// All that a logbook holds, a row or pack a line.
inline QStringList dump(const Logbook &logbook)
{
    QStringList lines;
    for (const LogbookPack &pack : logbook.packs())
        lines += QStringLiteral("pack %1 %2 %3 ").arg(pack.cellType).arg(pack.cells).arg(pack.capacity)
            + pack.name + '|' + pack.note;
    for (int i = 0; i < logbook.size(); ++i) {
        const LogbookEntry &row = logbook.entryAt(i);
        const LogbookRecording &r = row.recording;
        lines += QStringList{r.file, r.start.toString(Qt::ISODate), QString::number(r.isStartApproximate),
            r.port, logbook.packName(r.pack), r.note, QString::number(row.stamp.size),
            QString::number(row.stamp.modified), QString(row.beginning), QString::number(r.figures.records)}
                     .join('|');
    }
    lines.sort();
    return lines;
}

/// A logbook on its file, open.
struct OpenLogbook {
    explicit OpenLogbook(const QString &folder)
        : editor(&logbook)
    {
        QSignalSpy opened(&logbook, SIGNAL(opened()));
        QObject::connect(&logbook, &Logbook::told, &logbook, [this](const QString &text) { told = text; });
        logbook.open(folder);
        QVERIFY(logbook.isReadOnly()); // until it is known what there is
        QVERIFY(opened.wait(longTime));
        QCoreApplication::processEvents();
    }
    Logbook logbook;
    LogbookEditor editor;
    QString told;
};

/// The first answer of the file to a question, or what is wrong with that.
inline QString onFile(const QString &folder, const char *question)
{
    QString answer;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "test");
        database.setDatabaseName(folder + "/logbook.sqlite");
        QSqlQuery query(database.open() ? database : QSqlDatabase());
        answer = query.exec(question) && query.next() ? query.value(0).toString() : query.lastError().text();
    }
    QSqlDatabase::removeDatabase("test");
    return answer;
}
