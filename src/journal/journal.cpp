#include "journal/journal.h"

#include "files/disk/disksyncer.h"
#include "files/disk/filesync.h"
#include "journal/journalfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int mostAttempts = 100; // at a free name
constexpr int pieceLength = 1024 * 1024; // bytes copied at once
constexpr int mostPieces = 16; // in one go; some 20 ms
constexpr int usualWaiting = 8192; // bytes; taken beforehand, since a line must not need memory
constexpr int mostWaiting = 64 * 1024 * 1024; // bytes; the hours that a full disk may stay full

/// Where texts of no object are translated.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Journal)
};

/// How many of the first `count` bytes, of none where it is negative, are whole lines. Needs no memory, as no
/// line must.
int wholeLines(const char *bytes, int count)
{
    const auto start = std::make_reverse_iterator(bytes);
    return int(start - std::find(std::make_reverse_iterator(bytes + std::max(0, count)), start, '\n'));
}

} // namespace

Journal::Journal(
    const JournalFolder &folder, DiskSyncer &syncer, const QString &portName, const Listener &listener)
    : m_folder(folder)
    , m_syncer(syncer)
    , m_listener(listener)
    , m_portName(portName)
    , m_started(QDateTime::currentDateTime())
{
    m_waiting.reserve(usualWaiting);
    create();
}

Journal::~Journal()
{
    if (isClosed())
        return;
    qint64 before;
    do {
        before = m_size;
        drain();
    } while (m_lost != noDescriptor && m_size != before);
    close();
}

void Journal::append(const QByteArray &line)
{
    if (m_waiting.size() < mostWaiting) {
        m_waiting += line;
        m_waiting += lineEnd;
    } else {
        m_complete = false;
    }
    if (!isStalled())
        drain();
}

void Journal::retry()
{
    if (isStalled() || isGone())
        drain();
}

void Journal::finish()
{
    drain();
    if (isAllWritten())
        close();
    else
        m_state = State::Ending;
}

void Journal::discard()
{
    m_waiting.clear();
    const bool created = m_descriptor != noDescriptor && isStillNamed(m_descriptor, m_fileName);
    close();
    if (created)
        QFile::remove(m_fileName);
}

void Journal::create()
{
    QDir().mkpath(m_folder.path());
    CreatedFile created;
    for (int attempt = 1; attempt <= mostAttempts; ++attempt) {
        m_fileName = m_folder.fileName(m_started, m_portName, attempt);
        created = createLockedFile(m_fileName);
        if (!created.exists)
            break;
    }
    m_descriptor = created.descriptor;
    if (m_descriptor == noDescriptor) {
        stall(created.reason);
        return;
    }
    m_syncer.watch(m_descriptor, m_fileName);
    const int folder = openFolder(m_folder.path());
    if (folder != noDescriptor)
        m_syncer.finish(folder); // the new name, too, without waiting for the disk here
}

void Journal::drain()
{
    if (isGone())
        abandonFile();
    if (m_descriptor == noDescriptor)
        create();
    if (m_descriptor == noDescriptor)
        return;
    if (m_lost != noDescriptor && !restore())
        return;
    if (!m_waiting.isEmpty())
        m_waiting.remove(0, write(m_waiting));
    takeOutcome();
}

bool Journal::isGone() const
{
    return m_descriptor != noDescriptor && m_syncer.isGone(m_descriptor);
}

// The first file holds everything; one that was lost before it was complete has nothing that is needed.
void Journal::abandonFile()
{
    if (m_lost == noDescriptor) {
        m_lost = m_descriptor;
        m_lostSize = m_size;
    } else {
        m_syncer.finish(m_descriptor);
    }
    m_descriptor = noDescriptor;
    m_size = 0;
    const QString name = m_fileName;
    create();
    m_listener.replaced(name, m_fileName);
    stall(Texts::tr("the file was removed or replaced")); // until all is in the new one
}

// A slice at a time, so that a long file holds nobody up. False while there is more.
bool Journal::restore()
{
    QByteArray piece(pieceLength, Qt::Uninitialized);
    for (int left = mostPieces; left > 0 && m_size < m_lostSize; --left) {
        const int wanted = int(std::min<qint64>(piece.size(), m_lostSize - m_size));
        const int read = readBytes(m_lost, m_size, piece.data(), wanted);
        const int whole = wholeLines(piece.constData(), read);
        if (whole == 0 && read == piece.size()) {
            piece.resize(2 * piece.size()); // a line must come as a whole
            continue;
        }
        if (whole == 0) {
            m_complete = false; // the disk does not give back what it took
            m_lostSize = m_size;
        } else if (write(QByteArray::fromRawData(piece.constData(), whole)) < whole) {
            return false;
        }
    }
    if (m_size < m_lostSize)
        return false;
    m_syncer.finish(std::exchange(m_lost, noDescriptor));
    return true;
}

// Appends and returns how many bytes were taken. A line that was taken in part is cut off again: a number
// without its end would read as another number.
int Journal::write(const QByteArray &lines)
{
    const int written = appendBytes(m_descriptor, lines.constData(), lines.size());
    if (written < lines.size())
        m_failure = written < 0 ? qt_error_string() : Texts::tr("the disk is full");
    if (written < 0)
        return 0;
    const int whole = wholeLines(lines.constData(), written);
    const bool ends = written == whole || cutFile(m_descriptor, m_size + whole);
    const int taken = ends ? whole : written;
    m_size += taken;
    m_syncer.mark(m_descriptor);
    return taken;
}

// Of a try that met no lack of a file: m_descriptor is there, and nothing is lost any more.
void Journal::takeOutcome()
{
    if (!m_waiting.isEmpty()) {
        stall(m_failure);
        return;
    }
    const bool failing = m_syncer.isFailing(m_descriptor);
    m_complete &= !failing; // the system may have dropped what it could not bring to the disk
    if (m_state == State::Ending) {
        close();
    } else if (failing) {
        stall(Texts::tr("the disk reports an error"));
    } else if (m_state == State::Stalled) {
        m_state = State::Writing;
        m_listener.stalled(*this, QString());
    }
}

void Journal::stall(const QString &reason)
{
    if (isStalled())
        return;
    m_state = State::Stalled;
    m_listener.stalled(*this, reason);
}

void Journal::close()
{
    const bool wasStalled = isStalled();
    m_state = State::Closed;
    m_complete &= isAllWritten();
    for (int *descriptor : {&m_descriptor, &m_lost}) {
        if (*descriptor != noDescriptor)
            m_syncer.finish(std::exchange(*descriptor, noDescriptor));
    }
    if (wasStalled)
        m_listener.stalled(*this, QString());
}
