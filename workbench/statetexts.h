#pragma once

#include <QString>

#include "host/devicearg.h"

namespace Core {
class Project;
}

namespace Workbench {

// What to do next, where no file is open; null: there is no project.
QString hintText(const Core::Project *project);

// The device of a project for the status bar.
QString deviceText(const DEV::DeviceArg &device);

} // namespace Workbench
