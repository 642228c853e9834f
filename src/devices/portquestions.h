#pragma once

#include <QObject>
#include <QPointer>
#include <QQueue>

class QMessageBox;
class QWidget;

/// Asks, one port after the other and without stopping anything, whether a new port is to be remembered.
/// Where a dialog is up the question waits for its end, as the keys are the dialog's, and a port that the
/// dialog has put into the preferences is not asked about.
class PortQuestions : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of the boxes.
    explicit PortQuestions(QWidget *window);

    /// Queues the question for `portName`; a port that is asked about already is not asked about twice.
    void ask(const QString &portName, const QString &description);
    /// The port has gone: its question with it, whether shown or still waiting.
    void withdraw(const QString &portName);
    /// Names of the ports that are asked about or wait to be.
    QStringList ports() const;

signals:
    void answered(const QString &portName, bool remember);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void onFinished(int result);
    void showNext();

private:
    struct Question {
        QString portName;
        QString description;
    };

    QWidget *m_window;
    QQueue<Question> m_waiting; // the first one is shown in `m_box`
    QPointer<QMessageBox> m_box;
};
