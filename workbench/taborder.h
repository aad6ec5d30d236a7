#pragma once

#include <QList>

class QWidget;

namespace Workbench {

// Lets the Tab key go through these areas of the window one after the other, within each in the order that it
// has. What is in another window for now, as a dock that floats, is passed over.
void putTabOrder(const QWidget *window, const QList<QWidget *> &areas);

} // namespace Workbench
