#include "soak/responseprobe.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <chrono>

namespace soak {

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds period(10);

class ProbeEvent : public QEvent {
public:
    ProbeEvent()
        : QEvent(type())
    {
    }

    static Type type()
    {
        static const auto own = Type(registerEventType());
        return own;
    }
    double age() const // ms
    {
        return std::chrono::duration<double, std::milli>(Clock::now() - m_posted).count();
    }

private:
    Clock::time_point m_posted = Clock::now();
};

} // namespace

ResponseProbe::ResponseProbe()
    : m_thread(&ResponseProbe::post, this)
{
}

ResponseProbe::~ResponseProbe()
{
    m_stop = true;
    m_thread.join();
}

void ResponseProbe::post()
{
    while (!m_stop) {
        QCoreApplication::postEvent(this, new ProbeEvent);
        std::this_thread::sleep_for(period);
    }
}

bool ResponseProbe::event(QEvent *event)
{
    if (event->type() != ProbeEvent::type())
        return QObject::event(event);
    const double age = static_cast<ProbeEvent *>(event)->age();
    const auto bin = size_t(std::clamp(int(age * binsInMillisecond), 0, binCount - 1));
    for (Histogram *histogram : {&m_all, &m_newest}) {
        ++histogram->bins[bin];
        histogram->longest = std::max(histogram->longest, age);
    }
    return true;
}

ResponseProbe::Answers ResponseProbe::newest()
{
    const Answers answers = evaluate(m_newest);
    m_newest = {};
    return answers;
}

ResponseProbe::Answers ResponseProbe::evaluate(const Histogram &histogram)
{
    Answers answers;
    for (const qint64 count : histogram.bins)
        answers.count += count;
    answers.longest = histogram.longest;
    qint64 slower = answers.count / 100; // may lie above the percentile
    size_t bin = binCount - 1;
    while (bin > 0 && histogram.bins[bin] <= slower)
        slower -= histogram.bins[bin--];
    answers.percentile99 = double(bin + 1) / binsInMillisecond; // the upper end of its bin
    return answers;
}

} // namespace soak
