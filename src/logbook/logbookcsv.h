#pragma once

#include "files/filepieces.h"
#include "logbook/logbookrecording.h"

#include <QVector>

class Logbook;

/// Rows of a logbook as comma-separated values for other programs: one header row with units, then a row a
/// recording, in UTF-8 with '\n' line ends and decimal points, whatever the locale and the language. What is
/// not known is left empty.
class LogbookCsv : public FilePieces {
public:
    /// The rows `ids` in this order, as they are now.
    LogbookCsv(const Logbook &logbook, const QVector<qint64> &ids);

    bool writeNext(QIODevice &device) override;
    bool atEnd() const override { return m_next == m_rows.size(); }
    double progress() const override;

private:
    struct NamedRow {
        LogbookRecording recording;
        QString pack; // its name
        bool isRead = false;
    };
    static constexpr int notBegun = -1;

    QVector<NamedRow> m_rows;
    int m_next = notBegun; // row to be written
};
