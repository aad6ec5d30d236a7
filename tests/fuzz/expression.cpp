#include "tests/fuzz/fuzz.h"
#include "trigger/expressionrules.h"

#include <cstring>

using namespace RTLJEX;

static int count(const QStringList &tokens, bool (*isOne)(const QString &))
{
    int found = 0;
    for (const QString &token : tokens)
        found += isOne(token);
    return found;
}

// A trigger expression as the buttons make it. The letters from a on are the match units, all but them, the
// operators and the brackets is passed over.
void Fuzz::look(const QByteArray &bytes)
{
    QStringList tokens;
    for (const char key : bytes) {
        if (key >= 'a' && key <= 'p')
            tokens << QLatin1Char('M') + QString::number(key - 'a');
        else if (std::strchr("|^&!()", key) && key)
            tokens << QString(QLatin1Char(key));
    }
    const QStringList rpn = convertRPN(tokens);
    if (!isExpression(tokens))
        return;
    Fuzz::claim(count(rpn, isDigit) == count(tokens, isDigit), "no match unit is lost");
    Fuzz::claim(count(rpn, isOperator) == count(rpn, isDigit) - 1, "an operator has two operands");
    const QStringList enclosed =
        QStringList(QLatin1String(LEFT_BRACKET)) + tokens + QStringList(QLatin1String(RIGHT_BRACKET));
    Fuzz::claim(convertRPN(enclosed) == rpn, "brackets around all of it mean nothing");
}
