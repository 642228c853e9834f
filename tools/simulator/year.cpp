#include "simulator/year.h"

#include "simulator/linewriter.h"
#include "simulator/process.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace sim {

namespace {

constexpr int days = 365;
constexpr int secondsPerLine = 10;
constexpr int secondsPerResistances = 60;
constexpr int abortedOf = 15; // one process of so many is stopped by hand
constexpr int pause = 15 * 60; // s between a discharge and the charge after it
constexpr int leftByDischarge = 4; // per cent

/// A pack, how old it is at the beginning, and how often it is used.
struct YearPack {
    const char *description; ///< of the device that it hangs on
    int age; ///< charges
    int every; ///< days
    int hour; ///< when it is taken
};

constexpr YearPack packs[] = {
    {"COM3:varnel3,chemistry=LiPo,cells=6,capacity=5000,balance", 15, 8, 17},
    {"COM4:varnel3,chemistry=LiPo,cells=6,capacity=5000,balance,failing=4", 15, 8, 17},
    {"COM3:varnel3,chemistry=LiFe,cells=4,capacity=3000,balance", 150, 12, 9},
    {"COM4:varnel3,chemistry=LiPo,cells=3,capacity=2200,balance=500", 2, 6, 10},
    {"COM5:varnel2plus,chemistry=NiMh,cells=8,capacity=3300", 60, 16, 18},
    {"COM5:varnel3,chemistry=Pb,cells=6,capacity=7000,current=2300", 30, 28, 8},
};

/// Writes the recordings of one pack.
class YearWriter {
public:
    YearWriter(const QString &folder, const DeviceSettings &settings, quint32 seed)
        : m_folder(folder)
        , m_settings(settings)
        , m_seed(seed)
        , m_random(seed)
    {
    }

    /// From `begin` to the end of the last day; false with the reason in `error`.
    bool write(const YearPack &pack, const QDate &begin, const QDate &last, QString *error)
    {
        QDate day = begin.addDays(m_random.bounded(pack.every));
        for (; day <= last; day = day.addDays(qMax(1, pack.every - 1 + m_random.bounded(3)))) {
            QDateTime start(day, QTime(pack.hour, m_random.bounded(60), m_random.bounded(60)));
            m_settings.task = Task::Discharge;
            m_settings.charge = 96 + m_random.bounded(4);
            if (!writeProcess(&start, error))
                return false;
            m_settings.task = Task::Charge;
            m_settings.charge = leftByDischarge;
            if (!writeProcess(&start, error))
                return false;
            ++m_settings.age;
        }
        return true;
    }
    int files() const { return m_files; }

private:
    /// `start` moves on to that of the process after it.
    bool writeProcess(QDateTime *start, QString *error)
    {
        const int stopped = m_random.bounded(abortedOf) == 0 ? 600 + m_random.bounded(600) : 0;
        m_settings.ambient = 20 + m_random.bounded(6);
        int seconds = 0;
        const QByteArray lines = linesOf(stopped, &seconds);
        QFile file(
            QStringLiteral("%1/%2_%3.acp")
                .arg(m_folder, start->toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss")), m_settings.port));
        const bool written = file.open(QIODevice::WriteOnly) && file.write(lines) == lines.size()
            && file.flush() && file.setFileTime(start->addSecs(seconds), QFileDevice::FileModificationTime);
        if (!written)
            *error = file.fileName() + QLatin1String(": ") + file.errorString();
        *start = start->addSecs(seconds + pause);
        m_files += written;
        return written;
    }

    QByteArray linesOf(int stopped, int *seconds)
    {
        Process process(m_settings, m_seed);
        QByteArray lines;
        while (!process.finished() && (stopped == 0 || *seconds < stopped)) {
            const Reading &reading = process.next();
            *seconds = reading.seconds;
            if (*seconds % secondsPerLine != 1)
                continue;
            lines += inFile(measurementLine(reading));
            if (reading.cellData && *seconds % secondsPerResistances == 1)
                lines += inFile(resistanceLine(reading));
        }
        lines += inFile(measurementLine(process.ending(process.finished() ? process.endLetter() : 'M')));
        return lines;
    }
    static QByteArray inFile(const QByteArray &line) { return line.trimmed() + '\n'; }

    QString m_folder;
    DeviceSettings m_settings;
    quint32 m_seed;
    QRandomGenerator m_random;
    int m_files = 0;
};

} // namespace

int writeYear(const QString &folder, quint32 seed, const QDate &last, QString *error)
{
    QDir().mkpath(folder);
    int files = 0;
    for (const YearPack &pack : packs) {
        const DeviceSettings settings = DeviceSettings::parse(QString::fromLatin1(pack.description), error);
        YearWriter writer(folder, settings, seed += 7919);
        if (!error->isEmpty() || !writer.write(pack, last.addDays(1 - days), last, error))
            return -1;
        files += writer.files();
    }
    return files;
}

} // namespace sim
