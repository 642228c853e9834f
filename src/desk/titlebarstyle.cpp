#include "desk/titlebarstyle.h"

#include <QStyleOptionTitleBar>

namespace {

// The base draws a gradient from 114 to 96 per cent of the ground's lightness; an active bar's text is white.
constexpr QColor activeGround(0x1f, 0x5f, 0x99);
constexpr QColor inactiveGround(0xd3, 0xd9, 0xdf);
constexpr QColor inactiveText(0x2b, 0x34, 0x3d);

} // namespace

TitleBarStyle::TitleBarStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void TitleBarStyle::drawComplexControl(
    ComplexControl control, const QStyleOptionComplex *option, QPainter *painter, const QWidget *widget) const
{
    const auto *titleBar = qstyleoption_cast<const QStyleOptionTitleBar *>(option);
    if (control != CC_TitleBar || !titleBar)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionTitleBar coloured(*titleBar);
    coloured.palette.setColor(QPalette::Highlight, activeGround);
    coloured.palette.setColor(QPalette::Window, inactiveGround);
    coloured.palette.setColor(QPalette::Text, inactiveText);
    QProxyStyle::drawComplexControl(control, &coloured, painter, widget);
}
