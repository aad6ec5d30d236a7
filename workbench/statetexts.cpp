#include "workbench/statetexts.h"

#include <QCoreApplication>

#include <algorithm>

#include "host/designmanager.h"
#include "host/iview.h"
#include "host/project.h"

namespace Workbench {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::StateTexts)
};

} // namespace

QString hintText(const Core::Project *project)
{
    if (!project)
        return Texts::tr("Open a project (Project > Open Project) or a configuration (File > Open),\n"
                         "or drop one here. Project > New Project starts with nothing.");
    const QList<Core::SourceFile> files = project->data().files;
    const bool hasDesign = std::any_of(files.begin(), files.end(), [](const Core::SourceFile &file) {
        return TE::isDesignFileType(file.type);
    });
    return hasDesign ? Texts::tr("Double-click a configuration in the project tree to edit it.\n"
                                 "File > New makes one, Project > Add Files adds sources of the design.")
                     : Texts::tr("The project has no sources of a design yet:\n"
                                 "Project > Add Files takes them, or drop them here.");
}

QString deviceText(const DEV::DeviceArg &device)
{
    return device.partNumber.isEmpty() ? Texts::tr("Device: none, so usages are measured against 0")
                                       : Texts::tr("Device: %1").arg(device.partNumber);
}

QString nameOf(const Core::IView *view)
{
    const QString title = view->shortTitle();
    return title.endsWith(" *") ? title.chopped(2) : title;
}

} // namespace Workbench
