#pragma once

#include "support/limits.h"

#include <QProcess>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

/// The program itself, as a process of its own that goes with this. Where it takes settings and ports from,
/// the environment says.
class ProgramProcess : public QProcess {
public:
    ProgramProcess()
    {
        setProcessChannelMode(QProcess::MergedChannels);
        setVariable("QT_LOGGING_RULES", QStringLiteral("default.debug=true"));
    }
    ~ProgramProcess() override
    {
        kill();
        waitForFinished();
    }

    /// Of its environment alone.
    void setVariable(const char *name, const QString &value)
    {
        QProcessEnvironment environment = processEnvironment();
        if (environment.isEmpty())
            environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(name), value);
        setProcessEnvironment(environment);
    }
    /// No file of its grows beyond `bytes`, as on a full disk; 0 is no limit.
    void limitFiles(int bytes) { m_largestFile = rlim_t(bytes); }

    enum class Log { Read, ReaderGone, Full };
    /// What becomes of its standard error, a pipe: its reader has gone, or takes nothing from it.
    void setLog(Log log) { m_log = log; }
    /// Starts it; true once it has opened `ports` ports, from which it may still throw away what waits there.
    bool listens(int ports)
    {
        start(QStringLiteral(VARNELGRAPH_PROGRAM), QStringList());
        QByteArray said;
        while (said.count("Port opened succesfull") < ports) {
            if (!waitForReadyRead(20000))
                return false;
            said += readAll();
        }
        return true;
    }

protected:
    void setupChildProcess() override
    {
        for (const int number : {SIGINT, SIGHUP}) // which a test that runs in the background may ignore
            std::signal(number, SIG_DFL);
        int ends[2] = {-1, -1};
        if (m_log != Log::Read && ::pipe(ends) == 0) {
            ::fcntl(ends[1], F_SETFL, O_NONBLOCK);
            while (m_log == Log::Full && ::write(ends[1], "\n", 1) > 0) { }
            ::fcntl(ends[1], F_SETFL, 0);
            ::dup2(ends[1], STDERR_FILENO);
            ::close(ends[1]);
            if (m_log == Log::ReaderGone)
                ::close(ends[0]);
        }
        if (m_largestFile != 0)
            new FileSizeLimit(m_largestFile); // for good
    }

private:
    rlim_t m_largestFile = 0;
    Log m_log = Log::Read;
};
