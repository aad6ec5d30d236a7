#include "model/jex/signalitem.h"

#include "model/jex/zubfields.h"

namespace JEX {

// Known by its name as soon as the library is loaded, before the first variant holds one.
static const int signalItemType = qRegisterMetaType<SignalItem>("JEX::SignalItem");

int widthOf(const QList<SignalItem> &items)
{
    int bits = 0;
    for (const SignalItem &item : items)
        bits += item.width();
    return bits;
}

bool operator==(const SignalItem &a, const SignalItem &b)
{
    for (const Field<SignalItem> &field : fieldsOf<SignalItem>()) {
        if (!field.isSame(a, b))
            return false;
    }
    return a.members == b.members;
}

} // namespace JEX
