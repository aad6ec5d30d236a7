#pragma once

#include <QTextDocument>

namespace QUtil {

// A tool tip takes a text that looks like HTML for it, and then reads the pictures that it names. Names of
// files, nets and modules come from strangers and may look so.
inline QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace QUtil
