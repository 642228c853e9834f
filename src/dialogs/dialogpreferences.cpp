#include "dialogs/dialogpreferences.h"

#include "dialogs/checkboxcomport.h"
#include "dialogs/plaintooltip.h"
#include "link/serialreader.h"
#include "ports/portinfo.h"
#include "settings/varnelsettings.h"

#include <QFormLayout>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

namespace {

struct Button {
    const char *text;
    const char *name;
    QRect place;
    const char *slot; ///< null: found by the object's name
};

#define TO(slot) SLOT(slot) // under its own name the formatter takes it for the end of a row

const Button buttons[] = {
    {QT_TRANSLATE_NOOP("DialogPreferences", "OK"), "preferencesButtonOk", {20, 250, 120, 23}, TO(accept())},
    {QT_TRANSLATE_NOOP("DialogPreferences", "Cancel"), "preferencesButtonCancel", {150, 250, 120, 23},
        TO(reject())},
    {QT_TRANSLATE_NOOP("DialogPreferences", "Refresh"), "preferencesButtonRefresh", {280, 250, 120, 23},
        nullptr},
    {QT_TRANSLATE_NOOP("DialogPreferences", "Reset"), "preferencesButtonReset", {280, 280, 120, 23}, nullptr},
};

#undef TO

QHash<QString, QString> portDescriptions()
{
    QHash<QString, QString> descriptions;
    const QVector<PortInfo> ports = listPorts();
    for (const PortInfo &port : ports)
        descriptions.insert(port.name,
            plainToolTip(QStringList({port.description, port.location}).join(QLatin1Char('\n')).trimmed()));
    return descriptions;
}

} // namespace

DialogPreferences::DialogPreferences(QWidget *parent)
    : QDialog(parent)
{
    setFixedSize(425, 312);
    setWindowTitle(tr("Varnel - preferences"));
    createPortList();
    sendTimeBox = new QCheckBox(tr("Set varnel3's time while starting"), this);
    sendTimeBox->setObjectName(QStringLiteral("sendTime"));
    sendTimeBox->setGeometry(20, 210, 355, 20);
    createButtons();
    QMetaObject::connectSlotsByName(this);

    on_preferencesButtonRefresh_clicked();
    const VarnelSettings settings;
    checkPorts(settings.ports());
    sendTimeBox->setChecked(settings.sendTime());
}

void DialogPreferences::createPortList()
{
    area = new QScrollArea(this);
    area->setGeometry(20, 10, 381, 191);
    area->setWidgetResizable(true);
    area->setAlignment(Qt::AlignCenter);
    auto *contents = new QWidget(area);
    rows = new QFormLayout(contents);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    area->setWidget(contents);

    emptyNote = new QLabel(tr("No port is present. Plug a device in and press Refresh."), this);
    emptyNote->setGeometry(area->geometry().adjusted(10, 10, -10, -10));
    emptyNote->setAlignment(Qt::AlignCenter);
    emptyNote->setWordWrap(true);
}

void DialogPreferences::createButtons()
{
    for (const Button &button : buttons) {
        auto *widget = new QPushButton(tr(button.text), this);
        widget->setObjectName(QLatin1String(button.name));
        widget->setGeometry(button.place);
        if (button.slot)
            connect(widget, SIGNAL(clicked()), this, button.slot);
    }
    auto *ok = findChild<QPushButton *>(QStringLiteral("preferencesButtonOk"));
    ok->setDefault(true);
    ok->setToolTip(tr("Listens on the ticked ports. Ports that are absent now are forgotten."));
    auto *label = new QLabel(tr("Reset all settings to default:"), this);
    label->setGeometry(20, 280, 251, 20);
}

void DialogPreferences::accept()
{
    VarnelSettings settings;
    settings.setPorts(checkedPorts());
    settings.setSendTime(sendTimeBox->isChecked());
    QDialog::accept();
}

void DialogPreferences::on_preferencesButtonRefresh_clicked()
{
    const QStringList keep = checkedPorts();
    boxes.clear();
    while (rows->rowCount() > 0)
        rows->removeRow(0);
    const QHash<QString, QString> descriptions = portDescriptions();
    const QStringList names = SerialReader::availablePorts();
    for (const QString &name : names)
        addRow(name, descriptions.value(name));
    emptyNote->setVisible(names.isEmpty());
    checkPorts(keep);
}

void DialogPreferences::on_preferencesButtonReset_clicked()
{
    for (CheckBoxComPort *box : qAsConst(boxes))
        box->setChecked(false);
    sendTimeBox->setChecked(false);
}

void DialogPreferences::addRow(const QString &portName, const QString &toolTip)
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(portName);
    auto *box = new CheckBoxComPort(nullptr, portName);
    label->setBuddy(box);
    label->setToolTip(toolTip);
    box->setToolTip(toolTip);
    rows->addRow(label, box);
    setTabOrder(boxes.isEmpty() ? static_cast<QWidget *>(area) : boxes.last(), box);
    boxes.append(box);
}

QStringList DialogPreferences::checkedPorts() const
{
    QStringList names;
    for (const CheckBoxComPort *box : boxes) {
        if (box->isChecked())
            names.append(box->portName());
    }
    return names;
}

void DialogPreferences::checkPorts(const QStringList &names)
{
    for (CheckBoxComPort *box : qAsConst(boxes)) {
        if (names.contains(box->portName()))
            box->setChecked(true);
    }
}
