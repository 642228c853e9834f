#include "startsteps.h"

#include <QApplication>
#include <QMainWindow>

/// The least that a start can take: a main window of the toolkit with nothing in it, painted, by a program
/// that has no other library. The argument is when the process was asked for, ns on the steady clock.
int main(int argc, char **argv)
{
    const StartSteps steps(argc > 1 ? QByteArray(argv[1]).toLongLong() : 0);
    QApplication application(argc, argv);
    QMainWindow window;
    PaintWatch watch;
    window.installEventFilter(&watch);
    window.show();
    QApplication::exec();
    steps.done("empty window painted");
    return 0;
}
