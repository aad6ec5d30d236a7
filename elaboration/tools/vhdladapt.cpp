#include "elaboration/tools/vhdlpart.h"

#include <QCoreApplication>

#include "elaboration/tools/designinput.h"

// How the translation of VHDL and the user's Verilog are made to meet.
namespace QUARRY {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(QUARRY::VhdlAdapt)
};

QStringList pinNames(const QList<DumpPin> &pins)
{
    QStringList names;
    for (const DumpPin &pin : pins) {
        if (!pin.name.isEmpty())
            names.append(pin.name);
    }
    return names;
}

const DumpModule *spelledModule(const QString &name, const DesignDump &dump)
{
    for (const DumpModule &module : dump.modules) {
        if (module.name.compare(name, Qt::CaseInsensitive) == 0)
            return &module;
    }
    return nullptr;
}

void appendNew(QStringList &list, const QString &text)
{
    if (!list.contains(text))
        list.append(text);
}

} // namespace

void VhdlPart::adapt(const DesignDump &dump, const QStringList &missing, const Then &then)
{
    QList<DumpCell> cells;
    QList<Wanted> wanted;
    QSet<QString> parametrised;
    for (const DumpCell &cell : dump.cells) {
        // One that was translated as a possible top has its default values and no parameters.
        const bool hasOthers = m_verilog.contains(cell.target) && !cell.parameters.isEmpty();
        if (cell.resolved && !missing.contains(cell.target) && !hasOthers)
            continue;
        cells.append(cell);
        if (!isVhdl(dump, cell) && mayPresent(cell) && !cell.parameters.isEmpty())
            parametrised.insert(cell.target);
    }
    for (const DumpCell &cell : cells) {
        if (!isVhdl(dump, cell) && mayPresent(cell) && !parametrised.contains(cell.target))
            wanted.append({cell.target.toLower(), QStringList(), QString()});
    }
    const int known = m_modules.size();
    translate(wanted, true, [=](bool) {
        bool changed = m_modules.size() > known;
        QSet<QString> done; // many cells are alike
        for (const DumpCell &cell : cells) {
            QString key = QString::number(isVhdl(dump, cell)) + cell.target;
            for (const DumpPin &pin : cell.ports + cell.parameters)
                key += QLatin1Char('\n') + pin.name;
            if (parametrised.contains(cell.target) && !isVhdl(dump, cell))
                changed = addStandIn(cell) || changed;
            else if (!done.contains(key))
                changed = adaptCell(dump, cell) || changed;
            done.insert(key);
        }
        dropUnusedSpellings(dump);
        then(changed);
    });
}

// Entities that only Verilog instantiates, under another spelling, are not shown a second time.
void VhdlPart::dropUnusedSpellings(const DesignDump &dump)
{
    QSet<QString> used = m_verilog.instantiated();
    QSet<QString> aliases; // in lower case
    for (const DumpCell &cell : dump.cells) {
        used.insert(cell.target);
        if (m_verilog.contains(cell.target) && cell.target != m_modules.value(cell.target.toLower()))
            aliases.insert(cell.target.toLower());
    }
    for (const QString &entity : m_analysis.entityOrder()) {
        const QString module = m_modules.value(entity);
        if (!module.isEmpty() && aliases.contains(entity) && !used.contains(module) &&
            entity != m_input.top.toLower())
            m_verilog.remove(module);
    }
}

bool VhdlPart::isVhdl(const DesignDump &dump, const DumpCell &cell) const
{
    return m_verilog.contains(dump.modules.at(cell.owner).name);
}

bool VhdlPart::adaptCell(const DesignDump &dump, const DumpCell &cell)
{
    if (!isVhdl(dump, cell))
        return mayPresent(cell) && presentEntity(cell);
    if (m_verilog.contains(cell.target))
        return false;
    const DumpModule *module = spelledModule(cell.target, dump);
    return module && m_verilog.renameInstances(cell.target, module->name, module->ports + module->parameters);
}

bool VhdlPart::mayPresent(const DumpCell &cell) const
{
    return m_analysis.entities().contains(cell.target.toLower()) &&
           (!cell.resolved || m_verilog.contains(cell.target));
}

