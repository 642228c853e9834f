#include "devices/portquestions.h"

#include "settings/varnelsettings.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

#include <algorithm>

PortQuestions::PortQuestions(QWidget *parentWindow)
    : QObject(parentWindow)
    , window(parentWindow)
{
    window->installEventFilter(this);
}

void PortQuestions::ask(const QString &portName, const QString &description)
{
    const auto samePort = [&portName](const Question &question) { return question.portName == portName; };
    if (std::any_of(waiting.cbegin(), waiting.cend(), samePort))
        return;
    waiting.enqueue({portName, description.isEmpty() ? portName : description});
    showNext();
}

QStringList PortQuestions::ports() const
{
    QStringList names;
    for (const Question &question : waiting)
        names.append(question.portName);
    return names;
}

// Queued: the dialog that has ended is still on its way out.
bool PortQuestions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowUnblocked)
        QMetaObject::invokeMethod(this, "showNext", Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void PortQuestions::withdraw(const QString &portName)
{
    for (int i = waiting.size() - 1; i >= 0; --i) {
        if (waiting[i].portName != portName)
            continue;
        waiting.removeAt(i);
        if (i == 0 && box) {
            box->disconnect(this);
            box->close();
            box->deleteLater();
            box.clear();
        }
    }
    showNext();
}

void PortQuestions::onFinished(int result)
{
    if (!box)
        return;
    box->deleteLater();
    box.clear();
    const Question question = waiting.dequeue();
    emit answered(question.portName, result == QMessageBox::Yes);
    showNext();
}

void PortQuestions::showNext()
{
    if (box || QApplication::activeModalWidget())
        return;
    const QStringList chosen = VarnelSettings().ports();
    while (!waiting.isEmpty() && chosen.contains(waiting.head().portName))
        waiting.dequeue();
    if (waiting.isEmpty())
        return;
    // The text is not translated: it is the system's own.
    const QString text = QStringLiteral("Do you want to add a port %1 to the preferences ?");
    box = new QMessageBox(QMessageBox::Question, tr("Question"), text.arg(waiting.head().description),
        QMessageBox::Yes | QMessageBox::No, window);
    box->setObjectName(QStringLiteral("portQuestion"));
    box->setTextFormat(Qt::PlainText);
    connect(box, SIGNAL(finished(int)), this, SLOT(onFinished(int)));
    box->open();
    box->activateWindow();
}
