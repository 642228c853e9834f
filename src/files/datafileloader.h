#pragma once

#include "files/filestamp.h"
#include "files/linesource.h"

#include "data/records/balanceintegrator.h"
#include "data/records/recordlist.h"

#include <QCoreApplication>
#include <QString>

#include <memory>

class BackgroundFile;
class ColumnConverter;

/// Reads a data file of any of the three dialects, a slice at a time, so that the caller stays responsive.
/// Records are taken when all is read; what was read before an error is not given out.
class DataFileLoader {
    Q_DECLARE_TR_FUNCTIONS(DataFileLoader)

public:
    enum class Status { Reading, Loaded, CanNotOpen, BadHeader, BadLine, NoMemory };

    /// Reads `fileName`, which must be a regular file and is opened in the background.
    explicit DataFileLoader(const QString &fileName);
    /// Reads from `device`, which is open, lines of up to `chunk` bytes, as the file `fileName`.
    DataFileLoader(
        std::unique_ptr<QIODevice> device, const QString &fileName, int chunk = LineSource::usualChunk);
    ~DataFileLoader();
    DataFileLoader(const DataFileLoader &) = delete;
    DataFileLoader &operator=(const DataFileLoader &) = delete;

    /// Reads on for about `maxMilliseconds`. True while there is more. Does not wait for a disk or a network
    /// that does not answer.
    bool readSome(int maxMilliseconds);
    /// The disk has not given what comes next: readSome() would do nothing now.
    bool isWaiting() const;
    /// Reads all. True when the file was loaded, be it with no record.
    bool readAll();
    /// Gives up for lack of memory, as reading itself does before the system has none left. A loaded file
    /// counts as not loaded from then on.
    void giveUpForMemory() { finish(Status::NoMemory); }

    Status status() const { return m_status; }
    double progress() const; ///< 0 to 1, by bytes
    QString fileName() const { return m_fileName; }
    /// Of the file as it was opened; not known of a device.
    FileStamp stamp() const;
    /// Why the file was not loaded; empty when it was.
    QString reason() const;
    /// Line of the file that was wrong, from 1; 0 when none was.
    int errorLine() const { return m_errorLine; }

    /// Of a loaded file, taken or not.
    int recordCount() const { return m_recordCount; }
    /// The records of a loaded file, with the balanced charge of their cells; empty after any error.
    RecordList takeRecords();

private:
    void step();
    template <typename Read>
    void readWithin(const Read &read);
    void takeEnd();
    void takeLine(QLatin1String line);
    void chooseDialect(QLatin1String firstLine);
    void takeRecordLine(QLatin1String line);
    void takeColumnLine(QLatin1String line);
    bool isCutShort(QLatin1String line) const;
    void addRecord(QLatin1String line, int time);
    void addResistances(QLatin1String line);
    void finish(Status status);

    static constexpr int recordsBetweenLooks
        = 32768; // at the memory that is left; little more than one block of them

    QString m_fileName;
    std::unique_ptr<QIODevice> m_device;
    const BackgroundFile *m_file = nullptr; // m_device, where a file is read by its name
    std::unique_ptr<LineSource> m_lines;
    std::unique_ptr<ColumnConverter> m_columns; // null while the file holds record lines
    bool m_dialectKnown = false;
    Status m_status = Status::Reading;
    int m_errorLine = 0;
    QString m_systemError;
    int m_lineLength = 0; // of the newest record
    RecordList m_records;
    int m_recordCount = 0; // once all are read
    BalanceIntegrator m_balance;
};
