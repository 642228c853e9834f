#pragma once

#include "settings/viewswitches.h"

#include <QSize>
#include <QStringList>

/// What the program was asked to do when it was started.
struct CommandLine {
    enum Task {
        Run, ///< show the main window; `files` are opened in it
        ExportCsv, ///< write files[0] to `output` as comma-separated values and leave
        Render, ///< draw files[0] to `output` and leave
        LogbookCsv, ///< write the logbook to `output` as comma-separated values and leave
        Print, ///< write `message` to standard output and leave: help or version
        Refuse ///< write `message` to standard error and leave: the words are off
    };

    Task task = Run;
    QStringList files;
    QString language; ///< code of the texts' language; empty where the command line chooses none
    QString output; ///< a path; "-" is standard output
    QSize size = QSize(1000, 600); ///< of a drawing, pixels
    ViewSwitches switches; ///< of a drawing
    QString message;

    /// Whether the program leaves without showing anything.
    bool isBatch() const { return task != Run; }
};

/// Understands the words of the command line, the program's own name first. Needs an application object.
CommandLine parseCommandLine(const QStringList &arguments);
/// `arguments` without those that a graphical application object takes for itself ("-platform x"). Not
/// needed once there is one.
QStringList withoutToolkitWords(const QStringList &arguments);
