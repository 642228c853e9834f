#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

/// Calls `act` once the modal dialog of this kind has opened; it must not be shown yet. Gives up with
/// `context`. A dialog that fails what `act` demands of it is closed, so that the test goes on.
template <typename Dialog>
void whenModal(QObject *context, const std::function<void(Dialog *)> &act)
{
    auto *timer = new QTimer(context);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        if (auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            timer->stop();
            const QPointer<QDialog> failing(dialog);
            act(dialog);
            if (failing && QTest::currentTestFailed())
                failing->reject();
        }
    });
    timer->start(20);
}

/// Enters `path` as a user does; selecting it would wait for the dialog's own listing of the folder.
inline void enterName(QFileDialog *dialog, const QString &path)
{
    dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(path);
    static_cast<QDialog *>(dialog)->accept();
}
