#include "logbook/logbookreader.h"

#include "files/datafileloader.h"
#include "journal/journalfolder.h"
#include "logbook/folderlook.h"
#include "logbook/logbook.h"
#include "series/seriesstore.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>
#include <new>

namespace {

constexpr int sliceTime = 10; // ms; the event loop runs between slices
constexpr int waitTime = 20; // ms between two looks at a disk that does not answer
constexpr int roundTime = 5000; // ms between two looks at the folders
constexpr int recordsBetweenLooks = 1024; // at the clock
constexpr int filesAhead = 4; // that are opened while one is read
constexpr double longest = 1e9; // s, that a recording's clock is believed

// The lines of a Tandor are kept as those of a Varnel 3: only who has heard them knows.
LogbookFigures asHeard(LogbookFigures figures, const LogbookRecording *before)
{
    if (before && before->figures.device == Varnel3Data::Tandor && figures.device == Varnel3Data::Varnel3)
        figures.device = Varnel3Data::Tandor;
    return figures;
}

} // namespace

/// A file on its way through loading, drawing out its series, and reckoning.
struct LogbookReader::Current {
    Current(const FoundFile &file, const Series &borrowed)
        : found(file)
        , m_opened(borrowed)
    {
        if (!m_opened || !m_opened())
            m_loader = std::make_unique<DataFileLoader>(found.file);
    }
    /// True while there is more.
    bool goOn()
    {
        const QDeadlineTimer slice(sliceTime);
        if (m_loader && !m_store) {
            if (m_loader->readSome(sliceTime))
                return true;
            if (m_loader->status() != DataFileLoader::Status::Loaded)
                return false;
            m_store = std::make_unique<SeriesStore>();
            m_store->beginLoad(m_loader->takeRecords());
        }
        while (!slice.hasExpired()) {
            if (!reckoning && m_store && m_store->loadSome(recordsBetweenLooks))
                continue;
            if (!reckoning)
                reckoning = std::make_unique<LogbookReckoning>(*series());
            if (!reckoning->goOn(recordsBetweenLooks))
                return false;
        }
        return true;
    }
    /// Reads the file where what was opened has gone.
    void follow()
    {
        if (!m_loader && !m_opened())
            *this = Current(found, Series());
    }
    /// Once it is at its end.
    DataFileLoader::Status outcome() const
    {
        return m_loader ? m_loader->status() : DataFileLoader::Status::Loaded;
    }
    const SeriesStore *series() const { return m_store ? m_store.get() : m_opened(); }
    bool isWaiting() const { return m_loader && m_loader->isWaiting(); }

    FoundFile found;
    std::unique_ptr<LogbookReckoning> reckoning;

private:
    Series m_opened;
    std::unique_ptr<DataFileLoader> m_loader; // null while what was opened is there
    std::unique_ptr<SeriesStore> m_store;
};

LogbookReader::LogbookReader(Logbook *logbook, const QString &ownFolder, QObject *parent)
    : QObject(parent)
    , m_logbook(logbook)
    , m_ownFolder(QFileInfo(ownFolder).absoluteFilePath())
    , m_round(new QTimer(this))
    , m_slices(new QTimer(this))
    , m_jobs(this)
{
    m_round->setInterval(roundTime);
    connect(m_round, SIGNAL(timeout()), this, SLOT(lookAround()));
    connect(m_slices, SIGNAL(timeout()), this, SLOT(readOn()));
    connect(m_logbook, SIGNAL(opened()), this, SLOT(readAgain()));
    connect(m_logbook, SIGNAL(opened()), m_round, SLOT(start()));
    connect(m_logbook, SIGNAL(foldersChanged()), this, SLOT(lookAround()));
}

LogbookReader::~LogbookReader() = default;

bool LogbookReader::isReading() const
{
    return m_looks > 0 || m_slices->isActive();
}

QStringList LogbookReader::folders() const
{
    QStringList all{m_ownFolder};
    const QStringList chosen = m_logbook->folders();
    for (const QString &folder : chosen)
        all += QFileInfo(folder).absoluteFilePath();
    all.removeDuplicates();
    return all;
}

void LogbookReader::readAgain()
{
    m_isCancelled = false;
    const QStringList all = folders();
    for (const QString &folder : all)
        lookThroughFolder(folder);
    QStringList strays; // rows of files that lie elsewhere
    for (int i = 0; i < m_logbook->size(); ++i) {
        const QString file = m_logbook->entryAt(i).recording.file;
        if (!all.contains(QFileInfo(file).path()))
            strays += file;
    }
    if (!strays.isEmpty())
        lookAtFiles(strays, Opened());
}

void LogbookReader::cancel()
{
    m_isCancelled = true;
    m_waiting.clear();
    m_opened.clear();
    m_current.reset();
    m_next.clear();
    rest();
}

void LogbookReader::look(const QString &file)
{
    look(QStringList{file});
}

void LogbookReader::look(const QStringList &files)
{
    QStringList paths;
    for (const QString &file : files)
        paths += QFileInfo(file).absoluteFilePath();
    lookAtFiles(paths, Opened());
}

