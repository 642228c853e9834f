#pragma once

#include <QString>

class QWidget;

/// The manual that is installed beside the program, or that lies in the tree it was built from.
namespace UserGuide {

/// The page for a program that lies in `programFolder`; empty where there is none.
QString pageFor(const QString &programFolder);
/// Opens it in the user's browser; what can't be opened is told above `parent`.
void open(QWidget *parent);

} // namespace UserGuide
