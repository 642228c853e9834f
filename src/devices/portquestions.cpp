#include "devices/portquestions.h"

#include "settings/varnelsettings.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

#include <algorithm>

PortQuestions::PortQuestions(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    m_window->installEventFilter(this);
}

void PortQuestions::ask(const QString &portName, const QString &description)
{
    const auto samePort = [&portName](const Question &question) { return question.portName == portName; };
    if (std::any_of(m_waiting.cbegin(), m_waiting.cend(), samePort))
        return;
    m_waiting.enqueue({portName, description.isEmpty() ? portName : description});
    showNext();
}

QStringList PortQuestions::ports() const
{
    QStringList names;
    for (const Question &question : m_waiting)
        names.append(question.portName);
    return names;
}

// Of a question that has been answered or withdrawn, too. Queued: the dialog is still on its way out.
bool PortQuestions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowUnblocked)
        QMetaObject::invokeMethod(this, "showNext", Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void PortQuestions::withdraw(const QString &portName)
{
    for (int i = m_waiting.size() - 1; i >= 0; --i) {
        if (m_waiting[i].portName != portName)
            continue;
        m_waiting.removeAt(i);
        if (i == 0 && m_box) {
            m_box->disconnect(this);
            m_box->close();
            m_box->deleteLater();
            m_box.clear();
        }
    }
}

void PortQuestions::onFinished(int result)
{
    if (!m_box)
        return;
    m_box->deleteLater();
    m_box.clear();
    const Question question = m_waiting.dequeue();
    emit answered(question.portName, result == QMessageBox::Yes);
}

void PortQuestions::showNext()
{
    if (m_box || QApplication::activeModalWidget())
        return;
    const QStringList chosen = VarnelSettings().ports();
    while (!m_waiting.isEmpty() && chosen.contains(m_waiting.head().portName))
        m_waiting.dequeue();
    if (m_waiting.isEmpty())
        return;
    // The text is not translated: it is the system's own.
    const QString text = QStringLiteral("Do you want to add a port %1 to the preferences ?");
    m_box = new QMessageBox(QMessageBox::Question, tr("Question"), text.arg(m_waiting.head().description),
        QMessageBox::Yes | QMessageBox::No, m_window);
    m_box->setObjectName(QStringLiteral("portQuestion"));
    m_box->setTextFormat(Qt::PlainText);
    connect(m_box, SIGNAL(finished(int)), this, SLOT(onFinished(int)));
    m_box->open();
    m_box->activateWindow();
}
