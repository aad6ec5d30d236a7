#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

namespace QUARRY {

// The Verilog that GHDL makes of VHDL entities, and the small changes that let Verilator read it together
// with the user's own Verilog: VHDL does not care about case, Verilog does. The text is GHDL's regular
// output with one port, wire or pin a line, so that it can be changed line by line.
class GhdlVerilog
{
public:
    // Takes one run's output. `entities` maps names in lower case to those of the source; `components`
    // are the ones without an entity, in lower case: the empty modules that GHDL writes for them are left
    // out. Gives the name of the run's top module.
    QString add(const QByteArray &verilog, const QHash<QString, QString> &entities,
                const QSet<QString> &components);

    bool isEmpty() const { return m_modules.isEmpty(); }
    bool contains(const QString &module) const { return find(module) >= 0; }
    QStringList ports(const QString &module) const;

    // Lets Verilog instantiate `module` under another spelling of its name and ports. The parameters are
    // accepted and have no effect. False when nothing had to change.
    bool present(const QString &module, const QString &asName, const QStringList &ports,
                 const QStringList &parameters);
    // Instances of a component become instances of a Verilog module whose names are spelled otherwise.
    bool renameInstances(const QString &component, const QString &module, const QStringList &ports);
    void remove(const QString &module);
    bool isInstantiated(const QString &module) const;

    QByteArray sources() const;
    QMap<QString, QString> moduleNames() const { return m_names; } // as GHDL made them to entities

private:
    struct Module
    {
        QString name;
        QStringList lines;
    };
    int find(const QString &module) const;
    void take(Module module, const QHash<QString, QString> &entities, const QSet<QString> &components);

    QList<Module> m_modules;
    QMap<QString, QString> m_names;
};

} // namespace QUARRY
