#include "files/datafileloader.h"

#include "files/backgroundfile.h"
#include "files/balancercolumns.h"
#include "files/chargercolumns.h"
#include "files/filekind.h"
#include "files/linetrimming.h"

#include "data/systemmemory.h"

#include <QDebug>
#include <QElapsedTimer>

#include <new>

namespace {

constexpr int shortWait = 2; // ms for the disk, which mostly suffices

} // namespace

DataFileLoader::DataFileLoader(const QString &fileName)
    : m_fileName(fileName)
{
    auto file = std::make_unique<BackgroundFile>(fileName);
    m_file = file.get();
    m_device = std::move(file);
    m_lines = std::make_unique<LineSource>(*m_device, LineSource::usualChunk);
}

DataFileLoader::DataFileLoader(std::unique_ptr<QIODevice> device, const QString &fileName, int chunk)
    : m_fileName(fileName)
    , m_device(std::move(device))
    , m_lines(std::make_unique<LineSource>(*m_device, chunk))
{
}

DataFileLoader::~DataFileLoader() = default;

bool DataFileLoader::readSome(int maxMilliseconds)
{
    QElapsedTimer timer;
    timer.start();
    if (isWaiting())
        m_file->waitReady(shortWait);
    readWithin([&] {
        while (m_status == Status::Reading && !isWaiting()) {
            const qint64 before = m_lines->bytesRead();
            step();
            if (m_lines->bytesRead() != before && timer.hasExpired(maxMilliseconds))
                break;
        }
    });
    return m_status == Status::Reading;
}

bool DataFileLoader::isWaiting() const
{
    return m_status == Status::Reading && m_file && !m_file->isReady();
}

bool DataFileLoader::readAll()
{
    readWithin([this] {
        while (m_status == Status::Reading)
            step();
    });
    return m_status == Status::Loaded;
}

template <typename Read>
void DataFileLoader::readWithin(const Read &read)
{
    try {
        read();
    } catch (const std::bad_alloc &) {
        giveUpForMemory();
    }
}

void DataFileLoader::step()
{
    QLatin1String line;
    switch (m_lines->next(&line)) {
    case LineSource::Found::Line:
        takeLine(line);
        break;
    case LineSource::Found::Nothing:
        break;
    case LineSource::Found::End:
        takeEnd();
        break;
    case LineSource::Found::Error:
        m_systemError = m_device->errorString();
        finish(Status::CanNotOpen);
        break;
    }
}

// An empty file is what saving a recording without records leaves: no data, and no error.
void DataFileLoader::takeEnd()
{
    if (!m_dialectKnown)
        chooseDialect(QLatin1String("#"));
    const bool headerMissing = m_columns && m_lines->lineNumber() < ColumnHeader::lineCount;
    finish(headerMissing ? Status::BadHeader : Status::Loaded);
}

void DataFileLoader::takeLine(QLatin1String line)
{
    if (!m_dialectKnown)
        chooseDialect(line);
    if (m_columns)
        takeColumnLine(line);
    else
        takeRecordLine(line);
}

void DataFileLoader::chooseDialect(QLatin1String firstLine)
{
    m_dialectKnown = true;
    switch (FileKind::of(m_fileName, firstLine)) {
    case FileKind::Records:
        qDebug("Plik varnel 3");
        break;
    case FileKind::ChargerColumns:
        qDebug("Plik varnel v2");
        m_columns = std::make_unique<ChargerColumns>();
        break;
    case FileKind::BalancerColumns:
        qDebug("Plik tandor");
        m_columns = std::make_unique<BalancerColumns>();
        break;
    }
}

void DataFileLoader::takeRecordLine(QLatin1String line)
{
    if (line.isEmpty() || m_lines->wasCut())
        return;
    if (line.front() == QLatin1Char('#') && !isCutShort(line))
        addRecord(trimmedLine(line), ColumnConverter::timeFromLine);
    else if (line.front() == QLatin1Char('!') && m_lines->hasEnd() && !m_records.isEmpty())
        addResistances(line);
}

void DataFileLoader::addResistances(QLatin1String line)
{
    Varnel3Data newest = m_records.last();
    newest.parseResistanceLine(line);
    m_records.replaceLast(newest);
}

// A last line without its end may be what a power cut has left, and the beginning of a number reads as
// another number. One whose last field is a single character is whole when that is there; another one when
// it is no shorter than the line of the same device before it.
bool DataFileLoader::isCutShort(QLatin1String line) const
{
    if (m_lines->hasEnd())
        return false;
    const QLatin1String text = trimmedLine(line);
    if (text.endsWith(QLatin1Char(',')))
        return true;
    Varnel3Data record;
    const bool endsInNumber = record.parseLine(text)
        && (record.device == Varnel3Data::Varnel2 || record.device == Varnel3Data::Varnel2Plus);
    return endsInNumber && text.size() < m_lineLength
        && record.device == m_records.figure(RecordColumns::Device, m_records.size() - 1);
}

void DataFileLoader::takeColumnLine(QLatin1String line)
{
    if (m_lines->wasCut()) {
        finish(m_lines->lineNumber() <= ColumnHeader::lineCount ? Status::BadHeader : Status::BadLine);
        return;
    }
    switch (m_columns->convert(line)) {
    case ColumnConverter::Outcome::NoRecord:
        break;
    case ColumnConverter::Outcome::Record:
        addRecord(m_columns->recordLine(), m_columns->time());
        break;
    case ColumnConverter::Outcome::BadHeader:
        finish(Status::BadHeader);
        break;
    case ColumnConverter::Outcome::BadLine:
        finish(Status::BadLine);
        break;
    }
}

// The time is final before the charge is summed.
void DataFileLoader::addRecord(QLatin1String line, int time)
{
    Varnel3Data record;
    if (!record.parseLine(line))
        return;
    m_lineLength = line.size();
    if (time != ColumnConverter::timeFromLine)
        record.setTime(time);
    m_balance.add(record);
    m_records.append(record, BlockArena::Fast);
    if (m_records.size() % recordsBetweenLooks == 0)
        demandMemory();
}

void DataFileLoader::finish(Status status)
{
    m_status = status;
    if (status == Status::Loaded) {
        m_recordCount = m_records.size();
        qDebug("Wczytal %d linii z pliku %s", m_recordCount, qUtf8Printable(m_fileName));
        return;
    }
    if (status == Status::BadHeader || status == Status::BadLine)
        m_errorLine = qMax(1, m_lines->lineNumber());
    m_records.clear();
}

FileStamp DataFileLoader::stamp() const
{
    return m_file ? m_file->stamp() : FileStamp();
}

double DataFileLoader::progress() const
{
    if (m_status != Status::Reading)
        return 1.0;
    const qint64 size = m_device->size();
    return size > 0 ? qMin(1.0, double(m_lines->bytesRead()) / double(size)) : 0.0;
}

QString DataFileLoader::reason() const
{
    if (m_errorLine > 0)
        return tr("format error in line %1").arg(m_errorLine);
    if (m_status == Status::NoMemory)
        return tr("not enough memory");
    return m_systemError;
}

RecordList DataFileLoader::takeRecords()
{
    return std::move(m_records);
}
