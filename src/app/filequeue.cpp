#include "app/filequeue.h"

#include "app/inputgate.h"
#include "files/datafileloader.h"

#include <QDir>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

namespace {

constexpr int sliceTime = 20; // ms; the event loop runs between slices
constexpr int quietTime = 500; // ms before progress is shown
constexpr int progressSteps = 1000;

} // namespace

FileQueue::FileQueue(QStatusBar *bar, QObject *parent)
    : QObject(parent)
    , m_slices(new QTimer(this))
    , m_patience(new QTimer(this))
    , m_progress(new QProgressBar(bar))
    , m_cancel(new QPushButton(tr("Cancel"), bar))
{
    m_progress->setRange(0, progressSteps);
    m_progress->setMaximumWidth(220);
    m_cancel->setObjectName(QStringLiteral("cancelLoading"));
    for (QWidget *widget : {static_cast<QWidget *>(m_cancel), static_cast<QWidget *>(m_progress)}) {
        bar->insertPermanentWidget(0, widget);
        widget->hide();
    }
    m_patience->setSingleShot(true);
    connect(m_slices, SIGNAL(timeout()), this, SLOT(readOn()));
    connect(m_patience, SIGNAL(timeout()), this, SLOT(showProgress()));
    connect(m_cancel, SIGNAL(clicked()), this, SLOT(cancel()));
}

FileQueue::~FileQueue() = default;

void FileQueue::add(const QStringList &files)
{
    if (files.isEmpty())
        return;
    m_waiting.append(files);
    m_total += files.size();
    if (m_slices->isActive())
        return;
    m_gate = std::make_unique<InputGate>(m_cancel);
    connect(m_gate.get(), SIGNAL(escaped()), this, SLOT(cancel()));
    m_patience->start(quietTime);
    m_slices->start(0);
}

void FileQueue::cancel()
{
    if (!m_slices->isActive())
        return;
    m_loader.reset();
    m_waiting.clear();
    emit message(tr("Opening was cancelled."), 5000);
    finish();
}

void FileQueue::readOn()
{
    if (!m_loader) {
        if (m_waiting.isEmpty()) {
            finish();
            return;
        }
        m_loader = std::make_unique<DataFileLoader>(m_waiting.dequeue());
    }
    if (!m_loader->readSome(sliceTime))
        takeResult();
    else
        m_progress->setValue(int(m_loader->progress() * progressSteps));
}

void FileQueue::takeResult()
{
    const std::unique_ptr<DataFileLoader> loader = std::move(m_loader);
    const QString name = loader->fileName();
    const bool good = loader->status() == DataFileLoader::Status::Loaded;
    if (!good)
        m_failures.append(QDir::toNativeSeparators(name) + QStringLiteral(": ") + loader->reason());
    // Told first: a window that takes the records may have more to say.
    emit message(loader->statusText(), loader->statusTimeout());
    if (!good)
        return;
    RecordList records = loader->takeRecords();
    emit loaded(name, &records);
}

void FileQueue::showProgress()
{
    m_progress->show();
    m_cancel->show();
}

void FileQueue::finish()
{
    m_slices->stop();
    m_patience->stop();
    m_progress->hide();
    m_cancel->hide();
    m_gate.reset();
    const QStringList failures = m_failures;
    const int total = m_total;
    m_failures.clear();
    m_total = 0;
    emit finished(failures, total);
}
