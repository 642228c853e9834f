#include "support/fakeshell.h"

namespace {

/// Writes to its place in the shell's list, so that what it kept outlives it.
class FakeLog : public RecordingLog {
public:
    explicit FakeLog(FakeShell *owner)
        : m_shell(owner)
        , m_index(owner->logs.size() - 1)
    {
    }
    ~FakeLog() override { m_shell->logs[m_index] << "end"; }
    void addRecord(const QByteArray &line, const Varnel3Data &record) override
    {
        Varnel3Data again;
        again.parseLine(QLatin1String(line));
        m_shell->logs[m_index] << (again.mode == record.mode ? QString::number(record.time) : "?");
    }
    void addResistanceLine(const QByteArray &line) override { m_shell->logs[m_index] << line.left(1); }

private:
    FakeShell *m_shell;
    int m_index;
};

} // namespace

std::unique_ptr<RecordingLog> FakeShell::createLog(const QString &)
{
    logs.append(Recording());
    return std::make_unique<FakeLog>(this);
}
