#include "elaboration/tools/ghdlverilog.h"

#include "elaboration/tools/vhdlgenerics.h"
#include "host/utf8.h"

// Modules that stand for an entity until the values of its generics are known, and that choose among those
// that were made for them.
namespace QUARRY {
namespace {

std::string headOf(const QString &name, const QStringList &parameters, const QStringList &ports)
{
    QStringList declared, names;
    for (const QString &parameter : parameters)
        declared.append(QLatin1String("parameter \\") + parameter + QLatin1String(" = ") +
                        QLatin1String(unsetGeneric));
    for (const QString &port : ports)
        names.append(QLatin1Char('\\') + port + QLatin1Char(' '));
    return QUtil::toUtf8(QLatin1String("module \\") + name + QLatin1String(" #(") +
                         declared.join(QLatin1String(", ")) + QLatin1String(") (") +
                         names.join(QLatin1String(", ")) + QLatin1String(");"));
}

// "7" of "output [7:0] q,"; "0" for a single bit.
std::string highOf(const std::string &line)
{
    const size_t open = line.find('[');
    return open == std::string::npos ? "0" : line.substr(open + 1, line.find(':') - open - 1);
}

} // namespace

void GhdlVerilog::addStandIn(const QString &name, const QStringList &parameters, const QStringList &ports)
{
    Module module;
    module.name = name;
    module.lines.push_back(headOf(name, parameters, ports));
    for (const QString &port : ports)
        module.lines.push_back("input " + escapedGhdlName(QUtil::toUtf8(port)) + ";");
    module.lines.push_back("endmodule");
    put(module);
}

void GhdlVerilog::addChoice(const QString &name, const QStringList &parameters, const QStringList &ports,
                            const QList<Variant> &variants)
{
    QList<const Module *> made;
    for (const Variant &variant : variants)
        made.append(find(variant.module));
    const Module *shape = nullptr;
    for (const Module *module : made)
        shape = shape ? shape : module;
    if (!shape)
        return;
    Module choice;
    choice.name = name;
    std::vector<std::string> declarations;
    std::string pins;
    QStringList names;
    for (const std::string &port : shape->ports) {
        const std::string spelled = escapedGhdlName(QUtil::toUtf8(spelledAs(QUtil::fromUtf8(port), ports)));
        std::string direction, high;
        for (int i = 0; i < made.size(); ++i) {
            const std::string line = made.at(i) ? headLine(*made.at(i), port) : std::string();
            if (!line.empty())
                direction = line.substr(0, line.find(' '));
            high += "(" + QUtil::toUtf8(variants.at(i).condition) + ") ? " + highOf(line) + " : ";
        }
        declarations.push_back(direction + " [" + high + "0:0] " + spelled + ";");
        pins += (pins.empty() ? "." : ", .") + escapedGhdlName(port) + "(" + spelled + ")";
        names.append(QUtil::fromUtf8(spelled).mid(1).trimmed());
    }
    std::vector<std::string> &lines = choice.lines;
    lines.push_back(headOf(name, parameters, names));
    lines.insert(lines.end(), declarations.begin(), declarations.end());
    lines.push_back("generate");
    for (int i = 0; i < made.size(); ++i) {
        lines.push_back((i > 0 ? "else if (" : "if (") + QUtil::toUtf8(variants.at(i).condition) +
                        ") begin : choice");
        if (made.at(i)) {
            lines.push_back(QUtil::toUtf8(variants.at(i).module) + " u (" + pins + ");");
            choice.instantiated.insert(variants.at(i).module);
        }
        lines.push_back("end");
    }
    lines.push_back("endgenerate");
    lines.push_back("endmodule");
    for (const QString &port : names)
        choice.ports.push_back(QUtil::toUtf8(port));
    m_names.insert(name, m_names.value(shape->name));
    put(choice);
}

} // namespace QUARRY
