#include "devices/sleepinhibitor.h"

#include "devices/devicetargets.h"
#include "link/serialreader.h"
#include "settings/settingskeys.h"
#include "settings/varnelsettings.h"

#include <QTimer>

#include <algorithm>

namespace {

constexpr int updateMs = 5000;

} // namespace

SleepInhibitor::SleepInhibitor(DeviceTargets *deviceTargets, QObject *parent)
    : QObject(parent)
    , targets(deviceTargets)
{
    auto *timer = new QTimer(this);
    connect(timer, SIGNAL(timeout()), this, SLOT(update()));
    timer->start(updateMs);
}

void SleepInhibitor::update()
{
    if (isWanted())
        block.acquire(tr("A process is being recorded"));
    else
        block.release();
}

bool SleepInhibitor::isWanted() const
{
    const QVector<SerialReader *> readers = targets->readers();
    return std::any_of(readers.begin(), readers.end(), [](SerialReader *reader) {
        return reader->isRecording();
    }) && VarnelSettings().value(SettingsKey::keepAwake, true).toBool();
}
