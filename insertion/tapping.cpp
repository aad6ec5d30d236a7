#include "insertion/tapping.h"

#include <QHash>

#include "insertion/rtlildesign.h"
#include "insertion/taps.h"

namespace Insertion {
namespace {

QByteArray wire(const QByteArray &name, int width, const QByteArray &port)
{
    return "  wire width " + QByteArray::number(width) + ' ' + port + '\\' + name + '\n';
}

QByteArray connection(const QByteArray &left, const QByteArray &right)
{
    return "connect \\" + left + ' ' + right + '\n';
}

class TapPorts
{
public:
    TapPorts(RtlilDesign &design, const Surgery &surgery) : m_design(design), m_surgery(surgery) {}

    // From the module that has the net up to the top; gives what stands for the net there.
    QByteArray bringUp(const Tap &tap, int number)
    {
        const QByteArray name = m_surgery.tapName(number);
        QByteArray module = m_design.topModule();
        for (int depth = 0; depth < tap.cells.size(); ++depth) {
            const RtlilModule &body = *m_design.module(module);
            m_design.insert(body.begin,
                            wire(name, tap.width(), depth == 0 ? QByteArray() : outputPort(module)));
            const RtlilCell cell = body.cells.value(tap.cells.at(depth));
            m_design.insert(cell.end, "    " + connection(name, '\\' + name));
            module = cell.type;
        }
        if (tap.cells.isEmpty())
            return tap.signal();
        const RtlilModule &body = *m_design.module(module);
        m_design.insert(body.begin, wire(name, tap.width(), outputPort(module)));
        m_design.insert(body.end, "  " + connection(name, tap.signal()));
        return '\\' + name;
    }

    QByteArray port(const QByteArray &module, const char *direction)
    {
        int &ports = m_ports[module];
        ports = qMax(ports, m_design.module(module)->ports) + 1;
        return direction + QByteArray(" ") + QByteArray::number(ports) + ' ';
    }

private:
    QByteArray outputPort(const QByteArray &module) { return port(module, "output"); }

    RtlilDesign &m_design;
    const Surgery &m_surgery;
    QHash<QByteArray, int> m_ports; // the highest number given
};

} // namespace

QByteArray freePrefix(const RtlilDesign &design)
{
    QByteArray prefix = "jex";
    while (design.mentions('\\' + prefix + '_'))
        prefix += 'x';
    return prefix;
}

void insertTaps(RtlilDesign &design, const QList<Tap> &taps, const Surgery &surgery)
{
    TapPorts ports(design, surgery);
    const QByteArray top = design.topModule();
    const RtlilModule &body = *design.module(top);
    QByteArray cell = "  cell \\" + surgery.coresModule + " \\" + surgery.prefix + "_cores\n";
    for (int i = 0; i < taps.size(); ++i)
        cell += "    " + connection("tap_" + QByteArray::number(i), ports.bringUp(taps.at(i), i));
    const auto addPort = [&](const QByteArray &name, const char *direction) {
        const QByteArray full = surgery.prefix + '_' + name;
        design.insert(body.begin, wire(full, 1, ports.port(top, direction)));
        cell += "    " + connection(name, '\\' + full);
    };
    for (const QByteArray &name : surgery.inputs)
        addPort(name, "input");
    for (const QByteArray &name : surgery.outputs)
        addPort(name, "output");
    design.insert(body.end, cell + "  end\n");
}

} // namespace Insertion
