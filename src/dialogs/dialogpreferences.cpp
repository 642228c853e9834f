#include "dialogs/dialogpreferences.h"

#include "dialogs/checkboxcomport.h"
#include "widgets/displayscale.h"
#include "widgets/plaintooltip.h"
#include "link/serialreader.h"
#include "ports/portinfo.h"
#include "settings/language.h"
#include "settings/varnelsettings.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHash>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>

#include <algorithm>

namespace {

constexpr int mostNamedPorts
    = 6; // of those without a usable name: the rest would need more room than there is

constexpr int languageRow = 33; // px, below all that has a place of its own

struct Button {
    const char *text;
    const char *name;
    QRect place;
    const char *slot; ///< null: found by the object's name
    const char *tip;
};

#define TO(slot) SLOT(slot) // under its own name the formatter takes it for the end of a row

const Button buttons[] = {
    {QT_TRANSLATE_NOOP("DialogPreferences", "OK"), "preferencesButtonOk", {20, 250, 120, 23}, TO(accept()),
        QT_TRANSLATE_NOOP(
            "DialogPreferences", "Listens on the ticked ports. Ports that are absent now are forgotten.")},
    {QT_TRANSLATE_NOOP("DialogPreferences", "Cancel"), "preferencesButtonCancel", {150, 250, 120, 23},
        TO(reject()), QT_TRANSLATE_NOOP("DialogPreferences", "Changes nothing.")},
    {QT_TRANSLATE_NOOP("DialogPreferences", "Refresh"), "preferencesButtonRefresh", {280, 250, 120, 23},
        nullptr,
        QT_TRANSLATE_NOOP("DialogPreferences", "Looks for ports that came since the dialog opened.")},
    {QT_TRANSLATE_NOOP("DialogPreferences", "Reset"), "preferencesButtonReset", {280, 280, 120, 23}, nullptr,
        QT_TRANSLATE_NOOP("DialogPreferences",
            "Unticks all ports and the time, and takes the system's language. Nothing is stored before OK.")},
};

#undef TO

/// The name of a port, which does what its box does.
class PortLabel : public QLabel {
protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        auto *box = qobject_cast<QAbstractButton *>(buddy());
        if (event->button() != Qt::LeftButton || box == nullptr)
            return QLabel::mousePressEvent(event);
        box->setFocus(Qt::MouseFocusReason);
        box->click();
    }
};

QHash<QString, QString> portDescriptions(const QVector<PortInfo> &ports)
{
    QHash<QString, QString> descriptions;
    for (const PortInfo &port : ports)
        descriptions.insert(port.name,
            plainToolTip(QStringList({port.description, port.location}).join(QLatin1Char('\n')).trimmed()));
    return descriptions;
}

// One that is plugged in, not part of the machine.
bool isAdapter(const PortInfo &port)
{
    return port.name.contains(QLatin1String("USB")) || port.name.contains(QLatin1String("ACM"));
}

} // namespace

DialogPreferences::DialogPreferences(QWidget *parent)
    : QDialog(parent)
{
    setFixedSize(425, 312 + languageRow);
    setWindowTitle(tr("Varnel - preferences"));
    createPortList();
    sendTimeBox = new QCheckBox(tr("Set varnel3's time while starting"), this);
    sendTimeBox->setObjectName(QStringLiteral("sendTime"));
    sendTimeBox->setGeometry(20, 210, 355, 20);
    sendTimeBox->setToolTip(
        tr("The device gets the computer's clock with its first process and at the end of one."));
    createButtons();
    createLanguageBox();
    fitToLetters();
    QMetaObject::connectSlotsByName(this);

    on_preferencesButtonRefresh_clicked();
    const VarnelSettings settings;
    portsBefore = settings.ports();
    checkPorts(portsBefore);
    sendTimeBox->setChecked(settings.sendTime());
    languageBox->setCurrentIndex(std::max(0, languageBox->findData(settings.language())));
}

QString DialogPreferences::noPortText(const QVector<PortInfo> &present, const QString &linkFolder)
{
    if (present.isEmpty() || linkFolder.isEmpty())
        return tr("No port is present. Plug a device in and press Refresh.");
    QStringList names;
    for (const PortInfo &port : present)
        names.append(port.name);
    if (names.size() > mostNamedPorts)
        names = names.mid(0, mostNamedPorts) << QStringLiteral("...");
    const auto adapter = std::find_if(present.begin(), present.end(), isAdapter);
    const QString location = (adapter == present.end() ? present.first() : *adapter).location;
    const QString commands = QStringLiteral("mkdir -p %1\nln -s %2 %1/COM1").arg(linkFolder, location);
    return tr("Serial ports without a COM name: %1").arg(names.join(QStringLiteral(", ")))
        + QStringLiteral("\n\n")
        + tr("To be listened on a port needs a COM name. Until you log out it has one by:")
        + QLatin1Char('\n') + commands + QStringLiteral("\n\n")
        + tr("Then press Refresh. docs/ports.md tells how ports get their names for good.");
}

