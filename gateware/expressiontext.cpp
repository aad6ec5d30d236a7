#include "gateware/expressiontext.h"

#include "trigger/expressionrules.h"

namespace RTLJEX {

namespace {

int unitNumber(const QString &token)
{
    return token.mid(1).toInt();
}

bool combined(const QString &token, bool left, bool right)
{
    if (token == QLatin1String(OP_AND))
        return left && right;
    return token == QLatin1String(OP_OR) ? left || right : left != right;
}

} // namespace

Expression::Expression(const QString &text)
{
    const QStringList tokens = expressionTokens(text);
    if (isExpression(tokens))
        m_rpn = convertRPN(tokens);
}

QList<int> Expression::units() const
{
    QList<int> numbers;
    for (const QString &token : m_rpn) {
        if (isDigit(token))
            numbers.append(unitNumber(token));
    }
    return numbers;
}

QByteArray Expression::logic() const
{
    QList<QByteArray> stack;
    for (const QString &token : m_rpn) {
        if (isDigit(token)) {
            stack.append("match[" + QByteArray::number(unitNumber(token)) + "]");
            continue;
        }
        const QByteArray right = stack.takeLast();
        if (isNotUnaryOp(token))
            stack.append("(~" + right + ")");
        else
            stack.append("(" + stack.takeLast() + " " + token.toLatin1() + " " + right + ")");
    }
    return stack.last();
}

bool Expression::holds(const QList<int> &units, int matching) const
{
    QList<bool> stack;
    for (const QString &token : m_rpn) {
        if (isDigit(token)) {
            stack.append(matching >> units.indexOf(unitNumber(token)) & 1);
            continue;
        }
        const bool right = stack.takeLast();
        stack.append(isNotUnaryOp(token) ? !right : combined(token, stack.takeLast(), right));
    }
    return stack.last();
}

QByteArray Expression::table(const QList<int> &units) const
{
    QByteArray bits;
    for (int matching = (1 << units.size()) - 1; matching >= 0; --matching)
        bits += holds(units, matching) ? '1' : '0';
    return bits;
}

} // namespace RTLJEX
