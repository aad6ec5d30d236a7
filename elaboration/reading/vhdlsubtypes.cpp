#include "elaboration/reading/vhdldeclarations.h"

// What declarations say of types.
namespace QUARRY {

// "std_logic_vector(7 downto 0)", "integer range 0 to 7". Limits of an array that are no plain numbers are
// left to who knows them (see knownType), those of a number are left out.
VhdlDeclarations::Subtype VhdlDeclarations::readIndication()
{
    if (is("("))
        skipParentheses(); // the resolution of elements
    QStringList names = readSelected();
    if (m_words.at(m_at).isName() && !is("range") && !is("bus") && !is("register"))
        names = readSelected(); // behind a resolution function
    Subtype subtype;
    subtype.text = names.value(0);
    for (const QString &name : names)
        subtype.mark.prepend(subtype.mark.isEmpty() ? name : name + QLatin1Char('.'));
    const bool isArray = is("(");
    const int start = m_at;
    if (!isArray && !is("range"))
        return subtype;
    QString range = readRange();
    m_at = start;
    if (isArray && range.isEmpty())
        range = readDirection();
    m_at = start;
    if (isArray)
        skipParentheses();
    if (range.isEmpty() || is("("))
        return subtype;
    subtype.text += isArray ? QLatin1Char('(') + range + QLatin1Char(')') : QLatin1String(" range ") + range;
    return subtype;
}

// "7 downto 0" behind a word; empty for anything else.
QString VhdlDeclarations::readRange()
{
    ++m_at;
    const QString left = readNumber();
    const QString direction = m_words.name(m_at++);
    const QString right = readNumber();
    const bool isRange = (direction == QLatin1String("to") || direction == QLatin1String("downto")) &&
                         (is(")") || is(";") || is(":"));
    if (left.isEmpty() || right.isEmpty() || !isRange)
        return QString();
    return left + QLatin1Char(' ') + direction + QLatin1Char(' ') + right;
}

// "downto" of "(n - 1 downto 0)", "?" where there is no such word; empty where there are several ranges.
QString VhdlDeclarations::readDirection()
{
    QString direction = QLatin1String("?");
    int depth = 0;
    for (; !isOver() && !is(";"); ++m_at) {
        depth += is("(") ? 1 : is(")") ? -1 : 0;
        if (depth == 0)
            return direction;
        if (depth == 1 && is(","))
            return QString();
        if (depth == 1 && (is("to") || is("downto")))
            direction = m_words.name(m_at);
    }
    return QString();
}

// "-1_024", "16#ff#"
QString VhdlDeclarations::readNumber()
{
    const bool isNegative = is("-");
    m_at += isNegative ? 1 : 0;
    const bool isBased = is("#", 1) && is("#", 3);
    bool isNumber = false;
    const QString digits = m_words.name(m_at + (isBased ? 2 : 0)).remove(QLatin1Char('_'));
    const int base = isBased ? m_words.name(m_at).toInt() : 10;
    const qlonglong value = base < 2 || base > 16 ? 0 : digits.toLongLong(&isNumber, base);
    m_at += isBased ? 4 : 1;
    return isNumber ? QString::number(isNegative ? -value : value) : QString();
}

QString knownType(const QString &type)
{
    return type.endsWith(QLatin1String("to)")) || type.endsWith(QLatin1String("?)"))
               ? type.left(type.lastIndexOf(QLatin1Char('(')))
               : type;
}

QString knownType(const QString &type, int left, int right)
{
    if (knownType(type) == type)
        return type;
    const bool isUp = left == right ? type.endsWith(QLatin1String("(to)")) : left < right;
    return knownType(type) + QLatin1Char('(') + QString::number(left) +
           QLatin1String(isUp ? " to " : " downto ") + QString::number(right) + QLatin1Char(')');
}

} // namespace QUARRY
