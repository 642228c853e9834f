#include "printing/printjob.h"

#include <QFile>
#include <QPainter>
#include <QPrinter>

namespace {

constexpr qreal pointsPerInch = 72.0;
constexpr qreal captionPoints = 9.0;

QFont captionFont(const QPrinter &printer)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(qRound(captionPoints * printer.resolution() / pointsPerInch));
    return font;
}

/// Draws the line into the top of `page` and returns what is left of it.
QRectF drawCaption(QPainter &painter, const PrintJob &job, const QRectF &page, const QFont &font)
{
    const QString text = job.details.isEmpty() ? job.title : job.title + QStringLiteral(", ") + job.details;
    painter.setFont(font);
    QRectF used;
    painter.drawText(page, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, text, &used);
    QRectF rest(page);
    rest.setTop(used.bottom() + font.pixelSize());
    return rest;
}

void drawPicture(QPainter &painter, const PrintJob &job, int page, const QRectF &area)
{
    const qreal factor = qMin(area.width() / job.size.width(), area.height() / job.size.height());
    painter.translate(area.left() + (area.width() - job.size.width() * factor) / 2, area.top());
    painter.scale(factor, factor);
    painter.setClipRect(QRectF(QPointF(), job.size));
    job.paintPage ? job.paintPage(painter, page) : job.paint(painter);
}

/// A full disk tells nobody: only the end of the file shows that all of it was written.
bool isCompletePdf(const QString &fileName)
{
    QFile file(fileName);
    // A pipe or a device has swallowed it.
    return file.open(QIODevice::ReadOnly)
        && (file.isSequential() || file.readAll().trimmed().endsWith("%%EOF"));
}

} // namespace

bool printPage(const PrintJob &job, QPrinter *printer)
{
    if (job.size.isEmpty())
        return false;
    printer->setDocName(job.title);
    QPainter painter;
    if (!painter.begin(printer))
        return false;
    const QRectF page(QPointF(), printer->pageLayout().paintRectPixels(printer->resolution()).size());
    for (int i = 0; i < job.pages; ++i) {
        if (i > 0 && !printer->newPage())
            return false;
        const QRectF rest = drawCaption(painter, job, page, captionFont(*printer));
        painter.save();
        drawPicture(painter, job, i, rest);
        painter.restore();
    }
    painter.end();
    const bool toFile
        = printer->outputFormat() == QPrinter::PdfFormat && !printer->outputFileName().isEmpty();
    return printer->printerState() != QPrinter::Error
        && (!toFile || isCompletePdf(printer->outputFileName()));
}
