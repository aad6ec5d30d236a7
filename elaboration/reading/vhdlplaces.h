#pragma once

#include "model/netlist/rtlnetlist.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>

#include <map>
#include <memory>

namespace QUARRY {

class VhdlTreeReader;

// What an architecture with its entity, or a block or generate statement in it, declares. Names are in
// small letters, extended ones without their backslashes.
struct VhdlPlaces
{
    VhdlPlaces() = default;
    // Declared, since containers of Qt 4 may throw when they move: a copy, which there can not be, would be
    // taken in place of a move.
    VhdlPlaces(VhdlPlaces &&) = default;
    VhdlPlaces &operator=(VhdlPlaces &&) = default;
    VhdlPlaces(const VhdlPlaces &) = delete;
    VhdlPlaces &operator=(const VhdlPlaces &) = delete;

    QString name;                                         // of the entity, as it is spelled
    QHash<QString, Declaration> declarations;             // of signals and ports
    QHash<QString, QString> spellings;                    // of those and of labels, as declared
    QHash<QString, QString> architectures;                // that instances name, by label of the instance
    QHash<QString, QString> entities;                     // or components, likewise
    std::map<QString, std::unique_ptr<VhdlPlaces>> inner; // by label

    Declaration place(const QString &name) const { return declarations.value(name.toLower()); }
    QString spelled(const QString &name) const { return spellings.value(name.toLower(), name); }
    void addSpelling(const QString &name, const QString &spelling);
    const VhdlPlaces *below(const QString &label) const; // null: no such statement
};

// The declarations of all VHDL sources, from the trees that "ghdl -s -ds FILES" writes on its standard
// error, one for each library. (Its XML says the same, and the standard library with it in many times the
// time.) A source that GHDL cannot read leaves gaps; nothing else can fail.
class VhdlPlaceTable
{
public:
    VhdlPlaceTable();
    ~VhdlPlaceTable();

    // `fileNames`: a file as GHDL saw it -> the user's own, absolute; to live as long as this.
    void open(const QStringList &treeFiles, const QMap<QString, QString> &fileNames);
    bool readSome(); // a few thousand lines; false when there are no more

    // Null when unknown, and when two libraries have such an entity. Without a name the architecture that was
    // read last, as GHDL chooses.
    const VhdlPlaces *of(const QString &entity, const QString &architecture) const;
    // ".alu_op[2].x" as the record types of the design spell it.
    QString spelledPath(const QString &path) const;

private:
    friend class VhdlTreeReader;
    void openNext();

    QStringList m_trees; // to be read
    const QMap<QString, QString> *m_fileNames = nullptr;
    std::unique_ptr<VhdlTreeReader> m_reader; // null while there is nothing to read
    std::map<QString, VhdlPlaces> m_entities;
    std::map<QString, std::map<QString, VhdlPlaces>> m_architectures; // by entity
    VhdlPlaces m_members;                                             // of all record types
    QHash<QString, QString> m_last;                                   // architecture of the entity
    QSet<QString> m_ambiguous;                                        // entities of several libraries
};

} // namespace QUARRY
