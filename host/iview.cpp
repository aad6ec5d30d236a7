#include "host/iview.h"

namespace Core {

IView::IView(QWidget *parent) : QWidget(parent)
{
}

void IView::onActivated()
{
}

void IView::onDeactivated()
{
}

QString IView::shortTitle() const
{
    return m_shortTitle;
}

void IView::setShortTitle(const QString &title)
{
    if (title == m_shortTitle)
        return;
    m_shortTitle = title;
    Q_EMIT shortTitleChanged(title);
}

} // namespace Core
