#include "cli/netlisting.h"

#include "cli/json.h"
#include "model/netlist/rtlmodule.h"

#include <algorithm>
#include <charconv>

using QUARRY::RtlModule;

namespace Cli {
namespace {

std::string quoted(const QString &text)
{
    return Json(QUtil::toUtf8(text)).dump(-1, ' ', false, Json::error_handler_t::replace);
}

void append(std::string &out, const QChar *text, int length)
{
    const size_t before = out.size();
    out.resize(before + size_t(length));
    for (int i = 0; i < length; ++i) {
        if (text[i].unicode() >= 128) {
            out.replace(before, std::string::npos, QUtil::toUtf8(QString(text, length)));
            return;
        }
        out[before + size_t(i)] = char(text[i].unicode());
    }
}

void append(std::string &out, int number)
{
    char digits[12];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

} // namespace

NetListing::NetListing(Form form, const QString &folder, Output &out)
    : m_form(form), m_folder(folder + '/'), m_out(out)
{
    if (form == Lines) {
        m_ends[false] = "\n";
        m_ends[true] = "\texcluded\n";
    } else {
        m_ends[false] = "false}";
        m_ends[true] = "true}";
    }
}

bool NetListing::printMatches(QUARRY::RtlNetlist *netlist, const RTLJEX::SearchOptions &search)
{
    std::vector<WaitingNets> waiting;
    std::vector<quint32> numbers; // of their entries, doubled, plus one for an excluded net
    bool found = false;
    RTLJEX::visitNets(netlist, search, [&](const Nets &nets, const Buses &buses) {
        found = found || !nets.isEmpty() || !buses.isEmpty();
        add(Nets(), buses);
        if (nets.isEmpty())
            return;
        waiting.push_back({nets.first()->module(), nets.size()});
        setNode(*waiting.back().node);
        for (const QUARRY::RtlNet *net : nets) {
            const quint32 number = m_node->declarations().entryNumber(net->slot());
            textOf(number);
            numbers.push_back(2 * number + (net->excluded ? 1 : 0));
        }
    });
    const quint32 *next = numbers.data();
    for (const WaitingNets &nets : waiting) {
        setNode(*nets.node);
        for (const quint32 *const end = next + nets.count; next != end; ++next)
            printEntry(*next / 2, *next % 2 != 0);
    }
    close();
    return found;
}

// The list, which an entry opened if there was one.
void NetListing::close()
{
    if (m_form == JsonLines)
        write(m_isOpen ? "\n" + m_indent + "]" : "[]");
    m_isOpen = false;
}

void NetListing::add(const Nets &nets, const Buses &buses)
{
    for (const QUARRY::RtlNetBus *bus : buses) {
        setNode(*bus->module());
        printEntry(bus->entry(), bus->excluded);
    }
    for (const QUARRY::RtlNet *net : nets) {
        setNode(*net->module());
        printEntry(m_node->declarations().entryNumber(net->slot()), net->excluded);
    }
}

void NetListing::printTree(const RTLJEX::ModuleForWidget &module)
{
    const std::string indent = m_indent;
    if (m_form == Lines) {
        write(m_indent + QUtil::toUtf8(module.name) + '\n');
        m_indent += "  ";
        m_node = nullptr;
        add(module.nets, module.buses);
        for (const RTLJEX::ModuleForWidget &child : module.subModules)
            printTree(child);
    } else {
        write("{\"module\": " + quoted(module.name) + ", \"nets\": ");
        m_indent += "  ";
        m_node = nullptr;
        add(module.nets, module.buses);
        close();
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

const NetListing::Place &NetListing::textOf(quint32 number)
{
    Place &place = (*m_places)[number];
    if (place.length == 0) {
        place.begin = m_texts.size();
        if (m_form == Lines)
            appendLine(m_node->declarations(), number);
        else
            appendJson(m_node->declarations(), number);
        m_texts += m_ends[false];
        place.length = m_texts.size() - place.begin;
    }
    return place;
}

void NetListing::printEntry(quint32 number, bool excluded)
{
    if (m_head.empty())
        makeHead();
    const Place &place = textOf(number);
    const std::string &excludedEnd = m_ends[true];
    char *out = m_out.room(1 + m_head.size() + place.length + excludedEnd.size());
    char *const begin = out;
    if (m_form == JsonLines) {
        *out++ = m_isOpen ? ',' : '[';
        m_isOpen = true;
    }
    out = std::copy_n(m_head.data(), m_head.size(), out);
    out = std::copy_n(m_texts.data() + place.begin, place.length, out);
    if (excluded)
        out = std::copy_n(excludedEnd.data(), excludedEnd.size(), out - m_ends[false].size());
    m_out.use(size_t(out - begin));
}

void NetListing::setNode(const QUARRY::Hierachy &node)
{
    if (&node == m_node)
        return;
    m_node = &node;
    m_head.clear();
    m_places = &m_modules[&node.declarations()];
    m_places->resize(node.declarations().entries().size());
}

void NetListing::makeHead()
{
    const QString &path = m_node->fullPathName();
    if (m_form == Lines) {
        m_head = m_indent;
        append(m_head, path.constData(), path.size());
    } else {
        // The closing quotes come behind the short name.
        m_head = "\n" + m_indent + "  {\"name\": " + quoted(path);
        m_head.pop_back();
    }
    m_head += '/';
}

void NetListing::appendLine(const RtlModule &module, quint32 number)
{
    const RtlModule::Entry &entry = module.entries()[number];
    const std::string &file = shownFile(module.kind(number).file);
    std::string &text = m_texts;
    append(text, module.nameOf(entry), int(entry.textLength));
    if (entry.isBus) {
        QChar range[RtlModule::rangeRoom];
        append(text, range, RtlModule::writeRange(entry, range));
    }
    text += '\t';
    append(text, entry.width());
    text += '\t';
    if (file.empty()) {
        text += '-';
        return;
    }
    text += file;
    text += ':';
    append(text, module.line(number));
}

void NetListing::appendJson(const RtlModule &module, quint32 number)
{
    const RtlModule::Entry &entry = module.entries()[number];
    const QUARRY::Declaration info = module.info(number);
    std::string &text = m_texts;
    text += quoted(module.shortName(entry)).substr(1);
    text += ", \"width\": " + std::to_string(entry.width());
    text += std::string(", \"bus\": ") + (entry.isBus ? "true" : "false");
    text += ", \"file\": " + quoted(QUtil::fromUtf8(shownFile(info.file)));
    text += ", \"line\": " + std::to_string(info.line) + ", \"type\": " + quoted(info.type);
    text += ", \"enumLabels\": " + toJson(info.enumLabels).dump();
    if (!info.members.isEmpty())
        text += ", \"members\": " + toJson(info.members).dump();
    text += ", \"excluded\": ";
}

const std::string &NetListing::shownFile(const QString &file)
{
    if (!file.isSharedWith(m_file) && file != m_file) {
        m_file = file;
        m_shownFile = QUtil::toUtf8(file.startsWith(m_folder) ? file.mid(m_folder.size()) : file);
    }
    return m_shownFile;
}

} // namespace Cli
