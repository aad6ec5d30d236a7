#include "cli/netlisting.h"

#include "cli/json.h"
#include "model/quarry/rtlmodule.h"

#include <algorithm>
#include <charconv>
#include <cstring>

using QUARRY::RtlModule;

namespace Cli {
namespace {

std::string quoted(const QString &text)
{
    return Json(toStd(text)).dump(-1, ' ', false, Json::error_handler_t::replace);
}

// Both write at `out` and give the end. A code unit takes at most three bytes.
char *append(char *out, const QChar *begin, int length)
{
    for (int i = 0; i < length; ++i) {
        if (begin[i].unicode() >= 128) {
            const QByteArray bytes = QString(begin, length).toUtf8();
            memcpy(out, bytes.constData(), size_t(bytes.size()));
            return out + bytes.size();
        }
        out[i] = char(begin[i].unicode());
    }
    return out + length;
}

char *append(char *out, const std::string &text)
{
    return std::copy(text.begin(), text.end(), out);
}

const int numberRoom = 12;

char *append(char *out, char before, int number)
{
    *out = before;
    return std::to_chars(out + 1, out + numberRoom, number).ptr;
}

} // namespace

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
        printEntry(*bus->module(), bus->entry(), bus->excluded);
    for (const QUARRY::RtlNet *net : nets) {
        const RtlModule &module = net->module()->declarations();
        const RtlModule::Entry &entry = module.entryOfSlot(net->slot());
        printEntry(*net->module(), quint32(&entry - module.entries().data()), net->excluded);
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

void NetListing::printEntry(const QUARRY::Hierachy &node, quint32 number, bool excluded)
{
    if (&node != m_node)
        setNode(node);
    if (m_form == JsonLines)
        printJson(node.declarations(), number, excluded);
    else
        printLine(node.declarations(), number, excluded);
}

void NetListing::setNode(const QUARRY::Hierachy &node)
{
    m_node = &node;
    const std::string path = m_form == Lines ? toStd(node.fullPathName()) : quoted(node.fullPathName());
    // The closing quotes come behind the short name.
    m_head = m_form == Lines ? m_indent + path + '/'
                             : "\n" + m_indent + "  {\"name\": " + path.substr(0, path.size() - 1) + '/';
}

void NetListing::printLine(const RtlModule &module, quint32 number, bool excluded)
{
    static const std::string mark = "\texcluded";
    const RtlModule::Entry &entry = module.entries()[number];
    const std::string &file = shownFile(entry.info.file);
    const int length = int(entry.textLength);
    char *const begin = m_out.room(m_head.size() + 3 * size_t(length) + RtlModule::rangeRoom + file.size() +
                                   2 * numberRoom + mark.size() + 8);
    char *end = append(append(begin, m_head), module.text(entry), length);
    if (entry.isBus) {
        QChar range[RtlModule::rangeRoom];
        const int rangeLength = RtlModule::writeRange(entry, range);
        end = append(end, range, rangeLength);
    }
    end = append(end, '\t', entry.width());
    *end++ = '\t';
    if (file.empty())
        *end++ = '-';
    else
        end = append(append(end, file), ':', entry.info.line);
    if (excluded)
        end = append(end, mark);
    *end++ = '\n';
    m_out.use(size_t(end - begin));
}

void NetListing::printJson(const RtlModule &module, quint32 number, bool excluded)
{
    const RtlModule::Entry &entry = module.entries()[number];
    const QUARRY::Declaration &info = entry.info;
    const QString name =
        entry.isBus ? module.busName(entry, nullptr) : module.netName(entry.firstSlot, nullptr);
    std::string line = m_separator + m_head + quoted(name).substr(1);
    line += ", \"width\": " + std::to_string(entry.width());
    line += std::string(", \"bus\": ") + (entry.isBus ? "true" : "false");
    line += ", \"file\": " + quoted(fromStd(shownFile(info.file)));
    line += ", \"line\": " + std::to_string(info.line) + ", \"type\": " + quoted(info.type);
    line += ", \"enumLabels\": " + toJson(info.enumLabels).dump();
    line += std::string(", \"excluded\": ") + (excluded ? "true}" : "false}");
    m_separator = ",";
    write(line);
}

const std::string &NetListing::shownFile(const QString &file)
{
    if (file != m_file) {
        m_file = file;
        m_shownFile = toStd(file.startsWith(m_folder) ? file.mid(m_folder.size()) : file);
    }
    return m_shownFile;
}

} // namespace Cli
