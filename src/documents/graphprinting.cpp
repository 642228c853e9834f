#include "documents/graphprinting.h"

#include "printing/printstamp.h"
#include "graph/plot/graphpainter.h"
#include "graph/mdigraphchild.h"
#include "printing/printjob.h"
#include "printing/printrequest.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

constexpr int smallestWidth = 640; // px; a smaller window would make a page of large letters and short curves
constexpr int smallestHeight = 400;

QString windowText(const MdiGraphChild *child)
{
    const QString device
        = child->store().isEmpty() ? QString() : Varnel3Data::deviceName(child->store().device());
    return printedName(child->windowNumber(), device, child->sourceName());
}

} // namespace

PrintJob graphPrintJob(MdiGraphChild *child, const QString &name)
{
    const QSize size = child->size().expandedTo(QSize(smallestWidth, smallestHeight));
    const QPointer<MdiGraphChild> guard(child);
    PrintJob job;
    job.title = QCoreApplication::translate("GraphPrinting", "Varnel - graph");
    job.details = printDetails({windowText(child)});
    job.fileName = name;
    job.size = size;
    // A long recording is too large to be copied for the time that a dialog is open.
    job.paint = [guard, size](QPainter &painter) {
        if (!guard)
            return;
        GraphRequest request = guard->request(size);
        request.switches.blackBackground = false;
        GraphPainter().paint(&painter, request);
    };
    return job;
}

void printGraph(MdiGraphChild *child, const QString &name, QWidget *window)
{
    printWithDialog(graphPrintJob(child, name), window);
}
