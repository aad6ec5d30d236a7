#include "cli/netlisting.h"

#include "cli/json.h"
#include "model/quarry/rtlmodule.h"

#include <algorithm>
#include <charconv>

using QUARRY::RtlModule;

namespace Cli {
namespace {

std::string quoted(const QString &text)
{
    return Json(toStd(text)).dump(-1, ' ', false, Json::error_handler_t::replace);
}

void append(std::string &out, const QChar *text, int length)
{
    const size_t before = out.size();
    out.resize(before + size_t(length));
    for (int i = 0; i < length; ++i) {
        if (text[i].unicode() >= 128) {
            out.replace(before, std::string::npos, toStd(QString(text, length)));
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

QString shortName(const RtlModule &module, const RtlModule::Entry &entry)
{
    return entry.isBus ? module.busName(entry, nullptr) : module.netName(entry.firstSlot, nullptr);
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

void NetListing::print(const QList<QUARRY::RtlNet *> &nets, const QList<QUARRY::RtlNetBus *> &buses)
{
    if (m_form == JsonLines)
        write("[");
    m_separator = "";
    for (const QUARRY::RtlNetBus *bus : buses)
        printEntry(*bus->module(), bus->entry(), bus->excluded);
    for (int i = 0; i < nets.size(); ++i) {
        // The nets of a result lie far apart: without this, most of the time goes into waiting for memory.
        __builtin_prefetch(nets.at(qMin(i + 16, nets.size() - 1)));
        const QUARRY::RtlNet &net = *nets.at(i);
        printEntry(*net.module(), net.module()->declarations().entryNumber(net.slot()), net.excluded);
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
    Place &place = (*m_places)[number];
    if (place.length == 0) {
        place.begin = m_texts.size();
        if (m_form == Lines)
            appendLine(node.declarations(), number);
        else
            appendJson(node.declarations(), number);
        m_texts += m_ends[false];
        place.length = m_texts.size() - place.begin;
    }
    const std::string &excludedEnd = m_ends[true];
    char *out = m_out.room(1 + m_head.size() + place.length + excludedEnd.size());
    char *const begin = out;
    if (*m_separator)
        *out++ = *m_separator;
    out = std::copy_n(m_head.data(), m_head.size(), out);
    out = std::copy_n(m_texts.data() + place.begin, place.length, out);
    if (excluded)
        out = std::copy_n(excludedEnd.data(), excludedEnd.size(), out - m_ends[false].size());
    m_out.use(size_t(out - begin));
    if (m_form == JsonLines)
        m_separator = ",";
}

void NetListing::setNode(const QUARRY::Hierachy &node)
{
    m_node = &node;
    m_places = &m_modules[&node.declarations()];
    m_places->resize(node.declarations().entries().size());
    if (m_form == Lines) {
        m_head = m_indent;
        append(m_head, node.fullPathName().constData(), node.fullPathName().size());
    } else {
        // The closing quotes come behind the short name.
        m_head = "\n" + m_indent + "  {\"name\": " + quoted(node.fullPathName());
        m_head.pop_back();
    }
    m_head += '/';
}

void NetListing::appendLine(const RtlModule &module, quint32 number)
{
    const RtlModule::Entry &entry = module.entries()[number];
    const std::string &file = shownFile(module.info(number).file);
    std::string &text = m_texts;
    append(text, module.text(entry), int(entry.textLength));
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
    append(text, module.info(number).line);
}

void NetListing::appendJson(const RtlModule &module, quint32 number)
{
    const RtlModule::Entry &entry = module.entries()[number];
    const QUARRY::Declaration &info = module.info(number);
    std::string &text = m_texts;
    text += quoted(shortName(module, entry)).substr(1);
    text += ", \"width\": " + std::to_string(entry.width());
    text += std::string(", \"bus\": ") + (entry.isBus ? "true" : "false");
    text += ", \"file\": " + quoted(fromStd(shownFile(info.file)));
    text += ", \"line\": " + std::to_string(info.line) + ", \"type\": " + quoted(info.type);
    text += ", \"enumLabels\": " + toJson(info.enumLabels).dump() + ", \"excluded\": ";
}

const std::string &NetListing::shownFile(const QString &file)
{
    if (!file.isSharedWith(m_file) && file != m_file) {
        m_file = file;
        m_shownFile = toStd(file.startsWith(m_folder) ? file.mid(m_folder.size()) : file);
    }
    return m_shownFile;
}

} // namespace Cli
