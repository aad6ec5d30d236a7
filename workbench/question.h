#pragma once

#include <QStringList>

class QWidget;

namespace Workbench {

// Asks with buttons of these words. The last one leaves everything as it is: Return and Escape press it.
// Gives the number of the button, that of the last one also when the window goes meanwhile.
int askUser(QWidget *window, const QString &title, const QString &text, const QStringList &buttons);

} // namespace Workbench
