#pragma once

#include <QObject>

namespace ExtSys {

// What the host loads. initialize() of every plug-in runs before the first extensionsInitialized();
// shutDown() runs in reverse order, while all libraries are still loaded.
class IPlugin : public QObject
{
    Q_OBJECT

public:
    explicit IPlugin(QObject *parent = nullptr);

    virtual bool initialize() = 0; // false: the plug-in is not used
    virtual void extensionsInitialized() = 0;
    virtual void shutDown() = 0;
};

} // namespace ExtSys

#define EXTSYS_IPLUGIN_IID "org.jexworkbench.plugins.IPlugin/1.0"
Q_DECLARE_INTERFACE(ExtSys::IPlugin, EXTSYS_IPLUGIN_IID)
