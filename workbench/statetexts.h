#pragma once

#include <QString>

#include "host/devicearg.h"

namespace Core {
class IView;
class Project;
} // namespace Core

namespace Workbench {

// What to do next, where no file is open; null: there is no project.
QString hintText(const Core::Project *project);

// The device of a project for the status bar.
QString deviceText(const DEV::DeviceArg &device);

// Of what a view shows, without the mark of what is modified.
QString nameOf(const Core::IView *view);

} // namespace Workbench
