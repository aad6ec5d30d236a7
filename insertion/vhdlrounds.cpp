#include "insertion/vhdlrounds.h"

#include <QRegularExpression>

#include "elaboration/tools/sourcetext.h"
#include "insertion/taps.h"
#include "model/netlist/rtlnetlist.h"

namespace Insertion {

// "gen : for i in 0 to 3 generate"
VhdlRounds::Direction VhdlRounds::readDirection(const QString &file, const QString &label)
{
    const QString source = QString::fromUtf8(QUARRY::sourceOf(file));
    const QRegularExpression loop(
        "\\b" + QRegularExpression::escape(label) + "\\s*:\\s*for\\s+\\w+\\s+in\\s+(.*?)\\bgenerate\\b",
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression to("\\bto\\b", QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression downTo("\\bdownto\\b", QRegularExpression::CaseInsensitiveOption);
    bool isUp = false, isDown = false, isOpen = false;
    for (auto found = loop.globalMatch(source); found.hasNext();) {
        const QString range = found.next().captured(1);
        const bool goesUp = range.contains(to), goesDown = range.contains(downTo);
        isUp = isUp || (goesUp && !goesDown);
        isDown = isDown || (goesDown && !goesUp);
        isOpen = isOpen || goesUp == goesDown;
    }
    if (isOpen || isUp == isDown)
        return Unknown;
    return isUp ? Up : Down;
}

// "_n2" of the second round in the order of the loop; empty when it is not known.
QString VhdlRounds::roundOf(const QUARRY::Hierachy &scope, const QString &label, const QString &file)
{
    int before = 0, behind = 0;
    bool isBefore = true;
    for (const QUARRY::Hierachy *other : scope.parent->children) {
        if (other == &scope)
            isBefore = false;
        else if (other->instanceName.startsWith(label + '['))
            ++(isBefore ? before : behind);
    }
    if (before + behind == 0)
        return "_n1";
    const QString key = file + '\n' + label;
    if (!m_directions.contains(key))
        m_directions.insert(key, readDirection(file, label));
    const Direction direction = m_directions.value(key);
    return direction == Unknown ? QString() : "_n" + QString::number((direction == Up ? before : behind) + 1);
}

QString VhdlRounds::key(const Tap &tap, const QStringList &words, int from)
{
    QStringList parts;
    for (int i = 0; i < words.size(); ++i) {
        const QString label = words.at(i).section('[', 0, 0);
        const bool isRound = label != words.at(i) && from + i < tap.nodes.size();
        const QString round = isRound ? roundOf(*tap.nodes.at(from + i), label, tap.file) : QString();
        if (isRound && round.isEmpty())
            return QString();
        parts << label.toLower() + round;
    }
    return parts.join('_').replace('.', '_');
}

} // namespace Insertion
