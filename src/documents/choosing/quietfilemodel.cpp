#include "documents/choosing/quietfilemodel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QThread>
#include <QTimer>

namespace {

class Dropper : public QObject {
public:
    bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::MetaCall; }
};

// The last child of its dialog, so that nothing there uses the model any more when this goes.
class Keeper : public QObject {
public:
    Keeper(QFileSystemModel *model, QFileDialog *dialog);
    ~Keeper() override;

private:
    QFileSystemModel *m_model; // these live in the thread
    Dropper *m_dropper = new Dropper;
    QThread *m_thread = new QThread; // goes once it has ended
};

// What the gathering thread posts goes to the thread that the model lives in. Dropping it takes time, too,
// and who deletes the model waits for the gathering thread, which may wait for a disk.
Keeper::Keeper(QFileSystemModel *model, QFileDialog *dialog)
    : QObject(dialog)
    , m_model(model)
{
    m_model->setOption(QFileSystemModel::DontWatchForChanges); // watchers live here
    m_model->setParent(nullptr);
    m_model->installEventFilter(m_dropper);
    m_model->moveToThread(m_thread);
    m_dropper->moveToThread(m_thread);
    QObject::connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
    m_thread->start();
}

// The model has a timer of 0 ms in this thread, which has run out by then.
Keeper::~Keeper()
{
    const auto end = [model = m_model, dropper = m_dropper, thread = m_thread] {
        delete model;
        delete dropper;
        thread->quit();
    };
    QTimer::singleShot(1, qApp,
        [dropper = m_dropper, end] { QMetaObject::invokeMethod(dropper, end, Qt::QueuedConnection); });
}

} // namespace

void keepFileModelQuiet(QFileDialog *dialog)
{
    if (auto *model = dialog->findChild<QFileSystemModel *>())
        new Keeper(model, dialog);
}
