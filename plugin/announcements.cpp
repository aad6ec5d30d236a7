// Tells the host, while the library is loaded, what it can do: edit ".zub" files and make new ones.

#include "host/editorregistry.h"
#include "host/filewizard.h"
#include "plugin/jexfilewizardfactory.h"
#include "plugin/jexviewmanager.h"

namespace RTLJEX {
namespace {

Core::IFileWizardFactory *makeWizardFactory()
{
    return new JexFileWizardFactory;
}

bool openInEditor(const QString &fileName, const DEV::DeviceArg &device)
{
    return JexViewManager::instance()->openInserterView(fileName, device);
}

bool announce()
{
    Core::FileWizardRegistry::announce(makeWizardFactory);
    Core::EditorRegistry::announce("zub", openInEditor);
    return true;
}

const bool announced = announce();

} // namespace
} // namespace RTLJEX
