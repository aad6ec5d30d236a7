#pragma once

#include <QList>
#include <QString>

class QWidget;

namespace Core {

// One entry of the host's File/New list.
class IFileWizardFactory
{
public:
    virtual ~IFileWizardFactory();
    virtual QString id() const = 0;
    virtual QString displayName() const = 0;
    virtual QString description() const = 0;
    // Runs the wizard modally; `path` is the folder in which the file is to be created.
    virtual void runWizard(QWidget *parent, const QString &path) = 0;
};

// How the host finds the wizards of a plug-in: the library announces a maker for each while it is
// loaded, and the host, which owns the factories, makes them once the plug-ins are initialised.
class FileWizardRegistry
{
public:
    typedef IFileWizardFactory *(*Maker)(); // makes one for the caller to own

    static void announce(Maker maker);
    static QList<Maker> announced(); // that have made none yet
    static void withdraw(Maker maker);
    // Makes a factory for every maker announced since the last call.
    static void createFactories();
    static QList<IFileWizardFactory *> factories(); // in order of announcement, not owned
    static void clear();                            // deletes the factories, before plug-ins unload
};

} // namespace Core
