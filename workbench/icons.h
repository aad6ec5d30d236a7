#pragma once

class QMenu;
class QMenuBar;
class QWidget;

namespace Workbench {

// Takes all icons from one set: the desktop's when it has all of them, else Breeze, light or dark as the
// palette is.
void chooseIcons();

// Icons for the entries of the menus, by their texts, and for the window.
void setIcons(QWidget *window, QMenuBar *menus);
void setIcons(const QMenu *menu); // of one that a list shows

} // namespace Workbench
