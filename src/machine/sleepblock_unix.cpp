#include "machine/sleepblock.h"

#include "machine/sleepkeepers.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QVector>

#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr char helperWord[] = "--keep-awake"; // program and reason follow
constexpr int helperWords = 4;
bool knowsHelper = false;

/// Both ends of a pipe, closed with it.
class Pipe {
public:
    Pipe()
    {
        if (::pipe2(m_ends, O_CLOEXEC) != 0)
            m_ends[0] = m_ends[1] = -1;
    }
    ~Pipe()
    {
        for (const int end : m_ends) {
            if (end >= 0)
                ::close(end);
        }
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;

    int readEnd() const { return m_ends[0]; }
    int writeEnd() const { return m_ends[1]; }
    /// The caller closes it.
    int takeReadEnd() { return std::exchange(m_ends[0], -1); }
    int takeWriteEnd() { return std::exchange(m_ends[1], -1); }

private:
    int m_ends[2] = {-1, -1};
};

/// Started processes that have not been seen to end.
QVector<pid_t> &helpers()
{
    static QVector<pid_t> pids;
    return pids;
}

void forgetEnded()
{
    QVector<pid_t> &pids = helpers();
    for (int i = pids.size() - 1; i >= 0; --i) {
        if (::waitpid(pids[i], nullptr, WNOHANG) != 0)
            pids.removeAt(i);
    }
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
    char *argv[helperWords + 1] = {};
    for (int i = 0; i < helperWords; ++i)
        argv[i] = words[i].data();
    pid_t pid = 0;
    const bool started = ::posix_spawn(&pid, "/proc/self/exe", &actions, nullptr, argv, environ) == 0;
    ::posix_spawn_file_actions_destroy(&actions);
    if (started)
        helpers().append(pid);
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

    int input = -1; // of the helper; -1 when there is none
    bool granted = false;

private slots:
    void onOutput();

private:
    void stopListening();

    int m_output = -1;
    QSocketNotifier *m_notifier = nullptr; // child
};

void SleepBlock::Private::start(const QString &reason)
{
    forgetEnded();
    Pipe toHelper;
    Pipe fromHelper;
    if (toHelper.writeEnd() < 0 || fromHelper.readEnd() < 0
        || !startHelper(reason.toLocal8Bit(), toHelper.readEnd(), fromHelper.writeEnd()))
        return;
    input = toHelper.takeWriteEnd();
    m_output = fromHelper.takeReadEnd();
    m_notifier = new QSocketNotifier(m_output, QSocketNotifier::Read, this);
    connect(m_notifier, SIGNAL(activated(int)), this, SLOT(onOutput()));
}

// Its input stays open when the helper has gone without a block: another one would fare no better. One that
// had the block has lost its bus, and the next acquire() looks for another.
void SleepBlock::Private::onOutput()
{
    char byte = 0;
    const bool had = granted;
    granted = ::read(m_output, &byte, 1) == 1;
    if (granted)
        return;
    if (had)
        end();
    else
        stopListening();
}

void SleepBlock::Private::stopListening()
{
    if (m_notifier) {
        m_notifier->setEnabled(false);
        m_notifier->deleteLater(); // it may be the one that calls
    }
    m_notifier = nullptr;
    if (m_output >= 0)
        ::close(m_output);
    m_output = -1;
}

void SleepBlock::Private::end()
{
    stopListening();
    if (input >= 0)
        ::close(input);
    input = -1;
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
    if (d->input < 0 && knowsHelper)
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
