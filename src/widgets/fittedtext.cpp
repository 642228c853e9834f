#include "widgets/fittedtext.h"

#include <QGuiApplication>
#include <QHash>
#include <QLabel>
#include <QScreen>

namespace {

constexpr int mostKept = 250; // figures come and go; then all are measured anew

struct Fit {
    QFont font;
    QString text;
    QSize box;
    double density; // of the screen, which points depend on
};

bool operator==(const Fit &a, const Fit &b)
{
    return a.text == b.text && a.box == b.box && a.font == b.font && a.density == b.density;
}

uint qHash(const Fit &fit, uint seed)
{
    return qHash(fit.text, seed) ^ qHash(fit.font, seed)
        ^ qHash(qMakePair(fit.box.width(), fit.box.height()), seed);
}

QFont measuredFont(QFont font, const QString &text, const QSize &box)
{
    // The one that the font is not sized in is below 0.
    qreal points = font.pointSizeF();
    int pixels = font.pixelSize();
    for (;;) {
        const QSize size = QFontMetrics(font).size(0, text);
        if (size.width() <= box.width() && size.height() <= box.height())
            return font;
        if (points > 1.0)
            font.setPointSizeF(points -= 0.5);
        else if (pixels > 1)
            font.setPixelSize(--pixels);
        else
            return font;
    }
}

} // namespace

// Most texts are shown again and again, and measuring one costs more than drawing it.
QFont fittedFont(const QFont &font, const QString &text, const QSize &box)
{
    static QHash<Fit, QFont> kept;
    const QScreen *screen = QGuiApplication::primaryScreen();
    const Fit fit = {font, text, box, screen ? screen->logicalDotsPerInchY() : 0.0};
    const auto known = kept.constFind(fit);
    if (known != kept.constEnd())
        return *known;
    if (kept.size() >= mostKept)
        kept.clear();
    return *kept.insert(fit, measuredFont(font, text, box));
}

void setFittedText(QLabel *label, const QString &text, qreal points, const QSize &box)
{
    if (label->text() == text)
        return;
    QFont font = label->font();
    font.setPointSizeF(points);
    label->setFont(fittedFont(font, text, box));
    label->setText(text);
}
