#include "model/jex/signalitem.h"

namespace JEX {

// Known by its name as soon as the library is loaded, before the first variant holds one.
static const int signalItemType = qRegisterMetaType<SignalItem>("JEX::SignalItem");

int widthOf(const QList<SignalItem> &items)
{
    int bits = 0;
    for (const SignalItem &item : items) {
        bits += item.width();
    }
    return bits;
}

bool operator==(const SignalItem &a, const SignalItem &b)
{
    return a.type == b.type && a.valid == b.valid && a.auxFlag == b.auxFlag && a.capEnable == b.capEnable &&
           a.name == b.name && a.alias == b.alias && a.members == b.members;
}

} // namespace JEX