void LogbookReader::lookAtOpened(const QString &file, const FileStamp &stamp, const Series &series)
{
    lookAtFiles({QFileInfo(file).absoluteFilePath()}, {stamp, series});
}

void LogbookReader::lookAtCopy(const QString &file, const QString &source)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    const QString from = QFileInfo(source).absoluteFilePath();
    const LogbookEntry *original = m_logbook->entryOf(from);
    const LogbookEntry *overwritten = m_logbook->entryOf(path);
    if (overwritten && path == from) { // written anew, perhaps in another form
        LogbookEntry same = *overwritten;
        same.stamp = FileStamp();
        m_logbook->take(same);
    } else if (overwritten) { // whose recording that was, its beginning tells
        m_sources.insert(path, from);
    } else if (original) {
        LogbookEntry copy = *original;
        copy.recording.file = path;
        copy.recording.id = 0;
        copy.recording.pack = LogbookPack::none;
        copy.recording.note.clear();
        copy.recording.isLive = false;
        copy.stamp = FileStamp();
        m_logbook->take(copy);
    }
    look(path);
}

void LogbookReader::beginLive(const QString &file, const QString &port, const Varnel3Data &record)
{
    LogbookEntry entry;
    entry.recording.file = QFileInfo(file).absoluteFilePath();
    entry.recording.start = JournalFolder::startOf(file);
    entry.recording.port = JournalFolder::inNames(port);
    entry.recording.isLive = true;
    entry.recording.figures = LogbookFigures::ofFirst(record);
    m_logbook->take(entry);
}

void LogbookReader::endLive(const QString &file)
{
    const LogbookEntry *entry = m_logbook->entryOf(QFileInfo(file).absoluteFilePath());
    if (!entry || !entry->recording.isLive)
        return;
    LogbookEntry ended = *entry;
    ended.recording.isLive = false;
    m_logbook->take(ended);
    look(file);
}

void LogbookReader::dropLive(const QString &file)
{
    m_logbook->drop(QFileInfo(file).absoluteFilePath());
}

void LogbookReader::renameLive(const QString &file, const QString &newFile)
{
    m_logbook->rename(QFileInfo(file).absoluteFilePath(), QFileInfo(newFile).absoluteFilePath());
}

/// Asks each folder for its time only: mostly nothing has changed.
void LogbookReader::lookAround()
{
    const QStringList all = folders();
    for (const QString &folder : all) {
        const Folder state = m_folders.value(folder);
        if (state.isBusy)
            continue;
        if (state.isUnsettled) {
            lookThroughFolder(folder);
            continue;
        }
        m_folders[folder].isBusy = true;
        m_jobs.run([folder] { return folderTime(folder); },
            [this, folder](qint64 modified) { takeTime(folder, modified); });
    }
}

void LogbookReader::takeTime(const QString &folder, qint64 modified)
{
    Folder &state = m_folders[folder];
    state.isBusy = false;
    if (state.modified != modified || state.isWanted)
        lookThroughFolder(folder);
}

LookQuestion LogbookReader::question(const QString &folder) const
{
    LookQuestion asked;
    asked.folder = folder;
    asked.holdsJournals = folder == m_ownFolder;
    asked.refused = m_logbook->refused();
    asked.known.reserve(m_logbook->size());
    for (int i = 0; i < m_logbook->size(); ++i) {
        const LogbookEntry &entry = m_logbook->entryAt(i);
        asked.known.insert(entry.recording.file, {entry.stamp, entry.beginning});
        if (!entry.beginning.isEmpty())
            asked.beginnings.insert(entry.beginning, entry.recording.file);
        if (entry.recording.isGone)
            asked.gone.insert(entry.recording.file);
        if (entry.recording.isLive)
            asked.live.insert(entry.recording.file);
    }
    return asked;
}

void LogbookReader::lookThroughFolder(const QString &folder)
{
    Folder &state = m_folders[folder];
    state.isWanted = state.isBusy;
    if (state.isBusy)
        return;
    state.isBusy = true;
    ++m_looks;
    m_jobs.run([asked = question(folder)] { return lookThrough(asked); },
        [this](const FolderNews &news) {
            Folder &looked = m_folders[news.folder];
            looked.isBusy = false;
            looked.modified = news.modified;
            looked.isUnsettled = news.isUnsettled;
            const bool again = looked.isWanted;
            takeNews(news);
            takeFound(m_isCancelled ? QVector<FoundFile>() : news.found);
            if (again)
                lookThroughFolder(news.folder);
        });
}

void LogbookReader::lookAtFiles(const QStringList &files, const Opened &opened)
{
    ++m_looks;
    m_jobs.run([asked = question(m_ownFolder), files] { return lookAt(asked, files); },
        [this, opened](const FolderNews &news) {
            m_folders[m_ownFolder].isUnsettled |= news.isUnsettled;
            for (const FoundFile &file : news.found) {
                if (opened.series)
                    m_opened.insert(file.file, opened);
            }
            takeNews(news);
            takeFound(news.found);
        });
}

