#include "machine/sleepinhibitor.h"

#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"

#include <QTimer>

#include <utility>

namespace {

constexpr int updateMs = 5000;

} // namespace

SleepInhibitor::SleepInhibitor(std::function<bool()> isRecording, QObject *parent)
    : QObject(parent)
    , m_isRecording(std::move(isRecording))
{
    auto *timer = new QTimer(this);
    connect(timer, SIGNAL(timeout()), this, SLOT(update()));
    timer->start(updateMs);
}

void SleepInhibitor::update()
{
    if (m_isRecording() && VarnelSettings().value(SettingsKey::keepAwake, true).toBool())
        m_block.acquire(tr("A process is being recorded"));
    else
        m_block.release();
}
