#include "logbook/window/table/curvepicture.h"

#include "widgets/displayscale.h"

#include <QBuffer>
#include <QByteArray>
#include <QPainter>

namespace {

constexpr QSize pictureSize(220, 80); // px
constexpr QRgb ground = 0xFFFFFFFF;
constexpr QRgb curve = 0xFF1B5FA8;
constexpr int tallest = 255;

} // namespace

QImage curvePicture(const QByteArray &heights, const QSize &size)
{
    if (heights.isEmpty())
        return {};
    QImage image(size, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(curve), 1.5));
    const QRectF area = QRectF(QPointF(0, 0), size).adjusted(4, 4, -4, -4);
    const auto place = [&](int i) {
        return QPointF(area.left() + area.width() * i / (heights.size() - 1),
            area.bottom() - area.height() * uchar(heights[i]) / tallest);
    };
    for (int i = 1; i < heights.size(); ++i)
        painter.drawLine(place(i - 1), place(i));
    return image;
}

QString curveToolTip(const QByteArray &heights, const QString &text)
{
    QString lines = text.toHtmlEscaped();
    lines.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    const QImage image
        = curvePicture(heights, QSize(scaled(pictureSize.width()), scaled(pictureSize.height())));
    if (image.isNull())
        return QStringLiteral("<p style='white-space:pre'>") + lines + QStringLiteral("</p>");
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return QStringLiteral("<img src='data:image/png;base64,") + QString::fromLatin1(bytes.toBase64())
        + QStringLiteral("'><p style='white-space:pre'>") + lines + QStringLiteral("</p>");
}
