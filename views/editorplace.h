#pragma once

#include <QString>

class QWidget;

namespace RTLJEX {

// The core and the tab of its page that an editor shows: "core 1 tab 0".
QString shownPlaceOf(const QWidget *editor);

// False for another text.
bool readPlace(const QString &place, int *core, int *tab);

} // namespace RTLJEX
