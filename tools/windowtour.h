#pragma once

#include <QString>
#include <functional>

class QWidget;

typedef std::function<void(QWidget *window, const QString &name)> Visitor;

// Shows every window of the editor and of the workbench, and every tab of the editors of the project's
// configurations, one after the other. The wizard offers to put its file into `folder`. False with a sentence
// when the project can not be read.
bool tourWindows(const QString &projectFile, const QString &folder, const Visitor &visit, QString *error);
