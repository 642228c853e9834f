#include "machine/soundserver.h"

#include <QAudioDeviceInfo>

bool hasSoundOutput()
{
    return !QAudioDeviceInfo::availableDevices(QAudio::AudioOutput).isEmpty();
}
