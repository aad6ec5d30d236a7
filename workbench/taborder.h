#pragma once

class QWidget;

namespace Workbench {

// Lets the Tab key come to what is in `later` after all that is in `earlier`, in the order that it has; of
// one window.
void putTabOrder(const QWidget *earlier, const QWidget *later);

} // namespace Workbench
