#pragma once

#include "model/netlist/rtlnetlist.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace QUARRY {

struct VhdlSourceFile
{
    QString library; // that it belongs to, in small letters
    QString path;    // as GHDL saw it
};

// What an instance is of: a component where only `entity` is known.
struct VhdlTarget
{
    QString library; // empty: that of the owner
    QString entity;
    QString architecture;
};

struct VhdlType
{
    QStringList labels; // of an enumeration
    QString base;       // of a subtype: "lib.package.type" or less
};

// What an architecture with its entity, or a block or generate statement in it, declares. Names are in
// small letters, extended ones without their backslashes.
struct VhdlPlaces
{
    QString name;                                         // of the entity, as it is spelled
    QString library;                                      // that it is in
    QHash<QString, Declaration> declarations;             // of signals and ports
    QHash<QString, QString> spellings;                    // of those and of labels, as declared
    QHash<QString, VhdlTarget> instances;                 // by label
    QHash<QString, VhdlType> types;                       // enumerations and subtypes
    std::map<QString, std::unique_ptr<VhdlPlaces>> inner; // by label
    const VhdlPlaces *outer = nullptr;                    // whose types are seen here, too

    Declaration place(const QString &name) const { return declarations.value(name.toLower()); }
    QString spelled(const QString &name) const { return spellings.value(name.toLower(), name); }
    void addSpelling(const QString &name, const QString &spelling);
    const VhdlPlaces *below(const QString &label) const; // null: no such statement
};

// The declarations of all VHDL sources, as the words of the sources have them (see VhdlDeclarations): neither
// the translation nor a waveform says where anything is declared, and the syntax tree that GHDL prints takes
// it a system call for every few letters. What cannot be understood leaves gaps; nothing else can fail.
class VhdlPlaceTable
{
public:
    VhdlPlaceTable();
    ~VhdlPlaceTable();

    // `fileNames`: a file as GHDL saw it -> the user's own, absolute; to live as long as this.
    void open(const QList<VhdlSourceFile> &sources, const QMap<QString, QString> &fileNames);
    bool readSome(); // a file, or some thousand signals; false when there are no more

    // Null when unknown, and when only other libraries have such an entity and they are several. Without a
    // name the architecture that was read last, as GHDL chooses.
    const VhdlPlaces *of(const QString &library, const QString &entity, const QString &architecture) const;
    // Of what the instance of that label in small letters is made of.
    const VhdlPlaces *ofInstance(const VhdlPlaces &owner, const QString &label) const;
    // ".alu_op[2].x" as the record types of the design spell it.
    QString spelledPath(const QString &path) const;

private:
    friend class VhdlDeclarations;
    struct Unit
    {
        VhdlPlaces *entity = nullptr;
        std::map<QString, VhdlPlaces *> architectures;
        QString last;
    };
    struct Typed // a signal whose type may have labels
    {
        VhdlPlaces *places;
        QString name, type;
        std::shared_ptr<const QSet<QString>> packages; // that its file uses
    };

    VhdlPlaces *add(const QString &library);
    template <typename Function>
    void forEachArchitecture(const Function &function); // that has an entity
    void seeEntities();
    void takePorts();
    QStringList labelsOf(const QString &type, const VhdlPlaces *seen, const QSet<QString> &packages,
                         int &steps) const;

    QList<VhdlSourceFile> m_sources; // to be read
    const QMap<QString, QString> *m_fileNames = nullptr;
    std::vector<std::unique_ptr<VhdlPlaces>> m_all;         // a unit that comes again takes nothing away
    std::map<QString, std::map<QString, Unit>> m_units;     // by entity and library
    QHash<QString, QList<const VhdlPlaces *>> m_typeOwners; // packages, by type
    std::vector<Typed> m_typed;
    size_t m_resolved = 0; // of those
    VhdlPlaces m_members;  // of all record types
};

} // namespace QUARRY
