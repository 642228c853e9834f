#pragma once

#include <QObject>
#include <QPointer>
#include <QQueue>

class QMessageBox;
class QWidget;

/// Asks, one port after the other and without stopping anything, whether a new port is to be remembered.
class PortQuestions : public QObject {
    Q_OBJECT

public:
    /// `window` is the parent of the boxes.
    explicit PortQuestions(QWidget *window);

    /// Queues the question for `portName`; a port that is asked about already is not asked about twice.
    void ask(const QString &portName, const QString &description);
    /// The port has gone: its question with it, whether shown or still waiting.
    void withdraw(const QString &portName);
    bool isOpen() const { return !box.isNull(); }

signals:
    void answered(const QString &portName, bool remember);

private slots:
    void onFinished(int result);

private:
    struct Question {
        QString portName;
        QString description;
    };

    void showNext();

    QWidget *window;
    QQueue<Question> waiting; ///< the first one is shown in `box`
    QPointer<QMessageBox> box;
};
