#pragma once

#include <QString>

class QWidget;

namespace Workbench {

// The page of the guide that is about this widget, "trigger": what the nearest widget around it says of
// itself by its property "helpTopic". "index" where none does.
QString helpTopic(const QWidget *widget);

// The page's text in Markdown, without the pictures, which are larger than a window beside another; empty for
// one that there is not.
QString guidePage(const QString &topic);

// What links call a heading, "What it takes" is "what-it-takes".
QString headingAnchor(const QString &heading);

} // namespace Workbench
