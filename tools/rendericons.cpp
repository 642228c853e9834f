// Renders the SVG icons of the program to the formats that its resources hold:
//   rendericons FOLDER FILE.svg...      FOLDER/FILE.png in the drawing's own size, FOLDER/FILE@2x.png twice
//                                       that
//   rendericons --ico OUT.ico FILE.svg  one icon file with the sizes that desktops ask for
//   rendericons --theme FOLDER NAME FILE.svg SIDE...  FOLDER/SIDExSIDE/apps/NAME.png, as icon themes have it
#include <QBuffer>
#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <QVector>

namespace {

int fail(const QString &text)
{
    QTextStream(stderr) << "rendericons: " << text << '\n';
    return 1;
}

QImage render(QSvgRenderer &drawing, const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    return image;
}

bool renderPng(const QString &folder, const QString &file)
{
    QSvgRenderer drawing(file);
    if (!drawing.isValid())
        return false;
    const QString base = folder + QLatin1Char('/') + QFileInfo(file).completeBaseName();
    const QSize size = drawing.defaultSize();
    return render(drawing, size).save(base + QStringLiteral(".png"))
        && render(drawing, 2 * size).save(base + QStringLiteral("@2x.png"));
}

QByteArray pngOf(QSvgRenderer &drawing, int side)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    render(drawing, QSize(side, side)).save(&buffer, "PNG");
    return bytes;
}

// The container is a head, one entry of 16 bytes an image, then the images; a side of 256 is written as 0.
bool renderIco(const QString &icoFile, const QString &file)
{
    QSvgRenderer drawing(file);
    QFile out(icoFile);
    if (!drawing.isValid() || !out.open(QIODevice::WriteOnly))
        return false;
    const QVector<int> sides{16, 20, 24, 32, 40, 48, 64, 128, 256};
    QByteArray images;
    QDataStream stream(&out);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16(0) << quint16(1) << quint16(sides.size());
    for (int side : sides) {
        const QByteArray png = pngOf(drawing, side);
        const auto written = quint8(side & 0xff);
        stream << written << written << quint8(0) << quint8(0) << quint16(1) << quint16(32)
               << quint32(png.size()) << quint32(6 + 16 * sides.size() + images.size());
        images += png;
    }
    stream.writeRawData(images.constData(), images.size());
    return stream.status() == QDataStream::Ok && out.flush();
}

bool renderTheme(const QString &folder, const QString &name, const QString &file, const QStringList &sides)
{
    QSvgRenderer drawing(file);
    bool good = drawing.isValid();
    for (const QString &side : sides) {
        const QString place = QStringLiteral("%1/%2x%2/apps").arg(folder, side);
        good = good && QDir().mkpath(place)
            && render(drawing, QSize(side.toInt(), side.toInt()))
                   .save(place + QLatin1Char('/') + name + QStringLiteral(".png"));
    }
    return good;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() < 2)
        return fail(QStringLiteral(
            "FOLDER FILE.svg..., --ico OUT.ico FILE.svg, or --theme FOLDER NAME FILE.svg SIDE..."));
    if (arguments.first() == QLatin1String("--ico"))
        return renderIco(arguments.value(1), arguments.value(2)) ? 0 : fail(arguments.value(2));
    if (arguments.first() == QLatin1String("--theme"))
        return renderTheme(arguments.value(1), arguments.value(2), arguments.value(3), arguments.mid(4))
            ? 0
            : fail(arguments.value(3));
    const QStringList files = arguments.mid(1);
    for (const QString &file : files) {
        if (!renderPng(arguments.first(), file))
            return fail(file);
    }
    return 0;
}
