#pragma once

#include "host/iplugin.h"
#include "host/translation.h"

namespace RTLJEX {

// What the host loads.
class JexInserterPlugin : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_INTERFACES(ExtSys::IPlugin)
#if QT_VERSION >= 0x050000
    Q_PLUGIN_METADATA(IID EXTSYS_IPLUGIN_IID)
#endif

public:
    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;

private:
    std::unique_ptr<QTranslator> m_texts; // null for English
};

} // namespace RTLJEX
