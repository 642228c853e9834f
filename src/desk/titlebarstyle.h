#pragma once

#include <QProxyStyle>

/// Draws the title bars of graph windows, the same on every desktop: those of some are light grey on white
/// while their window is inactive. Text and ground differ by 4.5:1 at least, active and inactive.
class TitleBarStyle : public QProxyStyle {
    Q_OBJECT

public:
    TitleBarStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
        const QWidget *widget) const override;
};
