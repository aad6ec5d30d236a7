#pragma once

#include <QHash>
#include <QStringList>

namespace QUARRY {
class Hierachy;
}

namespace Insertion {

struct Tap;

// What the Verilog that GHDL makes calls the things of an entity: the scopes in front of them are parts of
// their names, in small letters, and round 3 of the loop "gen" is "gen_n1" or the like.
class VhdlRounds
{
public:
    // `words` are scopes and the name itself, `from` says where in the path of the tap they begin. Empty
    // where it cannot be told: whether a loop counts up or down stands in the source alone.
    QString key(const Tap &tap, const QStringList &words, int from);

private:
    enum Direction { Up, Down, Unknown };
    static Direction readDirection(const QString &file, const QString &label);
    QString roundOf(const QUARRY::Hierachy &scope, const QString &label, const QString &file);

    QHash<QString, Direction> m_directions; // by file and label
};

} // namespace Insertion
