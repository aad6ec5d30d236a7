#include "workbench/statetexts.h"

#include <algorithm>

#include "host/designmanager.h"
#include "host/iview.h"
#include "host/project.h"

namespace Workbench {
namespace {

const char *const emptyHint = "Open a project (Project > Open Project) or a configuration (File > Open),\n"
                              "or drop one here. Project > New Project starts with nothing.";
const char *const sourcesHint = "The project has no sources of a design yet:\n"
                                "Project > Add Files takes them, or drop them here.";
const char *const projectHint = "Double-click a configuration in the project tree to edit it.\n"
                                "File > New makes one, Project > Add Files adds sources of the design.";

} // namespace

QString hintText(const Core::Project *project)
{
    if (!project)
        return emptyHint;
    const QList<Core::SourceFile> files = project->data().files;
    const bool hasDesign = std::any_of(files.begin(), files.end(), [](const Core::SourceFile &file) {
        return TE::isDesignFileType(file.type);
    });
    return hasDesign ? projectHint : sourcesHint;
}

QString deviceText(const DEV::DeviceArg &device)
{
    return device.partNumber.isEmpty() ? "Device: none, so usages are measured against 0"
                                       : "Device: " + device.partNumber;
}

QString nameOf(const Core::IView *view)
{
    const QString title = view->shortTitle();
    return title.endsWith(" *") ? title.chopped(2) : title;
}

} // namespace Workbench
