#include "cli/netlisting.h"

#include "cli/json.h"
#include "model/quarry/rtlmodule.h"

using QUARRY::RtlModule;

namespace Cli {

NetListing::NetListing(Form form, const QString &folder, Output &out)
    : m_form(form), m_folder(folder + '/'), m_out(out)
{
}

void NetListing::print(const QList<QUARRY::RtlNet *> &nets, const QList<QUARRY::RtlNetBus *> &buses)
{
    if (m_form == JsonLines)
        write("[");
    m_separator = "";
    for (const QUARRY::RtlNetBus *bus : buses)
        printEntry(bus->module(), bus->entry(), bus->excluded);
    for (const QUARRY::RtlNet *net : nets) {
        const RtlModule &module = net->module()->declarations();
        const RtlModule::Entry &entry = module.entryOfSlot(net->slot());
        printEntry(net->module(), quint32(&entry - module.entries().data()), net->excluded);
    }
    if (m_form == JsonLines)
        write(*m_separator ? "\n" + m_indent + "]" : "]");
}

void NetListing::printTree(const RTLJEX::ModuleForWidget &module)
{
    const std::string indent = m_indent;
    if (m_form == Lines) {
        write(m_indent + toStd(module.name) + '\n');
        m_indent += "  ";
        m_node = nullptr;
        print(module.nets, module.buses);
        for (const RTLJEX::ModuleForWidget &child : module.subModules)
            printTree(child);
    } else {
        write("{\"module\": " + quoted(module.name) + ", \"nets\": ");
        m_indent += "  ";
        m_node = nullptr;
        print(module.nets, module.buses);
        write(", \"modules\": [");
        const char *separator = "";
        for (const RTLJEX::ModuleForWidget &child : module.subModules) {
            write(separator + ("\n" + m_indent));
            printTree(child);
            separator = ",";
        }
        write(module.subModules.isEmpty() ? "]}" : "\n" + indent + "]}");
    }
    m_indent = indent;
}

void NetListing::printEntry(const QUARRY::Hierachy *node, quint32 number, bool excluded)
{
    if (node != m_node)
        setNode(node);
    const size_t begin = number == 0 ? 0 : m_nodeTails->ends[number - 1];
    m_out.write(m_separator, strlen(m_separator));
    m_out.write(m_head.data(), m_head.size());
    m_out.write(m_nodeTails->text.data() + begin, m_nodeTails->ends[number] - begin);
    if (m_form == JsonLines) {
        write(excluded ? "true}" : "false}");
        m_separator = ",";
    } else {
        static const char marks[] = "\texcluded\n";
        m_out.write(excluded ? marks : marks + sizeof marks - 2, excluded ? sizeof marks - 1 : 1);
    }
}

void NetListing::setNode(const QUARRY::Hierachy *node)
{
    m_node = node;
    const std::string path = m_form == Lines ? toStd(node->fullPathName()) : quoted(node->fullPathName());
    // The closing quotes come behind the short name.
    m_head = m_form == Lines ? m_indent + path + '/'
                             : "\n" + m_indent + "  {\"name\": " + path.substr(0, path.size() - 1) + '/';
    m_nodeTails = &tailsOf(node->declarations());
}

const NetListing::Tails &NetListing::tailsOf(const RtlModule &module)
{
    Tails &tails = m_tails[&module];
    if (tails.ends.size() != module.entries().size()) {
        for (quint32 i = 0; i < module.entries().size(); ++i) {
            tails.text += tail(module, i);
            tails.ends.push_back(tails.text.size());
        }
    }
    return tails;
}

std::string NetListing::tail(const RtlModule &module, quint32 number) const
{
    const RtlModule::Entry &entry = module.entries()[number];
    const QUARRY::Declaration &info = entry.info;
    const QString name =
        entry.isBus ? module.busName(entry, nullptr) : module.netName(entry.firstSlot, nullptr);
    const QString file = shownFile(info.file);
    if (m_form == Lines) {
        const QString place = file.isEmpty() ? QString("-") : file + ':' + QString::number(info.line);
        return toStd(name + '\t' + QString::number(entry.width()) + '\t' + place);
    }
    QStringList labels;
    for (const QString &label : info.enumLabels)
        labels << fromStd(quoted(label));
    return quoted(name).substr(1) + ", \"width\": " + std::to_string(entry.width()) +
           ", \"bus\": " + (entry.isBus ? "true" : "false") + ", \"file\": " + quoted(file) +
           ", \"line\": " + std::to_string(info.line) + ", \"type\": " + quoted(info.type) +
           ", \"enumLabels\": [" + toStd(labels.join(", ")) + "], \"excluded\": ";
}

std::string NetListing::quoted(const QString &text) const
{
    return Json(toStd(text)).dump(-1, ' ', false, Json::error_handler_t::replace);
}

QString NetListing::shownFile(const QString &file) const
{
    return file.startsWith(m_folder) ? file.mid(m_folder.size()) : file;
}

} // namespace Cli
