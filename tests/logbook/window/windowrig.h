#pragma once

#include "logbook/logbookreader.h"
#include "logbook/window/course/coursecanvas.h"
#include "logbook/window/dialogs/packchoice.h"
#include "logbook/window/dialogs/packdialog.h"
#include "logbook/window/logbookwindow.h"
#include "logbook/window/table/recordingcolumns.h"
#include "logbook/window/table/recordingview.h"
#include "resources/resources.h"
#include "sample.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "support/files.h"
#include "support/modaldialog.h"
#include "support/shellfixture.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QTreeView>
#include <QtTest>

using Columns = RecordingColumns;

/// The logbook's window on a logbook of four discharges. Base of a test class.
class WindowRig : protected BookRig {
protected:
    void setUp()
    {
        initResources();
        window.reset();
        reader.reset();
        ids.clear();
        fixture = std::make_unique<ShellFixture>();
        renew();
        reader = std::make_unique<LogbookReader>(logbook.get(), fixture->path("own"));
        for (int day = 0; day < 4; ++day)
            ids.append(add(sampleRecording(10 * day, Varnel::Discharge, 4800 - 100 * day)));
    }
    void open(int binTime = LogbookCommands::Parts().binTime, int width = 1300)
    {
        window = std::make_unique<LogbookWindow>(
            LogbookCommands::Parts{logbook.get(), editor.get(), reader.get(), binTime}, &state,
            fixture->path("own"));
        window->readState(VarnelSettings());
        window->resize(width, 900);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    RecordingView *view() const { return window->findChild<RecordingView *>(); }
    QTimer *later() const { return window->findChild<QTimer *>({}, Qt::FindDirectChildrenOnly); }
    QTreeView *packs() const { return window->findChild<QTreeView *>("packs"); }
    void choosePack(int row) const { packs()->setCurrentIndex(packs()->model()->index(row, 0)); }
    void type(const QString &text) const { window->findChild<QLineEdit *>("filterText")->setText(text); }
    QAction *action(const QString &text) const
    {
        const auto actions = window->findChildren<QAction *>();
        const auto found = std::find_if(actions.begin(), actions.end(),
            [&](const QAction *one) { return one->text() == text || one->text().startsWith(text + ": "); });
        return found == actions.end() ? nullptr : *found;
    }
    void trigger(const QString &text) const
    {
        QAction *found = action(text);
        QVERIFY2(found != nullptr && found->isEnabled(), qPrintable(text));
        if (found != nullptr)
            found->trigger();
    }

    std::unique_ptr<ShellFixture> fixture;
    std::unique_ptr<LogbookReader> reader;
    std::unique_ptr<LogbookWindow> window;
    ViewState state;
    QVector<qint64> ids; // a discharge every ten days
};
