#pragma once

#include "graph/graphhost.h"
#include "settings/viewstate.h"

#include <QObject>

/// As much of a shell as a graph window needs.
class QuietShell : public QObject, public GraphHost {
    Q_OBJECT

public:
    ViewState *viewState() const override { return m_state; }
    bool isCurrent(const MdiGraphChild *) const override { return false; }
    void showRecord(const Varnel3Data &, int, bool) override { }
    void showMessageStatusBar(const QString &, int) override { }
    QObject *updateReceiver() override { return this; }
    bool mayClose(MdiGraphChild *) override { return true; }
    void graphClosing(MdiGraphChild *) override { }

public slots:
    void updateCapacity(int, char, int, int) { }
    void updateVoltage() { }

private:
    ViewState *m_state = new ViewState(this);
};
