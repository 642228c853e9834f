#pragma once

#include "logbook/logbookeditor.h"
#include "logbook/logbookreader.h"
#include "logbook/window/logbookwindow.h"
#include "logbook/window/table/recordingcolumns.h"
#include "logbook/window/table/recordingview.h"
#include "resources/resources.h"
#include "sample.h"
#include "settings/varnelsettings.h"
#include "settings/viewstate.h"
#include "support/shellfixture.h"

#include <QAction>
#include <QLineEdit>
#include <QTreeView>
#include <QtTest>

using Varnel = Varnel3Data;
using Columns = RecordingColumns;

/// The logbook's window on a logbook of four discharges. Base of a test class.
class WindowRig {
protected:
    void setUp()
    {
        initResources();
        QLocale::setDefault(QLocale::c());
        fixture = std::make_unique<ShellFixture>();
        logbook = std::make_unique<Logbook>();
        editor = std::make_unique<LogbookEditor>(logbook.get());
        reader = std::make_unique<LogbookReader>(logbook.get(), fixture->path("own"));
        for (int day = 0; day < 4; ++day)
            ids.append(add(logbook.get(), sampleRecording(10 * day, Varnel::Discharge, 4800 - 100 * day)));
    }
    void tearDown()
    {
        window.reset();
        reader.reset();
        editor.reset();
        logbook.reset();
        ids.clear();
    }
    void open(int binTime = LogbookCommands::Parts().binTime)
    {
        window = std::make_unique<LogbookWindow>(
            LogbookCommands::Parts{logbook.get(), editor.get(), reader.get(), binTime}, &state,
            fixture->path("own"));
        window->readState(VarnelSettings());
        window->resize(1300, 900);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }
    RecordingView *view() const { return window->findChild<RecordingView *>(); }
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
    std::unique_ptr<Logbook> logbook;
    std::unique_ptr<LogbookEditor> editor;
    std::unique_ptr<LogbookReader> reader;
    std::unique_ptr<LogbookWindow> window;
    ViewState state;
    QVector<qint64> ids; // a discharge every ten days
};
