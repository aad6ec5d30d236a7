#include "elaboration/tools/ghdlverilog.h"

#include <QRegExp>

#include "elaboration/tools/ghdltext.h"

namespace QUARRY {
namespace {

QString spelledAs(const QString &word, const QStringList &spellings)
{
    if (spellings.contains(word))
        return word;
    for (const QString &spelling : spellings) {
        if (spelling.compare(word, Qt::CaseInsensitive) == 0)
            return spelling;
    }
    return word;
}

// The entity behind "sub_8" or "leaf_2_11f6ad8e...": name, generics and a hash.
QString entityOf(const QString &module, const QHash<QString, QString> &entities)
{
    QString stem = module.toLower();
    while (!entities.contains(stem) && stem.contains(QLatin1Char('_')))
        stem.truncate(stem.lastIndexOf(QLatin1Char('_')));
    return entities.value(stem, module);
}

} // namespace

int GhdlVerilog::find(const QString &module) const
{
    for (int i = 0; i < m_modules.size(); ++i) {
        if (m_modules.at(i).name == module)
            return i;
    }
    return -1;
}

QString GhdlVerilog::add(const QByteArray &verilog, const QHash<QString, QString> &entities,
                         const QSet<QString> &components)
{
    QString last;
    Module module;
    for (QString line : QString::fromLatin1(verilog).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("module "))) {
            module = Module();
            module.name = line.mid(7).section(QRegExp(QLatin1String("[ (;]")), 0, 0);
        }
        if (module.name.isEmpty() || line.startsWith(QLatin1String("  /*")))
            continue;
        escapeExtendedNames(line);
        module.lines.append(line);
        if (line == QLatin1String("endmodule")) {
            last = module.name;
            take(module, entities, components);
            module = Module();
        }
    }
    return last;
}

void GhdlVerilog::take(Module module, const QHash<QString, QString> &entities,
                       const QSet<QString> &components)
{
    const bool isBlackBox = components.contains(module.name.toLower()) && hasNoGhdlBody(module.lines);
    if (isBlackBox || contains(module.name))
        return;
    escapeKeywords(module.lines);
    markOutputWires(module.lines);
    m_names.insert(module.name, entityOf(module.name, entities));
    m_modules.append(module);
}

QStringList GhdlVerilog::ports(const QString &module) const
{
    QStringList names;
    const int index = find(module);
    if (index < 0)
        return names;
    const QStringList &lines = m_modules.at(index).lines;
    const int end = ghdlHeaderEnd(lines);
    for (int i = 1; i <= end; ++i) {
        const QString port = ghdlDeclaredName(lines.at(i));
        if (!port.isEmpty())
            names.append(port);
    }
    return names;
}

bool GhdlVerilog::present(const QString &module, const QString &asName, const QStringList &ports,
                          const QStringList &parameters)
{
    const int index = find(module);
    if (index < 0)
        return false;
    Module copy = m_modules.at(index);
    copy.name = asName;
    copy.lines[0].replace(7, module.size(), asName);
    for (const QString &port : this->ports(module)) {
        const QString spelling = spelledAs(port, ports);
        for (int i = 1; spelling != port && i < copy.lines.size(); ++i)
            replaceGhdlWord(copy.lines[i], port, spelling);
    }
    if (!parameters.isEmpty() && !copy.lines.join(QString()).contains(QLatin1String("#(parameter "))) {
        QStringList declared;
        for (const QString &parameter : parameters)
            declared.append(QLatin1String("parameter \\") + parameter + QLatin1String(" = 0"));
        copy.lines[0].insert(7 + asName.size(),
                             QLatin1String(" #(") + declared.join(QLatin1String(", ")) + QLatin1Char(')'));
    }
    if (copy.name == module && copy.lines == m_modules.at(index).lines)
        return false;
    m_names.insert(asName, m_names.value(module));
    const int place = find(asName);
    if (place >= 0)
        m_modules[place] = copy;
    else
        m_modules.append(copy);
    return true;
}

bool GhdlVerilog::renameInstances(const QString &component, const QString &module, const QStringList &ports)
{
    bool changed = false;
    QRegExp pin(QLatin1String("^    \\.") + ghdlNameExpression() + QLatin1String("\\("));
    for (Module &owner : m_modules) {
        bool inside = false;
        for (int i = ghdlHeaderEnd(owner.lines) + 1; i < owner.lines.size(); ++i) {
            QString &line = owner.lines[i];
            const QString before = line;
            if (!inside && ghdlInstantiatedModule(line) == component) {
                inside = true;
                line.replace(2, component.size(), module);
            } else if (inside && pin.indexIn(line) == 0) {
                line.replace(pin.pos(1), pin.cap(1).size(), spelledAs(pin.cap(1), ports));
            }
            changed = changed || line != before;
            inside = inside && !line.endsWith(QLatin1String(");"));
        }
    }
    return changed;
}

void GhdlVerilog::remove(const QString &module)
{
    const int index = find(module);
    if (index >= 0)
        m_modules.removeAt(index);
}

bool GhdlVerilog::isInstantiated(const QString &module) const
{
    for (const Module &owner : m_modules) {
        for (const QString &line : owner.lines) {
            if (ghdlInstantiatedModule(line) == module)
                return true;
        }
    }
    return false;
}

QByteArray GhdlVerilog::sources() const
{
    QString text;
    for (const Module &module : m_modules)
        text += module.lines.join(QLatin1String("\n")) + QLatin1Char('\n');
    return text.toUtf8();
}

} // namespace QUARRY
