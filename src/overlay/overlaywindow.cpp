#include "overlay/overlaywindow.h"

#include "overlay/overlayplot.h"
#include "overlay/scene/overlayscene.h"
#include "printing/printrequest.h"
#include "printing/printstamp.h"
#include "settings/viewstate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

constexpr int mostShift = 999999; // s
constexpr QSize smallestPage(900, 560); // px; a smaller window would make a page of large letters

QLabel *labelFor(QWidget *control, const QString &text)
{
    auto *label = new QLabel(text, control->parentWidget());
    label->setBuddy(control);
    return label;
}

void describe(QWidget *control, const char *objectName, const QString &name, const QString &tip)
{
    control->setObjectName(QLatin1String(objectName));
    control->setAccessibleName(name);
    control->setToolTip(tip);
}

} // namespace

OverlayWindow::OverlayWindow(const ViewState *state, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_plot(new OverlayPlot(state, this))
    , m_value(new QComboBox(this))
    , m_axis(new QComboBox(this))
    , m_linedUp(new QCheckBox(tr("&Line up at the start of current"), this))
    , m_shift(new QSpinBox(this))
    , m_statusBar(new QStatusBar(this))
{
    setWindowIcon(QIcon(QStringLiteral(":/Icons/wyk.png")));
    setWindowTitle(tr("Varnel - overlay"));
    new QVBoxLayout(this);
    createChoices();
    layout()->addWidget(m_plot);
    createCommands();
    static_cast<QVBoxLayout *>(layout())->setStretchFactor(m_plot, 1);
    layout()->addWidget(m_statusBar);
    setTabOrder(m_shift, m_plot);
    connect(m_plot, SIGNAL(pickedChanged()), this, SLOT(showPicked()));
    showPicked();
    m_plot->setFocus();
}

void OverlayWindow::createChoices()
{
    for (int value = 0; value < int(OverlayValue::Count); ++value)
        m_value->addItem(OverlayScene::valueName(OverlayValue(value)));
    for (OverlayAxis axis : {OverlayAxis::Time, OverlayAxis::Charge})
        m_axis->addItem(OverlayScene::axisName(axis));
    for (QComboBox *box : {m_value, m_axis}) // some styles have too little room for larger letters
        box->setMinimumWidth(box->sizeHint().width() + fontMetrics().averageCharWidth());
    m_shift->setRange(-mostShift, mostShift);
    m_shift->setSuffix(tr(" s"));
    describe(m_value, "overlayValue", tr("Value"), tr("What the recordings are compared by"));
    describe(m_axis, "overlayAxis", tr("Over"), tr("Time since the start, or the charge that has flowed"));
    describe(m_linedUp, "overlayLinedUp", m_linedUp->text().remove(QLatin1Char('&')),
        tr("Each recording begins where its current does, not where it was begun"));
    describe(m_shift, "overlayShift", tr("Shift"),
        tr("Moves the recording that is picked in the legend. With the mouse: Control and drag its curve."));
    auto *choices = new QHBoxLayout;
    choices->addWidget(labelFor(m_value, tr("&Value:")));
    choices->addWidget(m_value);
    choices->addWidget(labelFor(m_axis, tr("&Over:")));
    choices->addWidget(m_axis);
    choices->addWidget(m_linedUp);
    choices->addStretch();
    choices->addWidget(labelFor(m_shift, tr("&Shift:")));
    choices->addWidget(m_shift);
    static_cast<QVBoxLayout *>(layout())->addLayout(choices);
    connect(m_value, SIGNAL(currentIndexChanged(int)), this, SLOT(chooseValue(int)));
    connect(m_axis, SIGNAL(currentIndexChanged(int)), this, SLOT(chooseAxis(int)));
    connect(m_shift, SIGNAL(valueChanged(int)), this, SLOT(chooseShift(int)));
    connect(m_linedUp, SIGNAL(toggled(bool)), this, SLOT(chooseLinedUp(bool)));
}

QPushButton *OverlayWindow::createButton(const QString &text, const QString &tip, const char *name)
{
    auto *button = new QPushButton(text, this);
    button->setAutoDefault(false);
    describe(button, name, QString(text).remove(QLatin1Char('&')), tip);
    return button;
}

void OverlayWindow::createCommands()
{
    QPushButton *files = createButton(
        tr("Add &files..."), tr("Reads recordings and lays them over those that are shown"), "overlayFiles");
    QPushButton *windows = createButton(
        tr("Open &windows"), tr("Shows the open graph windows as they are now"), "overlayWindows");
    m_remove = createButton(tr("&Remove"),
        tr("Takes the picked recording away, or all of them if none is picked. Key: Delete"),
        "overlayRemove");
    m_picture = createButton(
        tr("Save &picture..."), tr("Writes what is shown to a picture file"), "overlayPicture");
    m_print = createButton(tr("Pr&int..."), tr("Prints what is shown"), "overlayPrint");
    auto *commands = new QHBoxLayout;
    for (QPushButton *button : {files, windows, m_remove})
        commands->addWidget(button);
    commands->addStretch();
    for (QPushButton *button : {m_picture, m_print})
        commands->addWidget(button);
    static_cast<QVBoxLayout *>(layout())->addLayout(commands);
    connect(files, SIGNAL(clicked()), this, SIGNAL(filesWanted()));
    connect(windows, SIGNAL(clicked()), this, SIGNAL(windowsWanted()));
    connect(m_remove, SIGNAL(clicked()), this, SLOT(remove()));
    connect(m_picture, SIGNAL(clicked()), this, SIGNAL(pictureWanted()));
    connect(m_print, SIGNAL(clicked()), this, SLOT(print()));
}

void OverlayWindow::chooseValue(int index)
{
    m_plot->setValue(OverlayValue(index));
}

void OverlayWindow::chooseAxis(int index)
{
    m_plot->setAxis(OverlayAxis(index));
}

void OverlayWindow::chooseLinedUp(bool linedUp)
{
    m_plot->setLinedUp(linedUp);
}

void OverlayWindow::chooseShift(int seconds)
{
    m_plot->setShift(seconds);
}

void OverlayWindow::remove()
{
    m_plot->remove();
}

// What can be done depends on what is there and picked.
void OverlayWindow::showPicked()
{
    const OverlayRequest &shown = m_plot->shown();
    const bool canShift = shown.picked >= 0 && shown.axis == OverlayAxis::Time;
    m_shift->setEnabled(canShift);
    m_shift->blockSignals(true);
    m_shift->setValue(canShift ? int(shown.entries[shown.picked].shift) : 0);
    m_shift->blockSignals(false);
    for (QPushButton *button : {m_remove, m_picture, m_print})
        button->setEnabled(!shown.entries.isEmpty());
}

void OverlayWindow::paint(QPainter *painter, const OverlayRequest &request)
{
    OverlayPainter().paint(painter, request);
}

void OverlayWindow::print()
{
    PrintJob job;
    job.title = windowTitle();
    job.details = printDetails({}); // the legend names the recordings
    const QSize size = m_plot->size().expandedTo(smallestPage);
    job.size = size;
    job.paint = [picture = m_plot->picture(size, false)](QPainter &painter) { paint(&painter, picture); };
    printWithDialog(job, this);
}

void OverlayWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void OverlayWindow::closeEvent(QCloseEvent *event)
{
    emit closed();
    QWidget::closeEvent(event);
}
