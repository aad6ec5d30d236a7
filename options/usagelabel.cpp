#include "options/usagelabel.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>

#include "host/rowdelegate.h"

namespace RTLJEX {

void UsageLabel::paintEvent(QPaintEvent *event)
{
    if (!Qt::mightBeRichText(text()))
        return QLabel::paintEvent(event);
    QTextDocument shown;
    QAbstractTextDocumentLayout::PaintContext colours;
    colours.palette = palette();
    shown.setDocumentMargin(0);
    shown.setDefaultFont(font());
    shown.setHtml(text().replace(QLatin1String("color = red"),
                                 QLatin1String("color = ") + QUtil::errorColour(palette()).name()));
    QPainter painter(this);
    painter.translate(0, (height() - shown.size().height()) / 2);
    shown.documentLayout()->draw(&painter, colours);
}

} // namespace RTLJEX
