#pragma once

#include <qwt_scale_draw.h>

/// Labels a time axis in seconds with elapsed times; negative values get a blank.
class ScaleDrawTime : public QwtScaleDraw {
public:
    QwtText label(double value) const override;
};
