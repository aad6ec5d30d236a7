#pragma once

class QAbstractItemView;
class QPushButton;

namespace RTLJEX {

class signalTreeWidget;

// Gives the view its style sheet, in which rows have a fixed height, and makes them higher where the font of
// the desktop would not fit.
void setRowStyle(QAbstractItemView *view, const char *styleSheet);

// Row height of the tree, and its Delete key, which presses the button.
void setUpSignalTree(signalTreeWidget *tree, QPushButton *remove);

} // namespace RTLJEX
