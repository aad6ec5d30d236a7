#include "elaboration/tools/blankednames.h"

#include "elaboration/tools/verilogtokens.h"

namespace QUARRY {

bool BlankedNames::areIn(const QByteArray &text) const
{
    for (const QByteArray &header : includables.keys()) {
        if (text.contains(header))
            return true;
    }
    if (!haveUses() && lets.isEmpty())
        return false;
    const VerilogTokens tokens(text);
    for (int i = 0; i < tokens.size(); ++i) {
        const QByteArray word = tokens.word(i);
        if (checkers.contains(word) || groups.contains(word) || lets.contains(word))
            return true;
    }
    return false;
}

} // namespace QUARRY
