#include "elaboration/tools/blankednames.h"

#include "elaboration/tools/verilogtokens.h"

namespace QUARRY {

// A file is named between quotes or brackets, behind its folders. Each piece is looked up once, since a
// source may be large and the names many.
bool BlankedNames::includesOne(const QByteArray &text) const
{
    const auto isEdge = [](char c) { return c == '"' || c == '/' || c == '<' || c == '>' || c == '\n'; };
    int from = 0;
    for (int i = 0; i <= text.size() && !includables.isEmpty(); ++i) {
        if (i < text.size() && !isEdge(text.at(i)))
            continue;
        if (includables.contains(QByteArray::fromRawData(text.constData() + from, i - from)))
            return true;
        from = i + 1;
    }
    return false;
}

bool BlankedNames::areIn(const QByteArray &text) const
{
    if (includesOne(text))
        return true;
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
