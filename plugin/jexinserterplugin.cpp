#include "plugin/jexinserterplugin.h"

#include <QtPlugin>

#include "plugin/jexviewmanager.h"

namespace RTLJEX {

bool JexInserterPlugin::initialize()
{
    m_texts = QUtil::installTranslation("jexins", ":/jexins/texts");
    JexViewManager::instance()->initialize();
    return true;
}

void JexInserterPlugin::extensionsInitialized()
{
}

void JexInserterPlugin::shutDown()
{
    JexViewManager::instance()->deinit();
    m_texts.reset();
}

} // namespace RTLJEX

#if QT_VERSION < 0x050000
Q_EXPORT_PLUGIN2(RtlJEXIns, RTLJEX::JexInserterPlugin)
#endif
