#include "model/jex/codes.h"

#include "model/jex/resourcetable.h"

namespace JEX {

using JEX_TOOL::Resource;

QString implementationName(Implementation implementation)
{
    const Resource *resource = JEX_TOOL::resourceOf(implementation);
    return resource ? QString::fromLatin1(resource->name) : QString();
}

Implementation implementationNamed(const QString &name)
{
    for (const Resource &resource : JEX_TOOL::resources) {
        if (name == QLatin1String(resource.name))
            return resource.code;
    }
    return NoImplementation;
}

Implementation implementationOf(qint32 number)
{
    for (const Resource &resource : JEX_TOOL::resources) {
        if (number == resource.code)
            return resource.code;
    }
    return BsramImplementation;
}

} // namespace JEX
