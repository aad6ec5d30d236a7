#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

#include "elaboration/reading/netlistreader.h"
#include "elaboration/tools/ghdltext.h"

namespace QUARRY {

// What the rewriting of GHDL's Verilog must know of the sources.
struct GhdlNames
{
    QHash<QString, QString> entities; // in lower case to the source's spelling
    QSet<QString> components;         // without an entity, in lower case: their empty modules are left out
    QSet<QString> hollow;             // entities of which only the ports count, in lower case
    QSet<QString> undriven;           // signals whose drivers were left out, in lower case
    // Entities that several libraries have, with these, which GHDL translates under one name; all in lower
    // case but for files, which are as GHDL names them.
    QHash<QString, QSet<QString>> twins;
    QHash<QString, QString> libraries; // of files
    QHash<QString, QString> targets;   // "file:line" of an instance to the library that it names
};

// The Verilog that GHDL makes of VHDL entities, and the small changes that let Verilator read it together
// with the user's own Verilog: VHDL does not care about case, Verilog does. The text is GHDL's regular
// output with one port, wire or pin a line, so that it is changed line by line, in one pass.
class GhdlVerilog
{
public:
    // Takes one run's output in pieces of a module each: takeSome() gives false when all is taken. Then
    // lastModule() is the run's top module, as `asName` when that is given; empty when there is none.
    void start(const QByteArray &verilog, const GhdlNames &names, const QString &asName);
    bool takeSome();
    const QString &lastModule() const { return m_last; }

    bool isEmpty() const { return m_modules.empty(); }
    bool contains(const QString &module) const { return m_index.contains(module); }
    int instanceCount() const { return m_instances; }

    // Lets Verilog instantiate `module` under another spelling of its name and ports. False when nothing had
    // to change.
    bool present(const QString &module, const QString &asName, const QStringList &ports);
    // Instances of a component become instances of a Verilog module whose names are spelled otherwise.
    bool renameInstances(const QString &component, const QString &module, const QStringList &ports);
    // A module without a body, whose parameters show what it is given.
    void addStandIn(const QString &name, const QStringList &parameters, const QStringList &ports);
    // One module of that name for all sets of generics that Verilog gives an entity, which instantiates the
    // one that was made for the set.
    struct Variant
    {
        QString condition; // in Verilog, of the parameters
        QString module;    // empty: none could be made
    };
    void addChoice(const QString &name, const QStringList &parameters, const QStringList &ports,
                   const QList<Variant> &variants);
    void remove(const QString &module);
    QSet<QString> instantiated() const; // all modules that any of these instantiates

    static const VerilogMaker maker;
    QByteArray sources() const;
    QMap<QString, QString> moduleNames() const { return m_names; }   // as in the sources() to entities
    QMap<QString, QString> libraries() const { return m_libraries; } // of modules whose entity has a twin

private:
    struct Module
    {
        QString name;
        std::vector<std::string> lines;
        std::vector<std::string> ports;
        QSet<QString> instantiated;
        QHash<size_t, std::string> places; // "file:line" of the statement that the line begins
    };
    void take(Module &module);
    QString libraryOf(const Module &module) const;
    QString targetOf(const QString &written, const std::string &place, const QString &library) const;
    static QString spelledAs(const QString &word, const QStringList &spellings);
    static std::string headLine(const Module &module, const std::string &port);
    QString emptyTwin(const QString &written, const QString &library, const std::vector<std::string> &lines,
                      size_t instance);
    QString moduleName(const QString &written, const QString &library);
    bool hasTwin(const QString &written) const;
    const Module *find(const QString &module) const;
    void put(const Module &module);

    QByteArray m_text; // of the run being taken
    int m_at = 0;
    GhdlNames m_given;
    QString m_top, m_asName; // of the run: as GHDL names it, as it is to be called
    QString m_last;
    std::vector<Module> m_modules;
    int m_instances = 0;
    QHash<QString, int> m_index;
    QHash<QString, QString> m_short; // long names of modules
    QMap<QString, QString> m_names, m_libraries;
    // Modules of which no statement tells the library, by what GHDL calls them, until an instance does.
    QHash<QString, QStringList> m_emptyTwins;
};

} // namespace QUARRY
