#pragma once

#include <QString>
#include <QStringList>

namespace Workbench {

struct SourcePlace;

// A program that shows a source, and its arguments.
struct SourceCommand
{
    QString program;
    QStringList arguments;
    QString fault; // why the command can not be used, a sentence; empty: it can
};

// Of the user's words, "code -g %f:%l": %f stands for the file, %l for the line, %% for a percent sign. No
// shell sees them, and a name stays within its word and is absolute, so that it is no option whatever it is.
SourceCommand sourceCommand(const QString &words, const SourcePlace &place);

} // namespace Workbench
