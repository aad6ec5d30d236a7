#include "plugin/jexfilewizardfactory.h"

#include <QCoreApplication>

#include "host/modal.h"
#include "host/project.h"
#include "model/jex/jexfile.h"
#include "plugin/jexwizard.h"

namespace RTLJEX {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RTLJEX::JexFileWizardFactory)
};

} // namespace

QString JexFileWizardFactory::id() const
{
    return "M.Wizard.JEX";
}

QString JexFileWizardFactory::displayName() const
{
    return Texts::tr("RTL JEX Config File");
}

QString JexFileWizardFactory::description() const
{
    return Texts::tr("Create a RTL JEX Config File.");
}

void JexFileWizardFactory::runWizard(QWidget *parent, const QString &path)
{
    const QUtil::Modal<JexWizard> wizard(new JexWizard(path, parent));
    if (wizard->exec() != QDialog::Accepted)
        return;
    const QString file = wizard->jexConfigFile();
    JEX::fillInfoForEmptyJexConfig(file, static_cast<JEX::JexMode>(wizard->jexMode()));
    if (Core::Project *project = Core::ProjectManager::currentProject())
        project->addFile(file);
}

} // namespace RTLJEX
