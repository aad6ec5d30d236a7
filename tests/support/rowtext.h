#pragma once

#include <QString>

class QTreeWidget;

// The rows of a tree as text, a line each, members in braces: text, "/i" when italic, then the foreground
// (none, gray, black, red), then the flags: s selectable, w editable, d drag, D drop, c checkable,
// e enabled; " >" when expanded, " *" when selected, " @" when current.
QString rowText(const QTreeWidget *tree);
// Top-level rows only, their texts joined by blanks.
QString rowNames(const QTreeWidget *tree);
