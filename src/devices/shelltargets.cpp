#include "devices/shelltargets.h"

#include "desk/graphwindows.h"
#include "devices/listenedports.h"
#include "graph/mdigraphchild.h"
#include "link/serialreader.h"

QVector<SerialReader *> ShellTargets::readers() const
{
    return ports->readers();
}

SerialReader *ShellTargets::activeReader() const
{
    const MdiGraphChild *active = graphs->current();
    for (SerialReader *reader : ports->readers()) {
        if (active && active->reader() == reader)
            return reader;
    }
    return nullptr;
}

QString ShellTargets::activePort() const
{
    return graphs->current() ? graphs->current()->portName() : QString();
}

bool ShellTargets::stopActiveProcess()
{
    MdiGraphChild *active = graphs->current();
    return active && active->stopProcess();
}