void LogbookReader::takeNews(const FolderNews &news)
{
    --m_looks;
    for (const auto &names : news.moved)
        m_logbook->rename(names.first, names.second);
    for (const QString &file : news.back)
        m_logbook->setGone(file, false);
    for (const QString &file : news.gone) {
        const LogbookEntry *entry = m_logbook->entryOf(file);
        if (!entry || entry->recording.isLive)
            continue;
        // Of a recording that was killed before its file was worth keeping nothing is left, but what the user
        // has said of it.
        if (!entry->stamp.isKnown() && entry->recording.note.isEmpty()
            && entry->recording.pack == LogbookPack::none)
            m_logbook->drop(file);
        else
            m_logbook->setGone(file, true);
    }
    m_logbook->addRefused(news.refused);
}

// A file that was found twice is read as it was found last.
void LogbookReader::takeFound(const QVector<FoundFile> &found)
{
    QHash<QString, int> places;
    for (int i = 0; i < m_waiting.size(); ++i)
        places.insert(m_waiting[i].file, i);
    for (const FoundFile &file : found) {
        const auto place = places.constFind(file.file);
        if (place != places.constEnd()) {
            m_waiting[*place] = file;
            continue;
        }
        m_waiting.append(file);
        ++m_toDo;
    }
    std::stable_sort(m_waiting.begin(), m_waiting.end(),
        [](const FoundFile &a, const FoundFile &b) { return a.stamp.modified < b.stamp.modified; });
    if (m_waiting.isEmpty() && !m_current && m_next.empty()) {
        if (m_looks == 0)
            rest();
        return;
    }
    m_slices->start();
    emit progressed(m_done, m_toDo);
}

void LogbookReader::readOn()
{
    if (!m_current && m_next.empty() && m_waiting.isEmpty()) {
        m_slices->stop();
        if (m_looks == 0)
            rest();
        return;
    }
    takeWaiting();
    if (!workOn())
        takeResult();
    m_slices->setInterval(m_current && m_current->isWaiting() ? waitTime : 0);
}

void LogbookReader::takeWaiting()
{
    while (!m_waiting.isEmpty() && int(m_next.size()) < filesAhead)
        m_next.push_back(nextWaiting());
    if (m_current)
        return;
    m_current = std::move(m_next.front());
    m_next.pop_front();
}

std::unique_ptr<LogbookReader::Current> LogbookReader::nextWaiting()
{
    const FoundFile file = m_waiting.takeLast();
    const Opened opened = m_opened.take(file.file);
    return std::make_unique<Current>(file, opened.stamp == file.stamp ? opened.series : Series());
}

/// True while the file is not ready. Drops one that memory does not suffice for.
bool LogbookReader::workOn()
{
    try {
        m_current->follow();
        return m_current->goOn();
    } catch (const std::bad_alloc &) {
        m_current.reset();
        return false;
    }
}

// What can't be read for now is found again; what is no recording is remembered.
void LogbookReader::takeResult()
{
    const std::unique_ptr<Current> read = std::move(m_current);
    const DataFileLoader::Status status = read ? read->outcome() : DataFileLoader::Status::NoMemory;
    if (status == DataFileLoader::Status::Loaded && !read->series()->isEmpty())
        takeRead(*read);
    else if (status != DataFileLoader::Status::NoMemory && status != DataFileLoader::Status::CanNotOpen)
        m_logbook->addRefused({refusalKey(read->found.file, read->found.stamp)});
    ++m_done;
    emit progressed(m_done, m_toDo);
}

// The same figures are those of the same recording, whatever has written its file anew.
void LogbookReader::takeRead(const Current &read)
{
    const QString source = m_sources.take(read.found.file);
    const LogbookRecording *before = m_logbook->recordingOf(read.found.file);
    if (read.found.isOther && before && before->figures != asHeard(read.reckoning->figures(), before))
        m_logbook->takeOther(entryOf(read, m_logbook->recordingOf(source)));
    else
        m_logbook->take(entryOf(read, before));
}

// What a journal's name has told stays when the file is given another name.
LogbookEntry LogbookReader::entryOf(const Current &read, const LogbookRecording *before) const
{
    LogbookEntry entry;
    LogbookRecording &recording = entry.recording;
    entry.stamp = read.found.stamp;
    entry.beginning = read.found.beginning;
    recording.file = read.found.file;
    recording.figures = asHeard(read.reckoning->figures(), before);
    recording.start = JournalFolder::startOf(recording.file);
    recording.port = JournalFolder::portOf(recording.file);
    if (before && !before->port.isEmpty())
        recording.port = before->port;
    if (before && before->start.isValid() && !before->isStartApproximate)
        recording.start = before->start;
    if (!recording.start.isValid()) {
        const PlotSeries &time = read.series()->series(SeriesStore::Time);
        const double seconds = qBound(0.0, time.last() - time[0], longest);
        recording.start = QDateTime::fromMSecsSinceEpoch(entry.stamp.modified - qint64(seconds) * 1000);
        recording.isStartApproximate = true;
    }
    return entry;
}

void LogbookReader::rest()
{
    m_slices->stop();
    m_done = 0;
    m_toDo = 0;
    emit progressed(0, 0);
    emit finished();
}
