#include "machine/sleepblock.h"

#include "machine/sleepkeepers.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstring>
#include <fcntl.h>
#include <list>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr char helperWord[] = "--keep-awake"; // program and reason follow
constexpr int helperWords = 4;
constexpr int noFile = -1; // closing it does nothing
bool knowsHelper = false;

/// Both ends of a pipe, closed with it. Without one, where the system has none left, they are noFile.
class Pipe {
public:
    Pipe() { [[maybe_unused]] const int failed = ::pipe2(m_ends, O_CLOEXEC); } // which leaves them alone
    ~Pipe()
    {
        for (const int end : m_ends)
            ::close(end);
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;

    bool isOpen() const { return readEnd() != noFile; }
    int readEnd() const { return m_ends[0]; }
    int writeEnd() const { return m_ends[1]; }
    /// The caller closes it.
    int takeReadEnd() { return std::exchange(m_ends[0], noFile); }
    int takeWriteEnd() { return std::exchange(m_ends[1], noFile); }

private:
    int m_ends[2] = {noFile, noFile};
};

/// Started processes that have not been seen to end.
std::list<pid_t> &helpers()
{
    static std::list<pid_t> pids;
    return pids;
}

void forgetEnded()
{
    helpers().remove_if([](pid_t pid) { return ::waitpid(pid, nullptr, WNOHANG) != 0; });
}

// The file of the program may have been replaced since it was started; what runs is still to be had there.
bool startHelper(const QByteArray &reason, int input, int output)
{
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    QByteArray words[] = {QCoreApplication::applicationFilePath().toLocal8Bit(), helperWord,
        QCoreApplication::applicationName().toLocal8Bit(), reason};
    char *argv[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
    pid_t pid;
    const bool started = ::posix_spawn(&pid, "/proc/self/exe", &actions, nullptr, argv, environ) == 0;
    ::posix_spawn_file_actions_destroy(&actions);
    if (started)
        helpers().push_back(pid);
    return started;
}

} // namespace

/// One helper process for one block: it holds as long as its standard input is open, and says when it does.
class SleepBlock::Private : public QObject {
    Q_OBJECT

public:
    ~Private() override { end(); }

    void start(const QString &reason);
    void end();

    int input = noFile; // of the helper, if there is one
    bool granted = false;

private slots:
    void onOutput();

private:
    void stopListening();

    int m_output = noFile;
    QScopedPointer<QSocketNotifier, QScopedPointerDeleteLater> m_notifier; // it may be the one that calls
};

void SleepBlock::Private::start(const QString &reason)
{
    forgetEnded();
    Pipe toHelper;
    Pipe fromHelper;
    if (!toHelper.isOpen() || !fromHelper.isOpen()
        || !startHelper(reason.toLocal8Bit(), toHelper.readEnd(), fromHelper.writeEnd()))
        return;
    input = toHelper.takeWriteEnd();
    m_output = fromHelper.takeReadEnd();
    m_notifier.reset(new QSocketNotifier(m_output, QSocketNotifier::Read));
    connect(m_notifier.data(), SIGNAL(activated(int)), this, SLOT(onOutput()));
}

// Its input stays open when the helper has gone without a block: another one would fare no better. One that
// had the block has lost its bus, and the next acquire() looks for another.
void SleepBlock::Private::onOutput()
{
    char byte;
    const bool had = granted;
    granted = ::read(m_output, &byte, sizeof byte) == 1;
    if (granted)
        return;
    if (had)
        end();
    else
        stopListening();
}

void SleepBlock::Private::stopListening()
{
    if (m_notifier)
        m_notifier->setEnabled(false);
    m_notifier.reset();
    ::close(std::exchange(m_output, noFile));
}

void SleepBlock::Private::end()
{
    stopListening();
    ::close(std::exchange(input, noFile));
    granted = false;
    forgetEnded();
}

bool SleepBlock::isHelper(int argc, char **argv)
{
    knowsHelper = true;
    return argc == helperWords && std::strcmp(argv[1], helperWord) == 0;
}

int SleepBlock::runHelper(int argc, char **argv)
{
    return keepAwake(argc, argv);
}

SleepBlock::SleepBlock(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

SleepBlock::~SleepBlock() = default;

void SleepBlock::acquire(const QString &reason)
{
    if (d->input == noFile && knowsHelper)
        d->start(reason);
}

void SleepBlock::release()
{
    d->end();
}

bool SleepBlock::isHeld() const
{
    return d->granted;
}

#include "sleepblock_unix.moc"