void DialogPreferences::createPortList()
{
    area = new QScrollArea(this);
    area->setGeometry(20, 10, 381, 191);
    area->setWidgetResizable(true);
    auto *contents = new QWidget(area);
    rows = new QFormLayout(contents);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    area->setWidget(contents);
}

void DialogPreferences::createButtons()
{
    for (const Button &button : buttons) {
        auto *widget = new QPushButton(tr(button.text), this);
        widget->setObjectName(QLatin1String(button.name));
        widget->setGeometry(button.place);
        widget->setToolTip(tr(button.tip));
        if (button.slot)
            connect(widget, SIGNAL(clicked()), this, button.slot);
    }
    auto *ok = findChild<QPushButton *>(QStringLiteral("preferencesButtonOk"));
    ok->setDefault(true);
    auto *label = new QLabel(tr("Reset all settings to default:"), this);
    label->setGeometry(20, 280, 251, 20);
    label->setBuddy(findChild<QPushButton *>(QStringLiteral("preferencesButtonReset")));
}

void DialogPreferences::createLanguageBox()
{
    const QString tip = tr("Of the texts. Numbers and dates are written as the system has them.");
    auto *label = new QLabel(tr("Language (from next start):"), this);
    label->setGeometry(20, 312, 251, 20);
    label->setToolTip(tip);
    languageBox = new QComboBox(this);
    languageBox->setObjectName(QStringLiteral("language"));
    languageBox->setGeometry(280, 310, 120, 23);
    languageBox->setToolTip(tip);
    languageBox->addItem(tr("System"), QString());
    for (const Language &language : Language::all())
        languageBox->addItem(language.name, language.code);
    label->setBuddy(languageBox);
}

// The places are made for usual letters; with larger ones all of it is larger in proportion.
void DialogPreferences::fitToLetters()
{
    constexpr int beside = 28; // px of a control that are not its text's
    constexpr double line = 22; // px, what is highest in a button
    if (fontScale() <= 1.0)
        return;
    ensurePolished();
    double scale = std::max(1.0, fontMetrics().height() / line);
    const auto children = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *child : children) {
        child->ensurePolished();
        const QString text = child->property("text").toString();
        const int width = child->width() - (qobject_cast<const QLabel *>(child) ? 0 : beside);
        scale = std::max(scale, child->fontMetrics().horizontalAdvance(text) / double(width));
    }
    setFixedSize(size() * scale);
    for (QWidget *child : children)
        child->setGeometry(QRect(child->pos() * scale, child->size() * scale));
}

void DialogPreferences::accept()
{
    VarnelSettings settings;
    QStringList ports = checkedPorts();
    const QStringList storedNow = settings.ports();
    for (const QString &port : storedNow) {
        if (!portsBefore.contains(port) && !ports.contains(port))
            ports.append(port);
    }
    settings.setPorts(ports);
    settings.setSendTime(sendTimeBox->isChecked());
    settings.setLanguage(languageBox->currentData().toString());
    QDialog::accept();
}

void DialogPreferences::on_preferencesButtonRefresh_clicked()
{
    const QStringList keep = checkedPorts();
    boxes.clear();
    while (rows->rowCount() > 0)
        rows->removeRow(0);
    forgetListedPorts();
    const QVector<PortInfo> present = listPorts();
    const QHash<QString, QString> descriptions = portDescriptions(present);
    const QStringList names = SerialReader::availablePorts();
    for (const QString &name : names)
        addRow(name, descriptions.value(name));
    if (names.isEmpty())
        addNote(noPortText(present, portLinkFolder()));
    checkPorts(keep);
}

void DialogPreferences::on_preferencesButtonReset_clicked()
{
    for (CheckBoxComPort *box : qAsConst(boxes))
        box->setChecked(false);
    sendTimeBox->setChecked(false);
    languageBox->setCurrentIndex(0);
}

void DialogPreferences::addRow(const QString &portName, const QString &toolTip)
{
    auto *label = new PortLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(portName);
    auto *box = new CheckBoxComPort(nullptr, portName);
    label->setBuddy(box);
    label->setToolTip(toolTip);
    box->setToolTip(toolTip);
    box->setAccessibleName(portName);
    box->setAccessibleDescription(toolTip);
    rows->addRow(label, box);
    setTabOrder(boxes.isEmpty() ? static_cast<QWidget *>(area) : boxes.last(), box);
    boxes.append(box);
}

void DialogPreferences::addNote(const QString &text)
{
    auto *note = new QLabel;
    note->setTextFormat(Qt::PlainText);
    note->setText(text);
    note->setWordWrap(true);
    note->setTextInteractionFlags(
        Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard); // for the commands in it
    rows->addRow(note);
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
