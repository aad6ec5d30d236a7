#include "host/iplugin.h"

namespace ExtSys {

IPlugin::IPlugin(QObject *parent) : QObject(parent)
{
}

} // namespace ExtSys
