#pragma once

#include "graph/mdigraphchild.h"
#include "journal/journalfolder.h"
#include "support/files.h"
#include "support/lines.h"
#include "support/modaldialog.h"
#include "support/shellrig.h"

#include <QAbstractButton>

#include <algorithm>

/// What a user does to a modal dialog.
using Answer = std::function<void(QDialog *)>;
using Answers = QList<Answer>;

/// The program's window, recordings and data files, and a user who answers. Base of a test class.
class DocumentRig : public ShellRig {
protected:
    /// Gives `answers` to the modal dialogs that open from now on, one each; `unanswered` counts those left.
    void answer(const Answers &answers, const QPointer<QDialog> &answered = {})
    {
        unanswered = answers.size();
        if (answers.isEmpty())
            return;
        auto *timer = new QTimer(window.get()); // each has its own: none fires below its own slot
        QObject::connect(timer, &QTimer::timeout, timer, [=] {
            const QPointer<QDialog> dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!dialog || dialog == answered)
                return;
            timer->stop();
            timer->deleteLater();
            answer(answers.mid(1), dialog);
            answers.first()(dialog);
            if (dialog && QTest::currentTestFailed())
                dialog->reject();
        });
        timer->start(10);
    }
    /// Triggers `id` and gives `answers` to what opens.
    void perform(ActionId id, const Answers &answers)
    {
        answer(answers);
        trigger(id);
    }
    static Answer press(QMessageBox::StandardButton button)
    {
        return [button](QDialog *dialog) {
            auto *box = qobject_cast<QMessageBox *>(dialog);
            QVERIFY(box && box->button(button));
            box->button(button)->click();
        };
    }
    /// Enters a name into a file dialog.
    static Answer enter(const QString &name)
    {
        return [name](QDialog *dialog) { enterName(qobject_cast<QFileDialog *>(dialog), name); };
    }
    static Answer reject()
    {
        return [](QDialog *dialog) { dialog->reject(); };
    }

    /// A data file with the records 0 to `count` - 1 of a charger.
    QString dataFile(const QString &name, int count) const
    {
        QByteArray lines;
        for (int i = 0; i < count; ++i)
            lines += Lines::charger(i);
        return writeFile(fixture->path(name), lines) ? fixture->path(name) : QString();
    }
    /// A device sends `count` lines with the times from `from` on; waits until a window has them.
    void send(int from, int count, size_t device = 0)
    {
        for (int i = 0; i < count; ++i) {
            plugged[device]->send(Lines::charger(from + i));
            QCoreApplication::processEvents(); // the line holds no more than a few
        }
        const auto arrived = [&] {
            const auto children = window->mdiChildren();
            return std::any_of(children.begin(), children.end(), [&](const MdiGraphChild *child) {
                return child->portName() == plugged[device]->portName()
                    && child->store().records().last().time == from + count - 1;
            });
        };
        QTRY_VERIFY_WITH_TIMEOUT(arrived(), 30000);
    }
    static void closeWindow(MdiGraphChild *child) { child->parentWidget()->close(); }
    static QStringList journals() { return JournalFolder(JournalFolder::defaultPath()).files(); }

    int unanswered = 0;
};
