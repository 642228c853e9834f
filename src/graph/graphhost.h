#pragma once

#include <QString>

class MdiGraphChild;
class QObject;
class Varnel3Data;
class ViewState;

/// What a graph window asks of the shell.
class GraphHost {
public:
    virtual ~GraphHost() = default;

    /// What the view switches say; outlives every graph window.
    virtual ViewState *viewState() const = 0;
    /// Whether `child` is the window whose figures the tool bar and the displays show.
    virtual bool isCurrent(const MdiGraphChild *child) const = 0;
    /// Shows `record` of window `windowNumber` in the tool bar and the displays.
    /// Asked by the current window only.
    virtual void showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi) = 0;
    virtual void showMessageStatusBar(const QString &message, int timeout) = 0;
    /// Owner of the slots updateCapacity(int,char,int,int) and updateVoltage().
    virtual QObject *updateReceiver() = 0;
    /// Whether `child`, which is asked to close, may; the user may be asked about records that would be lost.
    virtual bool mayClose(MdiGraphChild *child) = 0;
    /// The window `child` is about to close.
    virtual void graphClosing(MdiGraphChild *child) = 0;
};
