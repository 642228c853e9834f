#include "documents/progressstrip.h"

#include "widgets/inputgate.h"

#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

namespace {

constexpr int quietTime = 500; // ms before anything is shown
constexpr int steps = 1000;
constexpr int widest = 220; // px

} // namespace

ProgressStrip::ProgressStrip(QStatusBar *bar)
    : QObject(bar)
    , m_patience(new QTimer(this))
    , m_progress(new QProgressBar(bar))
    , m_cancel(new QPushButton(tr("Cancel"), bar))
{
    m_progress->setRange(0, steps);
    m_progress->setMaximumWidth(widest);
    m_cancel->setObjectName(QStringLiteral("cancelProgress"));
    for (QWidget *widget : {static_cast<QWidget *>(m_cancel), static_cast<QWidget *>(m_progress)}) {
        bar->insertPermanentWidget(0, widget);
        widget->hide();
    }
    m_patience->setSingleShot(true);
    connect(m_patience, SIGNAL(timeout()), this, SLOT(show()));
    connect(m_cancel, SIGNAL(clicked()), this, SIGNAL(cancelled()));
}

ProgressStrip::~ProgressStrip() = default;

void ProgressStrip::begin()
{
    if (m_underWay++ > 0)
        return;
    m_progress->setValue(0);
    m_gate = std::make_unique<InputGate>(m_cancel);
    connect(m_gate.get(), SIGNAL(escaped()), this, SIGNAL(cancelled()));
    m_patience->start(quietTime);
}

void ProgressStrip::end()
{
    if (--m_underWay > 0)
        return;
    m_patience->stop();
    m_progress->hide();
    m_cancel->hide();
    m_gate.reset();
}

void ProgressStrip::setProgress(double part)
{
    m_progress->setValue(int(part * steps));
}

void ProgressStrip::show()
{
    m_progress->show();
    m_cancel->show();
}
