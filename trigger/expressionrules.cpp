#include "trigger/expressionrules.h"

#include <QRegExp>
#include <QtDebug>

namespace RTLJEX {

const char OP_OR[] = "|";
const char OP_XOR[] = "^";
const char OP_AND[] = "&";
const char OP_NOT[] = "!";
const char LEFT_BRACKET[] = "(";
const char RIGHT_BRACKET[] = ")";

namespace {

bool is(const QString &token, const char *text)
{
    return token == QLatin1String(text);
}

// What may never stand side by side. That an operand is missing or too many elsewhere shows in the
// evaluation.
bool mayFollow(const QString &previous, const QString &next)
{
    if (isNotUnaryOp(next))
        return true;
    const bool opens = is(previous, LEFT_BRACKET) || isNotUnaryOp(previous);
    if (isDigit(next))
        return !isDigit(previous);
    if (isOperator(next))
        return !isOperator(previous) && !opens;
    return !is(next, RIGHT_BRACKET) || !opens;
}

// Moves what stands above the innermost open bracket to the output, and drops the bracket. False without one.
bool closeBracket(QStringList &operators, QStringList &output)
{
    while (!operators.isEmpty()) {
        const QString top = operators.takeLast();
        if (is(top, LEFT_BRACKET))
            return true;
        output.append(top);
    }
    return false;
}

void pushOperator(const QString &token, QStringList &operators, QStringList &output)
{
    while (!operators.isEmpty() && !is(operators.last(), LEFT_BRACKET) &&
           priority(operators.last()) >= priority(token))
        output.append(operators.takeLast());
    operators.append(token);
}

// Whether every operator finds its operands and one result is left.
bool evaluates(const QStringList &rpn)
{
    int operands = 0;
    for (const QString &token : rpn) {
        if (isDigit(token)) {
            ++operands;
        } else if (isNotUnaryOp(token)) {
            if (operands < 1)
                return false;
        } else {
            if (operands < 2)
                return false;
            --operands;
        }
    }
    return operands == 1;
}

} // namespace

int priority(const QString &token)
{
    const char *const looseToTight[] = {OP_OR, OP_XOR, OP_AND, OP_NOT};
    for (int i = 0; i < 4; ++i) {
        if (is(token, looseToTight[i]))
            return i + 1;
    }
    return 0;
}

bool isDigit(const QString &token)
{
    return token.startsWith(QLatin1Char('M'), Qt::CaseInsensitive);
}

bool isOperator(const QString &token)
{
    return is(token, OP_AND) || is(token, OP_OR) || is(token, OP_XOR);
}

bool isNotUnaryOp(const QString &token)
{
    return is(token, OP_NOT);
}

QStringList expressionTokens(const QString &text)
{
    // Not \\d, which takes the digits of all scripts.
    QRegExp token(QLatin1String("\\s*([Mm][0-9]{1,2}(?![0-9])|[|^&!()])\\s*"));
    QStringList tokens;
    for (int at = 0; at < text.size(); at += token.matchedLength()) {
        if (token.indexIn(text, at, QRegExp::CaretAtOffset) != at)
            return QStringList();
        tokens.append(token.cap(1));
    }
    return tokens;
}

QStringList convertRPN(const QStringList &tokens)
{
    QStringList output;
    QStringList operators;
    for (const QString &token : tokens) {
        if (isDigit(token)) {
            output.append(token);
        } else if (is(token, LEFT_BRACKET)) {
            operators.append(token);
        } else if (!is(token, RIGHT_BRACKET)) {
            pushOperator(token, operators, output);
        } else if (!closeBracket(operators, output)) {
            qDebug("bracket unmatched");
            return QStringList();
        }
    }
    while (!operators.isEmpty())
        output.append(operators.takeLast());
    if (output.contains(QLatin1String(LEFT_BRACKET))) {
        qDebug(" bracket unmatched");
        return QStringList();
    }
    return output;
}

bool isExpression(const QStringList &tokens)
{
    if (tokens.isEmpty() || isOperator(tokens.last()) || isNotUnaryOp(tokens.last()))
        return false;
    for (int i = 1; i < tokens.size(); ++i) {
        if (!mayFollow(tokens.at(i - 1), tokens.at(i)))
            return false;
    }
    const QStringList rpn = convertRPN(tokens);
    return !rpn.isEmpty() && evaluates(rpn);
}

} // namespace RTLJEX
