#pragma once

#include <QTextDocument>

/// `text`, which comes from outside, as a tool tip that shows it as it is: what
/// looks like a tag in it counts for none.
inline QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}
