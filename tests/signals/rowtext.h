#pragma once

#include <QString>

class QTreeWidget;
class QTreeWidgetItem;

// The rows of a tree as text, one line each, members indented by two blanks:
//   text, "/i" when italic, then the foreground (none, gray, black, red), then the flags: s selectable,
//   e enabled, d drag, D drop, c checkable; " >" when expanded, " *" when selected, " @" when current.
QString rowText(const QTreeWidget *tree);
// Top-level rows only, their texts joined by blanks.
QString rowNames(const QTreeWidget *tree);
QString expected(const char *drawing); // without the indentation that the source gives it
