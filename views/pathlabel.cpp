#include "views/pathlabel.h"

#include <QPainter>
#include <QStringList>
#include <QStyle>

#include "host/plaintooltip.h"

namespace RTLJEX {

void PathLabel::setPath(const QString &path)
{
    m_path = path;
    setToolTip(QUtil::plainToolTip(path));
}

QString PathLabel::shownText() const
{
    const QFontMetrics metrics = fontMetrics();
    QStringList lines = text().split(QLatin1Char('\n'));
    for (QString &line : lines) {
        const int excess = metrics.boundingRect(line).width() - contentsRect().width();
        if (m_path.isEmpty() || excess <= 0 || !line.contains(m_path))
            continue;
        const int room = qMax(0, metrics.boundingRect(m_path).width() - excess);
        line.replace(line.indexOf(m_path), m_path.size(), metrics.elidedText(m_path, Qt::ElideLeft, room));
    }
    return lines.join(QLatin1String("\n"));
}

void PathLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), int(alignment()) | Qt::TextWordWrap, palette(),
                          isEnabled(), shownText(), foregroundRole());
}

} // namespace RTLJEX