bool VhdlPart::presentEntity(const DumpCell &cell)
{
    const QString entity = cell.target.toLower();
    if (!m_modules.contains(entity)) {
        m_messages += m_refusals.take(entity);
        if (!m_boxed.contains(entity))
            m_messages.append(
                Texts::tr("WARNING: VHDL entity %1, which Verilog instantiates, cannot be translated with "
                          "the default values of its generics. It is shown as a black box.")
                    .arg(m_analysis.entities().value(entity)));
        m_boxed.insert(entity);
        return false;
    }
    return m_verilog.present(m_verilog.contains(cell.target) ? cell.target : m_modules.value(entity),
                             cell.target, pinNames(cell.ports));
}

// Until the values of its parameters are known.
bool VhdlPart::addStandIn(const DumpCell &cell)
{
    if (m_choices.contains(cell.target) || m_boxed.contains(cell.target.toLower()))
        return false;
    const VhdlGenericList generics = m_analysis.genericsOf(cell.target.toLower());
    StandIn &standIn = m_standIns[cell.target];
    const int before = standIn.parameters.size() + standIn.ports.size();
    for (const DumpPin &pin : cell.parameters)
        appendNew(standIn.parameters, pin.name.isEmpty() ? generics.value(pin.position - 1).first : pin.name);
    for (const DumpPin &pin : cell.ports)
        appendNew(standIn.ports,
                  pin.name.isEmpty() ? QLatin1String("port") + QString::number(pin.position) : pin.name);
    if (before == standIn.parameters.size() + standIn.ports.size())
        return false;
    m_verilog.addStandIn(cell.target, standIn.parameters, standIn.ports);
    return true;
}

void VhdlPart::adaptGenerics(const QString &xmlFile, const Then &then)
{
    const QStringList names = m_standIns.keys();
    QList<Wanted> wanted;
    if (names.isEmpty())
        return then(false);
    const QMap<QString, QList<VhdlGenericSet>> sets = readVhdlGenerics(xmlFile, names);
    for (const QString &name : names) {
        StandIn &standIn = m_standIns[name];
        const QString entity = name.toLower();
        QStringList unknown;
        for (const VhdlGenericSet &set : sets.value(name)) {
            const QString module = entity.left(40) + QLatin1String("__s") + QString::number(++m_sets);
            standIn.variants.append({set.condition(standIn.parameters), module});
            wanted.append({entity, set.arguments(m_analysis.genericsOf(entity), unknown), module});
        }
        unknown.removeDuplicates();
        if (!unknown.isEmpty())
            m_messages.append(
                Texts::tr("WARNING: The generics that Verilog sets on VHDL entity %1 (%2) have no effect "
                          "here: the entity is shown with its default values.")
                    .arg(m_analysis.entities().value(entity), unknown.join(QLatin1String(", "))));
    }
    translate(wanted, true, [=](bool) {
        for (const QString &name : names)
            makeChoice(name);
        m_standIns.clear();
        then(true);
    });
}

void VhdlPart::makeChoice(const QString &name)
{
    const StandIn standIn = m_standIns.value(name);
    QStringList refused;
    bool anyModule = false;
    for (const GhdlVerilog::Variant &variant : standIn.variants) {
        anyModule = anyModule || m_verilog.contains(variant.module);
        if (!m_verilog.contains(variant.module))
            refused.append(variant.module);
    }
    if (anyModule) {
        m_verilog.addChoice(name, standIn.parameters, standIn.ports, standIn.variants);
        m_choices.insert(name);
        m_untranslated.removeAll(m_analysis.entities().value(name.toLower()));
    } else {
        m_verilog.remove(name);
        m_boxed.insert(name.toLower());
    }
    if (!refused.isEmpty())
        m_messages.append(
            Texts::tr("WARNING: VHDL entity %1, which Verilog instantiates, cannot be translated with the "
                      "generics that it is given. It is shown as a black box.")
                .arg(m_analysis.entities().value(name.toLower())));
}

} // namespace QUARRY
