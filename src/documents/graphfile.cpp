#include "documents/graphfile.h"

#include "files/filepieces.h"
#include "graph/plot/graphpainter.h"
#include "graph/scene/graphrequest.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace {

constexpr int pixelsPerInch = 96; // of a picture
constexpr double pointsPerInch = 72.0;

struct Ending {
    const char *text;
    GraphFormat format;
};

const Ending endings[] = {{".png", GraphFormat::Png}, {".svg", GraphFormat::Svg}, {".pdf", GraphFormat::Pdf}};

bool paintOn(QPaintDevice *target, const Picture &picture, double scale)
{
    QPainter painter;
    if (!painter.begin(target))
        return false;
    painter.scale(scale, scale);
    picture.paint(&painter);
    return painter.end();
}

bool writePng(const Picture &picture, QIODevice *device)
{
    QImage image(picture.size, QImage::Format_RGB32);
    if (image.isNull())
        return false;
    image.setDotsPerMeterX(qRound(pixelsPerInch / 0.0254));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    return paintOn(&image, picture, 1.0) && image.save(device, "PNG");
}

bool writeSvg(const Picture &picture, QIODevice *device)
{
    QSvgGenerator generator;
    generator.setOutputDevice(device);
    generator.setResolution(pixelsPerInch);
    generator.setSize(picture.size);
    generator.setViewBox(QRect(QPoint(), picture.size));
    generator.setTitle(QStringLiteral("VarnelGraph"));
    return paintOn(&generator, picture, 1.0);
}

bool writePdf(const Picture &picture, QIODevice *device)
{
    QPdfWriter writer(device);
    const QSizeF page = QSizeF(picture.size) * (pointsPerInch / pixelsPerInch);
    writer.setPageSize(QPageSize(page, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(QStringLiteral("VarnelGraph"));
    return paintOn(&writer, picture, double(writer.resolution()) / pixelsPerInch);
}

} // namespace

GraphFormat graphFormat(const QString &fileName)
{
    for (const Ending &ending : endings)
        if (fileName.endsWith(QLatin1String(ending.text), Qt::CaseInsensitive))
            return ending.format;
    return GraphFormat::Unknown;
}

bool writePicture(const Picture &picture, GraphFormat format, QIODevice *device)
{
    // Painters do not tell when a device takes no more: draw to memory, then write once.
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto write = format == GraphFormat::Png ? writePng
        : format == GraphFormat::Svg              ? writeSvg
                                                  : writePdf;
    return write(picture, &buffer) && writeAllBytes(*device, buffer.data().constData(), buffer.size());
}

bool writeGraph(const GraphRequest &request, GraphFormat format, QIODevice *device)
{
    return writePicture(
        {request.size, [&request](QPainter *painter) { GraphPainter().paint(painter, request); }}, format,
        device);
}
