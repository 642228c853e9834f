#pragma once

#include <QObject>

#include <array>
#include <atomic>
#include <thread>

namespace soak {

/// How long posted events wait until the event loop answers them: a second thread posts one every few
/// milliseconds to this object, in whose thread the answers are counted. Takes no memory with time.
class ResponseProbe : public QObject {
    Q_OBJECT

public:
    ResponseProbe();
    ~ResponseProbe() override;

    struct Answers {
        qint64 count = 0;
        double percentile99 = 0; ///< ms
        double longest = 0; ///< ms
    };
    /// Of all time, and of the time since the last call of newest().
    Answers all() const { return evaluate(m_all); }
    Answers newest();

protected:
    bool event(QEvent *event) override;

private:
    static constexpr int binsInMillisecond = 10;
    static constexpr int binCount = 2000 * binsInMillisecond; // the last holds whatever takes longer

    struct Histogram {
        std::array<qint64, binCount> bins = {};
        double longest = 0; // ms
    };
    static Answers evaluate(const Histogram &histogram);
    void post();

    Histogram m_all;
    Histogram m_newest;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

} // namespace soak
