#pragma once

#include "settings/viewswitches.h"

#include <QObject>

/// The view switches that drawing and displays follow. Actions set it; it knows no action.
class ViewState : public QObject {
    Q_OBJECT

public:
    explicit ViewState(QObject *parent = nullptr);

    const ViewSwitches &switches() const { return m_switches; }
    /// Takes over `switches`; emits changed() when any of them differs.
    void setSwitches(const ViewSwitches &switches);

signals:
    void changed();

private:
    ViewSwitches m_switches;
};
