#include "host/viewcontainer.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include "host/iview.h"

namespace Core {

ViewContainer::ViewContainer(IView *view)
{
    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    // Both were made as windows, but closing the last of them does not end the program.
    setAttribute(Qt::WA_QuitOnClose, false);
    view->setAttribute(Qt::WA_QuitOnClose, false);
}

ViewContainer::~ViewContainer()
{
    Q_EMIT dying(this);
}

void ViewContainer::closeEvent(QCloseEvent *event)
{
    event->accept();
    Q_EMIT closed(this);
}

} // namespace Core
