#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>

#include "elaboration/tools/vhdlfaults.h"

namespace QUARRY {

// Text in which numbers of formal arguments stand: a text, a number, a text, ... , a text.
struct LetText
{
    QList<QByteArray> texts = QList<QByteArray>() << QByteArray();
    QList<int> formals;
    int size = 1; // of all texts, and one for each
};

struct VerilogLet
{
    QList<QByteArray> formals;
    QList<QByteArray> defaults; // of the formals; empty where there is none
    LetText expression;
    bool isKnown = true; // false: of several it is not known which one counts
};
using VerilogLets = QHash<QByteArray, VerilogLet>;

// What is declared in one source, blanked there, and may be used in others.
struct BlankedNames
{
    QSet<QByteArray> checkers;
    QSet<QByteArray> groups;             // covergroups
    QSet<QByteArray> others;             // sequences, properties and every `let`
    QHash<QByteArray, VerilogLets> lets; // of packages
    QHash<QByteArray, VerilogLets>
        includables;          // by the name of a file: those outside of all that it declares
    QByteArray file;          // that is being looked at, without its folders
    QList<int> binds;         // to single instances: their places in the text
    QSet<QByteArray> modules; // that are to be blanked
    VhdlFaults vhdl;          // that are to be mended

    bool haveUses() const { return !checkers.isEmpty() || !groups.isEmpty(); }
    bool contains(const QByteArray &name) const
    {
        return checkers.contains(name) || groups.contains(name) || others.contains(name);
    }
    // Whether the text may use one of them.
    bool areIn(const QByteArray &text) const;
    bool includesOne(const QByteArray &text) const; // of the includables
};

} // namespace QUARRY
