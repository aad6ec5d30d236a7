#pragma once

#include <QString>
#include <QStringList>

namespace RTLJEX {

// Trigger expressions as lists of tokens: match units M0 to M15, brackets, and the operators, which bind from
// loose to tight in this order.
extern const char OP_OR[];
extern const char OP_XOR[];
extern const char OP_AND[];
extern const char OP_NOT[];
extern const char LEFT_BRACKET[];
extern const char RIGHT_BRACKET[];

// How tight an operator binds, from 1; 0 for what is none.
int priority(const QString &token);
// An operand: it begins with an M.
bool isDigit(const QString &token);
// One that stands between two operands.
bool isOperator(const QString &token);
// The one that stands in front of its operand.
bool isNotUnaryOp(const QString &token);

// What a file has as one text. Blanks mean nothing; empty when anything stands in it that is no token.
QStringList expressionTokens(const QString &text);

// The tokens in reverse Polish order. Empty when brackets do not match. All operators group to the left, the
// unary one too, so "!!M0" comes out with an operator first, which has nothing to work on.
QStringList convertRPN(const QStringList &tokens);

bool isExpression(const QStringList &tokens); // well formed

} // namespace RTLJEX
