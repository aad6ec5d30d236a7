#pragma once

#include "tools/windowtour.h"

// Copies the folder of a project, which must not be there yet. Gives the project file there; none, with a
// sentence, when that can not be.
QString copyProject(const QString &projectFile, const QString &folder, QString *error);

// Scenes for the guide that the tour of all windows has not: the netlist beside the editors, the window with
// a complete capture, what is found when the design was changed, and a simulation about to be run. Changes a
// source of the project. False with a sentence when that can not be.
bool showGuideScenes(const QString &projectFile, const Visitor &visit, QString *error);
