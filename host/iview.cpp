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

QList<Finding> IView::findings() const
{
    return QList<Finding>();
}

void IView::showFinding(const Finding &)
{
}

EditedFile IView::editedFile() const
{
    return EditedFile();
}

bool IView::reloadFile()
{
    return false;
}

void IView::tellFindings()
{
    Q_EMIT findingsChanged();
}

void IView::tellStateChange(StateChange change)
{
    Q_EMIT stateChanged(change);
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
