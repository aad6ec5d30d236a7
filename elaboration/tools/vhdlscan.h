#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QPair>
#include <QSet>
#include <QString>

namespace QUARRY {

// One unit of a VHDL file: where its text is, from its first word to behind its last semicolon.
struct VhdlUnit
{
    enum Kind { Entity, Architecture, Package, PackageBody, Other }; // other: configuration, context
    Kind kind = Other;
    QString name;   // as it is spelled
    QString entity; // of an architecture or configuration, in lower case; a body's package
    int begin = 0;
    int end = 0;
    int line = 0; // of the name, from 1
};

// The generics of an entity in their order: names in lower case, each with the last name of its type.
typedef QList<QPair<QString, QString>> VhdlGenericList;

// What the words of a VHDL file say, without its grammar. Names in lower case unless said otherwise.
struct VhdlScan
{
    QList<VhdlUnit> units;
    QSet<QString> libraries;                  // of its library clauses
    QSet<QPair<QString, QString>> uses;       // "lib.unit", whatever stands before the dot
    QSet<QString> instantiated;               // entities and components
    QHash<QString, QSet<QString>> within;     // the same by the entity whose architecture has them
    QHash<QString, VhdlGenericList> generics; // of entities
    QHash<QString, QString> subtypes;         // to the last name of what each is a subtype of
    QHash<int, QString> targets;              // libraries of "label : entity lib.unit", by line of the label
    int instances = 0;                        // statements
    bool mentionsLoops = false;               // of instances
    bool mentionsForeign = false;             // anywhere, and be it in a comment
    bool mentionsComposites = false;          // types that a VCD cannot hold
};

VhdlScan scanVhdl(const QByteArray &text);

// An instantiation whose component or entity is named at that place of the text: from its colon to its
// semicolon, which is no part of it. False when nothing is instantiated there, or it may be a declaration.
struct VhdlInstance
{
    int begin = 0;
    int end = 0;
    QString name;        // of component or entity, as spelled there
    QSet<QString> words; // of its port map
};
bool findVhdlInstance(const QByteArray &text, int at, VhdlInstance &instance);

// Declares each generic of an entity by itself that shares its declaration and the range of its type with
// others, since GHDL crashes when such a one is given a value, and each text. False when there is none.
bool splitVhdlGenerics(QByteArray &text);

// Gives a generic of that entity another default value, an expression, as far as it is declared by itself;
// false when it is not. Names in lower case. Lines stay what they are.
bool setVhdlDefault(QByteArray &text, const QString &entity, const QString &generic, const QByteArray &value);

// Puts other words in the place of those from `begin` to `end`; lines stay what they are.
void replaceKeepingLines(QByteArray &text, int begin, int end, const QByteArray &by);

// The same at several places: from where, to where and by what. Something is left for GHDL to read.
typedef QMap<int, QPair<int, QByteArray>> VhdlEdits;
void editVhdl(QByteArray &text, const VhdlEdits &edits);

} // namespace QUARRY
