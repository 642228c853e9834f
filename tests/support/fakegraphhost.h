#pragma once

#include "data/varnel3data.h"
#include "graph/graphhost.h"
#include "settings/viewstate.h"

#include <QObject>
#include <QStringList>
#include <QVector>

/// A shell of which a test sees everything that a graph window asks.
class FakeGraphHost : public QObject, public GraphHost {
    Q_OBJECT

public:
    struct Shown {
        Varnel3Data record;
        int number;
        bool useKeptRi;
    };

    ViewState *viewState() const override { return state; }
    bool isCurrent(const MdiGraphChild *child) const override { return current == child; }
    void showRecord(const Varnel3Data &record, int windowNumber, bool useKeptRi) override;
    void showMessageStatusBar(const QString &message, int timeout) override;
    QObject *updateReceiver() override { return this; }
    bool mayClose(MdiGraphChild *) override { return mayCloseAny; }
    void graphClosing(MdiGraphChild *child) override;

    ViewState *state = new ViewState(this);
    const MdiGraphChild *current = nullptr;
    QVector<Shown> shown;
    QStringList messages;
    QStringList capacities; ///< the arguments of updateCapacity()
    QByteArray calls; ///< of updateCapacity(), showRecord() and updateVoltage(), by their letters c, r, v
    bool mayCloseAny = true;
    QVector<MdiGraphChild *> closed;

public slots:
    void updateCapacity(int energyNow, char mode, int energyAtMark, int number);
    void updateVoltage() { calls += 'v'; }
};
