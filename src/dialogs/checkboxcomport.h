#pragma once

#include <QCheckBox>

/// The box of one serial port; it shows no text, the port's name is the label of its row.
class CheckBoxComPort : public QCheckBox {
    Q_OBJECT

public:
    CheckBoxComPort(QWidget *parent, const QString &portName)
        : QCheckBox(parent)
        , m_portName(portName)
    {
    }

    QString portName() const { return m_portName; }

private:
    QString m_portName;
};
