#include "views/editorplace.h"

#include <QRegExp>
#include <QStackedWidget>
#include <QTabWidget>

namespace RTLJEX {

QString shownPlaceOf(const QWidget *editor)
{
    const QStackedWidget *pages = editor->findChild<QStackedWidget *>(QLatin1String("stackedWidget"));
    const QTabWidget *page = pages ? qobject_cast<QTabWidget *>(pages->currentWidget()) : nullptr;
    return QString::fromLatin1("core %1 tab %2")
        .arg(pages ? pages->currentIndex() : 0)
        .arg(page ? page->currentIndex() : 0);
}

bool readPlace(const QString &place, int *core, int *tab)
{
    QRegExp words(QLatin1String("core (\\d{1,4}) tab (\\d{1,4})"));
    if (!words.exactMatch(place))
        return false;
    *core = words.cap(1).toInt();
    *tab = words.cap(2).toInt();
    return true;
}

} // namespace RTLJEX
