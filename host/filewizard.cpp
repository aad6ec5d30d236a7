#include "host/filewizard.h"

namespace Core {
namespace {

struct Wizards
{
    QList<FileWizardRegistry::Maker> announced; // not made yet
    QList<IFileWizardFactory *> made;
};

Wizards &wizards()
{
    static Wizards instance;
    return instance;
}

} // namespace

IFileWizardFactory::~IFileWizardFactory()
{
}

void FileWizardRegistry::announce(Maker maker)
{
    wizards().announced.append(maker);
}

QList<FileWizardRegistry::Maker> FileWizardRegistry::announced()
{
    return wizards().announced;
}

void FileWizardRegistry::withdraw(Maker maker)
{
    wizards().announced.removeAll(maker);
}

void FileWizardRegistry::createFactories()
{
    const QList<Maker> makers = wizards().announced;
    wizards().announced.clear();
    for (Maker maker : makers)
        wizards().made.append(maker());
}

QList<IFileWizardFactory *> FileWizardRegistry::factories()
{
    return wizards().made;
}

void FileWizardRegistry::clear()
{
    qDeleteAll(wizards().made);
    wizards().made.clear();
    wizards().announced.clear();
}

} // namespace Core
