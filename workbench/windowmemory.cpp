#include "workbench/windowmemory.h"

#include <QEvent>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace Workbench {
namespace {

QSettings *settings = nullptr;

} // namespace

void WindowMemory::use(QSettings *chosen)
{
    settings = chosen;
}

void WindowMemory::keep(QWidget *window, const QString &name)
{
    (new WindowMemory(window, name))->restore();
}

WindowMemory::WindowMemory(QWidget *window, const QString &name)
    : QObject(window), m_window(window), m_key("windows/" + name + '/')
{
    window->installEventFilter(this);
}

// Never larger than the screen, which may be another one.
void WindowMemory::restore()
{
    const QSize size = settings ? settings->value(m_key + "size").toSize() : QSize();
    const QScreen *screen = m_window->screen();
    if (size.isValid())
        m_window->resize(screen ? size.boundedTo(screen->availableSize()) : size);
    int number = 0;
    for (QHeaderView *header : m_window->findChildren<QHeaderView *>()) {
        if (settings)
            header->restoreState(settings->value(m_key + QString::number(number++)).toByteArray());
    }
}

void WindowMemory::save() const
{
    if (!settings)
        return;
    settings->setValue(m_key + "size", m_window->size());
    int number = 0;
    for (const QHeaderView *header : m_window->findChildren<QHeaderView *>())
        settings->setValue(m_key + QString::number(number++), header->saveState());
}

bool WindowMemory::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide)
        save();
    return QObject::eventFilter(watched, event);
}

} // namespace Workbench
