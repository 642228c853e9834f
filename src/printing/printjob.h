#pragma once

#include <QSizeF>
#include <QString>

#include <functional>

class QPainter;
class QPrinter;

/// One picture to be printed on one page, or one on each of several.
struct PrintJob {
    QString title; ///< what it is, for the line above the picture and the name of the document
    QString details; ///< of which device and when, for the same line
    QSizeF size; ///< of the picture in the units that `paint` draws in
    /// Draws the picture for white paper into (0, 0, size). May be called after the caller has gone: it
    /// refers to nothing but what it holds itself.
    std::function<void(QPainter &)> paint;
    QString fileName = {}; ///< presented, without its ending, where the page becomes a file; empty: the title
    int pages = 1;
    /// Where it is set, in place of `paint`: the same for a page, counted from 0.
    std::function<void(QPainter &, int page)> paintPage = {};
};

/// Draws `job`, each picture as large as the page allows with its proportions kept, under its line.
/// False when the printer or its file takes no output.
bool printPage(const PrintJob &job, QPrinter *printer);
